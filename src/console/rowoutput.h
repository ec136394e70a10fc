// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/visit.h"
#include "formats/rowparser.h"
#include "formats/rowwriter.h"

namespace orv {

/// Where a command writes rows: to a file, to dated files one after another, or to standard output. Its rows are
/// numbered from 1 on through all files. After a failure nothing more is written.
class RowOutput {
public:
    explicit RowOutput(Visit& visit);

    /// Throws Failure if a file of the name exists that must be left alone.
    void refuseExisting() const;

    /// Removes what programs left that were killed before such a file was whole, if it lacks rows, and tells so.
    void removeLeftParts() const;

    /// Begins the first file, with what is known of the instrument that has been connected. Once more, of the same
    /// instrument connected again, changes nothing. Throws Failure.
    void begin(const QString& source);

    /// A row that has just come from the instrument. `unreadLines`: how many lines so far could not be read.
    void take(const DataRow& row, int unreadLines = 0);

    /// Something that happened while rows came.
    void note(const QString& sentence);

    /// Ends the file, if there is one. Tells what could not be read, of these lines those since the file before.
    void finish(int unreadLines);

    bool hasBegun() const { return table_.has_value(); }
    /// Each row is with the operating system as soon as it is taken.
    bool writesAsItComes() const { return toDevice_ || format_ == FileFormat::Csv || format_ == FileFormat::JsonLines; }
    /// The file has a column for every value of these rows.
    bool hasAllColumns() const { return format_ != FileFormat::Sheet || table_->layout != RowLayout::TrxOlder; }
    bool hasFailed() const { return !problem_.isEmpty(); }
    /// Brings what was written to the disk. If that fails, now or before, what the system says later is not trusted:
    /// the operator has been told, and the rows belong in the record file. Returns whether all is there.
    bool sync();
    /// The file can hold no more of the rows that come; it is whole, and what follows is in the record file alone.
    bool isFull() const { return isFull_; }
    /// Rows wait for who reads standard output.
    bool isStalled() const { return toDevice_ && visit_.terminal.output().bytesToWrite() > 0; }
    /// The operator waits no longer for that reader.
    void giveUp();
    /// It has failed, and not only because too many rows wait: the run may go on for the sake of the record file.
    bool isInVain() const { return hasFailed() && !isTooSlow_; }
    QString problem() const { return problem_; }

    int rows() const { return rows_; }
    bool isIncomplete() const { return incomplete_; }
    const QStringList& files() const { return files_; }

private:
    TableDescription describe() const;
    void beginFile();
    void endFile(int unreadLines);
    void tellFull();
    void check(const QString& reason, const QString& advice = QStringLiteral("Make room or choose another folder."));

    Visit& visit_;
    bool toDevice_;
    FileFormat format_;
    std::optional<TableDescription> table_;
    std::optional<RowParser> parser_;
    std::unique_ptr<RowWriter> writer_;
    QString name_;    ///< Of the present file.
    QDateTime until_; ///< When the next one begins; not valid: never.
    QString problem_; ///< In a sentence.
    bool isUnsynced_ = false;
    bool isFull_ = false;
    bool isTooSlow_ = false; ///< The problem is the reader, who may come back.
    int rows_ = 0;
    int unreadLines_ = 0; ///< Of the files before.
    bool incomplete_ = false;
    QStringList files_;
};

/// When the file that is begun at this moment ends: intervals are counted from midnight, days from day to day;
/// where that moment is none of the local time, after the interval.
QDateTime endOfFile(const QDateTime& begun, qint64 everyMilliseconds);

} // namespace orv
