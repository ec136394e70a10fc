// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/session.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

constexpr Activity everyActivity[] = {
    Activity::None,    Activity::Connecting,   Activity::Collecting,      Activity::Downloading,
    Activity::Sending, Activity::SettingClock, Activity::ResettingShutter};

/// A panel as it is when an instrument is connected and nothing is under way.
struct ConnectedPanel : CommandPanel {
    ConnectedPanel() {
        portOpen = true;
        resetEnabled = true;
        runEnabled = true;
        clearAllEnabled = true;
        saveAsEnabled = true;
        resetShutterEnabled = true;
        closePortEnabled = true;
    }
};

TEST(CommandPanel, offersOnlyOpeningASheetAtTheStart) {
    const CommandPanel panel;
    EXPECT_TRUE(panel.undisturbed.value());
    EXPECT_TRUE(panel.canOpenSheet.value());
    EXPECT_FALSE(panel.canCommand.value());
    EXPECT_FALSE(panel.canRun.value());
    EXPECT_FALSE(panel.canClearAll.value());
    EXPECT_FALSE(panel.canSaveAs.value());
    EXPECT_FALSE(panel.canResetShutter.value());
    EXPECT_FALSE(panel.resetEnabled.value());
    EXPECT_FALSE(panel.closePortEnabled.value());
    EXPECT_FALSE(panel.processingMenuVisible.value());
    EXPECT_FALSE(panel.settingsMenuVisible.value());
}

TEST(CommandPanel, offersEverythingWhenConnectedAndAtRest) {
    const ConnectedPanel panel;
    EXPECT_TRUE(panel.undisturbed.value());
    EXPECT_TRUE(panel.canCommand.value());
    EXPECT_TRUE(panel.canRun.value());
    EXPECT_TRUE(panel.canClearAll.value());
    EXPECT_TRUE(panel.canSaveAs.value());
    EXPECT_TRUE(panel.canOpenSheet.value());
    EXPECT_TRUE(panel.canResetShutter.value());
}

TEST(CommandPanel, needsAnOpenPortForEveryCommandToTheInstrument) {
    ConnectedPanel panel;
    panel.portOpen = false;
    EXPECT_FALSE(panel.canCommand.value());
    EXPECT_FALSE(panel.canRun.value());
    EXPECT_FALSE(panel.canResetShutter.value());
    EXPECT_TRUE(panel.canClearAll.value());
    EXPECT_TRUE(panel.canOpenSheet.value());
}

TEST(CommandPanel, followsTheFlagsOfTheProcedures) {
    ConnectedPanel panel;
    panel.runEnabled = false;
    EXPECT_FALSE(panel.canRun.value());
    panel.clearAllEnabled = false;
    EXPECT_FALSE(panel.canClearAll.value());
    panel.resetShutterEnabled = false;
    EXPECT_FALSE(panel.canResetShutter.value());
    EXPECT_TRUE(panel.canCommand.value());
}

TEST(CommandPanel, sendsNoCommandIntoAnOperationUnderWay) {
    ConnectedPanel panel;
    for (const Activity activity : everyActivity) {
        SCOPED_TRACE(static_cast<int>(activity));
        panel.activity = activity;
        const bool atRest = activity == Activity::None;
        EXPECT_EQ(panel.undisturbed.value(), atRest);
        EXPECT_EQ(panel.canCommand.value(), atRest);
        EXPECT_EQ(panel.canRun.value(), atRest);
        EXPECT_EQ(panel.canResetShutter.value(), atRest);
    }
}

TEST(CommandPanel, keepsTheSheetOfRowsThatStillArrive) {
    ConnectedPanel panel;
    for (const Activity activity : everyActivity) {
        SCOPED_TRACE(static_cast<int>(activity));
        panel.activity = activity;
        const bool rowsArrive = activity == Activity::Collecting || activity == Activity::Downloading;
        EXPECT_EQ(panel.canClearAll.value(), !rowsArrive);
        EXPECT_EQ(panel.canOpenSheet.value(), !rowsArrive);
    }
}

TEST(CommandPanel, keepsResetAndClosePortWhateverIsUnderWay) {
    ConnectedPanel panel;
    for (const Activity activity : everyActivity) {
        SCOPED_TRACE(static_cast<int>(activity));
        panel.activity = activity;
        EXPECT_TRUE(panel.resetEnabled.value());
        EXPECT_TRUE(panel.closePortEnabled.value());
    }
}

TEST(CommandPanel, canSaveRowsAfterAResetToo) {
    CommandPanel panel;
    panel.sheetHoldsRows = true;
    EXPECT_TRUE(panel.canSaveAs.value());
    panel.sheetHoldsRows = false;
    EXPECT_FALSE(panel.canSaveAs.value());
    panel.saveAsEnabled = true;
    EXPECT_TRUE(panel.canSaveAs.value());
}

TEST(CommandPanel, tellsAScreenOfADerivedChangeOnce) {
    ConnectedPanel panel;
    int changes = 0;
    const auto notifier = panel.canRun.addNotifier([&changes] { ++changes; });
    panel.activity = Activity::Collecting;
    EXPECT_EQ(changes, 1);
    panel.activity = Activity::Downloading;
    EXPECT_EQ(changes, 1);
    panel.activity = Activity::None;
    EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace orv
