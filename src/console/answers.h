// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/visit.h"

namespace orv {

// What several commands answer.

/// The settings by their names, numbers as numbers; null for what the instrument's report did not give.
QJsonObject settingsObject(const Settings& settings);
/// Throws Failure, with the status of missing data, if the report did not give all. `file`: what then is not written.
void requireAllSettings(const Settings& settings, const QString& file = {});
/// The same in lines: "not read" for what the report did not give.
void printSettings(Terminal& terminal, const Settings& settings);

/// "2026-11-21 09:30:15 (2 s behind this computer's)"
QString clockInWords(const Visit& visit);

/// Throws Failure, with the status of missing data, if the clock could not be read.
void requireClock(const Visit& visit);

/// The instrument's clock, and by how many seconds it is ahead of the computer's; null if it could not be read.
void addClock(const Visit& visit, QJsonObject& object);

} // namespace orv
