// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "link/link.h"
#include "settings/loggersettings.h"
#include "sheet/dataline.h"
#include "sheet/datasheet.h"
#include "sheet/recordfile.h"
#include "sheet/sheetfiles.h"

namespace orv {

/// Shows the newest row's values in the instrument frames of the debug screen: GLOW's one value as the fluorometer's
/// output, TRX's angles and last reference ("Ref") as the scattering meter's. A row of an unknown layout is not shown.
void showOnDebugScreen(DebugState& debug, const DataRow& row, RowLayout layout);

/// A real-time run ("profile"): every data line of the instrument becomes a row of the sheet and of the record file.
class Run {
public:
    Run(Link& link, const SettingsState& settings, SheetRows& rows, SheetFiles& files, RecordFile& recordFile);

    /// `Command2`, the "Run" button.
    void run1();

    /// "Start Running Profile".
    void startRunningProfile();

    /// Takes a line; ends the run if the instrument's prompt has come, and says so if that was before all rows of its
    /// block had. Throws RuntimeError Overflow, with
    /// the run ended, if the row counter is full.
    void profilemode(const QString& line);

    /// Ends the run if the instrument's prompt has come by itself, without a line.
    void endIfPrompted();

    /// Brings the record file's rows to the disk when it is time, see there. The operator is told if they cannot be.
    std::optional<qint64> syncWhenDue();

    /// A row has been taken: its number on the sheet, where it stands, as in the record file.
    Signal<int, const DataRow&> taken;

    /// Lines of this run, or the last, that could not be read.
    int unreadLines() const { return unreadLines_; }

    /// Ends the run however it ended: the record file is closed whole, "Run" is offered again, and a notice
    /// says how many lines could not be read. Nothing happens without a run.
    void closeRecordFile();

private:
    void takeLine(const QString& line);
    void noteLine();
    void endRun();
    void tellShortBlock();
    void tellRecordFailure(const Words& reason);

    Link& link_;
    const SettingsState& settings_;
    SheetRows& rows_;
    SheetFiles& files_;
    RecordFile& recordFile_;
    bool running_ = false;
    bool hasLine_ = false; ///< A data line of this run has come, so that a prompt ends it.
    bool recordFailureTold_ = false;
    int unreadLines_ = 0;
    int rowsTaken_ = 0; ///< In this run.
};

} // namespace orv
