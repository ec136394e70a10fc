// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProperty>

namespace orv {

/// The long operation under way, if any.
enum class Activity { None, Connecting, Collecting, Downloading, Sending, SettingClock, ResettingShutter };

/// What the procedures say of the main window's commands, and what follows from it for the operator.
///
/// The flags are set by the procedures. Whether a button can really be pressed is derived from them and from the
/// activity here and nowhere else: an operation under way must not be disturbed, but "Reset", "Close Port" and "Quit"
/// always work.
struct CommandPanel {
    CommandPanel();
    CommandPanel(const CommandPanel&) = delete;
    CommandPanel& operator=(const CommandPanel&) = delete;

    QProperty<Activity> activity{Activity::None};

    QProperty<bool> resetEnabled{false};
    QProperty<bool> runEnabled{false};
    QProperty<bool> runVisible{true};
    QProperty<bool> clearAllEnabled{false};
    QProperty<bool> saveAsEnabled{false};
    QProperty<bool> resetShutterEnabled{false};
    QProperty<bool> resetShutterVisible{true};
    QProperty<bool> closePortEnabled{false};
    QProperty<bool> processingMenuVisible{false};
    QProperty<bool> settingsMenuVisible{false};
    QProperty<bool> settingsFormEnabled{false};
    QProperty<bool> portOpen{false};       ///< Set by the ports.
    QProperty<bool> sheetHoldsRows{false}; ///< Set by the sheet.

    /// The instrument can be sent a command: its port is open and nothing is under way that would be disturbed.
    QProperty<bool> canCommand;
    /// Nothing is under way.
    QProperty<bool> undisturbed;
    QProperty<bool> canRun;
    QProperty<bool> canClearAll;
    QProperty<bool> canSaveAs; ///< A reset disables "Save As", yet rows on the sheet can always be saved.
    QProperty<bool> canOpenSheet;
    QProperty<bool> canResetShutter;
};

} // namespace orv
