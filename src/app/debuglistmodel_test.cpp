// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/debuglistmodel.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace orv {
namespace {

TEST(VisibleText, ControlCharactersBecomePictures) {
    const auto visible = [](const QString& text) { return visibleText(text, ControlSymbols::Pictures); };
    EXPECT_EQ(visible(QStringLiteral("V512\r")), QStringLiteral("V512\u240d"));
    EXPECT_EQ(visible(QStringLiteral("a\r\nb\tc")), QStringLiteral("a\u240d\u240ab\u2409c"));
    EXPECT_EQ(visible(QString(QChar(0)) + QChar(0x1b) + QChar(0x7f)), QStringLiteral("\u2400\u241b\u2421"));
    EXPECT_EQ(visible(QStringLiteral(" ~\u00b5")), QStringLiteral(" ~\u00b5"));
}

TEST(VisibleText, OrArrowsAndNumbers) {
    const auto visible = [](const QString& text) { return visibleText(text, ControlSymbols::Arrows); };
    EXPECT_EQ(visible(QStringLiteral("a\r\nb\tc ~")), QStringLiteral("a\u21b5\u2193b\u2192c ~"));
    EXPECT_EQ(visible(QString(QChar(0)) + QChar(0x1b) + QChar(0x7f)), QStringLiteral("\\x00\\x1B\\x7F"));
}

class DebugListModelTest : public testing::Test {
protected:
    DebugListModelTest() {
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model,
                         [this](const QModelIndex&, int first, int last) {
                             changes << QStringLiteral("+%1-%2").arg(first).arg(last);
                         });
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model,
                         [this](const QModelIndex&, int first, int last) {
                             changes << QStringLiteral("-%1-%2").arg(first).arg(last);
                         });
        model.lastSelected = [this] { changes << QStringLiteral("last"); };
    }

    void append(std::size_t count) {
        for (std::size_t entry = 0; entry < count; ++entry) {
            list.append(QString::number(next++));
        }
    }

    QString at(int row) const { return model.data(model.index(row), Qt::DisplayRole).toString(); }

    DebugList list;
    DebugListModel model{list};
    QStringList changes;
    int next = 0;
};

TEST_F(DebugListModelTest, TheViewHearsOfManyEntriesAtOnce) {
    append(3);
    list.selectLast();
    EXPECT_EQ(model.rowCount(), 0);
    model.flush();
    EXPECT_EQ(changes.join(u' ').toStdString(), "+0-2 last");
    EXPECT_EQ(at(2).toStdString(), "2");
    append(1);
    model.flush();
    model.flush();
    EXPECT_EQ(changes.join(u' ').toStdString(), "+0-2 last +3-3");
}

TEST_F(DebugListModelTest, TheViewSeesTheSymbolsTheEntryStays) {
    list.append(QStringLiteral("V512\r"));
    model.flush();
    EXPECT_EQ(at(0), QStringLiteral("V512\u240d"));
    model.setSymbols(ControlSymbols::Arrows);
    EXPECT_EQ(at(0), QStringLiteral("V512\u21b5"));
    EXPECT_EQ(list.entries().front(), QStringLiteral("V512\r"));
}

TEST_F(DebugListModelTest, ItHearsByItself) {
    append(1);
    QElapsedTimer patience;
    patience.start();
    while (model.rowCount() == 0 && patience.elapsed() < 5000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_EQ(model.rowCount(), 1);
}

TEST_F(DebugListModelTest, AFullListLosesItsOldest) {
    append(DebugList::maximumEntries);
    model.flush();
    append(5);
    model.flush();
    EXPECT_EQ(changes.join(u' ').toStdString(), "+0-9999 -0-4 +9995-9999");
    EXPECT_EQ(model.rowCount(), 10000);
    EXPECT_EQ(at(0).toStdString(), "5");
    EXPECT_EQ(at(9999).toStdString(), "10004");
}

TEST_F(DebugListModelTest, EntriesThatCameAndWentUnseenAreNeverShown) {
    append(10);
    model.flush();
    append(DebugList::maximumEntries + 100);
    model.flush();
    EXPECT_EQ(changes.join(u' ').toStdString(), "+0-9 -0-9 +0-9999");
    EXPECT_EQ(at(0).toStdString(), "110");
    EXPECT_EQ(at(9999).toStdString(), "10109");
}

TEST_F(DebugListModelTest, AListFilledBeforeIsShown) {
    DebugList filled;
    filled.append(QStringLiteral("early"));
    const DebugListModel late(filled);
    EXPECT_EQ(late.rowCount(), 1);
}

TEST_F(DebugListModelTest, TheListOutlivesTheModel) {
    DebugList longLived;
    { const DebugListModel shortLived(longLived); }
    longLived.append(QStringLiteral("x"));
    longLived.selectLast();
    EXPECT_EQ(longLived.entries().size(), 1U);
}

} // namespace
} // namespace orv
