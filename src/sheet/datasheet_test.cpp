// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/datasheet.h"

#include <gtest/gtest.h>

namespace orv {

namespace {

QStringList texts(const char* joined) {
    return QString::fromLatin1(joined).split(u'|');
}

TEST(DataSheet, StartsEmptyWithoutType) {
    const DataSheet sheet;
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_TRUE(sheet.header().isEmpty());
    EXPECT_EQ(sheet.type().layout(), RowLayout::Unknown);
    EXPECT_EQ(sheet.cell(0, 0), QString());
}

TEST(DataSheet, CellsAreWhatWasAppended) {
    DataSheet sheet;
    sheet.appendRow(texts("1|1/5/99|9:05:07|x||end"));
    sheet.appendRow(texts("2"));
    EXPECT_EQ(sheet.rowCount(), 2);
    EXPECT_EQ(sheet.cell(0, 0).toStdString(), "1");
    EXPECT_EQ(sheet.cell(0, 2).toStdString(), "9:05:07");
    EXPECT_EQ(sheet.cell(0, 4), QString());
    EXPECT_EQ(sheet.cell(0, 5).toStdString(), "end");
    EXPECT_EQ(sheet.cell(1, 0).toStdString(), "2");
    for (const auto& [row, column] : {std::pair(1, 1), {1, 8}, {1, -1}, {2, 0}, {-1, 0}}) {
        EXPECT_EQ(sheet.cell(row, column), QString()) << "there is no such cell";
    }
    const QString received = QString::fromLatin1("\xb5\xff~");
    sheet.appendRow({received});
    EXPECT_EQ(sheet.cell(2, 0), received);
}

TEST(DataSheet, WritesAsManyCellsAsAskedEachWithATab) {
    DataSheet sheet;
    sheet.appendRow(texts("1|2|3"));
    const auto written = [&sheet](int cells) {
        QByteArray text("before:");
        sheet.writeCells(0, cells, text);
        return text.toStdString();
    };
    EXPECT_EQ(written(0), "before:");
    EXPECT_EQ(written(2), "before:1\t2\t");
    EXPECT_EQ(written(3), "before:1\t2\t3\t");
    EXPECT_EQ(written(1), "before:1\t");
    EXPECT_EQ(written(4), "before:1\t2\t3\t\t");
    EXPECT_EQ(written(6), "before:1\t2\t3\t\t\t\t");
}

TEST(DataSheet, AHeaderReplacesTheWholeRowAndTheTypeAndStays) {
    DataSheet sheet;
    sheet.setHeader({.letter = QStringLiteral("V"), .firmware = 412.0}, texts("a|b|c|d|e|f|g|h|i"));
    sheet.setHeader({.letter = QStringLiteral("f"), .firmware = 1.0}, texts("a|b"));
    EXPECT_EQ(sheet.header(), texts("a|b"));
    EXPECT_EQ(sheet.type(), (DataSheet::Type{.letter = QStringLiteral("f"), .firmware = 1.0}));
    EXPECT_EQ(sheet.type().layout(), RowLayout::Glow);
    sheet.appendRow(texts("1|2"));
    sheet.removeRows();
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_EQ(sheet.header(), texts("a|b")) << "it stays when the rows go";
    EXPECT_EQ(sheet.type().layout(), RowLayout::Glow);
}

TEST(DataSheet, EveryChangeIsToldAfterItHappened) {
    DataSheet sheet;
    QStringList told;
    const Subscription subscriptions[] = {
        sheet.headerChanged.subscribe([&] { told << QStringLiteral("header %1").arg(sheet.header().size()); }),
        sheet.rowAppended.subscribe([&] { told << QStringLiteral("row %1").arg(sheet.rowCount()); }),
        sheet.rowsRemoved.subscribe([&] { told << QStringLiteral("removed %1").arg(sheet.rowCount()); })};
    sheet.setHeader({}, texts("a|b"));
    sheet.appendRow(texts("1"));
    sheet.appendRow(texts("2"));
    sheet.removeRows();
    EXPECT_EQ(told.join(u',').toStdString(), "header 2,row 1,row 2,removed 0");
}

TEST(DataSheet, ChangesAreCountedForThoseWhoWereAway) {
    DataSheet sheet;
    sheet.setHeader({}, texts("a"));
    sheet.appendRow(texts("1"));
    EXPECT_EQ(sheet.headerChanges(), 1);
    EXPECT_EQ(sheet.removals(), 0);
    sheet.removeRows();
    sheet.setHeader({}, texts("b"));
    EXPECT_EQ(sheet.headerChanges(), 2);
    EXPECT_EQ(sheet.removals(), 1);
}

TEST(DataSheet, RowsUnderTheHeaderOfAnotherLayoutAreCounted) {
    DataSheet sheet;
    sheet.setHeader({.letter = QStringLiteral("V"), .firmware = 512}, {QStringLiteral("100")});
    sheet.appendRow({QStringLiteral("1")});
    sheet.setHeader({.letter = QStringLiteral("V"), .firmware = 600}, {QStringLiteral("100")});
    EXPECT_EQ(sheet.rowsOfOtherLayout(), 0);
    sheet.setHeader({.letter = QStringLiteral("F"), .firmware = 310}, {QStringLiteral("Output")});
    EXPECT_EQ(sheet.rowsOfOtherLayout(), 1);
    sheet.removeRows();
    EXPECT_EQ(sheet.rowsOfOtherLayout(), 0);
}

} // namespace

} // namespace orv
