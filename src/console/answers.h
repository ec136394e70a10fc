// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/visit.h"

namespace orv {

// What several commands answer.

/// The settings by their names, numbers as numbers.
QJsonObject settingsObject(const LoggerSettings& settings);
void printSettings(Terminal& terminal, const LoggerSettings& settings);

/// "2026-11-21 09:30:15 (2 s behind this computer's)"
QString clockInWords(const Visit& visit);

/// The instrument's clock, and by how many seconds it is ahead of the computer's; null if it could not be read.
void addClock(const Visit& visit, QJsonObject& object);

} // namespace orv
