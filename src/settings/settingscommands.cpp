// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settingscommands.h"

#include "session/datetimetext.h"
#include "session/numbertext.h"

namespace orv {

SettingsCommands::SettingsCommands(Session& session, ComPorts& ports, SettingsPanel& settings, ProgressPanel& progress,
                                   SettingsSender& sender)
    : session_(session)
    , ports_(ports)
    , settings_(settings)
    , progress_(progress)
    , sender_(sender) {}

void SettingsCommands::retrieveSettings() {
    if (!session_.commands.canCommand) {
        return;
    }
    ports_.discardInput();
    session_.state.Ctrlscrn = opstate::ready;
    ports_.write("P");
    progress_.maximum = 100;
    progress_.show();
}

void SettingsCommands::applySettings() {
    if (!session_.commands.canCommand) {
        return;
    }
    // The instrument cannot log a block without end.
    if (leadingNumber(settings_.record.pointsPerBlock.value()) == 0.0 && settings_.record.logEnabled) {
        session_.messages.show({.title = QStringLiteral("Invalid Setup"),
                                .text = QStringLiteral("Logging and Continues Sampling invalid."),
                                .icon = Message::Icon::Exclamation});
        return;
    }
    progress_.show();
    // The date goes to the instrument as the screen shows it, and the screen does not follow it all the time.
    settings_.computerDate = shortDate(session_.clock.now().date());
    sender_.setprefs();
}

void SettingsCommands::displayLoggerTime() {
    if (!session_.commands.canCommand) {
        return;
    }
    ports_.write("C");
    session_.state.Ctrlscrn = opstate::clockCheck;
}

void SettingsCommands::chooseSamplingOption(int option) {
    const bool glow = session_.status.instrument.value() == QLatin1String("GLOW");
    settings_.record.samplesPerPoint = samplingPresets(glow).at(static_cast<std::size_t>(option - 1)).samplesPerPoint;
    settings_.samplingOption = option;
}

} // namespace orv
