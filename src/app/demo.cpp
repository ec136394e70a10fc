// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/demo.h"

#include "ui/settingswindow.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTextStream>
#include <QTimer>

#include <stdexcept>

namespace orv {

namespace {

constexpr int rowsToCollect = 25;
constexpr int connectLimit = 20000; ///< Milliseconds.
constexpr int rowLimit = 60000;     ///< Milliseconds without a new row.

class Failure final : public std::runtime_error {
public:
    explicit Failure(const QString& text)
        : std::runtime_error(text.toStdString()) {}
};

class Demo {
public:
    Demo(Program& program, MainWindow& window, MessageBoxes& messages)
        : program_(program)
        , window_(window) {
        told_ = messages.told.subscribe([this](const Message& message) { lastMessage_ = message.text; });
    }

    void run() {
        window_.show();
        window_.prepareAllPages();
        program_.load();
        connect();
        collect();
        stop();
        save();
        takePictures();
    }

private:
    void say(const QString& text) { QTextStream(stdout) << text << Qt::endl; }

    template <typename Condition>
    void waitFor(const QString& what, int milliseconds, Condition reached) {
        QElapsedTimer timer;
        timer.start();
        while (!reached()) {
            if (!lastMessage_.isEmpty()) {
                throw Failure(QStringLiteral("%1: %2").arg(what, lastMessage_.simplified()));
            }
            if (program_.link.manual.shown.visible) {
                throw Failure(QStringLiteral("%1: the instrument does not answer").arg(what));
            }
            if (timer.elapsed() > milliseconds) {
                throw Failure(QStringLiteral("%1: nothing for %2 s; the status is \"%3\"")
                                  .arg(what)
                                  .arg(milliseconds / 1000)
                                  .arg(program_.link.session.status.status.value()));
            }
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        }
    }

    template <typename Widget>
    Widget* find(const char* name) {
        auto* widget = window_.findChild<Widget*>(QLatin1String(name));
        if (widget == nullptr) {
            throw Failure(QStringLiteral("the window has no %1").arg(QLatin1String(name)));
        }
        return widget;
    }

    void click(const char* name) {
        auto* button = find<QPushButton>(name);
        if (!button->isEnabled()) {
            throw Failure(QStringLiteral("%1 is disabled").arg(QLatin1String(name)));
        }
        button->click();
    }

    bool settingsRead() {
        return program_.link.session.status.status.value() == QLatin1String("Ready") &&
               program_.link.session.state.Ctrlscrn == Operation::SettingsOpen;
    }

    void connect() {
        say(QStringLiteral("Connecting on COM 1 (%1)").arg(program_.link.ports.device(1)));
        find<QAction>("AutoConnect1")->trigger();
        waitFor(QStringLiteral("Connecting"), connectLimit, [this] { return settingsRead(); });
        const StatusState& status = program_.link.session.status;
        say(QStringLiteral("Identified: %1, firmware %2")
                .arg(instrumentName(status.instrument), status.firmware.value()));
        const LoggerSettings& record = program_.settings.shown.record.value();
        say(QStringLiteral("Settings read: %1 samples a point, %2 points a block, memory %3 % full, clock %4 %5")
                .arg(record.samplesPerPoint, record.pointsPerBlock, program_.settings.shown.capacity.value(),
                     status.date.value(), status.time.value()));
    }

    void collect() {
        click("Command2");
        for (int row = program_.link.session.state.plc + 1; row <= rowsToCollect; ++row) {
            waitFor(QStringLiteral("Collecting"), rowLimit, [this, row] {
                if (lastMessage_.isEmpty() && program_.link.session.commands.activity.value() != Activity::Collecting &&
                    program_.link.session.state.plc < row) {
                    throw Failure(
                        QStringLiteral("Collecting: the instrument ended the run after %1 rows; %2 are needed")
                            .arg(program_.link.session.state.plc)
                            .arg(rowsToCollect));
                }
                return program_.link.session.state.plc >= row;
            });
        }
        say(QStringLiteral("Collected %1 rows").arg(program_.link.session.state.plc));
    }

    void stop() {
        if (program_.link.session.commands.activity.value() != Activity::Collecting) {
            return; // the block was out
        }
        click("ResetButton");
        waitFor(QStringLiteral("Stopping"), connectLimit, [this] { return settingsRead(); });
        say(QStringLiteral("Stopped and connected again"));
    }

    void save() {
        const QString name = QDir::current().absoluteFilePath(QStringLiteral("sheet.txt"));
        QFile::remove(name);
        QTimer::singleShot(100, &window_, [name] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            auto* edit = dialog != nullptr ? dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) : nullptr;
            if (edit != nullptr) {
                edit->setText(name);
                QMetaObject::invokeMethod(dialog, "accept");
            }
        });
        click("Command11");
        if (!QFile::exists(name)) {
            throw Failure(QStringLiteral("Saving: %1").arg(lastMessage_.simplified()));
        }
        say(QStringLiteral("Saved %1").arg(name));
    }

    void takePictures() {
        takePagePictures("TabStrip1", QStringLiteral("page"));
        program_.toggleServiceMode();
        takePagePictures("TabStrip2", QStringLiteral("service"));
        program_.toggleServiceMode();
        takeSettingsPictures();
    }

    void takePagePictures(const char* strip, const QString& prefix) {
        auto* tabs = find<QTabBar>(strip);
        for (int index = 0; index < tabs->count(); ++index) {
            tabs->setCurrentIndex(index);
            // The tab that is current already is chosen by a click.
            Q_EMIT tabs->tabBarClicked(index);
            QCoreApplication::processEvents();
            window_.refreshNow();
            takePicture(&window_, QStringLiteral("%1-%2.png").arg(prefix).arg(index + 1), tabs->tabText(index));
        }
    }

    void takeSettingsPictures() {
        SettingsWindow* settings = window_.settingsWindow();
        if (settings == nullptr) {
            throw Failure(QStringLiteral("the settings screen did not open"));
        }
        int number = 0;
        for (const char* tab : {"Modes", "Time and Date", "Control Bits", "Sampling", "Calibration"}) {
            settings->chooseTab(QLatin1String(tab));
            takePicture(settings, QStringLiteral("settings-%1.png").arg(++number),
                        QStringLiteral("the settings, %1").arg(QLatin1String(tab)));
        }
    }

    void takePicture(QWidget* widget, const QString& name, const QString& what) {
        QCoreApplication::processEvents();
        if (!widget->grab().save(name)) {
            throw Failure(QStringLiteral("the picture %1 cannot be written").arg(name));
        }
        say(QStringLiteral("Picture of %1: %2").arg(what, QDir::current().absoluteFilePath(name)));
    }

    Program& program_;
    MainWindow& window_;
    QString lastMessage_;
    Subscription told_;
};

} // namespace

int runDemo(Program& program, MainWindow& window, MessageBoxes& messages, const QString& folder) {
    if (!QDir().mkpath(folder) || !QDir::setCurrent(folder)) {
        QTextStream(stderr) << "The folder " << folder << " cannot be made or entered." << Qt::endl;
        return 1;
    }
    int status = 0;
    try {
        Demo(program, window, messages).run();
    } catch (const Failure& failure) {
        QTextStream(stderr) << "Failed: " << failure.what() << Qt::endl;
        status = 1;
    }
    program.end();
    return status;
}

} // namespace orv
