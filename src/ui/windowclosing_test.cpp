// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/windowrig.h"
#include "ui/messageboxes.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QtTest/QTest>

namespace orv {
namespace {

class EndTest : public WindowTest {
protected:
    bool hasEnded() const { return ended == 1 && !window->isVisible(); }

    int ended = 0;
    Subscription countingEnds = program.ended.subscribe([this] { ++ended; });
};

class ManualDialogTest : public EndTest {
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
    button("ManualStart").click();
    constexpr double longAfterAnAttempt = 12.0;
    live(longAfterAnAttempt);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(button("ManualStart").isEnabled());
    EXPECT_FALSE(button("ManualRetry").isEnabled());
    com1.input = "F310\r";
    finish();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
    EXPECT_EQ(status.firmware.value().toStdString(), "310");
}

TEST_F(ManualDialogTest, RetryConnectsAndTheDialogStays) {
    item("ManualConnect1").trigger();
    replies = {"V512\r"};
    button("ManualRetry").click();
    finish();
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
    SeekingTest() {
        item("ManualConnect1").trigger();
        button("ManualProceed").click();
        button("ManualStart").click();
        live(2.0);
        EXPECT_TRUE(com1.isOpen());
        said();
    }

    void expectEnded() {
        EXPECT_FALSE(com1.isOpen());
        EXPECT_TRUE(com1.writes.empty());
        EXPECT_TRUE(procedures.isIdle());
        EXPECT_EQ(status.status.value().toStdString(), "Offline");
    }
};

TEST_F(SeekingTest, TheDialogsQuitEndsIt) {
    postClick(button("ManualQuit"));
    QCoreApplication::processEvents();
    expectEnded();
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(SeekingTest, ClosingTheDialogEndsIt) {
    QCoreApplication::postEvent(&dialog, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    QCoreApplication::processEvents();
    expectEnded();
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(SeekingTest, TheMainWindowLives) {
    QTimer::singleShot(0, &item("ServiceMode"), &QAction::trigger);
    QCoreApplication::processEvents();
    EXPECT_EQ(state.trouble, 1);
    EXPECT_TRUE(com1.isOpen());
    postClick(button("ResetButton"));
    QCoreApplication::processEvents();
    expectEnded();
    EXPECT_TRUE(dialog.isVisible()) << "to seek again";
    EXPECT_TRUE(button("ManualProceed").isVisible());
}

TEST_F(SeekingTest, ClosingTheWindowEndsItAndTheProgram) {
    window->close();
    EXPECT_FALSE(com1.isOpen());
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(hasEnded());
}

TEST_F(EndTest, TheWindowLivesDuringAnAutomaticAttempt) {
    item("AutoConnect1").trigger();
    bool timerRan = false;
    QTimer::singleShot(0, window.get(), [&timerRan] { timerRan = true; });
    live(1.5);
    EXPECT_TRUE(timerRan);
    EXPECT_EQ(text("Label20"), "Connecting...");
    com1.input = "V512\r";
    finish();
    EXPECT_EQ(state.Ctrlscrn, Operation::Identified);
}

class ClosingTest : public EndTest {
protected:
    void collectRow() {
        connectAndRead();
        program.run();
        receiveRow();
        ASSERT_EQ(program.sheet.data.rowCount(), 1);
        said();
    }
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
    EXPECT_EQ(ended, 0);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(state.Ctrlscrn, Operation::Collecting);
    receiveRow();
    EXPECT_EQ(program.sheet.data.rowCount(), 2);
}

TEST_F(ClosingTest, WhileTheQuestionStandsTheRunGoesOnAndAnotherWishAsksAgain) {
    collectRow();
    answers.late = true;
    window->close();
    EXPECT_TRUE(window->isVisible());
    receiveRow();
    EXPECT_EQ(program.sheet.data.rowCount(), 2);
    item("Quit").trigger();
    EXPECT_EQ(answers.asked.size(), 2);
    EXPECT_EQ(ended, 0);
    answers.answer(Question::no());
    EXPECT_TRUE(hasEnded());
}

TEST_F(ClosingTest, QuitAnnouncesItselfAndSaves) {
    collectRow();
    answers.yes = true;
    answers.fileName = folder.path("sheet.txt");
    item("Quit").trigger();
    EXPECT_EQ(said(), "Exit\rSave Spread Sheet\rSaving TRX(S) Sheet\r");
    EXPECT_TRUE(hasEnded());
    EXPECT_TRUE(contentsOf(folder.path("sheet.txt")).startsWith("V\t512 1\r\n"));
}

TEST_F(ClosingTest, QuitWhoseSaveIsCancelledKeepsTheProgram) {
    collectRow();
    answers.yes = true;
    item("Quit").trigger();
    EXPECT_EQ(said(), "Exit\rSave Spread Sheet\r");
    EXPECT_EQ(ended, 0);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(ClosingTest, EveryWindowGoesWithTheProgram) {
    connectAndRead();
    openSettings("Modes");
    item("About").trigger();
    item("DownloadView").trigger();
    EXPECT_TRUE(find<QDialog>("Processing").isVisible());
    window->close();
    EXPECT_TRUE(hasEnded());
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        EXPECT_FALSE(widget->isVisible()) << qPrintable(widget->objectName());
    }
}

/// The program as the operator has it: its questions and messages are dialogs.
class RealDialogsTest : public testing::Test {
protected:
    RealDialogsTest() {
        questions.setParent(&window);
        messages.setParent(&window);
        program.link.ports.setDevice(1, QStringLiteral("ttyA"));
        window.show();
        connectUntilReady();
    }

    void connectUntilReady() {
        program.autoConnect1();
        clock.advance(1100);
        port.input = "V512\r";
        clock.advance(300);
        port.input = settingsReport();
        clock.advance(100);
        port.input = "C\r\n11/21/26\t25661\r\n>";
        clock.advance(100);
        QCoreApplication::processEvents();
        EXPECT_EQ(program.link.session.status.status.value().toStdString(), "Ready");
    }

    /// A click as the window system delivers it.
    void click(const char* name) {
        postClick(control<QPushButton>(window, name));
        QCoreApplication::processEvents();
    }
    /// The titles of the dialogs that can be seen, in the order of the alphabet.
    static std::string shown() {
        QStringList titles;
        for (const QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible() && qobject_cast<const QDialog*>(widget) != nullptr) {
                titles << widget->windowTitle();
            }
        }
        titles.sort();
        return titles.join(u'|').toStdString();
    }
    static QFileDialog& fileDialog() {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* dialog = qobject_cast<QFileDialog*>(widget); dialog != nullptr && dialog->isVisible()) {
                return *dialog;
            }
        }
        throw std::logic_error("no file dialog is shown");
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
    int read = 0;
    Subscription ended = program.ended.subscribe([this] { messages.whenRead([this] { ++read; }); });
};

TEST_F(RealDialogsTest, ADialogThatStandsLeavesTheWindowAlive) {
    program.selectUpperTab(QStringLiteral("Output: Spread Sheet"));
    click("Command11");
    EXPECT_EQ(shown(), "Save as");
    EXPECT_FALSE(control<QPushButton>(window, "Command11").isEnabled());
    EXPECT_FALSE(control<QPushButton>(window, "Command10").isEnabled());
    EXPECT_TRUE(control<QAction>(window, "Quit").isEnabled());
    program.selectUpperTab(QStringLiteral("Status and Controls"));
    click("ResetButton");
    EXPECT_EQ(program.link.session.status.status.value().toStdString(), "Connecting...");
    EXPECT_EQ(shown(), "Save as") << "the rows can be saved without the instrument";
    fileDialog().reject();
    EXPECT_EQ(shown(), "");
    EXPECT_TRUE(control<QPushButton>(window, "Command10").isEnabled());
}

TEST_F(RealDialogsTest, TheButtonThatAskedHasTheFocusAgainAfterTheAnswer) {
    program.selectUpperTab(QStringLiteral("Output: Spread Sheet"));
    QApplication::setActiveWindow(&window);
    for (const char* name : {"Command11", "Command10"}) {
        auto& button = control<QPushButton>(window, name);
        button.setFocus();
        button.click();
        QCoreApplication::processEvents();
        EXPECT_NE(window.focusWidget(), &button) << name;
        fileDialog().reject();
        EXPECT_EQ(window.focusWidget(), &button) << name;
    }
}

TEST_F(RealDialogsTest, ADialogOfTheConnectionGoesWithIt) {
    control<QAction>(window, "DownloadText").trigger();
    EXPECT_NE(shown().find("Save as"), std::string::npos);
    control<QAction>(window, "ClosePort").trigger();
    EXPECT_EQ(shown(), "");
    EXPECT_FALSE(port.isOpen());
}

TEST_F(RealDialogsTest, ADialogStandsAboveTheWindowThatItCameFrom) {
    program.showSettingsForm();
    SettingsWindow& settings = *window.settingsWindow();
    QApplication::setActiveWindow(&settings);
    settings.chooseTab(QStringLiteral("Modes"));
    control<QPushButton>(settings, "SaveAUserDefinedMode").click();
    EXPECT_EQ(fileDialog().parentWidget(), &settings);
    window.close();
    EXPECT_EQ(shown(), "") << "the end takes it back";
}

TEST_F(RealDialogsTest, WindowsThatComeByThemselvesLeaveTheQuestionTheKeyboard) {
    program.settings.shown.visible = false;
    program.saveAs();
    QCoreApplication::processEvents();
    ASSERT_TRUE(fileDialog().isActiveWindow());
    const std::function<void()> comings[] = {
        [this] { program.settings.shown.visible = true; },
        [this] { program.settings.sender.mainWindowWanted.tell(); },
        [this] { messages.show(operatorWarning(QStringLiteral("Something."))); },
        [this] { program.link.manual.shown.visible = true; },
        [this] { program.settings.progress.visible = true; },
    };
    for (const auto& come : comings) {
        come();
        QCoreApplication::processEvents();
        EXPECT_TRUE(fileDialog().isActiveWindow());
    }
    EXPECT_EQ(shown(), "Manual Connection|ORV Host Program|Processing|Save as");
    EXPECT_TRUE(window.settingsWindow()->isVisible());
    fileDialog().reject();
    program.settings.sender.mainWindowWanted.tell();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isActiveWindow());
}

TEST_F(RealDialogsTest, AMessageStandsOverTheSettingsWhileTheOperatorIsThereAndStaysWhenTheyAreClosed) {
    QWidget& settings = *window.settingsWindow();
    settings.move(300, 200);
    settings.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&settings));
    program.settings.shown.record = {
        .logEnabled = true, .samplesPerPoint = QStringLiteral("30"), .pointsPerBlock = QStringLiteral("0")};
    control<QPushButton>(settings, "ApplySettings").click();
    QCoreApplication::processEvents();
    ASSERT_EQ(MessageBoxes::unreadIn(window).size(), 1);
    const QMessageBox& box = *MessageBoxes::unreadIn(window).front();
    constexpr int near = 40; // the window has become wider with what it tells
    EXPECT_LT((box.frameGeometry().center() - settings.frameGeometry().center()).manhattanLength(), near);
    program.settings.shown.visible = false;
    EXPECT_FALSE(settings.isVisible());
    EXPECT_TRUE(box.isVisible());
}

