// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "settings/loggersettings.h"
#include "settings/settingsreader.h"
#include "settings/settingssender.h"

#include <optional>

namespace orv {

/// The settings under which the instrument obeys "r": no flag, one sample a point, one point a block, no delays.
LoggerSettings shutterSettings();

/// For the operator: "Append, Wake Up; samples per point 10, points per block 0, ...".
Words inWords(const LoggerSettings& settings);

/// Brings the instrument's shutter back to its rest position: reads the settings, sends temporary ones under which the
/// instrument obeys, moves the shutter and sends the settings from before back.
class ShutterReset {
public:
    ShutterReset(Link& link, SettingsState& settings, SettingsReader& reader, SettingsSender& sender);
    ShutterReset(const ShutterReset&) = delete;
    ShutterReset& operator=(const ShutterReset&) = delete;

    /// The button "Reset Shutter": runs the whole sequence; nothing happens on a closed port. An instrument that does
    /// not answer is not reported: the next step follows. The settings that are sent back are those read at its
    /// beginning; if they are not those that the instrument reported before, the operator is told.
    ///
    /// When the connection ends in the middle, or a step throws RuntimeError, the sequence ends at that moment, before
    /// anything else is done with the link: the settings from before are put back on the screen, the timer runs, and
    /// the operator is told that the instrument may still hold the temporary settings.
    void shutterreset();

private:
    /// One run of the sequence, in its frame.
    struct Run {
        bool temporarySent = false; ///< At least in part.
        std::optional<LoggerSettings> remembered;
        /// What the instrument reported before the reset; nothing if nothing came at its beginning.
        std::optional<LoggerSettings> reported;
    };

    Task<> reset();
    Task<SettingsSender::Outcome> perform(Run& run);
    Task<> readSettings();
    Task<> moveShutter();
    Task<> pollForPrompt();
    void finish(const Run& run, SettingsSender::Outcome restored);
    void interrupt(const Run& run);
    void tellMisread(const Run& run);
    void showResetting();
    void showStep(const Words& text);
    void showCounted(const Words& text);
    void lampChanged();
    QString sendingBack(const LoggerSettings& settings) const;
    void tell(const Words& text, const QString& textWithoutWindow);

    Link& link_;
    SettingsState& settings_;
    SettingsReader& reader_;
    SettingsSender& sender_;
    int counter_ = 0;       ///< Retries and polls of the run under way; 0 between runs.
    bool readBack_ = false; ///< The restored settings are to be read back before another reset.
    Subscription closing_;
    QPropertyNotifier lampNotifier_;
};

} // namespace orv
