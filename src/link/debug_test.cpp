// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/debug.h"

#include "testing/programrig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orv {
namespace {

using testing::ElementsAre;

TEST(DebugList, keepsItsEntriesInOrder) {
    DebugList list;
    list.append(QStringLiteral("one"));
    list.append(QString());
    list.append(QStringLiteral("three"));
    EXPECT_THAT(list.entries(), ElementsAre(QStringLiteral("one"), QString(), QStringLiteral("three")));
}

TEST(DebugList, dropsTheOldestEntryWhenItIsFull) {
    DebugList list;
    int dropped = 0;
    const auto counting = list.appended.subscribe([&dropped](bool droppedOldest) { dropped += droppedOldest ? 1 : 0; });
    for (std::size_t i = 0; i < DebugList::maximumEntries; ++i) {
        list.append(QString::number(i));
    }
    EXPECT_EQ(dropped, 0);
    EXPECT_EQ(list.entries().front(), QStringLiteral("0"));
    list.append(QStringLiteral("newest"));
    EXPECT_EQ(dropped, 1);
    EXPECT_EQ(list.entries().size(), DebugList::maximumEntries);
    EXPECT_EQ(list.entries().front(), QStringLiteral("1"));
    EXPECT_EQ(list.entries().back(), QStringLiteral("newest"));
}

TEST(DebugList, showsTheNewEntryToItsListener) {
    DebugList list;
    QString seen;
    const auto looking = list.appended.subscribe([&](bool) { seen = list.entries().back(); });
    list.append(QStringLiteral("one"));
    EXPECT_EQ(seen, QStringLiteral("one"));
}

TEST(DebugList, selectsItsLastEntryOnlyWhenAsked) {
    DebugList list;
    list.selectLast();
    int selections = 0;
    const auto counting = list.lastSelected.subscribe([&selections] { ++selections; });
    list.append(QStringLiteral("one"));
    EXPECT_EQ(selections, 0);
    list.selectLast();
    EXPECT_EQ(selections, 1);
}

using DirectSendTest = ProgramTest;

TEST_F(DirectSendTest, AnOpenPortGetsTheTextAsTypedWithoutATerminator) {
    tickDebugOutput();
    ports.open();
    program.link.directSend.send(QStringLiteral(" R 1,5 \u00b5"));
    ASSERT_EQ(com1.writes.size(), 1);
    EXPECT_EQ(com1.writes.front(), " R 1,5 \xb5");
    EXPECT_EQ(said(), "Direct Enter\r");
}

TEST_F(DirectSendTest, AClosedPortIsOnlyAnnounced) {
    tickDebugOutput();
    program.link.directSend.send(QStringLiteral("P"));
    EXPECT_TRUE(com1.writes.empty());
    EXPECT_EQ(said(), "Direct Enter\r");
    EXPECT_TRUE(messages.shown.empty());
}

} // namespace
} // namespace orv
