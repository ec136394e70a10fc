// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/session.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

constexpr Activity everyActivity[] = {
    Activity::None,    Activity::Connecting,   Activity::Collecting,      Activity::Downloading,
    Activity::Sending, Activity::SettingClock, Activity::ResettingShutter};

/// A shown as it is when an instrument is connected and nothing is under way.
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

TEST(CommandState, offersOnlyOpeningASheetAtTheStart) {
    const CommandState shown;
    EXPECT_TRUE(shown.undisturbed.value());
    EXPECT_TRUE(shown.canOpenSheet.value());
    EXPECT_FALSE(shown.canCommand.value());
    EXPECT_FALSE(shown.canRun.value());
    EXPECT_FALSE(shown.canClearAll.value());
    EXPECT_FALSE(shown.canSaveAs.value());
    EXPECT_FALSE(shown.canResetShutter.value());
    EXPECT_FALSE(shown.resetEnabled.value());
    EXPECT_FALSE(shown.closePortEnabled.value());
    EXPECT_FALSE(shown.processingMenuVisible.value());
    EXPECT_FALSE(shown.settingsMenuVisible.value());
}

TEST(CommandState, offersEverythingWhenConnectedAndAtRest) {
    const ConnectedWindow shown;
    EXPECT_TRUE(shown.undisturbed.value());
    EXPECT_TRUE(shown.canCommand.value());
    EXPECT_TRUE(shown.canRun.value());
    EXPECT_TRUE(shown.canClearAll.value());
    EXPECT_TRUE(shown.canSaveAs.value());
    EXPECT_TRUE(shown.canOpenSheet.value());
    EXPECT_TRUE(shown.canResetShutter.value());
}

TEST(CommandState, needsAnOpenPortForEveryCommandToTheInstrument) {
    ConnectedWindow shown;
    shown.portOpen = false;
    EXPECT_FALSE(shown.canCommand.value());
    EXPECT_FALSE(shown.canRun.value());
    EXPECT_FALSE(shown.canResetShutter.value());
    EXPECT_TRUE(shown.canClearAll.value());
    EXPECT_TRUE(shown.canOpenSheet.value());
}

TEST(CommandState, followsTheFlagsOfTheProcedures) {
    ConnectedWindow shown;
    shown.runEnabled = false;
    EXPECT_FALSE(shown.canRun.value());
    shown.clearAllEnabled = false;
    EXPECT_FALSE(shown.canClearAll.value());
    shown.resetShutterEnabled = false;
    EXPECT_FALSE(shown.canResetShutter.value());
    EXPECT_TRUE(shown.canCommand.value());
}

TEST(CommandState, sendsNoCommandIntoAnOperationUnderWay) {
    ConnectedWindow shown;
    for (const Activity activity : everyActivity) {
        SCOPED_TRACE(static_cast<int>(activity));
        shown.activity = activity;
        const bool atRest = activity == Activity::None;
        EXPECT_EQ(shown.undisturbed.value(), atRest);
        EXPECT_EQ(shown.canCommand.value(), atRest);
        EXPECT_EQ(shown.canRun.value(), atRest);
        EXPECT_EQ(shown.canResetShutter.value(), atRest);
    }
}

TEST(CommandState, keepsTheSheetOfRowsThatStillArrive) {
    ConnectedWindow shown;
    for (const Activity activity : everyActivity) {
        SCOPED_TRACE(static_cast<int>(activity));
        shown.activity = activity;
        const bool rowsArrive = activity == Activity::Collecting || activity == Activity::Downloading;
        EXPECT_EQ(shown.canClearAll.value(), !rowsArrive);
        EXPECT_EQ(shown.canOpenSheet.value(), !rowsArrive);
    }
}

TEST(CommandState, keepsResetAndClosePortWhateverIsUnderWay) {
    ConnectedWindow shown;
    for (const Activity activity : everyActivity) {
        SCOPED_TRACE(static_cast<int>(activity));
        shown.activity = activity;
        EXPECT_TRUE(shown.resetEnabled.value());
        EXPECT_TRUE(shown.closePortEnabled.value());
    }
}

TEST(CommandState, canSaveRowsAfterAResetToo) {
    CommandState shown;
    shown.sheetHoldsRows = true;
    EXPECT_TRUE(shown.canSaveAs.value());
    shown.sheetHoldsRows = false;
    EXPECT_FALSE(shown.canSaveAs.value());
    shown.saveAsEnabled = true;
    EXPECT_TRUE(shown.canSaveAs.value());
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
