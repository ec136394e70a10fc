// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "settings/loggersettings.h"
#include "settings/settingssender.h"

#include <QByteArray>

namespace orv {

/// The built-in modes. Samples per point are 200 for GLOW and 30 for TRX; of an unknown type they are `samples`.
/// Profile: continuous sampling without logging.
LoggerSettings profileMode(InstrumentType type, const QString& samples);
/// Moored: a logged block of 60000 points, one an hour.
LoggerSettings mooredMode(InstrumentType type, const QString& samples);

/// The content of a mode file: ten lines ended by CR LF, the numbers as typed, then the flags in number print form
/// (" 0" or " 1").
QByteArray modeFileContent(const LoggerSettings& mode);

/// The settings of a mode file, or why they cannot be had.
struct ReadMode {
    LoggerSettings mode = {};
    Words error; ///< Empty, or what the file is instead: "is not a complete mode file: ...", without a full stop.
};

/// Reads a mode file's content. Lines may end with CR LF or LF, the last one with neither; blanks around a value and
/// further lines are passed over. A number must be one that can be typed into its box, or empty; a flag must be a
/// number, 0 is clear and any other set.
ReadMode readModeFile(const QByteArray& content);

/// The buttons of the "Modes" tab. The built-in modes and a loaded file fill the settings screen and, when the
/// instrument is connected, are sent to it at once; the tab says how it went. Nothing happens while another operation
/// is under way.
class Modes {
public:
    Modes(Link& link, SettingsState& settings, SettingsSender& sender);

    /// The mode for the type that the label of the main window shows; without one the samples stay as they were.
    void profile();

    /// The mode for the type that the letter of the identification tells; without one the samples stay as they were.
    void moored();

    /// Writes the settings on the screen into a mode file of the operator's choice. The file is replaced whole or not
    /// at all. A cancelled dialog does nothing. Only the "Modes" tab says how it went: a save that fails never
    /// interrupts.
    void saveMode();

    /// Fills the screen from a mode file of the operator's choice; ".OCM" is appended to a name that does not end so.
    /// If the file cannot be read or is no mode file, the operator is told and nothing changes. A cancelled
    /// dialog does nothing.
    void loadMode();

private:
    bool wouldDisturb() const { return !link_.session.commands.undisturbed; }
    void use(const LoggerSettings& mode, const Words& name);
    Task<> askAndSave();
    Task<> askAndLoad();
    void sendIfConnected(const Words& name);
    Task<> send(Words name);
    void refuse(const Words& text);

    Link& link_;
    SettingsState& settings_;
    SettingsSender& sender_;
};

} // namespace orv
