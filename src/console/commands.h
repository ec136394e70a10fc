// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/visit.h"

namespace orv {

// The commands of `orv`. Each is a procedure over those of the window's buttons.

/// The computer's ports and why one cannot be opened, and the simulated instruments.
Task<> listPorts(Visit& visit);

/// Type, firmware, clock, settings, memory.
Task<> tellInfo(Visit& visit);

/// Reads the settings, or sends some and reads them back; saves them as a mode.
Task<> exchangeSettings(Visit& visit);

/// The instrument's clock beside the computer's; sets it and reads it back.
Task<> compareClock(Visit& visit);

/// "Reset Shutter".
Task<> resetShutter(Visit& visit);

/// A run whose rows go to a file or to standard output.
Task<> collectRows(Visit& visit);

/// The instrument's memory to a file.
Task<> downloadMemory(Visit& visit);

/// Sheets, record files and text downloads to one file.
Task<> convertFiles(Visit& visit);

/// Shows what goes over the line until the operator ends it.
Task<> watchLine(Visit& visit);

/// The command that the options name.
Task<> performCommand(Visit& visit);

/// Throws Failure if there is a file of that name, which may not be kept under a dated name.
void refuseExisting(const Options& options, const QString& name);

} // namespace orv
