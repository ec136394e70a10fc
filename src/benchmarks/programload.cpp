// SPDX-License-Identifier: GPL-3.0-or-later
// programload STATE DEVICE [SECONDS]
// Builds the program with its window in the current folder, drives it into a state through its own menus, buttons and
// tabs, and prints what it measures there, "name value" a line. States:
//     idle                            connected, nothing to do: processor share and wake-ups
//     wait-prompt                     the same while "Apply Settings" waits for a silent instrument
//     wait-shutter                    the same while the shutter moves
//     run-sheet, run-status           a run with 19000 rows on the sheet, that page shown: processor share
//     run-graph                       the same with the graphical page, which follows the newest rows; with "-all" it
//                                     shows all, with "-time" over the time, with "-stacked" or "-change" arranged so
//     download-file, download-sheet   a whole download: its time over that of its bytes at 9600 baud
//     delay                           the run with the sheet shown: from a line's LF to its row; the instrument of
//                                     DEVICE, which is to send its lines whole, is served here
//     memory                          20000 rows shown on the sheet: megabytes over the empty sheet (DEVICE unused)
// DEVICE is what --com1 takes; an instrument in a process of its own (orvsim) keeps its cost out of the figures.
#include "app/driver.h"
#include "benchmarks/fullsheet.h"
#include "benchmarks/memoryinuse.h"
#include "benchmarks/timedinstrument.h"
#include "program/devices.h"
#include "ui/settingswindow.h"

#include <QAction>
#include <QComboBox>
#include <QTabBar>
#include <QTableView>
#include <QTextStream>

#include <sys/resource.h>

namespace orv {

namespace {

constexpr int settleTime = 2000; ///< Milliseconds from reaching a state to measuring it.
constexpr int rowsBeforeRun = 19000;

/// What passes on the line.
struct Traffic {
    qint64 received = 0; ///< Characters.
    bool deaf = false;   ///< The instrument does not get what it is sent.
};

/// A port that counts.
class CountingPort final : public Port {
public:
    CountingPort(std::unique_ptr<Port> port, Traffic& traffic)
        : port_(std::move(port))
        , traffic_(traffic)
        , stirring_(port_->stirred.subscribe([this] { stirred.tell(); })) {}

    Words open() override { return port_->open(); }
    void close() override { port_->close(); }
    bool isOpen() const override { return port_->isOpen(); }
    void setDataTerminalReady(bool on) override { port_->setDataTerminalReady(on); }
    QByteArray readAll() override {
        QByteArray block = port_->readAll();
        traffic_.received += block.size();
        return block;
    }
    void write(const QByteArray& bytes) override { port_->write(traffic_.deaf ? QByteArray() : bytes); }
    QByteArray discardInput() override { return port_->discardInput(); }
    qsizetype inputCount() override { return port_->inputCount(); }
    void expectRestOfLine(qsizetype characters) override { port_->expectRestOfLine(characters); }
    Words failure() const override { return port_->failure(); }

private:
    std::unique_ptr<Port> port_;
    Traffic& traffic_;
    Subscription stirring_;
};

/// Chooses a file as an operator would.
class ChosenFile final : public OperatorQuestions {
public:
    [[nodiscard]] Subscription ask(const Question& question, Answered answered) override {
        answered(question.kind == Question::Kind::YesNo ? Question::no() : question.presetName);
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

/// What the process has used so far.
struct Usage {
    Usage() {
        constexpr double microsecond = 1e-6;
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        processor = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                    static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) * microsecond;
        wakeUps = usage.ru_nvcsw;
    }

    double processor = 0.0; ///< Seconds.
    long wakeUps = 0;       ///< It went to sleep so often.
    double wall = wallSeconds();
};

void print(const char* name, double value) {
    QTextStream(stdout) << name << ' ' << QString::number(value, 'f', 3) << Qt::endl;
}

/// Prints what part of a core the process has taken since then, in per cent, and how often a second it woke up.
void printSince(const Usage& before) {
    constexpr double whole = 100.0;
    const Usage now;
    const double seconds = now.wall - before.wall;
    print("share_percent", whole * (now.processor - before.processor) / seconds);
    print("wakeups_per_second", static_cast<double>(now.wakeUps - before.wakeUps) / seconds);
}

class Load {
public:
    Load(const QString& device, int seconds)
        : device_(device)
        , milliseconds_(seconds * 1000) {
        messages_.setParent(&window_);
    }

