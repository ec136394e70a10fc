// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/calibrationpage.h"

#include "testing/calibrationbench.h"
#include "testing/fakes.h"
#include "testing/screenchecks.h"

#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

namespace orv {

namespace {

class CalibrationPageTest : public testing::Test, protected CalibrationBench {
protected:
    CalibrationPageTest() {
        page.resize(960, 560);
        page.show();
    }

    QString text(const char* name) { return control<QLineEdit>(page, name).text(); }
    void press(const char* name) { control<QAbstractButton>(page, name).click(); }
    QListWidget& list() { return control<QListWidget>(page, "List2"); }

    void clickEntry(int row) { clickAt(*list().viewport(), list().visualItemRect(list().item(row)).center()); }

    CalibrationPage page{shown, actions};
};

TEST_F(CalibrationPageTest, IsOperableByKeyboardAndFits) {
    expectOperable(page);
    expectFits(page);
}

TEST_F(CalibrationPageTest, TabGoesThroughTheWorkInItsOrder) {
    QStringList names;
    const QWidget* first = &control<QLineEdit>(page, "Text17");
    const QWidget* widget = first;
    do {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->objectName().isEmpty()) {
            names << widget->objectName();
        }
        widget = widget->nextInFocusChain();
    } while (widget != first);
    EXPECT_EQ(names.mid(0, 14).join(u' ').toStdString(), "Text17 Option9 Option10 Option11 Command4 List2 Command8 "
                                                         "Command5 Text36 Option3 Text33 Text34 Text35 Option4");
    EXPECT_EQ(names.mid(33, 4).join(u' ').toStdString(), "Command12 Command14 Text2 Text3");
}

TEST_F(CalibrationPageTest, EveryBoxIsThereByItsName) {
    for (int number = 2; number <= 36; ++number) {
        const QString name = QStringLiteral("Text%1").arg(number);
        EXPECT_EQ(page.findChildren<QLineEdit*>(name).size(), 1) << name.toStdString();
    }
    for (int number = 3; number <= 11; ++number) {
        const QString name = QStringLiteral("Option%1").arg(number);
        EXPECT_EQ(page.findChildren<QRadioButton*>(name).size(), 1) << name.toStdString();
    }
}

TEST_F(CalibrationPageTest, BoxesStandInTheirRowAndColumn) {
    fill(shown.worksheet, "33 34 35/18 19 20/21 22 23/24 25 26/27 28 29/30 31 32");
    fill(shown.reference, "2 3 4/5 6 7/8 9 10/11 12 13/14 15 16");
    for (int number = 2; number <= 35; ++number) {
        if (number != 17) {
            EXPECT_EQ(text(QStringLiteral("Text%1").arg(number).toLatin1().constData()).toInt(), number);
        }
    }
    const auto& air = control<QRadioButton>(page, "Option3");
    EXPECT_EQ(air.text().toStdString(), "&Air");
    EXPECT_EQ(control<QLineEdit>(page, "Text35").geometry().center().y(), air.geometry().center().y());
    EXPECT_LT(control<QLineEdit>(page, "Text33").x(), control<QLineEdit>(page, "Text34").x());
    EXPECT_LT(control<QLineEdit>(page, "Text34").x(), control<QLineEdit>(page, "Text35").x());
}

TEST_F(CalibrationPageTest, TypingFillsTheState) {
    type(control<QLineEdit>(page, "Text19"), "12.5");
    type(control<QLineEdit>(page, "Text16"), "7");
    type(control<QLineEdit>(page, "Text17"), "SN & 1");
    EXPECT_EQ(shown.worksheet.at(1, 1).value().toStdString(), "12.5");
    EXPECT_EQ(shown.reference.at(4, 2).value().toStdString(), "7");
    EXPECT_EQ(shown.instrumentName.value().toStdString(), "SN & 1");
}

TEST_F(CalibrationPageTest, AColourMustBeChosenFirst) {
    press("Command4");
    EXPECT_EQ(text("Text36").toStdString(), "SELECT A COLOR");
    EXPECT_EQ(list().count(), 0);
    press("Option10");
    press("Command4");
    EXPECT_EQ(text("Text36").toStdString(), "");
    EXPECT_EQ(list().count(), 1);
    EXPECT_EQ(control<QLabel>(page, "Label70").text().toStdString(), "1");
    EXPECT_EQ(actions.table.colour(0), LightColour::Blue);
}

TEST_F(CalibrationPageTest, EnterInTheNameAdds) {
    press("Option9");
    type(control<QLineEdit>(page, "Text17"), "SN1");
    pressKey(control<QLineEdit>(page, "Text17"), Qt::Key_Return);
    ASSERT_EQ(list().count(), 1);
    EXPECT_EQ(list().item(0)->text().toStdString(), "SN1");
}

TEST_F(CalibrationPageTest, NavigationShowsNameIndexAndColour) {
    add("one", LightColour::Red);
    add("A & B", LightColour::Green);
    EXPECT_EQ(control<QGroupBox>(page, "Frame16").title().toStdString(), "Worksheet");
    press("Command5");
    EXPECT_EQ(control<QGroupBox>(page, "Frame16").title().toStdString(), "A && B");
    EXPECT_EQ(control<QLabel>(page, "Label71").text().toStdString(), "1");
    EXPECT_TRUE(control<QRadioButton>(page, "Option11").isChecked());
    EXPECT_EQ(list().currentRow(), 1);
    press("Command8");
    EXPECT_EQ(control<QGroupBox>(page, "Frame16").title().toStdString(), "one");
    EXPECT_TRUE(control<QRadioButton>(page, "Option9").isChecked());
    EXPECT_FALSE(control<QRadioButton>(page, "Option11").isChecked());
    EXPECT_EQ(list().currentRow(), 0);
    EXPECT_EQ(text("Text18").toStdString(), "0");
}

TEST_F(CalibrationPageTest, AClickShowsAnEntryAgainAndAgain) {
    add("one", LightColour::Red);
    add("two", LightColour::Blue);
    EXPECT_EQ(list().currentRow(), -1) << "adding shows nothing";
    clickEntry(1);
    EXPECT_EQ(shown.current.value(), 1);
    type(control<QLineEdit>(page, "Text18"), "99");
    clickEntry(1);
    EXPECT_EQ(text("Text18").toStdString(), "0");
}

TEST_F(CalibrationPageTest, KeysMoveThroughTheList) {
    add("one", LightColour::Red);
    add("two", LightColour::Blue);
    clickEntry(0);
    pressKey(list(), Qt::Key_Down);
    EXPECT_EQ(shown.current.value(), 1);
    EXPECT_EQ(shown.worksheetCaption.value().toStdString(), "two");
}

TEST_F(CalibrationPageTest, TheFirstInstrumentIsHighlightedWhenItIsShown) {
    add("one", LightColour::Red);
    press("Command5");
    EXPECT_EQ(list().currentRow(), 0);
}

TEST_F(CalibrationPageTest, AnEighthInstrumentIsListedAndTold) {
    press("Option9");
    for (int count = 0; count < 8; ++count) {
        press("Command4");
    }
    EXPECT_EQ(list().count(), 8);
    EXPECT_EQ(messages.shown.size(), 1U);
    for (std::size_t clicks = 1; clicks <= 2; ++clicks) {
        clickEntry(7);
        EXPECT_EQ(messages.shown.size(), 1U + clicks) << "a click is one choice";
    }
}

TEST_F(CalibrationPageTest, CalcDpFillsTheSelectedRowAndItsResults) {
    fillSheet({QStringLiteral("10 20 30")});
    fill(shown.reference, "1 1 1/2 3 4/0 0 0/0 0 0/0 0 0");
    press("Option4");
    press("Command12");
    press("Option5");
    press("Command12");
    EXPECT_EQ(text("Text18").toStdString(), "10");
    EXPECT_EQ(text("Text23").toStdString(), "30");
    EXPECT_EQ(control<QLabel>(page, "Label57").text().toStdString(), "20");
    EXPECT_EQ(control<QLabel>(page, "Label59").text().toStdString(), "60");
    EXPECT_EQ(control<QLabel>(page, "Label61").text().toStdString(), "120");
}

TEST_F(CalibrationPageTest, RowsAndColoursAreChosenIndependently) {
    press("Option3");
    press("Option8");
    press("Option9");
    press("Option11");
    EXPECT_EQ(shown.selectedRow.value(), 5);
    EXPECT_EQ(shown.colour.value(), LightColour::Green);
    EXPECT_TRUE(control<QRadioButton>(page, "Option8").isChecked());
    EXPECT_FALSE(control<QRadioButton>(page, "Option3").isChecked());
}

TEST_F(CalibrationPageTest, SaveCalInfoAsksForAName) {
    press("Command14");
    EXPECT_EQ(answers.asked.size(), 1);
}

TEST_F(CalibrationPageTest, TheListTakingTheFocusShowsNothing) {
    add("one", LightColour::Red);
    type(control<QLineEdit>(page, "Text33"), "123");
    page.show();
    page.activateWindow();
    list().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(text("Text33").toStdString(), "123");
}

} // namespace

