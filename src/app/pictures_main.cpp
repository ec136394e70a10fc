// SPDX-License-Identifier: GPL-3.0-or-later
// A program for this project's own use: drives the whole program on simulated instruments and takes a picture of each
// page and dialog, for the guide and for looking at.
#include "app/driver.h"
#include "base/language.h"
#include "program/devices.h"
#include "ui/settingswindow.h"
#include "ui/style.h"
#include "ui/widgets.h"

#include <QAbstractItemView>
#include <QAction>
#include <QBasicTimer>
#include <QComboBox>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QTableView>
#include <QTextStream>
#include <QTimerEvent>

#include <algorithm>
#include <optional>

namespace orv {

namespace {

constexpr int limit = 240000; ///< Milliseconds for one step, on a computer busy with other work.

/// A clock that jumps to the next moment at which something is due whenever the program has nothing else to do, so that
/// every picture shows the same date, time and rows whenever and wherever it is taken.
class JumpingClock final : public QObject, public Clock {
public:
    QDateTime now() const override { return start_.addMSecs(elapsed_); }
    qint64 monotonicMilliseconds() const override { return elapsed_; }
    [[nodiscard]] Subscription callAfter(qint64 milliseconds, std::function<void()> call) override {
        Subscription alarm = alarms_.add(elapsed_ + milliseconds, std::move(call));
        run();
        return alarm;
    }

    /// While it stands still the program does not go on.
    void standStill(bool still) {
        still_ = still;
        run();
    }

protected:
    void timerEvent(QTimerEvent* /*event*/) override {
        const auto due = still_ ? std::nullopt : alarms_.next();
        if (!due) {
            timer_.stop();
            return;
        }
        elapsed_ = std::max(elapsed_, *due);
        alarms_.callDue(elapsed_);
    }

private:
    void run() {
        if (!timer_.isActive()) {
            timer_.start(0, this);
        }
    }

    QDateTime start_{QDate(2026, 11, 21), QTime(9, 30, 15)};
    qint64 elapsed_ = 0;
    bool still_ = false;
    Alarms alarms_;
    QBasicTimer timer_;
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
        throw Driver::Failure(QStringLiteral("cannot make ") + path);
    }
    return path;
}

class Pictures {
public:
    /// `crashFolder` gets, and for the recovery has, what a crash in the middle of a run leaves.
    Pictures(Program& program, MainWindow& window, Driver& driver, JumpingClock& clock, QString folder,
             QString crashFolder)
        : program_(program)
        , window_(window)
        , driver_(driver)
        , clock_(clock)
        , folder_(std::move(folder))
        , crashFolder_(std::move(crashFolder)) {}

    Task<> takeWork() {
        program_.load();
        window_.show();
        window_.prepareAllPages();
        co_await take(window_, "offline");
        co_await takePorts();
        co_await takeConnected();
        co_await takeRun();
        co_await takeDownload();
        co_await takeCalibration();
        co_await takeSaving();
        co_await takeManual();
        co_await takeGlow();
        co_await takeAbout();
        co_await takeHelp();
    }

    /// In a folder that a crash has left; by a program of its own.
    Task<> takeRecovery() {
        program_.load();
        window_.show();
        program_.offerUnendedRun();
        auto& question = dialog<QMessageBox>();
        co_await take(question, "recovery");
        question.button(QMessageBox::Yes)->click();
        if (session_.state.plc == 0) {
            throw Driver::Failure(QStringLiteral("no rows were offered"));
        }
    }

private:
    template <typename Dialog>
    static Dialog& dialog() {
        auto* found = Driver::dialog<Dialog>();
        if (found == nullptr) {
            throw Driver::Failure(QStringLiteral("no dialog is on the screen"));
        }
        return *found;
    }

    Task<> waitFor(const char* what, std::function<bool()> reached) {
        const QString text = QString::fromLatin1(what);
        co_await driver_.waitFor(text, limit, reached);
    }

    Task<> waitUntilReady() {
        const QString connecting = QStringLiteral("connecting");
        co_await driver_.waitUntilReady(connecting, limit);
    }

    Task<> take(QWidget& widget, const char* name) {
        co_await letDraw();
        save(widget.grab(), name);
    }

    Task<> takeAndClose(QWidget& widget, const char* name) {
        co_await take(widget, name);
        widget.close();
    }

    /// What is drawn late, some time after its change, is to be on the picture.
    Task<> letDraw() {
        constexpr int late = LateTexts::delay + 60;
        clock_.standStill(true);
        co_await driver_.pause(late);
        clock_.standStill(false);
    }

    void save(const QPixmap& picture, const char* name) {
        const QString path = folder_ + u'/' + QString::fromLatin1(name) + QStringLiteral(".png");
        constexpr int smallest = 0; // of the file, not of the picture's quality
        if (!picture.save(path, "PNG", smallest)) {
            throw Driver::Failure(QStringLiteral("cannot write ") + path);
        }
        QTextStream(stdout) << path << Qt::endl;
    }