TEST_F(RealDialogsTest, ALongMessageStandsOverTheSettingsTooButOnTheScreen) {
    QWidget& settings = *window.settingsWindow();
    const QRect room = settings.screen()->availableGeometry();
    const auto tell = [&](const char* text) {
        settings.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&settings));
        messages.show(operatorWarning(QString(20, u'x') + QString::fromLatin1(text).repeated(40)));
        QCoreApplication::processEvents();
        return MessageBoxes::unreadIn(window).back()->frameGeometry();
    };
    settings.move(60, 40);
    EXPECT_LT((tell(" one").center() - settings.frameGeometry().center()).manhattanLength(), 10);
    settings.move(room.bottomRight() - QPoint(60, 60));
    EXPECT_TRUE(room.contains(tell(" two")));
}

TEST_F(RealDialogsTest, QuitTakesTheQuestionBackAndWhatItsEndTellsStaysUntilItIsRead) {
    messages.show(operatorWarning(QStringLiteral("From before.")));
    program.vwhp();
    EXPECT_EQ(shown(), "ORV Host Program|Processing");
    control<QAction>(window, "Quit").trigger();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(read, 0);
    ASSERT_EQ(MessageBoxes::unreadIn(window).size(), 1);
    QMessageBox& last = *MessageBoxes::unreadIn(window).front();
    EXPECT_TRUE(last.text().startsWith(QStringLiteral("The download is incomplete"))) << qPrintable(last.text());
    EXPECT_EQ(shown(), "ORV Host Program");
    last.button(QMessageBox::Ok)->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    EXPECT_EQ(read, 1) << "now the program exits";
}

TEST_F(RealDialogsTest, TheLastWordStaysUntilItIsReadAlsoIfTheSameWasToldBefore) {
    connectUntilReady();
    const Message word = operatorWarning(QStringLiteral("The instrument may still hold other settings."));
    program.link.session.messages.show(word);
    ASSERT_EQ(MessageBoxes::unreadIn(window).size(), 1);
    const QPointer<QMessageBox> before = MessageBoxes::unreadIn(window).front();
    const Subscription telling = program.link.ports.closed.subscribe([&] { program.link.session.messages.show(word); });
    window.close();
    ASSERT_EQ(MessageBoxes::unreadIn(window).size(), 1);
    QMessageBox& last = *MessageBoxes::unreadIn(window).front();
    EXPECT_NE(before, &last);
    EXPECT_EQ(last.text(), before->text());
    EXPECT_EQ(read, 0);
    last.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    EXPECT_EQ(read, 1);
}

} // namespace
} // namespace orv