namespace {

class TestingPageTest : public testing::Test {
protected:
    TestingPageTest() {
        page.resize(960, 560);
        page.show();
    }

    QPushButton& button() { return control<QPushButton>(page, "ResetShutter"); }

    void connectInstrument() {
        session.commands.portOpen = true;
        session.commands.resetShutterEnabled = true;
    }

    TestClock clock;
    RecordedMessages messages;
    Session session{clock, messages};
    int resets = 0;
    TestingPage page{session, [this] { ++resets; }};
};

TEST_F(TestingPageTest, IsOperableByKeyboardAndFits) {
    expectOperable(page);
    expectFits(page);
}

TEST_F(TestingPageTest, TheShutterNeedsAConnectionAndRest) {
    EXPECT_FALSE(button().isEnabled());
    connectInstrument();
    EXPECT_TRUE(button().isEnabled());
    button().click();
    EXPECT_EQ(resets, 1);
    session.commands.activity = Activity::Collecting;
    EXPECT_FALSE(button().isEnabled());
}

TEST_F(TestingPageTest, TheButtonGoesWithTheClosedPort) {
    connectInstrument();
    session.commands.resetShutterVisible = false;
    EXPECT_FALSE(button().isVisible());
    session.commands.resetShutterVisible = true;
    EXPECT_TRUE(button().isVisible());
}

TEST_F(TestingPageTest, ShowsStatusStepAndCountdown) {
    session.status.status = QStringLiteral("Resetting Shutter");
    session.status.shutterProgress = QStringLiteral("Moving Shutter");
    session.status.shutterCountdown = QStringLiteral("29 s");
    EXPECT_EQ(control<QLabel>(page, "TestingStatus").text().toStdString(), "Resetting Shutter");
    EXPECT_EQ(control<QLineEdit>(page, "TestingProgress").text().toStdString(), "Moving Shutter");
    EXPECT_TRUE(control<QLineEdit>(page, "TestingProgress").isReadOnly());
    EXPECT_EQ(control<QLabel>(page, "TestingCountdown").text().toStdString(), "29 s");
}

} // namespace

} // namespace orv
