// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orv {

/// What procedures ask of the program above them.
class ProgramActions {
public:
    virtual ~ProgramActions() = default;

    /// The program-wide reset: the instrument port is closed and everything is "Offline" again.
    virtual void fixit() = 0;

    /// Writes the header row of the identified instrument's type into the sheet; nothing for an unknown type.
    virtual void layOutHeaderRow() = 0;

    /// Ends a run: its record file is closed whole. Nothing happens if none is open.
    virtual void closeRecordFile() = 0;
};

} // namespace orv
