// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/sheettest.h"

namespace orv {

namespace {

class AutomaticSaveTest : public SheetTest {
protected:
    AutomaticSaveTest() {
        identify("F", "310");
        panel.fileName = path("lake");
    }

    void fillUpTo(int count) {
        const DataRow row{
            .date = QStringLiteral("1/5/99"), .time = QStringLiteral("9:05:01"), .values = {QStringLiteral("700")}};
        while (session.state.plc < count) {
            rows.addRow(row);
        }
    }
};

TEST_F(AutomaticSaveTest, BelowTheLimitNothingHappens) {
    fillUpTo(19999);
    automaticSave.saveLongSheet();
    EXPECT_EQ(sheet.rowCount(), 19999);
    EXPECT_TRUE(filesIn(folder).isEmpty());
    EXPECT_EQ(panel.records.value(), QStringLiteral("0"));
}

TEST_F(AutomaticSaveTest, AtTheLimitItSavesUnderTheCountedNameAndClears) {
    panel.records = QStringLiteral("6");
    debug.comm2Output = true;
    fillUpTo(20000);
    automaticSave.saveLongSheet();
    EXPECT_EQ(filesIn(folder).join(u'|').toStdString(), "lake6.txt");
    EXPECT_TRUE(contentsOf(path("lake6.txt")).startsWith("F\t310 20000\r\nlake6.txt\r\n"));
    EXPECT_EQ(panel.records.value(), QStringLiteral("7"));
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_EQ(session.state.plc, 0);
    EXPECT_EQ(panel.counter.value(), QStringLiteral("0"));
    EXPECT_FALSE(panel.unsaved);
    EXPECT_EQ(files.autosaving, 0);
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(debugPort->allWritten(), QByteArray("Save Spread Sheet\rSaving Flour Sheet\rClear Spread Sheet\r"));
    fillUpTo(20000);
    automaticSave.saveLongSheet();
    EXPECT_EQ(filesIn(folder).join(u'|').toStdString(), "lake6.txt|lake7.txt");
}

TEST_F(AutomaticSaveTest, LabelThatIsNoNumberCountsFromZero) {
    panel.records = QStringLiteral("x");
    fillUpTo(20000);
    automaticSave.saveLongSheet();
    EXPECT_EQ(filesIn(folder).join(u'|').toStdString(), "lakex.txt");
    EXPECT_EQ(panel.records.value(), QStringLiteral("1"));
}

TEST_F(AutomaticSaveTest, FailureKeepsTheRowsAndIsTriedAgainAfter500) {
    panel.fileName = path("nowhere/lake");
    fillUpTo(20000);
    automaticSave.saveLongSheet();
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(sheet.rowCount(), 20000);
    EXPECT_TRUE(panel.unsaved);
    EXPECT_EQ(panel.records.value(), QStringLiteral("0"));
    EXPECT_EQ(files.autosaving, 0);
    panel.fileName = path("lake");
    fillUpTo(20499);
    automaticSave.saveLongSheet();
    EXPECT_EQ(sheet.rowCount(), 20499) << "not tried at every row";
    fillUpTo(20500);
    automaticSave.saveLongSheet();
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_TRUE(contentsOf(path("lake0.txt")).startsWith("F\t310 20500\r\n"));
}

} // namespace

} // namespace orv
