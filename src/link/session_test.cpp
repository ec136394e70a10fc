// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/session.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace orv {
namespace {

constexpr Activity everyActivity[] = {
    Activity::None,    Activity::Connecting,   Activity::Collecting,      Activity::Downloading,
    Activity::Sending, Activity::SettingClock, Activity::ResettingShutter};

/// As it is when an instrument is connected and nothing is under way.
struct ConnectedWindow : CommandState {
    ConnectedWindow() {
        portOpen = true;
        resetEnabled = true;
        runEnabled = true;
        clearAllEnabled = true;
        saveAsEnabled = true;
        resetShutterEnabled = true;
        closePortEnabled = true;
    }
};

/// What the operator can do, one letter for each: nothing is [U]nder way, [C]ommand, [R]un, clear [A]ll, [S]ave as,
/// [O]pen a sheet, reset s[H]utter.
std::string offered(const CommandState& shown) {
    const std::pair<const QProperty<bool>&, char> all[] = {
        {shown.undisturbed, 'U'}, {shown.canCommand, 'C'},   {shown.canRun, 'R'},         {shown.canClearAll, 'A'},
        {shown.canSaveAs, 'S'},   {shown.canOpenSheet, 'O'}, {shown.canResetShutter, 'H'}};
    std::string letters;
    for (const auto& [can, letter] : all) {
        if (can.value()) {
            letters += letter;
        }
    }
    return letters;
}

TEST(CommandState, offersOnlyOpeningASheetAtTheStart) {
    const CommandState shown;
    EXPECT_EQ(offered(shown), "UO");
    EXPECT_FALSE(shown.resetEnabled.value());
    EXPECT_FALSE(shown.closePortEnabled.value());
    EXPECT_FALSE(shown.processingMenuVisible.value());
    EXPECT_FALSE(shown.settingsMenuVisible.value());
}

TEST(CommandState, followsThePortAndTheFlagsOfTheProcedures) {
    ConnectedWindow shown;
    EXPECT_EQ(offered(shown), "UCRASOH") << "connected and at rest";
    shown.runEnabled = false;
    EXPECT_EQ(offered(shown), "UCASOH");
    shown.clearAllEnabled = false;
    EXPECT_EQ(offered(shown), "UCSOH");
    shown.resetShutterEnabled = false;
    EXPECT_EQ(offered(shown), "UCSO");
    ConnectedWindow closed;
    closed.portOpen = false;
    EXPECT_EQ(offered(closed), "UASO") << "every command to the instrument needs an open port";
}

TEST(CommandState, sendsNoCommandIntoAnOperationUnderWayAndKeepsTheSheetOfRowsThatStillArrive) {
    ConnectedWindow shown;
    for (const Activity activity : everyActivity) {
        SCOPED_TRACE(static_cast<int>(activity));
        shown.activity = activity;
        const bool rowsArrive = activity == Activity::Collecting || activity == Activity::Downloading;
        EXPECT_EQ(offered(shown), activity == Activity::None ? "UCRASOH" : rowsArrive ? "S" : "ASO");
        EXPECT_TRUE(shown.resetEnabled.value());
        EXPECT_TRUE(shown.closePortEnabled.value());
    }
}

TEST(CommandState, canSaveRowsAfterAResetToo) {
    CommandState shown;
    shown.sheetHoldsRows = true;
    EXPECT_TRUE(shown.canSaveAs.value());
    EXPECT_TRUE(shown.canExport.value());
    shown.sheetHoldsRows = false;
    EXPECT_FALSE(shown.canSaveAs.value());
    shown.saveAsEnabled = true;
    EXPECT_TRUE(shown.canSaveAs.value());
    EXPECT_FALSE(shown.canExport.value()) << "there is nothing to export";
}

TEST(CommandState, tellsAScreenOfADerivedChangeOnce) {
    ConnectedWindow shown;
    int changes = 0;
    const auto notifier = shown.canRun.addNotifier([&changes] { ++changes; });
    shown.activity = Activity::Collecting;
    EXPECT_EQ(changes, 1);
    shown.activity = Activity::Downloading;
    EXPECT_EQ(changes, 1);
    shown.activity = Activity::None;
    EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace orv
