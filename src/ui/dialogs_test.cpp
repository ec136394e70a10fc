// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs.h"

#include "testing/windowrig.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>

#include <gtest/gtest.h>

namespace orv {

namespace {

class ProgressDialogTest : public testing::Test {
protected:
    QProgressBar& bar() const { return control<QProgressBar>(dialog, "ProgressBar"); }
    QString text(const char* name) const { return control<QLabel>(dialog, name).text(); }

    ProgressState shown;
    ProgressDialog dialog{shown, nullptr};
};

TEST_F(ProgressDialogTest, FollowsTheState) {
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Processing"));
    shown.show();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(dialog.isModal());
    EXPECT_EQ(text("ProgressLabel"), QStringLiteral("%"));
    shown.value = 40;
    shown.valueLabel = QStringLiteral("40");
    EXPECT_EQ(bar().value(), 40);
    EXPECT_EQ(text("ProgressValue"), QStringLiteral("40"));
    shown.label = QStringLiteral("Bytes Downloaded");
    EXPECT_EQ(text("ProgressLabel"), QStringLiteral("Bytes Downloaded"));
    shown.visible = false;
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ProgressDialogTest, TheBarStaysWithinItsMaximum) {
    shown.maximum = 50;
    shown.value = 200;
    EXPECT_EQ(bar().value(), 50);
    EXPECT_EQ(bar().maximum(), 50);
    shown.maximum = 0;
    shown.value = -3;
    EXPECT_EQ(bar().value(), 0);
    EXPECT_EQ(bar().maximum(), 1) << "a maximum of 0 would be a busy bar";
}

TEST_F(ProgressDialogTest, ClosingItOnlyHidesIt) {
    shown.show();
    dialog.close();
    EXPECT_FALSE(shown.visible.value());
    shown.show();
    press(dialog, Qt::Key_Escape);
    EXPECT_FALSE(shown.visible.value());
}

TEST_F(ProgressDialogTest, AbortCannotBePressedAndTheTextBesideItSaysWhatCan) {
    shown.show();
    auto& button = control<QPushButton>(dialog, "Abort");
    EXPECT_EQ(button.text().remove(QLatin1Char('&')), QStringLiteral("Abort"));
    EXPECT_FALSE(button.isEnabled());
    const QString reason = QStringLiteral("Reset on the page Status and Controls stops it.");
    EXPECT_EQ(button.toolTip(), reason);
    EXPECT_EQ(button.accessibleDescription(), reason);
    const auto labels = dialog.findChildren<QLabel*>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(),
                            [&reason](const QLabel* label) { return label->text() == reason && label->isVisible(); }));
}

class ManualConnectionDialogTest : public WindowTest {
protected:
    QDialog& dialog() { return find<QDialog>("ManualConnection"); }
    QLabel& failure() { return find<QLabel>("ManualAdvice"); }
};

TEST_F(ManualConnectionDialogTest, SaysWhyAnAttemptFailedAndWhatToDo) {
    autoConnect();
    ASSERT_TRUE(dialog().isVisible());
    const std::string why = "No answer from COM 1 (ttyA) within 5 s. Check power and cable, press Quit, connect again.";
    EXPECT_EQ(failure().text().toStdString(), why);
    EXPECT_TRUE(failure().isVisible());
    EXPECT_EQ(find<QPlainTextEdit>("ManualText").toPlainText().toStdString(), "");
    EXPECT_EQ(text("Label20"), "No answer from COM 1");
    EXPECT_EQ(text("NextStep"), why);
    EXPECT_LT(failure().geometry().bottom(), find<QWidget>("ManualText").geometry().top());
    for (const char* name : {"ManualRetry", "ManualStart"}) {
        EXPECT_FALSE(button(name).isEnabled());
        EXPECT_EQ(button(name).toolTip().toStdString(),
                  "The port is still open, so this would do nothing. Press Quit, then connect again.");
    }
    click("ManualQuit");
    EXPECT_EQ(text("Label20"), "Offline");
    EXPECT_EQ(text("NextStep"), "Choose a port and press Connect.");
}

TEST_F(ManualConnectionDialogTest, BegunByHandNothingHasFailedAndEveryButtonWorks) {
    autoConnect();
    click("ManualQuit");
    item("ManualConnect1").trigger();
    EXPECT_FALSE(failure().isVisible());
    EXPECT_TRUE(button("ManualRetry").isEnabled());
    EXPECT_EQ(button("ManualRetry").toolTip().toStdString(), "");
    click("ManualProceed");
    EXPECT_TRUE(button("ManualStart").isEnabled());
    EXPECT_FALSE(button("ManualStart").hasFocus()) << "a second Space would press it";
}

TEST_F(ManualConnectionDialogTest, WhenStartCanDoNothingTheLineAboveItsTextSaysSo) {
    autoConnect();
    click("ManualProceed");
    EXPECT_EQ(find<QPlainTextEdit>("ManualText").toPlainText().toStdString(),
              "Shut power off of sensor. Press (Start) then turn power on.");
    EXPECT_FALSE(button("ManualStart").isEnabled());
    EXPECT_EQ(
        failure().text().toStdString(),
        "No answer from COM 1 (ttyA) within 5 s. Check power and cable, press Quit, connect again. \"Start\" can do "
        "nothing while the port is open.");
    EXPECT_TRUE(failure().isVisible());
}

