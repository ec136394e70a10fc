// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/loggersettings.h"
#include "settings/settingsreader.h"
#include "settings/settingssender.h"

#include <optional>

namespace orv {

/// The settings under which the instrument obeys "r": no flag, one sample a point, one point a block, no delays.
LoggerSettings shutterSettings();

/// For the operator: "Append, Wake Up; samples per point 10, points per block 0, ...".
QString inWords(const LoggerSettings& settings);

/// Brings the instrument's shutter back to its rest position: reads the settings, sends temporary ones under which the
/// instrument obeys, moves the shutter and sends the settings from before back.
class ShutterReset {
public:
    using Outcome = SettingsSender::Outcome;

    ShutterReset(Link& link, SettingsState& settings, SettingsReader& reader, SettingsSender& sender);
    ShutterReset(const ShutterReset&) = delete;
    ShutterReset& operator=(const ShutterReset&) = delete;

    /// Runs the whole sequence; nothing happens on a closed port. An instrument that does not answer is not reported:
    /// the next step follows.
    ///
    /// When the connection ends in the middle, or a step throws RuntimeError, the sequence ends at that moment, before
    /// anything else is done with the link: the settings from before are put back on the screen, the timer runs, and
    /// the operator is told that the instrument may still hold the temporary settings.
    void shutterreset();

private:
    /// One run of the sequence, on the stack of shutterreset().
    struct Run {
        bool over = false;
        bool temporarySent = false; ///< At least in part.
        std::optional<LoggerSettings> remembered;
    };

    bool perform(Run& run);
    bool readSettings(const Run& run);
    bool send(const Run& run);
    bool moveShutter(const Run& run);
    bool pollForPrompt(const Run& run);
    bool rest(const Run& run, float seconds);
    void finish(Run& run, Outcome restored);
    void interrupt(Run& run);
    void showResetting();
    void showStep(const QString& text);
    void showCounted(const QString& text);
    void lampChanged();
    void tell(const QString& text);

    Link& link_;
    SettingsState& settings_;
    SettingsReader& reader_;
    SettingsSender& sender_;
    int counter_ = 0; ///< Retries and polls of the run under way; 0 between runs.
    /// The connection on which the restored settings are to be read back before another reset.
    std::optional<quint64> readBackOn_;
    QPropertyNotifier lampNotifier_;
};

} // namespace orv
