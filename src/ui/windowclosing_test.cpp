// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/windowrig.h"

#include <QPlainTextEdit>

namespace orv {
namespace {

class WaitingTest : public WindowTest {
protected:
    /// What happens when the program has long begun to wait for input, and when that has been handled.
    void whileWaiting(
        const std::function<void()>& begun, const std::function<void()>& later = [] {}) {
        atWait = [begun, later](int count) {
            if (count == 100) {
                begun();
            } else if (count == 300) {
                later();
            }
        };
    }
};

class ManualDialogTest : public WaitingTest {
protected:
    QDialog& dialog = find<QDialog>("ManualConnection");
    std::string text() { return find<QPlainTextEdit>("ManualText").toPlainText().toStdString(); }
};

TEST_F(ManualDialogTest, OpensBesideTheWindowWithStartHidden) {
    EXPECT_FALSE(dialog.isVisible());
    item("ManualConnect1").trigger();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(dialog.isModal());
    EXPECT_EQ(dialog.windowTitle().toStdString(), "Manual Connection");
    EXPECT_EQ(text(), "To start manual connection on Comm 1, click Proceed. If you wish to exit connection proccess "
                      "click Quit");
    EXPECT_TRUE(find<QPlainTextEdit>("ManualText").isReadOnly());
    EXPECT_FALSE(button("ManualStart").isVisible());
    EXPECT_TRUE(button("ManualProceed").isVisible());
    EXPECT_TRUE(button("ManualRetry").isEnabled());
    EXPECT_TRUE(item("About").isEnabled()) << "the main window is not blocked";
}

TEST_F(ManualDialogTest, ProceedAndStartConnect) {
    item("ManualConnect1").trigger();
    button("ManualProceed").click();
    EXPECT_EQ(text(), "Shut power off of sensor. Press (Start) then turn power on.");
    EXPECT_FALSE(button("ManualProceed").isVisible());
    EXPECT_TRUE(button("ManualStart").isVisible());
    constexpr int longAfterAnAttempt = 12000;
    atWait = [this](int wait) {
        if (wait == longAfterAnAttempt) {
            EXPECT_FALSE(button("ManualStart").isEnabled());
            EXPECT_FALSE(button("ManualRetry").isEnabled());
            replies = {"F310\r"};
        }
    };
    button("ManualStart").click();
    EXPECT_GE(waits, longAfterAnAttempt);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
    EXPECT_EQ(status.firmware.value().toStdString(), "310");
}

TEST_F(ManualDialogTest, RetryConnectsAndTheDialogStays) {
    item("ManualConnect1").trigger();
    replies = {"V512\r"};
    button("ManualRetry").click();
    EXPECT_TRUE(com1.isOpen());
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(ManualDialogTest, QuitResetsAndCloses) {
    item("ManualConnect1").trigger();
    said();
    button("ManualQuit").click();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(said().starts_with("Reset Everything AKA FIXIT\r"));
    EXPECT_FALSE(item("ManualConnect1").isChecked());
}

TEST_F(ManualDialogTest, ClosingItByItsFrameIsQuit) {
    item("ManualConnect2").trigger();
    said();
    dialog.close();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(said().starts_with("Reset Everything AKA FIXIT\r"));
}

/// A manual connection that waits for its instrument, with the operator's clicks meanwhile.
class SeekingTest : public ManualDialogTest {
protected:
    void seek() {
        item("ManualConnect1").trigger();
        button("ManualProceed").click();
        button("ManualStart").click();
    }

    void expectEnded() {
        EXPECT_LT(waits, mostWaits);
        EXPECT_FALSE(com1.isOpen());
    }
};

TEST_F(SeekingTest, TheDialogsQuitEndsItAndNothingElseTakesInput) {
    std::string saidMeanwhile;
    whileWaiting(
        [&] {
            said();
            EXPECT_TRUE(button("ResetButton").isEnabled());
            postClick(button("ResetButton"));
            QCoreApplication::postEvent(
                window.get(), new QKeyEvent(QEvent::KeyPress, Qt::Key_H, Qt::ControlModifier | Qt::AltModifier));
        },
        [&] {
            saidMeanwhile = said();
            postClick(button("ManualQuit"));
        });
    seek();
    EXPECT_EQ(saidMeanwhile, "");
    EXPECT_EQ(state.trouble, 0);
    expectEnded();
    EXPECT_EQ(status.status.value().toStdString(), "Offline");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(com1.writes.empty());
}

TEST_F(SeekingTest, ClosingTheDialogEndsIt) {
    whileWaiting([this] {
        QCoreApplication::postEvent(&dialog, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    });
    seek();
    expectEnded();
    EXPECT_EQ(status.status.value().toStdString(), "Offline");
}

TEST_F(SeekingTest, ClosingTheWindowEndsItAndThenTheProgram) {
    whileWaiting([this] { QTimer::singleShot(0, window.get(), [this] { window->close(); }); });
    seek();
    expectEnded();
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(windowEvents.programEnding());
}

TEST_F(WaitingTest, TheWindowLivesDuringAnAutomaticAttempt) {
    bool timerRan = false;
    bool labelDrawn = false;
    whileWaiting([&] { QTimer::singleShot(0, window.get(), [&timerRan] { timerRan = true; }); },
                 [&] {
                     labelDrawn = text("Label20") == "Connecting...";
                     replies = {"V512\r"};
                 });
    item("AutoConnect1").trigger();
    EXPECT_TRUE(timerRan);
    EXPECT_TRUE(labelDrawn);
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
}

TEST_F(WaitingTest, ClosingTheWindowDuringAnAutomaticAttemptEndsTheProgramBehindIt) {
    bool openAfterClosing = false;
    whileWaiting([&] {
        window->close();
        openAfterClosing = window->isVisible();
        replies = {"V512\r"};
    });
    item("AutoConnect1").trigger();
    EXPECT_TRUE(openAfterClosing);
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(windowEvents.programEnding());
    EXPECT_TRUE(com1.writes.empty()) << "nothing is sent behind the end";
}

class ClosingTest : public WindowTest {
protected:
    void collectRow() {
        connectAndRead();
        program.run();
        receiveRow();
        ASSERT_EQ(program.sheet.data.rowCount(), 1);
        said();
    }

    bool hasEnded() const { return windowEvents.programEnding() && !window->isVisible(); }
};

TEST_F(ClosingTest, WithNothingUnsavedTheWindowCloses) {
    window->close();
    EXPECT_TRUE(hasEnded());
    EXPECT_TRUE(answers.asked.isEmpty());
}

TEST_F(ClosingTest, UnsavedRowsAnsweredNoAreAskedAboutOnce) {
    collectRow();
    window->close();
    EXPECT_TRUE(hasEnded());
    EXPECT_EQ(answers.asked.join(u'\n').toStdString(), "Save Data: Data not Saved. Do you wish to save it now ?");
    EXPECT_FALSE(folder.isOpen("Orvtemp.tmp"));
    EXPECT_FALSE(com1.isOpen());
}

TEST_F(ClosingTest, ACancelledSaveKeepsTheWindowAndTheRun) {
    collectRow();
    answers.yes = true;
    window->close();
    EXPECT_FALSE(windowEvents.programEnding());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(state.Ctrlscrn, Operation::Collecting);
    receiveRow();
    EXPECT_EQ(program.sheet.data.rowCount(), 2);
}

TEST_F(ClosingTest, QuitAnnouncesItselfAndSaves) {
    collectRow();
    answers.yes = true;
    answers.fileName = folder.path("sheet.txt");
    item("Quit").trigger();
    EXPECT_EQ(said(), "Exit\rSave Spread Sheet\rSaving TRX(S) Sheet\r");
    EXPECT_TRUE(windowEvents.programEnding());
    EXPECT_TRUE(contentsOf(folder.path("sheet.txt")).startsWith("V\t512 1\r\n"));
}

TEST_F(ClosingTest, QuitWhoseSaveIsCancelledKeepsTheProgram) {
    collectRow();
    answers.yes = true;
    item("Quit").trigger();
    EXPECT_EQ(said(), "Exit\rSave Spread Sheet\r");
    EXPECT_FALSE(windowEvents.programEnding());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(ClosingTest, QuitDuringTheWakeUpPulseEndsAtOnceAndSendsNothing) {
    QTimer::singleShot(0, window.get(), [this] { item("Quit").trigger(); });
    item("AutoConnect1").trigger();
    EXPECT_TRUE(windowEvents.programEnding());
    EXPECT_FALSE(com1.isOpen());
    EXPECT_TRUE(com1.writes.empty());
    EXPECT_EQ(waits, 0);
}

} // namespace
} // namespace orv