TEST_F(ManualConnectionDialogTest, WhileTheInstrumentIsWaitedForTheDialogSaysWhatToDo) {
    item("ManualConnect1").trigger();
    click("ManualProceed");
    click("ManualStart");
    EXPECT_EQ(failure().text().toStdString(),
              "Switch the instrument's power on: its first line is waited for. Quit ends the wait.");
    EXPECT_TRUE(failure().isVisible());
    click("ManualQuit");
    item("ManualConnect1").trigger();
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_FALSE(failure().isVisible());
}

TEST_F(ManualConnectionDialogTest, TheOneEndOfTheConnectionAtTheReportsLine150SaysThatNothingIsWrong) {
    state.Timeout = 140;
    replies = {"V512\r"};
    autoConnect();
    receive(settingsReport());
    ticks(12);
    ASSERT_TRUE(dialog().isVisible());
    EXPECT_EQ(failure().text().toStdString(),
              "This was the 150th line of settings reports since the program started. There it ends the connection, "
              "once. Nothing is wrong: press Quit and connect again.");
    EXPECT_EQ(text("NextStep"), failure().text().toStdString());
    EXPECT_TRUE(button("ManualRetry").isEnabled()) << "the port is closed";
    click("ManualQuit");
    EXPECT_EQ(text("NextStep"), "Choose a port and press Connect.");
    connectAndRead();
}

TEST_F(ManualConnectionDialogTest, APortThatCannotBeOpenedAndOneThatIsLostAreToldInTheNextStep) {
    com1.openReason = QStringLiteral("There is no such device. Plug the adapter in.");
    autoConnect();
    EXPECT_EQ(text("NextStep"), "COM 1 (ttyA) could not be opened. There is no such device. Plug the adapter in.");
    com1.openReason = QString();
    connectAndRead();
    com1.failureReason = QStringLiteral("Gone.");
    ticks(2);
    EXPECT_EQ(text("NextStep"), "COM 1 (ttyA) was lost. Check the cable, then press Connect.");
}

constexpr const char* names[] = {"OpeningLine", "RunLine",     "BinningLine",    "SleepLine",    "WakeLine",
                                 "BlockLine",   "LoggingLine", "EndOfBlockLine", "NextBlockLine"};

class PlainEnglishWindowTest : public testing::Test {
protected:
    PlainEnglishWindowTest() {
        record.samplesPerPoint = QStringLiteral("30");
        record.pointsPerBlock = QStringLiteral("600");
    }

    QString line(const char* name) const { return control<QLabel>(window, name).text(); }
    QList<int> tops() const {
        QList<int> list;
        for (const char* name : names) {
            list << control<QLabel>(window, name).y();
        }
        return list;
    }

    LoggerSettings record;
    PlainEnglishWindow window;
};

TEST_F(PlainEnglishWindowTest, ShowsTheLinesOneUnderTheOther) {
    window.open(record, {});
    EXPECT_EQ(window.windowTitle(), QStringLiteral("In Plain English"));
    EXPECT_EQ(line("OpeningLine"), QStringLiteral("     The Orv Sensor will come up waiting for a command."));
    EXPECT_EQ(line("BlockLine"), QStringLiteral("continues for 600 data points to create 1 data block."));
    EXPECT_EQ(line("NextBlockLine"),
              QStringLiteral("If you decide to take another data block, data in memory will be erased."));
    EXPECT_EQ(tops(), (QList<int>{32, 56, 80, 104, 128, 152, 176, 200, 224}));
}

TEST_F(PlainEnglishWindowTest, NoLineIsKeptFreeForANextBlockThatNeverComes) {
    record.pointsPerBlock = QStringLiteral("0");
    record.autoStart = true;
    window.open(record, {});
    EXPECT_EQ(line("RunLine"), QString());
    EXPECT_EQ(line("NextBlockLine"), QString());
    EXPECT_EQ(tops(), (QList<int>{32, 56, 80, 104, 128, 152, 176, 200, 200}));
}

TEST_F(PlainEnglishWindowTest, DoesNotFollowEditsUntilItIsOpenedAgain) {
    window.open(record, {});
    record.samplesPerPoint = QStringLiteral("99");
    EXPECT_EQ(line("BinningLine"), QStringLiteral("It will bin for 30 sample(s) to create 1 data point."));
    window.open(record, {});
    EXPECT_EQ(line("BinningLine"), QStringLiteral("It will bin for 99 sample(s) to create 1 data point."));
}

TEST_F(PlainEnglishWindowTest, NoSentenceIsCutOff) {
    record.pointsPerBlock = QStringLiteral("0");
    window.open(record, {});
    QApplication::processEvents();
    for (const char* name : names) {
        const auto& label = control<QLabel>(window, name);
        EXPECT_GE(label.width(), label.sizeHint().width());
        EXPECT_FALSE(label.visibleRegion().isEmpty() && !label.text().isEmpty()) << name;
        EXPECT_LE(label.mapTo(&window, QPoint(label.width(), 0)).x(), window.width()) << name;
    }
}

TEST_F(PlainEnglishWindowTest, ItsButtonClosesIt) {
    window.open(record, {});
    EXPECT_TRUE(window.isVisible());
    control<QPushButton>(window, "ClosePlainEnglish").click();
    EXPECT_FALSE(window.isVisible());
}

} // namespace

} // namespace orv
