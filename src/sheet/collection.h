// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/poll.h"
#include "sheet/automaticsave.h"
#include "sheet/recordfile.h"
#include "sheet/sheetrows.h"

namespace orv {

/// A real-time run ("profile"): every data line of the instrument becomes a row of the sheet and of the record file.
class Collection {
public:
    struct Parts {
        Session& session;
        ComPorts& ports;
        Poll& poll;
        SettingsPanel& settings;
        SheetRows& rows;
        AutomaticSave& automaticSave;
        RecordFile& recordFile;
    };

    explicit Collection(const Parts& parts);

    /// Called with each row of a run once it is on the sheet.
    std::function<void(const DataRow& row, RowLayout layout)> rowTaken;

    /// `Command2`, the "Run" button.
    void run1();

    /// "Start Running Profile".
    void startRunningProfile();

    /// Takes the line in `Rtn`; ends the run if the instrument's prompt has come. Throws RuntimeError Overflow, with
    /// the run ended, if the row counter is full.
    void profilemode();

    /// Ends the run if the instrument's prompt has come by itself, without a line.
    void endIfPrompted();

    /// Ends the run however it ended: the record file is closed whole, "Run" is offered again, lines that could not be
    /// read are told. Nothing happens without a run.
    void closeRecordFile();

private:
    void takeLine();
    void noteLine();
    void endRun();
    void tellRecordFailure(const QString& reason);

    Parts p_;
    bool running_ = false;
    bool hasLine_ = false; ///< A data line of this run has come, so that a prompt ends it.
    bool recordFailureTold_ = false;
    int unreadLines_ = 0;
};

} // namespace orv
