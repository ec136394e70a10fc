// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/visit.h"

namespace orv {

// What several commands answer.

/// The settings by their names, numbers as numbers; null for what the instrument's report did not give.
QJsonObject settingsObject(const Settings& settings);
/// Throws Failure, with the status of missing data, if the report did not give all.
void requireAllSettings(const Settings& settings);
void printSettings(Terminal& terminal, const LoggerSettings& settings);

/// "2026-11-21 09:30:15 (2 s behind this computer's)"
QString clockInWords(const Visit& visit);

/// The instrument's clock, and by how many seconds it is ahead of the computer's; null if it could not be read.
void addClock(const Visit& visit, QJsonObject& object);

} // namespace orv
