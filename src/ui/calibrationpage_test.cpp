// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/calibrationpage.h"

#include "testing/calibrationbench.h"
#include "testing/windowrig.h"

#include <QGroupBox>
#include <QListWidget>
#include <QRadioButton>
#include <QtTest/QTest>

namespace orv {
namespace {

class CalibrationPageTest : public WindowTest {
protected:
    CalibrationPageTest() { showPage(QStringLiteral("Calibration")); }

    QLineEdit& box(const char* name) { return find<QLineEdit>(name); }
    std::string typed(const char* name) { return box(name).text().toStdString(); }
    std::string title() { return find<QGroupBox>("Frame16").title().toStdString(); }
    QRadioButton& option(const char* name) { return find<QRadioButton>(name); }
    QListWidget& list() { return find<QListWidget>("List2"); }

    void clickEntry(int row) { clickAt(*list().viewport(), list().visualItemRect(list().item(row)).center()); }

    /// Enters an instrument with the light of an option button.
    void add(const char* name, const char* colour) {
        retype(box("Text17"), name);
        click(colour);
        click("Command4");
    }

    CalibrationState& shown = program.calibration.shown;
    QWidget& page = find<QWidget>("CalibrationPage");
};

TEST_F(CalibrationPageTest, TabGoesThroughTheWorkInItsOrder) {
    QStringList names;
    const QWidget* first = &box("Text17");
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
        EXPECT_EQ(page.findChildren<QLineEdit*>(QStringLiteral("Text%1").arg(number)).size(), 1) << number;
    }
    for (int number = 3; number <= 11; ++number) {
        EXPECT_EQ(page.findChildren<QRadioButton*>(QStringLiteral("Option%1").arg(number)).size(), 1) << number;
    }
}

TEST_F(CalibrationPageTest, BoxesStandInTheirRowAndColumn) {
    CalibrationBench::fill(shown.worksheet, "33 34 35/18 19 20/21 22 23/24 25 26/27 28 29/30 31 32");
    CalibrationBench::fill(shown.reference, "2 3 4/5 6 7/8 9 10/11 12 13/14 15 16");
    for (int number = 2; number <= 35; ++number) {
        if (number != 17) {
            EXPECT_EQ(box(qPrintable(QStringLiteral("Text%1").arg(number))).text().toInt(), number);
        }
    }
    const auto& air = option("Option3");
    EXPECT_EQ(air.text().toStdString(), "&Air");
    EXPECT_EQ(box("Text35").geometry().center().y(), air.geometry().center().y());
    EXPECT_LT(box("Text33").x(), box("Text34").x());
    EXPECT_LT(box("Text34").x(), box("Text35").x());
}

TEST_F(CalibrationPageTest, TypingFillsTheState) {
    retype(box("Text19"), "12.5");
    retype(box("Text16"), "7");
    retype(box("Text17"), "SN & 1");
    EXPECT_EQ(shown.worksheet.at(1, 1).value().toStdString(), "12.5");
    EXPECT_EQ(shown.reference.at(4, 2).value().toStdString(), "7");
    EXPECT_EQ(shown.instrumentName.value().toStdString(), "SN & 1");
}

TEST_F(CalibrationPageTest, AColourMustBeChosenFirst) {
    click("Command4");
    EXPECT_EQ(typed("Text36"), "SELECT A COLOR");
    EXPECT_EQ(box("Text36").palette().color(QPalette::Base), page.palette().color(QPalette::Window));
    EXPECT_EQ(list().count(), 0);
    click("Option10");
    click("Command4");
    EXPECT_EQ(typed("Text36"), "");
    EXPECT_EQ(list().count(), 1);
    EXPECT_EQ(text("Label70"), "1");
    EXPECT_EQ(program.calibration.table.colour(0), LightColour::Blue);
}

TEST_F(CalibrationPageTest, EnterInTheNameAdds) {
    click("Option9");
    retype(box("Text17"), "SN1");
    press(box("Text17"), Qt::Key_Return);
    ASSERT_EQ(list().count(), 1);
    EXPECT_EQ(list().item(0)->text().toStdString(), "SN1");
}

TEST_F(CalibrationPageTest, NavigationShowsNameIndexAndColour) {
    add("one", "Option9");
    add("A & B", "Option11");
    EXPECT_EQ(title(), "Worksheet");
    click("Command5");
    EXPECT_EQ(title(), "A && B");
    EXPECT_EQ(text("Label71"), "1");
    EXPECT_TRUE(option("Option11").isChecked());
    EXPECT_EQ(list().currentRow(), 1);
    click("Command8");
    EXPECT_EQ(title(), "one");
    EXPECT_TRUE(option("Option9").isChecked());
    EXPECT_FALSE(option("Option11").isChecked());
    EXPECT_EQ(list().currentRow(), 0);
    EXPECT_EQ(typed("Text18"), "0");
}

TEST_F(CalibrationPageTest, AClickShowsAnEntryAgainAndAgain) {
    add("one", "Option9");
    add("two", "Option10");
    EXPECT_EQ(list().currentRow(), -1) << "adding shows nothing";
    clickEntry(1);
    EXPECT_EQ(shown.current.value(), 1);
    retype(box("Text18"), "099");
    clickEntry(1);
    EXPECT_EQ(typed("Text18"), "99") << "as it is kept";
}

TEST_F(CalibrationPageTest, AChoiceThatIsRefusedLeavesTheHighlight) {
    add("one", "Option9");
    add("two", "Option10");
    clickEntry(1);
    retype(box("Text18"), "40000");
    clickEntry(0);
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(list().currentRow(), 1);
    EXPECT_TRUE(list().item(1)->isSelected());
    EXPECT_EQ(title(), "two");
    EXPECT_EQ(typed("Text18"), "40000");
}

TEST_F(CalibrationPageTest, AnInstrumentWithoutANameIsShownAndHighlighted) {
    add("", "Option9");
    add("two", "Option10");
    clickEntry(1);
    click("Command5");
    EXPECT_EQ(title(), "(no name)");
    EXPECT_EQ(list().currentRow(), 0);
    EXPECT_TRUE(list().item(0)->isSelected());
}

TEST_F(CalibrationPageTest, KeysMoveThroughTheList) {
    add("one", "Option9");
    add("two", "Option10");
    clickEntry(0);
    press(list(), Qt::Key_Down);
    EXPECT_EQ(shown.current.value(), 1);
    EXPECT_EQ(shown.worksheetCaption.value().toStdString(), "two");
}

TEST_F(CalibrationPageTest, TheFirstInstrumentIsHighlightedWhenItIsShown) {
    add("one", "Option9");
    click("Command5");
    EXPECT_EQ(list().currentRow(), 0);
}

TEST_F(CalibrationPageTest, AnEighthInstrumentIsListedAndTold) {
    click("Option9");
    for (int count = 0; count < 8; ++count) {
        click("Command4");
    }
    EXPECT_EQ(list().count(), 8);
    EXPECT_EQ(messages.shown.size(), 1U);
    for (std::size_t clicks = 1; clicks <= 2; ++clicks) {
        clickEntry(7);
        EXPECT_EQ(messages.shown.size(), 1U + clicks) << "a click is one choice";
    }
}

TEST_F(CalibrationPageTest, CalcDpFillsTheSelectedRowAndItsResults) {
    sheet.appendRow({QStringLiteral("1"), QStringLiteral("1/5/99"), QStringLiteral("9:05:07"), QStringLiteral("10"),
                     QStringLiteral("20"), QStringLiteral("30")});
    CalibrationBench::fill(shown.reference, "1 1 1/2 3 4/0 0 0/0 0 0/0 0 0");
    click("Option4");
    click("Command12");
    click("Option5");
    click("Command12");
    EXPECT_EQ(typed("Text18"), "10");
    EXPECT_EQ(typed("Text23"), "30");
    expectTexts({{"Label57", "20"}, {"Label59", "60"}, {"Label61", "120"}});
}

TEST_F(CalibrationPageTest, RowsAndColoursAreChosenIndependently) {
    click("Option3");
    click("Option8");
    click("Option9");
    click("Option11");
    EXPECT_EQ(shown.selectedRow.value(), 5);
    EXPECT_EQ(shown.colour.value(), LightColour::Green);
    EXPECT_TRUE(option("Option8").isChecked());
    EXPECT_FALSE(option("Option3").isChecked());
}

TEST_F(CalibrationPageTest, SaveCalInfoAsksForAName) {
    click("Command14");
    EXPECT_EQ(answers.asked.size(), 1);
}

/// The list with the keyboard.
class InstrumentKeysTest : public CalibrationPageTest {
protected:
    InstrumentKeysTest() {
        QCoreApplication::processEvents(); // a window that has just been shown takes the focus
        QApplication::setActiveWindow(window.get());
        for (const char* name : {"one", "two", "three", "four"}) {
            add(name, "Option9");
        }
    }

