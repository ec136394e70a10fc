// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/windowrig.h"
#include "ui/portsbox.h"

#include <QApplication>
#include <QGroupBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest/QTest>

namespace orv {
namespace {

class StatusPageTest : public WindowTest {
protected:
    StatusPageTest() {
        program.setComm2Output(false);
        QCoreApplication::processEvents();
        QApplication::setActiveWindow(window.get());
        QCoreApplication::processEvents();
    }

    void key(Qt::Key which) {
        QTest::keyClick(window->windowHandle(), which);
        QCoreApplication::processEvents();
    }

    std::string step() { return text("NextStep"); }

    /// Connects by whatever `press` presses.
    template <typename Press>
    void connectBy(const Press& press) {
        replies = {"V512\r"};
        press();
        finish();
        ASSERT_TRUE(ports.isOpen());
        TestPort& open = com2.isOpen() ? com2 : com1;
        open.input += settingsReport();
        ticks(13);
        open.input += "C\r\n11/21/26\t25661\r\n>";
        ticks(3);
        window->settingsWindow()->close();
        QCoreApplication::processEvents();
        QApplication::setActiveWindow(window.get());
        QCoreApplication::processEvents();
    }

    QPushButton& first = button("ConnectButton1");
    QPushButton& second = button("ConnectButton2");
    QLineEdit& name = *find<PortChooser>("PortChooser1").lineEdit();
};

TEST_F(StatusPageTest, AButtonConnectsAndDisconnects) {
    EXPECT_EQ(step(), "Choose a port and press Connect.");
    EXPECT_EQ(first.text().toStdString(), "&Connect");
    connectBy([this] { first.click(); });
    EXPECT_EQ(step(), "Press Run to collect. Reset ends a run.");
    EXPECT_EQ(first.text().toStdString(), "Dis&connect");
    EXPECT_EQ(first.accessibleName().toStdString(), "Disconnect COM 1");
    EXPECT_FALSE(second.isEnabled());
    first.click();
    EXPECT_FALSE(ports.isOpen());
    EXPECT_EQ(first.text().toStdString(), "&Connect");
    EXPECT_TRUE(second.isEnabled());
}

TEST_F(StatusPageTest, AButtonConnectsOnItsOwnPortAlsoAfterASessionOnTheOther) {
    connectBy([this] { second.click(); });
    EXPECT_TRUE(com2.isOpen());
    second.click();
    connectBy([this] { first.click(); });
    EXPECT_TRUE(com1.isOpen());
    EXPECT_FALSE(com2.isOpen());
}

TEST_F(StatusPageTest, ThePortOfTheDebugOutputCannotBeConnected) {
    program.setComm2Output(true);
    EXPECT_FALSE(second.isEnabled());
}

TEST_F(StatusPageTest, ASecondClickOfADoubleClickDoesNotDisconnect) {
    QTest::mouseClick(&first, Qt::LeftButton);
    QTest::mouseDClick(&first, Qt::LeftButton);
    EXPECT_TRUE(ports.isOpen());
    EXPECT_EQ(commands.activity.value(), Activity::Connecting);
}

TEST_F(StatusPageTest, DisconnectEndsAnAttempt) {
    first.click();
    live(0.5);
    EXPECT_TRUE(first.isEnabled());
    first.click();
    finish();
    EXPECT_FALSE(ports.isOpen());
}

TEST_F(StatusPageTest, EnterConnectsWhereverTheFocusIs) {
    EXPECT_TRUE(first.isDefault());
    find<QWidget>("TabStrip1").setFocus();
    connectBy([this] { key(Qt::Key_Return); });
    EXPECT_FALSE(first.isDefault());
    key(Qt::Key_Return);
    EXPECT_TRUE(ports.isOpen());
    EXPECT_EQ(commands.activity.value(), Activity::None);
}

TEST_F(StatusPageTest, EnterConnectsThePortInWhoseChooserTheFocusIs) {
    find<PortChooser>("PortChooser2").lineEdit()->setFocus();
    EXPECT_TRUE(second.isDefault());
    EXPECT_FALSE(first.isDefault());
    key(Qt::Key_Return);
    EXPECT_TRUE(com2.isOpen());
}

TEST_F(StatusPageTest, EnterOnAnotherPageConnectsNothing) {
    showPage(QStringLiteral("Output: Spread Sheet"));
    find<QWidget>("TabStrip1").setFocus();
    key(Qt::Key_Return);
    EXPECT_FALSE(ports.isOpen());
}

TEST_F(StatusPageTest, TheEnterThatFinishesANameDoesNotConnect) {
    name.setFocus();
    name.selectAll();
    type(name, "ttyC");
    key(Qt::Key_Return);
    EXPECT_EQ(ports.device(1).toStdString(), "ttyC");
    EXPECT_FALSE(ports.isOpen());
    key(Qt::Key_Return);
    EXPECT_TRUE(ports.isOpen());
}

TEST_F(StatusPageTest, AStraySpaceNeverEndsARun) {
    first.setFocus(Qt::TabFocusReason);
    connectBy([this] { key(Qt::Key_Space); });
    first.setFocus(Qt::ActiveWindowFocusReason);
    key(Qt::Key_Space);
    EXPECT_TRUE(ports.isOpen()) << "the button under the focus has become another";
    auto& run = button("Command2");
    run.setFocus(Qt::TabFocusReason);
    key(Qt::Key_Space);
    ASSERT_EQ(commands.activity.value(), Activity::Collecting);
    EXPECT_EQ(window->focusWidget(), nullptr);
    key(Qt::Key_Space);
    EXPECT_EQ(commands.activity.value(), Activity::Collecting);
    key(Qt::Key_Tab);
    EXPECT_TRUE(button("ResetButton").hasFocus()) << "the Tab key goes on from \"Run\"";
    key(Qt::Key_Backtab);
    receive("R\r\n");
    receiveRow();
    receive(">\r\n");
    EXPECT_EQ(commands.activity.value(), Activity::None);
}

TEST_F(StatusPageTest, TheFocusStaysOnRunDuringARun) {
    connectBy([this] { first.click(); });
    auto& run = button("Command2");
    run.setFocus(Qt::MouseFocusReason);
    run.click();
    receive("R\r\n");
    receiveRow();
    receive(">\r\n");
    ASSERT_EQ(commands.activity.value(), Activity::None);
    EXPECT_TRUE(run.hasFocus());
}

TEST_F(StatusPageTest, ResetTakesKeysInARunOnlyIfItWasChosenInIt) {
    connectBy([this] { first.click(); });
    auto& reset = button("ResetButton");
    reset.setFocus(Qt::TabFocusReason);
    key(Qt::Key_F5);
    ASSERT_EQ(commands.activity.value(), Activity::Collecting);
    key(Qt::Key_Space);
    EXPECT_EQ(commands.activity.value(), Activity::Collecting);
    key(Qt::Key_Backtab);
    key(Qt::Key_Tab);
    ASSERT_TRUE(reset.hasFocus());
    key(Qt::Key_Space);
    EXPECT_EQ(commands.activity.value(), Activity::Connecting);
}

TEST_F(StatusPageTest, WithNothingPluggedInASimulatedInstrumentIsOneClickAway) {
    auto& trial = button("TrySimulation");
    EXPECT_FALSE(trial.isVisible());
    program.link.portChoices.noteNothingChosen();
    program.link.portChoices.refresh();
    EXPECT_TRUE(trial.isVisible());
    EXPECT_EQ(step(), "Plug in an adapter, or choose a port and press Connect.");
    answers.late = true;
    haveRows(1);
    program.openSheet();
    EXPECT_FALSE(trial.isEnabled()) << "a question stands";
    answers.answer({});
    EXPECT_TRUE(trial.isEnabled());
    trial.click();
    EXPECT_EQ(ports.device(1).toStdString(), "sim:trx");
    EXPECT_TRUE(ports.isOpen());
    EXPECT_FALSE(trial.isVisible());
}

TEST_F(StatusPageTest, NothingIsOfferedBeforeThePortsHaveBeenListed) {
    ProgramRig rig; // a window lists them by itself
    rig.program.link.portChoices.noteNothingChosen();
    EXPECT_FALSE(rig.program.link.portChoices.shown.offersSimulation.value());
    rig.program.link.portChoices.refresh();
    EXPECT_TRUE(rig.program.link.portChoices.shown.offersSimulation.value());
}

TEST_F(StatusPageTest, AnAdapterPluggedInIsChosenWhenNothingElseIs) {
    auto& trial = button("TrySimulation");
    program.link.portChoices.noteNothingChosen();
    portList.plugged = {{.name = QStringLiteral("ttyS0"), .description = {}, .manufacturer = {}}};
    program.link.portChoices.refresh();
    EXPECT_EQ(ports.device(1).toStdString(), "ttyA");
    EXPECT_TRUE(trial.isVisible());
    portList.plugged.push_back({.name = QStringLiteral("ttyUSB0"),
                                .description = QStringLiteral("Adapter"),
                                .manufacturer = {},
                                .isAdapter = true});
    program.link.portChoices.refresh();
    EXPECT_EQ(ports.device(1).toStdString(), "ttyUSB0");
    EXPECT_FALSE(trial.isVisible());
    portList.plugged.insert(portList.plugged.begin(), {.name = QStringLiteral("ttyACM0"),
                                                       .description = QStringLiteral("Another"),
                                                       .manufacturer = {},
                                                       .isAdapter = true});
    program.link.portChoices.refresh();
    EXPECT_EQ(ports.device(1).toStdString(), "ttyUSB0") << "it stays";
    portList.plugged.pop_back();
    program.link.portChoices.refresh();
    EXPECT_EQ(ports.device(1).toStdString(), "ttyACM0") << "nobody has chosen the other";
}

TEST_F(StatusPageTest, TheAdapterOfComTwoIsOneThatIsPluggedIn) {
    ports.setDevice(2, QStringLiteral("ttyUSB1"));
    program.link.portChoices.noteNothingChosen();
    portList.plugged = {{.name = QStringLiteral("ttyUSB1"), .description = {}, .manufacturer = {}, .isAdapter = true}};
    program.link.portChoices.refresh();
    EXPECT_EQ(ports.device(1).toStdString(), "ttyA");
    EXPECT_FALSE(button("TrySimulation").isVisible());
    EXPECT_EQ(step(), "Choose a port and press Connect.");
}

TEST_F(StatusPageTest, AnAdapterPluggedInLeavesWhatIsBeingTyped) {
    program.link.portChoices.noteNothingChosen();
    retype(name, "ttyS");
    portList.plugged = {{.name = QStringLiteral("ttyUSB0"), .description = {}, .manufacturer = {}, .isAdapter = true}};
    program.link.portChoices.refresh();
    EXPECT_EQ(ports.device(1).toStdString(), "ttyUSB0");
    EXPECT_EQ(name.text().toStdString(), "ttyS");
    type(name, "7");
    press(name, Qt::Key_Return);
    EXPECT_EQ(ports.device(1).toStdString(), "ttyS7");
}

TEST_F(StatusPageTest, AnAdapterDoesNotReplaceWhatWasChosen) {
    const std::function<void()> choices[] = {
        [this] { enter(name, "ttyC"); },
        [this] {
            connectBy([this] { first.click(); });
            first.click();
        },
    };
    for (const auto& choose : choices) {
        portList.plugged.clear();
        program.link.portChoices.noteNothingChosen();
        program.link.portChoices.refresh();
        choose();
        const QString chosen = ports.device(1);
        portList.plugged = {
            {.name = QStringLiteral("ttyUSB0"), .description = {}, .manufacturer = {}, .isAdapter = true}};
        program.link.portChoices.refresh();
        EXPECT_EQ(ports.device(1), chosen);
        EXPECT_FALSE(button("TrySimulation").isVisible());
    }
}

TEST_F(StatusPageTest, ShowsHowFarARunHasCome) {
    connectBy([this] { first.click(); });
    EXPECT_EQ(text("RunProgress"), "");
    program.run();
    receive("R\r\n");
    receiveRow();
    live(1.0);
    EXPECT_EQ(text("RunProgress"), "1 s");
}

TEST_F(StatusPageTest, SaysHowToGetRows) {
    EXPECT_EQ(text("NoRowsYet"), "No rows yet. Connect, then press Run.");
    connectBy([this] { first.click(); });
    EXPECT_EQ(text("NoRowsYet"), "No rows yet. Press Run.");
    program.run();
    EXPECT_EQ(text("NoRowsYet"), "No rows yet.") << "it has been pressed";
}

TEST_F(StatusPageTest, ARowFromBeforeTheRunDoesNotLookNew) {
    connectBy([this] { first.click(); });
    const auto& value = find<QLabel>("NewestValue0");
    const auto title = [&value] { return qobject_cast<QGroupBox*>(value.parentWidget())->title().toStdString(); };
    program.run();
    receive("R\r\n");
    receiveRow();
    receive(">\r\n");
    ASSERT_EQ(commands.activity.value(), Activity::None);
    EXPECT_EQ(title(), "Newest row");
    EXPECT_TRUE(value.isEnabled());
    program.run();
    receive("R\r\n");
    EXPECT_EQ(title(), "Newest row (from before this run)");
    EXPECT_FALSE(value.isEnabled());
    receiveRow();
    EXPECT_EQ(title(), "Newest row");
    EXPECT_TRUE(value.isEnabled());
    EXPECT_EQ(value.text().toStdString(), text("StatusRows"));
}

TEST_F(StatusPageTest, ToPressRunIsSaidOnlyWhenTheInstrumentIsKnown) {
    connectBy([this] { first.click(); });
    EXPECT_EQ(text("NoRowsYet"), "No rows yet. Press Run.");
    status.instrument = InstrumentType::Unknown; // as after an attempt that nobody answered
    ASSERT_TRUE(commands.canRun.value());
    EXPECT_EQ(text("NoRowsYet"), "No rows yet.");
}

TEST_F(StatusPageTest, NothingMovesWhenARemarkComesAndGoes) {
    connectBy([this] { first.click(); });
    program.run();
    receive("R\r\n");
    receiveRow();
    waitFor([this] { return !find<QLabel>("NoRowsYet").isVisible(); }, 1000);
    QCoreApplication::processEvents();
    const auto places = [this] {
        QCoreApplication::processEvents();
        std::vector<QRect> all;
        for (const char* what : {"PortsBox", "Command2", "StatusRows", "Label20", "ResetButton"}) {
            const auto& widget = find<QWidget>(what);
            all.emplace_back(widget.mapTo(window.get(), QPoint()), widget.size());
        }
        return all;
    };
    const auto* area = qobject_cast<QScrollArea*>(find<QWidget>("StatusPage").parentWidget()->parentWidget());
    const auto before = places();
    EXPECT_FALSE(area->verticalScrollBar()->isVisible());
    status.notice = QStringLiteral("The instrument's clock was set to the minute and is 59 s behind: the command "
                                   "carries no seconds.");
    status.clockOffset = -59;
    EXPECT_EQ(places(), before);
    const std::string notice = text("Notice");
    EXPECT_NE(notice, "");
    settings.secondsToFullMinute = 46;
    EXPECT_EQ(text("Notice"), "") << "the next step says it, and what was told before is old";
    EXPECT_EQ(places(), before);
    settings.secondsToFullMinute = 0;
    EXPECT_EQ(text("Notice"), notice);
    status.notice = QString();
    status.clockOffset = -86'000;
    status.shutterProgress = QStringLiteral("Restoring Orignal Settings 10");
    status.shutterCountdown = QStringLiteral("30 s");
    status.failure = QStringLiteral("No answer from COM 1 (ttyUSB0) within 5 s. Check power and cable, press Quit, "
                                    "connect again. And so on, for a second line of the same length as this one.");
    EXPECT_EQ(places(), before);
    EXPECT_FALSE(area->verticalScrollBar()->isVisible());
}

TEST_F(StatusPageTest, NothingMovesWhenTheShuttersButtonGoesWithTheConnection) {
    connectBy([this] { first.click(); });
    const auto geometry = [this] {
        QApplication::processEvents();
        return std::pair(first.geometry(), button("ResetButton").geometry());
    };
    ASSERT_TRUE(button("ResetShutterButton").isVisible());
    const auto before = geometry();
    first.click();
    EXPECT_FALSE(button("ResetShutterButton").isVisible());
    EXPECT_EQ(geometry(), before);
}

TEST_F(StatusPageTest, ARowOfARunFitsIntoASmallWindow) {
    connectBy([this] { first.click(); });
    program.run();
    receive("R\r\n");
    receiveRow();
    window->resize(800, 600);
    pass(50);
    const auto* area = qobject_cast<QScrollArea*>(find<QWidget>("StatusPage").parentWidget()->parentWidget());
    ASSERT_TRUE(find<QLabel>("NewestValue6").isVisible());
    EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
    EXPECT_FALSE(area->verticalScrollBar()->isVisible());
}

TEST_F(StatusPageTest, TheNewestRowAndTheCountTellOfOneMoment) {
    connectBy([this] { first.click(); });
    program.run();
    receive("R\r\n");
    for (int row = 1; row <= 5; ++row) {
        receiveRow();
        pass(70);
        const auto newest = text("StatusRows") == "0" ? std::string() : text("StatusRows");
        EXPECT_EQ(find<QLabel>("NewestValue0").text().toStdString(), newest);
    }
}

TEST_F(StatusPageTest, SaysHowTheInstrumentsClockStands) {
    EXPECT_EQ(text("ClockOffset"), "________");
    const std::pair<int, const char*> sayings[] = {
        {0, "within 2 s of this computer's"},
        {-2, "within 2 s of this computer's"},
        {-43, "43 s behind this computer's"},
        {12, "12 s ahead of this computer's"},
        {-60, "1 min 0 s behind this computer's"},
        {-61, "1 min 1 s behind this computer's. \"At the full minute\" sets it."},
    };
    for (const auto& [ahead, saying] : sayings) {
        status.clockOffset = ahead;
        EXPECT_EQ(text("ClockOffset"), saying);
    }
    program.closePort();
    EXPECT_EQ(text("ClockOffset"), "________");
}

TEST_F(StatusPageTest, LongTextsDoNotWidenThePage) {
    const int width = find<QWidget>("StatusPage").minimumSizeHint().width();
    status.failure = QString(200, u'W');
    status.clockOffset = -100'000;
    EXPECT_EQ(find<QWidget>("StatusPage").minimumSizeHint().width(), width);
}

TEST_F(StatusPageTest, ALongStatusHasSmallerLettersInASmallWindow) {
    window->resize(800, 600);
    QCoreApplication::processEvents();
    const auto& page = find<QWidget>("StatusPage");
    const auto& label = find<QLabel>("Label20");
    const double large = label.font().pointSizeF();
    const int height = label.height();
    program.progress.text = QStringLiteral("13 s, 6 rows");
    for (const char* text : {"No data for 10 s. Reset stops the download.",
                             "Sin datos en 10 s. Con Restablecer se detiene toda la descarga."}) {
        status.status = QString::fromLatin1(text);
        QCoreApplication::processEvents();
        EXPECT_LE(page.width(), window->centralWidget()->width()) << text;
        EXPECT_LE(label.fontMetrics().horizontalAdvance(label.text()), label.width()) << text;
        EXPECT_EQ(label.height(), height);
        EXPECT_GE(label.font().pointSizeF(), QApplication::font().pointSizeF());
        EXPECT_GT(find<QLabel>("RunProgress").width(), 50);
    }
    status.status = QStringLiteral("Ready");
    QCoreApplication::processEvents();
    EXPECT_EQ(label.font().pointSizeF(), large);
}

} // namespace
} // namespace orv