    /// Chooses a page as its key does.
    void choosePage(Page page) {
        for (int number = 1; program_.pages.shown.value() != page; ++number) {
            Driver::find<QAction>(window_, QStringLiteral("ChoosePage%1").arg(number)).trigger();
        }
    }

    /// The upper part of the window with a chooser's list, which is a window of its own.
    Task<> takePorts() {
        auto& chooser = Driver::find<QComboBox>(window_, QStringLiteral("PortChooser1"));
        chooser.showPopup();
        co_await letDraw();
        QWidget& list = *chooser.view()->window();
        QPixmap picture = window_.grab();
        const QPoint place = window_.mapFromGlobal(list.mapToGlobal(QPoint(0, 0)));
        QPainter(&picture).drawPixmap(place, list.grab());
        constexpr int margin = 24;
        const double height = (place.y() + list.height() + margin) * picture.devicePixelRatio();
        save(picture.copy(0, 0, picture.width(), static_cast<int>(height)), "ports");
        chooser.hidePopup();
    }

    Task<> takeConnected() {
        program_.autoConnect1();
        co_await waitUntilReady();
        co_await take(window_, "status");
        SettingsWindow& settings = *window_.settingsWindow();
        co_await take(settings, "settings");
        const std::pair<const char*, const char*> tabs[] = {{"Modes", "settings-modes"},
                                                            {"Time and Date", "settings-time"},
                                                            {"Control Bits", "settings-bits"},
                                                            {"Sampling", "settings-sampling"},
                                                            {"Calibration", "settings-calibration-trx"}};
        for (const auto& [tab, name] : tabs) {
            settings.chooseTab(QString::fromLatin1(tab));
            co_await take(settings, name);
        }
        Driver::find<QPushButton>(settings, QStringLiteral("ViewCurrentSettingsTranscribedAsText")).click();
        co_await takeAndClose(Driver::find<QWidget>(settings, QStringLiteral("PlainEnglish")), "plain-english");
        settings.close();
    }

    Task<> takeRun() {
        program_.toggleServiceMode();
        program_.link.debug.showParsing = true;
        program_.link.debug.rawBuffer = false;
        choosePage(Page::Debug);
        program_.run();
        const std::function<bool()> hasRows = [this] { return session_.state.plc >= rows; };
        co_await waitFor("collecting", hasRows);
        co_await take(window_, "debug");
        program_.toggleServiceMode();
        choosePage(Page::Status);
        co_await take(window_, "run");
        keepAsAfterACrash();
        choosePage(Page::Sheet);
        co_await letDraw();
        selectSomeValues();
        co_await take(window_, "sheet");
        choosePage(Page::Graphical);
        co_await take(window_, "graphical");
        auto& arrangement = Driver::find<QComboBox>(window_, QStringLiteral("PlotArrangement"));
        arrangement.setCurrentIndex(1);
        co_await take(window_, "graphical-stacked");
        arrangement.setCurrentIndex(0);
        choosePage(Page::Status);
        program_.reset();
        co_await waitUntilReady();
        window_.settingsWindow()->close();
    }

    /// Of the newest rows two columns, whose statistics then stand below the sheet.
    void selectSomeValues() {
        constexpr int last = rows - 1;
        const auto& grid = Driver::find<QTableView>(window_, QStringLiteral("fg1"));
        const QAbstractItemModel& cells = *grid.model();
        grid.selectionModel()->setCurrentIndex(cells.index(last, 4), QItemSelectionModel::NoUpdate);
        grid.selectionModel()->select({cells.index(last - 9, 3), cells.index(last, 4)},
                                      QItemSelectionModel::ClearAndSelect);
    }

    void keepAsAfterACrash() {
        for (const char* name : {"Orvtemp.tmp", "Orvtemp.tmp.lock"}) {
            if (!QFile::copy(QString::fromLatin1(name), crashFolder_ + u'/' + QString::fromLatin1(name))) {
                throw Driver::Failure(QStringLiteral("cannot copy ") + QLatin1String(name));
            }
        }
    }

    Task<> takeDownload() {
        program_.clearAll();
        program_.vwhp();
        const std::function<bool()> halfDone = [this] {
            return program_.settings.progress.value * 2 >= program_.settings.progress.maximum;
        };
        co_await waitFor("downloading", halfDone);
        co_await take(Driver::find<QWidget>(window_, QStringLiteral("Processing")), "processing");
        const std::function<bool()> done = [this] { return session_.commands.activity.value() == Activity::None; };
        co_await waitFor("downloading", done);
    }

    Task<> takeCalibration() {
        program_.toggleServiceMode();
        choosePage(Page::Testing);
        co_await take(window_, "testing");
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
        co_await take(window_, "calibration");
        program_.toggleServiceMode();
    }