    void key(Qt::Key key) { QTest::keyClick(window->windowHandle(), key); }

    void tabIntoTheList() {
        button("Command4").setFocus();
        key(Qt::Key_Tab);
        ASSERT_TRUE(list().hasFocus());
    }
};

TEST_F(InstrumentKeysTest, TheListTakingTheFocusShowsNothing) {
    retype(box("Text33"), "123");
    tabIntoTheList();
    EXPECT_EQ(typed("Text33"), "123");
    EXPECT_EQ(title(), "Worksheet");
}

TEST_F(InstrumentKeysTest, ArrowsGoOnFromTheInstrumentShown) {
    struct Case {
        std::vector<const char*> before; ///< "Next" and "Previous".
        Qt::Key key;
        int shown;
    };
    const Case cases[] = {{{}, Qt::Key_Down, 1},
                          {{"Command5"}, Qt::Key_Down, 2},
                          {{"Command5", "Command5"}, Qt::Key_Down, 3},
                          {{"Command8"}, Qt::Key_Up, 2},
                          {{"Command5", "Command5", "Command8"}, Qt::Key_Up, 0}};
    for (const auto& [before, arrow, expected] : cases) {
        while (shown.current.value() != 0) {
            click("Command5");
        }
        for (const char* name : before) {
            click(name);
        }
        tabIntoTheList();
        key(arrow);
        EXPECT_EQ(shown.current.value(), expected);
        EXPECT_EQ(list().currentRow(), expected);
        EXPECT_EQ(list().selectedItems().size(), 1);
        key(Qt::Key_Tab);
    }
}

TEST_F(InstrumentKeysTest, ArrowsGoOnFromTheInstrumentShownByAClickOrAfterMoreWereAdded) {
    clickEntry(1);
    add("five", "Option10");
    tabIntoTheList();
    key(Qt::Key_Down);
    EXPECT_EQ(shown.current.value(), 2);
    key(Qt::Key_Tab);
    click("Command8");
    tabIntoTheList();
    key(Qt::Key_Down);
    EXPECT_EQ(shown.current.value(), 2);
}

TEST_F(InstrumentKeysTest, AfterTheFocusOfAnEmptyStart) {
    tabIntoTheList();
    key(Qt::Key_Tab);
    click("Command5");
    click("Command5");
    tabIntoTheList();
    key(Qt::Key_Down);
    EXPECT_EQ(shown.current.value(), 3);
}

class TestingPageTest : public WindowTest {
protected:
    TestingPageTest() { showPage(QStringLiteral("Testing")); }