    int run(const QString& state) {
        const int status = driver_.run([this, state] { return measure(state); });
        program_.end();
        return status;
    }

private:
    Task<> measure(QString state) {
        window_.show();
        window_.prepareAllPages();
        program_.load();
        if (state == QLatin1String("memory")) {
            co_await memory();
            co_return;
        }
        if (state == QLatin1String("delay")) {
            timed_ = std::make_unique<TimedInstrument>(device_);
            device_ = timed_->path;
        }
        program_.link.ports.setDevice(1, device_);
        co_await connect();
        if (state == QLatin1String("idle")) {
            co_await share(milliseconds_);
        } else if (state == QLatin1String("wait-prompt")) {
            co_await waitForPrompt();
        } else if (state == QLatin1String("wait-shutter")) {
            co_await waitForShutter();
        } else if (state == QLatin1String("run-sheet")) {
            co_await collect(1);
        } else if (state == QLatin1String("run-status")) {
            co_await collect(0);
        } else if (state.startsWith(QLatin1String("run-graph"))) {
            const QStringList wishes = state.split(u'-').mid(2);
            choose("PlotAxis", wishes.contains(QLatin1String("time")) ? 1 : 0);
            choose("PlotArrangement", wishes.contains(QLatin1String("stacked"))  ? 1
                                      : wishes.contains(QLatin1String("change")) ? 2
                                                                                 : 0);
            co_await collect(2, wishes.contains(QLatin1String("all")) ? "ShowAll" : nullptr);
        } else if (state == QLatin1String("delay")) {
            co_await delay();
        } else if (state == QLatin1String("download-file")) {
            co_await download("DownloadText");
        } else if (state == QLatin1String("download-sheet")) {
            co_await download("DownloadView");
        } else {
            throw Driver::Failure(QStringLiteral("there is no state %1").arg(state));
        }
    }

    void choose(const char* list, int index) { driver_.find<QComboBox>(list).setCurrentIndex(index); }

    Task<> waitFor(const char* what, std::function<bool()> reached, int limit = Driver::connectLimit) {
        const QString text = QLatin1String(what);
        co_await driver_.waitFor(text, limit, reached);
    }

    Task<> connect() {
        const QString connecting = QStringLiteral("Connecting");
        driver_.find<QAction>("AutoConnect1").trigger();
        co_await driver_.waitUntilReady(connecting);
        co_await driver_.pause(settleTime);
    }

    Task<> share(int milliseconds) {
        const Usage before;
        co_await driver_.pause(milliseconds);
        printSince(before);
    }

    Task<> waitForPrompt() {
        constexpr int drawing = 1000; // the dialog appears, which is no part of the wait
        constexpr int within = 3000;  // it is given up after 5 s
        change(program_.settings.shown.record, [](LoggerSettings& record) { record.logEnabled = false; });
        traffic_.deaf = true;
        Driver::click(Driver::find<QAbstractButton>(*window_.settingsWindow(), QStringLiteral("ApplySettings")));
        co_await driver_.pause(drawing);
        co_await share(std::min(milliseconds_, within));
        if (program_.link.session.commands.activity.value() != Activity::Sending) {
            throw Driver::Failure(QStringLiteral("nothing was waited for"));
        }
    }

    Task<> waitForShutter() {
        constexpr int within = 25000; // the shutter has 30 s
        driver_.click("ResetShutterButton");
        const std::function<bool()> moves = [this] {
            return program_.link.session.status.shutterProgress.value().startsWith(QLatin1String("Moving"));
        };
        co_await waitFor("Resetting the shutter", moves);
        co_await share(std::min(milliseconds_, within));
    }

    void showPage(int index) { driver_.find<QTabBar>("TabStrip1").setCurrentIndex(index); }

    /// Begins a run on a full sheet and shows the page. `button` is pressed there once rows come.
    Task<> beginRun(int page, const char* button) {
        fillTo(program_.sheet.data, rowsBeforeRun, program_.sheet.data.type().layout());
        program_.sheet.shown.counter = QString::number(rowsBeforeRun);
        showPage(0);
        driver_.click("Command2");
        showPage(page);
        const std::function<bool()> runs = [this] { return program_.link.session.state.plc > rowsBeforeRun; };
        co_await waitFor("Running", runs);
        if (button != nullptr) {
            driver_.click(button);
        }
        co_await driver_.pause(settleTime);
    }