    Task<> takeSaving() {
        program_.leave();
        auto& question = dialog<QMessageBox>();
        co_await take(question, "question");
        question.button(QMessageBox::Yes)->click();
        auto& files = dialog<QFileDialog>();
        co_await take(files, "save");
        files.reject();
    }

    Task<> takeManual() {
        program_.closePort();
        program_.manualConnect(1);
        co_await take(Driver::find<QWidget>(window_, QStringLiteral("ManualConnection")), "manual-connection");
        program_.link.manual.quit();
        co_await takeMessage();
    }

    Task<> takeMessage() {
        const QString device = program_.link.ports.device(1);
        program_.link.ports.setDevice(1, QStringLiteral("/dev/ttyUSB7"));
        program_.autoConnect1();
        co_await takeAndClose(Driver::find<QMessageBox>(window_), "message");
        driver_.forgetMessage();
        program_.closePort();
        program_.link.ports.setDevice(1, device);
    }

    Task<> takeGlow() {
        program_.clearAll();
        program_.autoConnect2();
        co_await waitUntilReady();
        SettingsWindow& settings = *window_.settingsWindow();
        settings.chooseTab(QStringLiteral("Calibration"));
        co_await takeAndClose(settings, "settings-calibration-glow");
        program_.closePort();
    }

    Task<> takeAbout() {
        Driver::find<QAction>(window_, QStringLiteral("About")).trigger();
        co_await takeAndClose(Driver::find<QDialog>(window_, QStringLiteral("AboutDialog")), "about");
    }

    Task<> takeHelp() {
        choosePage(Page::Sheet);
        Driver::find<QAction>(window_, QStringLiteral("Contents")).trigger();
        QWidget* guide = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String("UserGuide")) {
                guide = window;
            }
        }
        if (guide == nullptr) {
            throw Driver::Failure(QStringLiteral("there is no guide"));
        }
        co_await takeAndClose(*guide, "help");
    }

    static constexpr int rows = 60; ///< Of the run.

    Program& program_;
    Session& session_ = program_.link.session;
    MainWindow& window_;
    Driver& driver_;
    JumpingClock& clock_;
    QString folder_;
    QString crashFolder_;
};

void enter(const QString& path) {
    if (!QDir::setCurrent(path)) {
        throw Driver::Failure(QStringLiteral("cannot enter ") + path);
    }
}

enum class Part { Work, Recovery };

int takePart(Part part, const QString& folder, const QString& crashFolder, const QSize& size) {
    JumpingClock clock;
    MessageBoxes messages;
    QuestionDialogs questions;
    TwoAdapters adapters;
    Program program({.clock = clock,
                     .messages = messages,
                     .questions = questions,
                     .makePort = [&clock](const QString& device) { return makePort(device, clock); },
                     .portList = &adapters});
    program.link.ports.setDevice(1, QStringLiteral("sim:trx?rate=8&records=500"));
    program.link.ports.setDevice(2, QStringLiteral("sim:glow"));
    MainWindow window(program);
    messages.setParent(&window);
    questions.setParent(&window);
    if (!size.isEmpty()) {
        window.resize(size);
    }
    Driver driver(program, window, messages);
    Pictures pictures(program, window, driver, clock, folder, crashFolder);
    const int status =
        driver.run([part, &pictures] { return part == Part::Work ? pictures.takeWork() : pictures.takeRecovery(); });
    program.end();
    return status;
}

int takePictures(const QString& folder, const QSize& size) {
    const QString crashFolder = emptyFolder("Crash");
    enter(emptyFolder("Documents"));
    const int status = takePart(Part::Work, folder, crashFolder, size);
    if (status != 0) {
        return status;
    }
    enter(crashFolder);
    return takePart(Part::Recovery, folder, crashFolder, size);
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
    const QCommandLineOption language(QStringLiteral("language"), QStringLiteral("Of the windows."),
                                      QStringLiteral("CODE"), QStringLiteral("en"));
    parser.addOptions({dark, size, language});
    parser.addHelpOption();
    parser.process(application);
    if (parser.positionalArguments().size() != 1) {
        parser.showHelp(2);
    }
    const orv::Language shown(parser.value(language));
    QApplication::setStyle(new orv::ProgramStyle(QStringLiteral("Fusion")));
    if (parser.isSet(dark)) {
        QPalette dark = orv::darkPalette();
        QApplication::style()->polish(dark); // as it does with a desktop's
        QApplication::setPalette(dark);
    }
    const QStringList sides = parser.value(size).split(u'x');
    const QSize wanted = sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
    const QString folder = QDir().absoluteFilePath(parser.positionalArguments().constFirst());
    try {
        QDir().mkpath(folder);
        return orv::takePictures(folder, wanted);
    } catch (const std::exception& error) {
        QTextStream(stderr) << "Failed: " << error.what() << Qt::endl;
        return 1;
    }
}
