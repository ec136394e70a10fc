// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/sessionend.h"
#include "testing/windowrig.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QMessageBox>

#include <csignal>

namespace orv {
namespace {

/// The program as the operator has it, with three rows that are not saved and a run under way.
class SessionEndTest : public testing::Test {
protected:
    SessionEndTest() {
        questions.setParent(&window);
        messages.setParent(&window);
        program.link.ports.setDevice(1, QStringLiteral("ttyA"));
        window.show();
        program.load();
        program.autoConnect1();
        clock.advance(1100);
        port.input = "V512\r";
        clock.advance(300);
        port.input = settingsReport();
        clock.advance(100);
        port.input = "C\r\n11/21/26\t25661\r\n>";
        clock.advance(100);
        program.run();
        port.input = "R\r\n11/21/26\t2700\t1\t20\t30\t40\r\n11/21/26\t2700\t2\t20\t30\t40\r\n"
                     "11/21/26\t2700\t3\t20\t30\t40\r\n";
        clock.advance(100);
        EXPECT_EQ(program.sheet.data.rowCount(), 3);
    }

    void expectEnded() {
        EXPECT_FALSE(port.isOpen());
        EXPECT_FALSE(folder.isOpen("Orvtemp.tmp"));
        EXPECT_TRUE(QFile::exists(folder.path("Orvtemp.tmp.lock")));
        EXPECT_EQ(contentsOf(folder.path("Orvtemp.tmp")).count("\r\n"), 8);
        for (const QWidget* widget : QApplication::topLevelWidgets()) {
            EXPECT_FALSE(widget->isVisible() && qobject_cast<const QDialog*>(widget) != nullptr)
                << qPrintable(widget->windowTitle());
        }
    }

    OwnFolder folder;
    TestClock clock;
    TestPort port;
    MessageBoxes messages;
    QuestionDialogs questions;
    Program program{{.clock = clock, .messages = messages, .questions = questions, .makePort = [this](const QString&) {
                         return std::make_unique<TestPort>(&port);
                     }}};
    MainWindow window{program};
    SessionEnd sessionEnd{program, messages};
};

TEST_F(SessionEndTest, WithoutOneTheProgramExitsAsItDoes) {
    EXPECT_EQ(sessionEnd.statusOr(0), 0);
    EXPECT_EQ(sessionEnd.statusOr(1), 1);
}

TEST_F(SessionEndTest, ASignalEndsItWhileItAsks) {
    window.close();
    ASSERT_TRUE(program.link.session.commands.asking);
    std::raise(SIGTERM);
    EXPECT_TRUE(port.isOpen()) << "nothing is done inside the signal";
    QCoreApplication::processEvents();
    expectEnded();
    EXPECT_EQ(sessionEnd.statusOr(0), 143);
    std::raise(SIGHUP);
    QCoreApplication::processEvents();
    EXPECT_EQ(sessionEnd.statusOr(0), 143) << "the first signal counts";
}

TEST_F(SessionEndTest, TheSystemsWishToQuitIsNoQuestion) {
    program.saveAs();
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
    expectEnded();
    EXPECT_EQ(sessionEnd.statusOr(1), 0);
}

TEST_F(SessionEndTest, WhoLogsOutMayChangeHisMind) {
    EXPECT_TRUE(sessionEnd.prepare());
    EXPECT_EQ(contentsOf(folder.path("Orvtemp.tmp")).count("\r\n"), 8);
    port.input = "11/21/26\t2700\t4\t20\t30\t40\r\n";
    clock.advance(100);
    EXPECT_EQ(program.sheet.data.rowCount(), 4) << "the run goes on";
    EXPECT_EQ(contentsOf(folder.path("Orvtemp.tmp")).count("\r\n"), 9);
}

TEST_F(SessionEndTest, AnEndThatNobodyAnnouncedIsWholeToo) {
    QMetaObject::invokeMethod(qApp, "aboutToQuit");
    expectEnded();
}

} // namespace
} // namespace orv