    void connectInstrument() {
        commands.portOpen = true;
        commands.resetShutterEnabled = true;
        said();
    }
};

TEST_F(TestingPageTest, TheShutterNeedsAConnectionAndRest) {
    EXPECT_FALSE(button("ResetShutter").isEnabled());
    connectInstrument();
    EXPECT_TRUE(button("ResetShutter").isEnabled());
    button("ResetShutter").click();
    EXPECT_EQ(said(), "Reset Shutter\r");
    commands.activity = Activity::Collecting;
    EXPECT_FALSE(button("ResetShutter").isEnabled());
}

TEST_F(TestingPageTest, TheButtonGoesWithTheClosedPort) {
    connectInstrument();
    commands.resetShutterVisible = false;
    EXPECT_FALSE(button("ResetShutter").isVisible());
    commands.resetShutterVisible = true;
    EXPECT_TRUE(button("ResetShutter").isVisible());
}

TEST_F(TestingPageTest, ShowsStatusStepAndCountdown) {
    status.status = QStringLiteral("Resetting Shutter");
    status.shutterProgress = QStringLiteral("Moving Shutter");
    status.shutterCountdown = QStringLiteral("29 s");
    EXPECT_EQ(text("TestingStatus"), "Resetting Shutter");
    EXPECT_EQ(find<QLineEdit>("TestingProgress").text().toStdString(), "Moving Shutter");
    EXPECT_TRUE(find<QLineEdit>("TestingProgress").isReadOnly());
    const QPalette palette = find<QLineEdit>("TestingProgress").palette();
    EXPECT_EQ(palette.color(QPalette::Base), palette.color(QPalette::Window));
    EXPECT_EQ(text("TestingCountdown"), "29 s");
    for (const char* name : {"TestingStatus", "TestingCountdown", "DebugStatus"}) {
        EXPECT_EQ(find<QLabel>(name).textInteractionFlags() & Qt::TextSelectableByMouse, 0) << name;
    }
}

TEST_F(CalibrationPageTest, ABoxWhoseTextIsNoNumberIsMarkedAndCountsAllTheSame) {
    const std::string form = "Only a number such as -0.5, with a point and no comma.";
    const std::string size = "Only a whole number from -32768 to 32767.";
    const std::tuple<const char*, const char*, std::string> table[] = {
        {"Text2", "300", ""},        {"Text2", "300,5", form},  {"Text2", "12x", form},     {"Text2", "abc", form},
        {"Text2", "-0.5", ""},       {"Text2", "  ", ""},       {"Text2", "70000", ""},     {"Text18", "70000", size},
        {"Text18", "32767.5", size}, {"Text18", "32767.4", ""}, {"Text18", "-32768.5", ""}, {"Text18", "-32769", size},
        {"Text18", "1,5", size}};
    const auto markOf = [this](const char* name) {
        const auto& box = find<QLineEdit>(name);
        const QAction* sign = box.actions().value(0);
        const std::string mark = sign != nullptr && sign->isVisible() ? sign->toolTip().toStdString() : std::string();
        EXPECT_EQ(mark.empty(), box.accessibleDescription() == box.toolTip()) << name;
        return mark;
    };
    for (const auto& [name, typed, mark] : table) {
        retype(find<QLineEdit>(name), typed);
        EXPECT_EQ(markOf(name), mark) << typed;
    }
    EXPECT_EQ(program.calibration.shown.worksheet.at(1, 0).value().toStdString(), "1,5");
    program.calibration.shown.worksheet.at(1, 0) = QStringLiteral("0"); // of another instrument
    EXPECT_EQ(markOf("Text18"), "");
}

TEST_F(CalibrationPageTest, AnInstrumentWithoutANameCanBeSeenInTheList) {
    program.calibration.shown.colour = LightColour::Red;
    program.calibration.addInstrument();
    EXPECT_EQ(find<QListWidget>("List2").item(0)->text().toStdString(), "(no name)");
    EXPECT_EQ(program.calibration.shown.instruments.value().value(0), QString());
}

} // namespace
} // namespace orv
