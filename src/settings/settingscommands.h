// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/setprefs.h"

namespace orv {

/// The actions of the settings screen that concern the instrument. Those that need it do nothing, without a word,
/// when it is not connected or when another operation is under way.
class SettingsCommands {
public:
    SettingsCommands(Session& session, ComPorts& ports, SettingsPanel& settings, ProgressPanel& progress,
                     SettingsSender& sender);

    /// "Retrieve Settings": requests the settings report and shows the "Processing" dialog until it has been read.
    void retrieveSettings();

    /// "Apply Settings": sends the settings, with the "Processing" dialog. Refused with a message if logging is asked
    /// of a block without end; no other value is checked.
    void applySettings();

    /// "Display Logger Time/Date": asks the instrument for its clock.
    void displayLoggerTime();

    /// The operator has chosen a sampling-rate option, 1..4: its preset goes into the samples per point, the
    /// fluorometer's when the type label reads "GLOW", else the scattering meter's.
    void chooseSamplingOption(int option);

private:
    Session& session_;
    ComPorts& ports_;
    SettingsPanel& settings_;
    ProgressPanel& progress_;
    SettingsSender& sender_;
};

} // namespace orv
