// SPDX-License-Identifier: GPL-3.0-or-later
// A program for this project's own use: drives the whole program on simulated instruments and takes a picture of each
// page and dialog, for the guide and for looking at.
#include "app/commandline.h"
#include "link/port.h"
#include "ui/mainwindow.h"
#include "ui/messageboxes.h"
#include "ui/settingswindow.h"
#include "ui/style.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QTextStream>
#include <QTimer>

#include <stdexcept>

namespace orv {

namespace {

constexpr int limit = 240000; ///< Milliseconds for one step, on a computer busy with other work.

/// A clock that goes on by a few milliseconds whenever it is looked at, so that every picture shows the same date, time
/// and rows whenever and wherever it is taken.
class CountedClock final : public Clock {
public:
    QDateTime now() const override { return start_.addMSecs(monotonicMilliseconds()); }
    qint64 monotonicMilliseconds() const override {
        constexpr qint64 step = 5;
        return elapsed_ += step;
    }

private:
    QDateTime start_{QDate(2026, 11, 21), QTime(9, 30, 15)};
    mutable qint64 elapsed_ = 0;
};

/// The ports of a computer with two serial adapters.
class TwoAdapters final : public PortList {
public:
    std::vector<ListedPort> ports() override {
        const QString adapter = QStringLiteral("USB Serial Converter");
        return {{QStringLiteral("ttyS0"), {}, {}},
                {QStringLiteral("ttyUSB0"), adapter, {}},
                {QStringLiteral("ttyUSB1"), adapter, {}}};
    }
    bool mayHaveChanged() override { return false; }
};

QPalette darkPalette() {
    const QColor window(45, 45, 48);
    const QColor base(30, 30, 32);
    const QColor text(228, 228, 228);
    QPalette palette(text, window.lighter(125), window.lighter(180), window.darker(180), window.darker(130), text,
                     Qt::white, base, window);
    palette.setColor(QPalette::AlternateBase, QColor(38, 38, 41));
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, QColor(150, 150, 150));
    palette.setColor(QPalette::Highlight, QColor(38, 110, 190));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(90, 170, 250));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(125, 125, 125));
    }
    return palette;
}

/// Folders of its own, emptied: their paths on the pictures of dialogs are always the same.
QString emptyFolder(const char* name) {
    QString path = QDir::temp().absoluteFilePath(QStringLiteral("orv-pictures/") + QString::fromLatin1(name));
    QDir(path).removeRecursively();
    if (!QDir().mkpath(path)) {
        throw std::runtime_error("cannot make " + path.toStdString());
    }
    return path;
}

class Pictures {
public:
    /// `crashFolder` gets, and for the recovery has, what a crash in the middle of a run leaves.
    Pictures(Program& program, MainWindow& window, QString folder, QString crashFolder)
        : program_(program)
        , window_(window)
        , folder_(std::move(folder))
        , crashFolder_(std::move(crashFolder)) {}

    void take() {
        program_.load();
        window_.show();
        window_.prepareAllPages();
        take(window_, "offline");
        takePorts();
        takeConnected();
        takeRun();
        takeDownload();
        takeCalibration();
        takeSaving();
        takeManual();
        takeGlow();
        takeAbout();
    }

    /// In a folder that a crash has left; by a program of its own.
    void takeRecovery() {
        program_.load();
        window_.show();
        takeNextDialog("recovery", [](QDialog& question) {
            qobject_cast<QMessageBox*>(&question)->button(QMessageBox::Yes)->click();
        });
        program_.offerUnendedRun();
        if (session_.state.plc == 0) {
            throw std::runtime_error("no rows were offered");
        }
    }

private:
    template <typename Object>
    static Object& find(const QWidget& window, const QString& name = {}) {
        auto* found = window.findChild<Object*>(name);
        if (found == nullptr) {
            throw std::runtime_error("there is no " + name.toStdString() + " in the window");
        }
        return *found;
    }

    template <typename Condition>
    void waitFor(const char* what, Condition reached) {
        QElapsedTimer timer;
        timer.start();
        while (!reached()) {
            if (timer.elapsed() > limit) {
                throw std::runtime_error(std::string(what) + ": the status is " +
                                         session_.status.status.value().toStdString());
            }
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        }
    }

    void waitUntilReady() {
        waitFor("connecting", [this] {
            return session_.status.status.value() == QLatin1String("Ready") &&
                   session_.state.Ctrlscrn == Operation::SettingsOpen;
        });
    }

    void take(QWidget& widget, const char* name) {
        letDraw(name);
        save(widget.grab(), name);
    }

    void takeAndClose(QWidget& widget, const char* name) {
        take(widget, name);
        widget.close();
    }

