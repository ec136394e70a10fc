// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "sheet/sheet.h"

#include <array>
#include <functional>
#include <optional>

namespace orv {

/// How far a run or a download has come, for the operator. Looked at once a second while one goes on; empty otherwise.
class RunProgress {
public:
    /// Free bytes on the disk of the record file; nothing if that cannot be known.
    using FreeSpace = std::function<std::optional<qint64>()>;

    RunProgress(const Session& session, const SettingsState& settings, Run& run, Download& download,
                FreeSpace freeSpace);
    RunProgress(const RunProgress&) = delete;
    RunProgress& operator=(const RunProgress&) = delete;

    /// "12 s, 1.0 rows/s, 12 of 60, 48 s left"; of a block without end "2 min 31 s, 8.0 rows/s": how many rows there
    /// are the sheet tells, more often; of a download "2 s, 27 rows/s, 53 rows".
    QProperty<Words> text;
    /// "No row for 8 s", once a row is late by three of the intervals in which rows came; empty while they come.
    QProperty<Words> late;
    /// A run goes on and has brought no row yet: what is on the sheet is older.
    QProperty<bool> noRowYet{false};
    /// "812 MB are free on the disk" below 1 GB; empty otherwise.
    QProperty<Words> disk;

private:
    void follow(Activity activity);
    void begin();
    void end();
    void noteRow();
    void look();
    void lookAtDisk();
    std::optional<double> interval() const;
    double longestWait() const;

    const Session& session_;
    const SettingsState& settings_;
    FreeSpace freeSpace_;
    bool going_ = false;
    qint64 start_ = 0; ///< Monotonic milliseconds, as the arrivals.
    qint64 rows_ = 0;
    std::array<qint64, 16> arrivals_{}; ///< Of the newest rows: row n at n modulo their number.
    double rowsOfBlock_ = 0.0;          ///< 0: without end, or not known.
    double firstWait_ = 0.0;            ///< Seconds that the settings let the first two rows take.
    Subscription second_;
    std::array<Subscription, 2> taking_;
    Bindings bindings_;
};

} // namespace orv
