// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/debugoutput.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

DataRow row(const char* values) {
    return {.date = QStringLiteral("1/5/99"),
            .time = QStringLiteral("9:05:07"),
            .values = QString::fromLatin1(values).split(u' ')};
}

QStringList shown(const DebugPanel& debug) {
    return {debug.fluorometerOutput, debug.scatteringOutputs[0], debug.scatteringOutputs[1], debug.scatteringOutputs[2],
            debug.scatteringReference};
}

TEST(DebugOutput, GlowFillsTheFluorometer) {
    DebugPanel debug;
    showOnDebugScreen(debug, row("77"), RowLayout::Glow);
    EXPECT_EQ(shown(debug), QStringList({QStringLiteral("77"), QString(), QString(), QString(), QString()}));
}

TEST(DebugOutput, NewerTrxHasOneReference) {
    DebugPanel debug;
    showOnDebugScreen(debug, row("1 2 3 4"), RowLayout::TrxNewer);
    EXPECT_EQ(shown(debug).join(u' ').toStdString(), " 1 2 3 4");
}

TEST(DebugOutput, OlderTrxShowsItsLastReference) {
    DebugPanel debug;
    showOnDebugScreen(debug, row("1 91 2 92 3 93"), RowLayout::TrxOlder);
    EXPECT_EQ(shown(debug).join(u' ').toStdString(), " 1 2 3 93");
}

TEST(DebugOutput, AnUnknownInstrumentShowsNothing) {
    DebugPanel debug;
    showOnDebugScreen(debug, row("1 2 3"), RowLayout::Unknown);
    EXPECT_EQ(shown(debug).join(u' ').toStdString(), "    ");
}

} // namespace
} // namespace orv