    void letDraw(const char* name) {
        // What is drawn late, some time after its change, is to be on the picture.
        QElapsedTimer timer;
        timer.start();
        constexpr int late = 260;
        const Operation operation = session_.state.Ctrlscrn;
        const int interval = program_.link.timer.interval();
        program_.link.timer.setInterval(0);
        while (timer.elapsed() < late) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, late);
        }
        program_.link.timer.setInterval(interval);
        if (session_.state.Ctrlscrn != operation) {
            throw std::runtime_error(std::string(name) + ": the program has gone on while its picture was taken");
        }
    }

    void save(const QPixmap& picture, const char* name) {
        const QString path = folder_ + u'/' + QString::fromLatin1(name) + QStringLiteral(".png");
        constexpr int smallest = 0; // of the file, not of the picture's quality
        if (!picture.save(path, "PNG", smallest)) {
            throw std::runtime_error("cannot write " + path.toStdString());
        }
        QTextStream(stdout) << path << Qt::endl;
    }

    /// Chooses a page as its key does.
    void choosePage(Page page) {
        for (int number = 1; program_.pages.shown.value() != page; ++number) {
            find<QAction>(window_, QStringLiteral("ChoosePage%1").arg(number)).trigger();
        }
    }

    /// The upper part of the window with a chooser's list, which is a window of its own.
    void takePorts() {
        auto& chooser = find<QComboBox>(window_, QStringLiteral("PortChooser1"));
        chooser.showPopup();
        letDraw("ports");
        QWidget& list = *chooser.view()->window();
        QPixmap picture = window_.grab();
        const QPoint place = window_.mapFromGlobal(list.mapToGlobal(QPoint(0, 0)));
        QPainter(&picture).drawPixmap(place, list.grab());
        constexpr int margin = 24;
        const double height = (place.y() + list.height() + margin) * picture.devicePixelRatio();
        save(picture.copy(0, 0, picture.width(), static_cast<int>(height)), "ports");
        chooser.hidePopup();
    }

    void takeConnected() {
        program_.autoConnect1();
        waitUntilReady();
        take(window_, "status");
        SettingsWindow& settings = *window_.settingsWindow();
        const std::pair<const char*, const char*> tabs[] = {{"Modes", "settings-modes"},
                                                            {"Time and Date", "settings-time"},
                                                            {"Control Bits", "settings-bits"},
                                                            {"Sampling", "settings-sampling"},
                                                            {"Calibration", "settings-calibration-trx"}};
        for (const auto& [tab, name] : tabs) {
            settings.chooseTab(QString::fromLatin1(tab));
            take(settings, name);
        }
        find<QPushButton>(settings, QStringLiteral("ViewCurrentSettingsTranscribedAsText")).click();
        takeAndClose(find<QWidget>(settings, QStringLiteral("PlainEnglish")), "plain-english");
        settings.close();
    }

    void takeRun() {
        program_.toggleServiceMode();
        program_.link.debug.showParsing = true;
        program_.link.debug.rawBuffer = false;
        choosePage(Page::Debug);
        program_.run();
        constexpr int rows = 60;
        waitFor("collecting", [this] { return session_.state.plc >= rows; });
        take(window_, "debug");
        program_.toggleServiceMode();
        choosePage(Page::Status);
        take(window_, "run");
        keepAsAfterACrash();
        choosePage(Page::Sheet);
        take(window_, "sheet");
        choosePage(Page::Graphical);
        take(window_, "graphical");
        choosePage(Page::Status);
        program_.reset();
        waitUntilReady();
        window_.settingsWindow()->close();
    }

    void keepAsAfterACrash() {
        for (const char* name : {"Orvtemp.tmp", "Orvtemp.tmp.lock"}) {
            if (!QFile::copy(QString::fromLatin1(name), crashFolder_ + u'/' + QString::fromLatin1(name))) {
                throw std::runtime_error(std::string("cannot copy ") + name);
            }
        }
    }

    void takeDownload() {
        program_.clearAll();
        program_.vwhp();
        waitFor("downloading",
                [this] { return program_.settings.progress.value * 2 >= program_.settings.progress.maximum; });
        take(find<QWidget>(window_, QStringLiteral("Processing")), "processing");
        waitFor("downloading", [this] { return session_.commands.activity.value() == Activity::None; });
    }

    void takeCalibration() {
        program_.toggleServiceMode();
        choosePage(Page::Testing);
        take(window_, "testing");
        choosePage(Page::Calibration);
        CalibrationState& shown = program_.calibration.shown;
        for (const char* name : {"TRX 1042", "TRX 1043"}) {
            shown.instrumentName = QString::fromLatin1(name);
            shown.colour = LightColour::Red;
            program_.calibration.addInstrument();
        }
        program_.calibration.select(0);
        for (int row = 0; row < BoxGrid<referenceRows.size()>::rowCount; ++row) {
            for (int channel = 0; channel < channelCount; ++channel) {
                constexpr int step = 300;
                shown.reference.at(row, channel) = QString::number(step * (row + 1) + channel);
            }
        }
        for (const int row : {0, 1, 2}) {
            shown.selectedRow = row;
            program_.calibration.calcdp();
        }
        take(window_, "calibration");
        program_.toggleServiceMode();
    }

    /// Takes a picture of the dialog that comes up next and lets `answer` close it.
    void takeNextDialog(const char* name, const std::function<void(QDialog&)>& answer) {
        auto* wait = new QTimer(&window_);
        QObject::connect(wait, &QTimer::timeout, &window_, [this, wait, name, answer] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog != nullptr) {
                wait->deleteLater();
                wait->stop();
                take(*dialog, name);
                answer(*dialog);
            }
        });
        constexpr int often = 20;
        wait->start(often);
    }

    void takeSaving() {
        takeNextDialog("question", [this](QDialog& question) {
            takeNextDialog("save", [](QDialog& save) { save.reject(); });
            qobject_cast<QMessageBox*>(&question)->button(QMessageBox::Yes)->click();
        });
        program_.ask();
    }

    void takeManual() {
        program_.closePort();
        program_.manualConnect(1);
        take(find<QWidget>(window_, QStringLiteral("ManualConnection")), "manual-connection");
        program_.link.manual.quit();
        takeMessage();
    }

    void takeMessage() {
        const QString device = program_.link.ports.device(1);
        program_.link.ports.setDevice(1, QStringLiteral("/dev/ttyUSB7"));
        program_.autoConnect1();
        takeAndClose(find<QMessageBox>(window_), "message");
        program_.closePort();
        program_.link.ports.setDevice(1, device);
    }

    void takeGlow() {
        program_.clearAll();
        program_.autoConnect2();
        waitUntilReady();
        SettingsWindow& settings = *window_.settingsWindow();
        settings.chooseTab(QStringLiteral("Calibration"));
        takeAndClose(settings, "settings-calibration-glow");
        program_.closePort();
    }

    void takeAbout() {
        find<QAction>(window_, QStringLiteral("About")).trigger();
        takeAndClose(find<QDialog>(window_, QStringLiteral("AboutDialog")), "about");
    }

    Program& program_;
    Session& session_ = program_.link.session;
    MainWindow& window_;
    QString folder_;
    QString crashFolder_;
};

