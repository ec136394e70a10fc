// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/fakeportlist.h"
#include "testing/programrig.h"
#include "ui/mainwindow.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>

#include <stdexcept>

namespace orv {

/// Yields to the real event loop and lets the test's clock run as if the whole wait had passed.
class WindowYield final : public EventYield {
public:
    WindowYield(WindowEvents& events, TestClock& clock)
        : events_(events)
        , clock_(clock) {}

    void processEvents(int milliseconds) override {
        events_.processEvents(1);
        clock_.advance(milliseconds);
    }
    void keepResponsive(bool manualDialogLives) override { events_.keepResponsive(manualDialogLives); }
    bool programEnding() const override { return events_.programEnding(); }

private:
    WindowEvents& events_;
    TestClock& clock_;
};

/// The main window over the whole program, with two fake lines. `atWait` is called whenever the program waits for
/// input in vain, with the number of that wait.
class WindowTest : public testing::Test {
protected:
    WindowTest() {
        program.ports.setDevice(1, QStringLiteral("ttyA"));
        program.ports.setDevice(2, QStringLiteral("ttyB"));
        com1.waited = [this](int milliseconds) {
            clock.advance(milliseconds);
            ++waits;
            if (!greeting.isEmpty()) {
                com1.input = std::exchange(greeting, QByteArray());
            } else if (waits >= mostWaits) {
                ADD_FAILURE() << "the wake-up loop does not end";
                com1.input = "V512\r";
            } else if (atWait) {
                atWait(waits);
            }
        };
        program.setComm2Output(true);
        window = std::make_unique<MainWindow>(program, events);
        window->show();
        window->prepareAllPages();
    }

    ~WindowTest() override {
        window.reset();
        // A window that ended the program leaves an exit behind, which keeps dialogs of later tests from waiting; only
        // the application's own loop forgets it.
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
        QCoreApplication::exec();
    }
    WindowTest(const WindowTest&) = delete;
    WindowTest& operator=(const WindowTest&) = delete;

    /// What has been written to the debug port since the last call.
    std::string said() {
        const std::string all = com2.allWritten().toStdString();
        com2.writes.clear();
        return all;
    }

    template <typename Widget>
    Widget& find(const char* name) {
        auto* found = window->findChild<Widget*>(QString::fromLatin1(name));
        if (found == nullptr) {
            throw std::runtime_error(std::string("there is no ") + name);
        }
        return *found;
    }

    QAction& item(const char* name) { return find<QAction>(name); }
    QPushButton& button(const char* name) { return find<QPushButton>(name); }

    /// A click as the window system delivers it: it arrives when events are processed.
    static void postClick(QWidget& widget) {
        const QPointF centre = widget.rect().center();
        const QPointF onScreen = widget.mapToGlobal(centre);
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QCoreApplication::postEvent(
                &widget,
                new QMouseEvent(type, centre, onScreen, Qt::LeftButton,
                                type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier));
        }
    }

    void connectAndRead() {
        greeting = "V512\r";
        program.autoConnect1();
        com1.input += settingsReport();
        constexpr int linesOfReport = 12;
        for (int tick = 0; tick <= linesOfReport; ++tick) {
            program.tick();
        }
        com1.input += "C\r\n11/21/26\t25661\r\n>";
        program.tick();
        program.tick();
        ASSERT_EQ(program.session.state.Ctrlscrn, Operation::SettingsOpen);
    }

    void receiveRow() {
        com1.input += "11/21/26\t2700\t10\t20\t30\t40\r\n";
        program.tick();
    }

    static constexpr int mostWaits = 20000;

    OwnFolder folder;
    TestClock clock;
    RecordedMessages messages;
    PreparedAnswers answers;
    WindowEvents events;
    WindowYield yield{events, clock};
    FakePort com1;
    FakePort com2;
    FakePortList portList;
    QByteArray greeting;
    int waits = 0;
    std::function<void(int wait)> atWait;
    Program program{{.clock = clock,
                     .events = yield,
                     .messages = messages,
                     .questions = answers,
                     .makePort =
                         [this](const QString& device) {
                             return std::make_unique<WatchedPort>(device == QLatin1String("ttyA") ? com1 : com2);
                         },
                     .portList = &portList,
                     .deviceProblem =
                         [](const QString& device) {
                             return device.contains(u' ') ? QStringLiteral("\"%1\" is no device.").arg(device)
                                                          : QString();
                         }}};
    std::unique_ptr<MainWindow> window;
};

} // namespace orv
