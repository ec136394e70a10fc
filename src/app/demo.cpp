// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/demo.h"

#include "app/driver.h"
#include "base/files.h"
#include "ui/settingswindow.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTabBar>
#include <QTextStream>

namespace orv {

namespace {

constexpr int rowsToCollect = 25;
constexpr int rowLimit = 60000; ///< Milliseconds without a new row.

class Demo {
public:
    Demo(Program& program, MainWindow& window, Driver& driver)
        : program_(program)
        , window_(window)
        , driver_(driver) {}

    Task<> perform() {
        window_.show();
        window_.prepareAllPages();
        program_.load();
        co_await connect();
        co_await collect();
        co_await stop();
        co_await save();
        co_await takePictures();
    }

private:
    void say(const QString& text) { QTextStream(stdout) << text << Qt::endl; }

    Task<> connect() {
        say(QStringLiteral("Connecting on COM 1 (%1)").arg(program_.link.ports.device(1)));
        driver_.find<QAction>("AutoConnect1").trigger();
        const QString connecting = QStringLiteral("Connecting");
        co_await driver_.waitUntilReady(connecting);
        const StatusState& status = program_.link.session.status;
        say(QStringLiteral("Identified: %1, firmware %2")
                .arg(instrumentName(status.instrument), status.firmware.value()));
        const LoggerSettings& record = program_.settings.shown.record.value();
        say(QStringLiteral("Settings read: %1 samples a point, %2 points a block, memory %3 % full, clock %4 %5")
                .arg(record.samplesPerPoint, record.pointsPerBlock, program_.settings.shown.capacity.value(),
                     status.date.value(), status.time.value()));
    }

    /// In the demo's folder, and of no file that is there already.
    QString ownName(const QString& name) const {
        return QDir::current().absoluteFilePath(freeName(name, program_.link.session.clock.now()));
    }

    bool isCollecting() const { return program_.link.session.commands.activity.value() == Activity::Collecting; }

    bool hasRows(int rows) const {
        const int collected = program_.link.session.state.plc;
        if (driver_.lastMessage().isEmpty() && !isCollecting() && collected < rows) {
            throw Driver::Failure(
                QStringLiteral("Collecting: the instrument ended the run after %1 rows; %2 are needed")
                    .arg(collected)
                    .arg(rowsToCollect));
        }
        return collected >= rows;
    }

    Task<> collect() {
        const QString collecting = QStringLiteral("Collecting");
        driver_.click("Command2");
        for (int row = program_.link.session.state.plc + 1; row <= rowsToCollect; ++row) {
            const std::function<bool()> reached = [this, row] { return hasRows(row); };
            co_await driver_.waitFor(collecting, rowLimit, reached);
        }
        say(QStringLiteral("Collected %1 rows").arg(program_.link.session.state.plc));
    }

    Task<> stop() {
        if (!isCollecting()) {
            co_return; // the block was out
        }
        const QString stopping = QStringLiteral("Stopping");
        driver_.click("ResetButton");
        co_await driver_.waitUntilReady(stopping);
        say(QStringLiteral("Stopped and connected again"));
    }

    Task<> save() {
        constexpr int limit = 20000;
        const QString saving = QStringLiteral("Saving");
        const QString name = ownName(QStringLiteral("sheet.txt"));
        driver_.click("Command11");
        const std::function<bool()> asked = [] { return Driver::dialog<QFileDialog>() != nullptr; };
        co_await driver_.waitFor(saving, limit, asked);
        auto* dialog = Driver::dialog<QFileDialog>();
        Driver::find<QLineEdit>(*dialog, QStringLiteral("fileNameEdit")).setText(name);
        QMetaObject::invokeMethod(dialog, "accept");
        const std::function<bool()> saved = [this] { return !program_.sheet.shown.unsaved.value(); };
        co_await driver_.waitFor(saving, limit, saved);
        say(QStringLiteral("Saved %1").arg(name));
    }

    Task<> takePictures() {
        co_await takePagePictures("TabStrip1", "page");
        program_.toggleServiceMode();
        co_await takePagePictures("TabStrip2", "service");
        program_.toggleServiceMode();
        co_await takeSettingsPictures();
    }

    Task<> takePagePictures(const char* strip, const char* prefix) {
        auto& tabs = driver_.find<QTabBar>(strip);
        for (int index = 0; index < tabs.count(); ++index) {
            tabs.setCurrentIndex(index);
            // The tab that is current already is chosen by a click.
            Q_EMIT tabs.tabBarClicked(index);
            co_await letDraw();
            window_.refreshNow();
            takePicture(window_, QStringLiteral("%1-%2.png").arg(QLatin1String(prefix)).arg(index + 1),
                        tabs.tabText(index));
        }
    }

    Task<> takeSettingsPictures() {
        SettingsWindow* settings = window_.settingsWindow();
        if (settings == nullptr) {
            throw Driver::Failure(QStringLiteral("the settings screen did not open"));
        }
        int number = 0;
        for (const char* tab : {"Modes", "Time and Date", "Control Bits", "Sampling", "Calibration"}) {
            settings->chooseTab(QLatin1String(tab));
            co_await letDraw();
            takePicture(*settings, QStringLiteral("settings-%1.png").arg(++number),
                        QStringLiteral("the settings, %1").arg(QLatin1String(tab)));
        }
    }

    Task<> letDraw() {
        constexpr int moment = 10;
        co_await driver_.pause(moment);
    }

    void takePicture(QWidget& widget, const QString& plainName, const QString& what) {
        const QString name = ownName(plainName);
        if (!widget.grab().save(name)) {
            throw Driver::Failure(QStringLiteral("the picture %1 cannot be written").arg(name));
        }
        say(QStringLiteral("Picture of %1: %2").arg(what, name));
    }

    Program& program_;
    MainWindow& window_;
    Driver& driver_;
};

} // namespace

int runDemo(Program& program, MainWindow& window, MessageBoxes& messages, const QString& folder) {
    if (!QDir().mkpath(folder) || !QDir::setCurrent(folder)) {
        QTextStream(stderr) << "The folder " << folder << " cannot be made or entered." << Qt::endl;
        return 1;
    }
    Driver driver(program, window, messages);
    Demo demo(program, window, driver);
    const int status = driver.run([&demo] { return demo.perform(); });
    program.end();
    return status;
}

} // namespace orv
