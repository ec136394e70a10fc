// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/rowoutput.h"

namespace orv {

/// "collect": a run whose rows go to a file as they come, until its block ends or the operator has enough. Meanwhile
/// they are in the record file too; what is whole in the output goes from the sheet, so that no memory grows.
class Collection {
public:
    explicit Collection(Visit& visit);
    Collection(const Collection&) = delete;
    Collection& operator=(const Collection&) = delete;

    Task<> perform();

private:
    /// How a run has ended.
    enum class End { Enough, BlockIsFull, Lost, OutputEnded };

    Task<> collect();
    Task<> connect();
    Task<End> run();
    Task<> stop();
    Task<> deliver();
    void take(const DataRow& row);
    void handOver();
    void requireErasingIsKnown() const;
    void requireAppending() const;
    End endOfRun();
    bool isEnough() const;
    qint64 longestSilence() const;
    int unreadLines() const;
    QString recordFile() const;
    void report();

    Visit& visit_;
    Program& program_;
    RowOutput output_;
    qint64 until_;               ///< Monotonic milliseconds, from the first run on.
    bool hasRun_ = false;        ///< The first run has begun.
    qint64 lastRow_ = 0;         ///< The same: when it came, or the run began.
    int runRows_ = 0;            ///< Of the present run.
    int unreadBefore_ = 0;       ///< Lines that could not be read, of the runs before.
    bool isRunCounted_ = true;   ///< The present run is among them.
    bool isInterrupted_ = false; ///< The operator has ended it.
    bool isLost_ = false;        ///< The last run has ended early.
    QString reason_;             ///< Why.
    int reconnections_ = 0;
    Subscription handingOver_;
    Subscription taking_;
};

} // namespace orv