void enter(const QString& path) {
    if (!QDir::setCurrent(path)) {
        throw std::runtime_error("cannot enter " + path.toStdString());
    }
}

enum class Part { Work, Recovery };

void takePart(Part part, const QString& folder, const QString& crashFolder, const QSize& size) {
    CountedClock clock;
    WindowEvents events;
    MessageBoxes messages;
    QuestionDialogs questions;
    TwoAdapters adapters;
    Program program({.clock = clock,
                     .events = events,
                     .messages = messages,
                     .questions = questions,
                     .makePort = [&clock](const QString& device) { return makePort(device, clock); },
                     .portList = &adapters});
    program.link.ports.setDevice(1, QStringLiteral("sim:trx?rate=8&records=500"));
    program.link.ports.setDevice(2, QStringLiteral("sim:glow"));
    MainWindow window(program, events);
    messages.setParent(&window);
    questions.setParent(&window);
    if (!size.isEmpty()) {
        window.resize(size);
    }
    Pictures pictures(program, window, folder, crashFolder);
    if (part == Part::Work) {
        pictures.take();
    } else {
        pictures.takeRecovery();
    }
    program.end();
    events.endProgram();
}

void takePictures(const QString& folder, const QSize& size) {
    const QString crashFolder = emptyFolder("Crash");
    enter(emptyFolder("Documents"));
    takePart(Part::Work, folder, crashFolder, size);
    enter(crashFolder);
    takePart(Part::Recovery, folder, crashFolder, size);
}

} // namespace

} // namespace orv

int main(int argc, char** argv) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("orvpictures"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORV_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("Where the pictures go."));
    const QCommandLineOption dark(QStringLiteral("dark"), QStringLiteral("With dark colours."));
    const QCommandLineOption size(QStringLiteral("size"), QStringLiteral("Of the main window."),
                                  QStringLiteral("WIDTHxHEIGHT"));
    parser.addOptions({dark, size});
    parser.addHelpOption();
    parser.process(application);
    if (parser.positionalArguments().size() != 1) {
        parser.showHelp(2);
    }
    QApplication::setStyle(new orv::ProgramStyle(QStringLiteral("Fusion")));
    if (parser.isSet(dark)) {
        QApplication::setPalette(orv::darkPalette());
    }
    const QStringList sides = parser.value(size).split(u'x');
    const QSize wanted = sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
    const QString folder = QDir().absoluteFilePath(parser.positionalArguments().constFirst());
    try {
        QDir().mkpath(folder);
        orv::takePictures(folder, wanted);
        return 0;
    } catch (const std::exception& error) {
        QTextStream(stderr) << "Failed: " << error.what() << Qt::endl;
        return 1;
    }
}
