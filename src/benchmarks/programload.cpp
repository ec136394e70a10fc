// SPDX-License-Identifier: GPL-3.0-or-later
// programload STATE DEVICE [SECONDS]
// Builds the program with its window in the current folder, drives it into a state through its own menus, buttons and
// tabs, and prints what it measures there, "name value" a line. States:
//     idle                            connected, nothing to do: processor share
//     wait                            the same inside waits of 1 s
//     run-sheet, run-status           a run with 19000 rows on the sheet, that page shown: processor share
//     run-graph, run-graph-all        the same with the graphical page, which follows the newest rows or shows all
//     download-file, download-sheet   a whole download: its time over that of its bytes at 9600 baud
//     memory                          20000 rows shown on the sheet: megabytes over the empty sheet (DEVICE unused)
// DEVICE is what --com1 takes; an instrument in a process of its own (orvsim) keeps its cost out of the figures.
#include "app/commandline.h"
#include "benchmarks/fullsheet.h"
#include "benchmarks/memoryinuse.h"
#include "ui/mainwindow.h"
#include "ui/messageboxes.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTabBar>
#include <QTableView>
#include <QTextStream>
#include <QTimer>

#include <chrono>
#include <stdexcept>

#include <sys/resource.h>

namespace orv {

namespace {

constexpr int connectLimit = 20000; ///< Milliseconds.
constexpr int settleTime = 2000;    ///< Milliseconds from reaching a state to measuring it.
constexpr int rowsBeforeRun = 19000;

class Failure final : public std::runtime_error {
public:
    explicit Failure(const QString& text)
        : std::runtime_error(text.toStdString()) {}
};

/// Counts the characters that pass from the far end to the program.
class CountingPort final : public Port {
public:
    CountingPort(std::unique_ptr<Port> port, qint64& received)
        : port_(std::move(port))
        , received_(received) {}

    QString open() override { return port_->open(); }
    void close() override { port_->close(); }
    bool isOpen() const override { return port_->isOpen(); }
    void setDataTerminalReady(bool on) override { port_->setDataTerminalReady(on); }
    QByteArray readAll() override {
        QByteArray block = port_->readAll();
        received_ += block.size();
        return block;
    }
    void write(const QByteArray& bytes) override { port_->write(bytes); }
    void discardInput() override { port_->discardInput(); }
    qsizetype inputCount() override { return port_->inputCount(); }
    bool waitForInput(int milliseconds) override { return port_->waitForInput(milliseconds); }
    QString failure() const override { return port_->failure(); }

private:
    std::unique_ptr<Port> port_;
    qint64& received_;
};

/// Chooses a file as an operator would.
class ChosenFile final : public OperatorQuestions {
public:
    bool askYesNo(const QString& /*title*/, const QString& /*text*/) override { return false; }
    QString saveFileName(const QString& /*title*/, const QString& presetName, const QString& /*suffix*/,
                         const QString& /*filter*/) override {
        return presetName;
    }
    QString openFileName(const QString& /*title*/, const QString& /*suffix*/, const QString& /*filter*/) override {
        return {};
    }
};

/// Counts how often a widget is painted.
class PaintCount final : public QObject {
public:
    explicit PaintCount(QWidget* widget) { widget->installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

double processorSeconds() {
    constexpr double microsecond = 1e-6;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) * microsecond;
}

double wallSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void print(const char* name, double value) {
    QTextStream(stdout) << name << ' ' << QString::number(value, 'f', 3) << Qt::endl;
}

class Load {
public:
    Load(const QString& device, int seconds)
        : seconds_(seconds) {
        program_.link.ports.setDevice(1, device);
        messages_.setParent(&window_);
        told_ = messages_.told.subscribe([this](const Message& message) { lastMessage_ = message.text; });
    }

    void measure(const QString& state) {
        window_.show();
        window_.prepareAllPages();
        program_.load();
        if (state == QLatin1String("memory")) {
            memory();
            return;
        }
        connect();
        if (state == QLatin1String("idle")) {
            share([this] { live(seconds_ * 1000); });
        } else if (state == QLatin1String("wait")) {
            share([this] {
                for (int i = 0; i < seconds_; ++i) {
                    program_.link.wait.waitsec(1.0F);
                }
            });
        } else if (state == QLatin1String("run-sheet")) {
            run(1);
        } else if (state == QLatin1String("run-status")) {
            run(0);
        } else if (state == QLatin1String("run-graph")) {
            run(2);
        } else if (state == QLatin1String("run-graph-all")) {
            run(2, "ShowAll");
        } else if (state == QLatin1String("download-file")) {
            download("DownloadText");
        } else if (state == QLatin1String("download-sheet")) {
            download("DownloadView");
        } else {
            throw Failure(QStringLiteral("there is no state %1").arg(state));
        }
    }

    void end() { program_.end(); }

private:
    /// The event loop for so long.
    static void live(int milliseconds) {
        QEventLoop loop;
        QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        loop.exec();
    }