    Task<> collect(int page, const char* button = nullptr) {
        co_await beginRun(page, button);
        const PaintCount paints(driver_.find<QTableView>("fg1").viewport());
        const PaintCount plotPaints(&driver_.find<QWidget>("Plot"));
        const int rows = program_.link.session.state.plc;
        co_await share(milliseconds_);
        const auto perSecond = [this](int count) { return count * 1000.0 / milliseconds_; };
        print("rows_per_second", perSecond(program_.link.session.state.plc - rows));
        print("grid_paints_per_second", perSecond(paints.count));
        print("plot_paints_per_second", perSecond(plotPaints.count));
    }

    Task<> delay() {
        std::vector<double> rows;
        timed_->takeMoments();
        const Subscription noting =
            program_.sheet.data.rowAppended.subscribe([&rows] { rows.push_back(wallSeconds()); });
        const auto beforeRun = static_cast<std::size_t>(rowsBeforeRun - program_.sheet.data.rowCount());
        co_await beginRun(1, nullptr);
        co_await driver_.pause(milliseconds_);
        const std::vector<double> lines = timed_->takeMoments();
        rows.erase(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(beforeRun));
        constexpr std::size_t onTheWay = 10; // as many may be, if the computer was busy at the end
        if (rows.size() > lines.size() || rows.size() + onTheWay < lines.size()) {
            throw Driver::Failure(QStringLiteral("%1 lines, %2 rows").arg(lines.size()).arg(rows.size()));
        }
        for (std::size_t row = 0; row < rows.size(); ++row) {
            rows[row] -= lines[row];
        }
        std::ranges::sort(rows);
        constexpr double millisecond = 1000.0;
        print("delay_p50_ms", rows[rows.size() / 2] * millisecond);
        print("delay_p99_ms", rows[rows.size() * 99 / 100] * millisecond);
        print("delay_most_ms", rows.back() * millisecond);
    }

    Task<> download(const char* item) {
        constexpr double charactersPerSecond = 960.0;
        constexpr int longest = 600000;
        const qint64 bytesBefore = traffic_.received;
        double end = 0.0;
        const auto notifier = program_.link.session.commands.activity.onValueChanged([this, &end] {
            if (program_.link.session.commands.activity.value() == Activity::None) {
                end = wallSeconds();
            }
        });
        const Usage before;
        driver_.find<QAction>(item).trigger();
        const std::function<bool()> ended = [&end] { return end > 0.0; };
        co_await waitFor("Downloading", ended, longest);
        printSince(before);
        const auto bytes = static_cast<double>(traffic_.received - bytesBefore);
        print("bytes", bytes);
        print("seconds", end - before.wall);
        print("over_line", (end - before.wall) / (bytes / charactersPerSecond));
    }

    Task<> memory() {
        layOut(program_.sheet.data);
        showPage(1);
        co_await driver_.pause(settleTime);
        const double before = residentMegabytes();
        print("empty_MB", before);
        fillTo(program_.sheet.data, fullSheetRows);
        program_.sheet.shown.counter = QString::number(fullSheetRows);
        auto& grid = driver_.find<QTableView>("fg1");
        co_await driver_.pause(settleTime);
        // Every part of the table comes to be seen once.
        for (int row = 0; row < fullSheetRows; row += 100) {
            grid.scrollTo(grid.model()->index(row, 0), QAbstractItemView::PositionAtTop);
            co_await driver_.pause(1);
        }
        program_.sheet.shown.topRow = fullSheetRows - 10;
        co_await driver_.pause(settleTime);
        print("full_sheet_MB", residentMegabytes() - before);
    }

    QString device_;
    int milliseconds_; ///< Of a measurement.
    Traffic traffic_;
    std::unique_ptr<TimedInstrument> timed_; ///< For `delay`.
    SystemClock clock_;
    MessageBoxes messages_;
    ChosenFile questions_;
    Program program_{
        {.clock = clock_, .messages = messages_, .questions = questions_, .makePort = [this](const QString& device) {
             return std::make_unique<CountingPort>(makePort(device, clock_), traffic_);
         }}};
    MainWindow window_{program_};
    Driver driver_{program_, window_, messages_};
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
    orv::Load load(arguments[2], std::max(seconds, 1));
    return load.run(arguments[1]);
}