    template <typename Condition>
    void waitFor(const char* what, int milliseconds, Condition reached) {
        QElapsedTimer timer;
        timer.start();
        while (!reached()) {
            if (!lastMessage_.isEmpty() || timer.elapsed() > milliseconds) {
                throw Failure(QStringLiteral("%1: %2 %3")
                                  .arg(QLatin1String(what), program_.link.session.status.status.value(), lastMessage_));
            }
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        }
    }

    template <typename Object>
    Object* find(const char* name) {
        auto* object = window_.findChild<Object*>(QLatin1String(name));
        if (object == nullptr) {
            throw Failure(QStringLiteral("the window has no %1").arg(QLatin1String(name)));
        }
        return object;
    }

    void connect() {
        find<QAction>("AutoConnect1")->trigger();
        waitFor("Connecting", connectLimit, [this] {
            return program_.link.session.status.status.value() == QLatin1String("Ready") &&
                   program_.link.session.state.Ctrlscrn == Operation::SettingsOpen;
        });
        live(settleTime);
    }

    /// Prints what part of a core the process takes, in per cent.
    template <typename Body>
    void share(Body body) {
        const double processor = processorSeconds();
        const double wall = wallSeconds();
        body();
        constexpr double whole = 100.0;
        print("share_percent", whole * (processorSeconds() - processor) / (wallSeconds() - wall));
    }

    void showPage(int index) { find<QTabBar>("TabStrip1")->setCurrentIndex(index); }

    /// `button` is pressed on the page once rows come.
    void run(int page, const char* button = nullptr) {
        fillTo(program_.sheet.data, rowsBeforeRun, program_.sheet.data.type().layout());
        program_.sheet.shown.counter = QString::number(rowsBeforeRun);
        showPage(0);
        find<QPushButton>("Command2")->click();
        showPage(page);
        waitFor("Running", connectLimit, [this] { return program_.link.session.state.plc > rowsBeforeRun; });
        if (button != nullptr) {
            find<QPushButton>(button)->click();
        }
        live(settleTime);
        const PaintCount paints(find<QTableView>("fg1")->viewport());
        const PaintCount plotPaints(find<QWidget>("Plot"));
        const int rows = program_.link.session.state.plc;
        share([this] { live(seconds_ * 1000); });
        print("rows_per_second", double(program_.link.session.state.plc - rows) / seconds_);
        print("grid_paints_per_second", double(paints.count) / seconds_);
        print("plot_paints_per_second", double(plotPaints.count) / seconds_);
    }

    void download(const char* item) {
        constexpr double charactersPerSecond = 960.0;
        constexpr int longest = 600000;
        const qint64 before = received_;
        double end = 0.0;
        const auto notifier = program_.link.session.commands.activity.onValueChanged([this, &end] {
            if (program_.link.session.commands.activity.value() == Activity::None) {
                end = wallSeconds();
            }
        });
        const double processor = processorSeconds();
        const double start = wallSeconds();
        find<QAction>(item)->trigger();
        waitFor("Downloading", longest, [&end] { return end > 0.0; });
        constexpr double whole = 100.0;
        print("share_percent", whole * (processorSeconds() - processor) / (end - start));
        const auto bytes = static_cast<double>(received_ - before);
        print("bytes", bytes);
        print("seconds", end - start);
        print("over_line", (end - start) / (bytes / charactersPerSecond));
    }

    void memory() {
        layOut(program_.sheet.data);
        showPage(1);
        live(settleTime);
        const double before = residentMegabytes();
        print("empty_MB", before);
        fillTo(program_.sheet.data, fullSheetRows);
        program_.sheet.shown.counter = QString::number(fullSheetRows);
        auto* grid = find<QTableView>("fg1");
        live(settleTime);
        // Every part of the table comes to be seen once.
        for (int row = 0; row < fullSheetRows; row += 100) {
            grid->scrollTo(grid->model()->index(row, 0), QAbstractItemView::PositionAtTop);
            QCoreApplication::processEvents();
        }
        program_.sheet.shown.topRow = fullSheetRows - 10;
        live(settleTime);
        print("full_sheet_MB", residentMegabytes() - before);
    }

    int seconds_;
    qint64 received_ = 0;
    QString lastMessage_;
    Subscription told_;
    SystemClock clock_;
    WindowEvents events_;
    MessageBoxes messages_;
    ChosenFile questions_;
    Program program_{{.clock = clock_,
                      .events = events_,
                      .messages = messages_,
                      .questions = questions_,
                      .makePort = [this](const QString& device) {
                          return std::make_unique<CountingPort>(makePort(device, clock_), received_);
                      }}};
    MainWindow window_{program_, events_};
};

} // namespace

} // namespace orv

int main(int argc, char** argv) {
    constexpr int wrongUsage = 2;
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3) {
        QTextStream(stderr) << "usage: programload STATE DEVICE [SECONDS]" << Qt::endl;
        return wrongUsage;
    }
    constexpr int usualSeconds = 15;
    const int seconds = arguments.size() > 3 ? arguments[3].toInt() : usualSeconds;
    try {
        orv::Load load(arguments[2], std::max(seconds, 1));
        load.measure(arguments[1]);
        load.end();
    } catch (const std::exception& failure) {
        QTextStream(stderr) << "programload: " << failure.what() << Qt::endl;
        return 1;
    }
    return 0;
}
