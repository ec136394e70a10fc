// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/recordfile.h"

#include "base/files.h"
#include "base/text.h"
#include "base/words.h"
#include "sheet/recordlines.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

namespace orv {

RecordFile::RecordFile(const Clock& clock, const QString& path, FolderPlace* place)
    : clock_(clock)
    , place_(place)
    , file_(path)
    , lock_(path)
    , mark_(path) {}

void RecordFile::setPath(const QString& path) {
    file_.setFileName(path);
    lock_ = RunLock(path);
    mark_ = SavedMark(path);
}

Words RecordFile::start(const DataSheet::Type& type) {
    close();
    Words reason = place_ != nullptr ? place_->claim() : Words();
    if (reason.isEmpty()) {
        reason = keepUnsavedRows();
    }
    if (!reason.isEmpty()) {
        return reason;
    }
    ++runs_;
    begun_ = false;
    saved_ = false;
    discarded_ = false;
    lacksRows_ = false;
    mark_.remove(); // a program that dies here has the file kept once too often, and never the new run's rows lost
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        return errorText(file_);
    }
    reason = appendWhole(file_, recordHeader(clock_.now(), type.firmware));
    begun_ = reason.isEmpty();
    if (begun_) {
        // Not before the file of the run before is out of the way: a program that dies here leaves no row of that run
        // to be taken for this one's.
        type_ = type;
        putLock();
    } else {
        file_.close();
    }
    return reason;
}

Words RecordFile::keepUnsavedRows() {
    if (!holdsUnsavedRows()) {
        return {};
    }
    QString keptAs;
    const Words reason = keepUnderDatedName(file_.fileName(), clock_.now(), &keptAs);
    if (!reason.isEmpty()) {
        return Words::tr("the rows of the run before could not be kept under another name (%1)").arg(reason);
    }
    keptAs_ = QFileInfo(keptAs).fileName();
    if (unsaved_) {
        earlierFile_ = keptAs_;
        lock_.put(lock_.type(), earlierFile_);
    }
    return {};
}

bool RecordFile::holdsUnsavedRows() const {
    if ((saved_ && !discarded_) || mark_.holds()) {
        return false;
    }
    QFile old(file_.fileName());
    if (!old.open(QIODevice::ReadOnly)) {
        return old.exists();
    }
    // Whatever stands after a header, or in a file that is no record file, is kept. A header may have been cut off.
    return !isRecordHeaderOrItsBegin(old.read(longestRecordHeader));
}

Words RecordFile::append(const QString& line) {
    if (!file_.isOpen()) {
        return {};
    }
    saved_ = false;
    Words reason = appendWhole(file_, line.toLatin1() + "\r\n");
    lacksRows_ = lacksRows_ || !reason.isEmpty();
    unsaved_ = unsaved_ || reason.isEmpty();
    isBehindRow_ = true;
    if (reason.isEmpty() && !waitsForDisk_) {
        waitsForDisk_ = true;
        waitsSince_ = clock_.monotonicMilliseconds();
    }
    return reason;
}

std::optional<qint64> RecordFile::syncWhenDue() {
    constexpr qint64 diskDelay = 500; // milliseconds that a written row waits for others
    constexpr qint64 longest = 900;   // if none comes
    const bool isBehindRow = std::exchange(isBehindRow_, false);
    if (!waitsForDisk_) {
        return std::nullopt;
    }
    const qint64 waited = clock_.monotonicMilliseconds() - waitsSince_;
    // Right behind a row, so that the next one is not kept waiting while the disk writes.
    if (waited >= (isBehindRow ? diskDelay : longest)) {
        bringToDisk();
        return std::nullopt;
    }
    return longest - waited;
}

void RecordFile::bringToDisk() {
    if (!std::exchange(waitsForDisk_, false)) {
        return;
    }
    const Words reason = syncNamedFile(file_.handle());
    diskFailure_ = reason.isEmpty() ? diskFailure_ : reason;
    if (lockFailed_) {
        putLock();
    }
}

void RecordFile::putLock() {
    lockFailed_ = !lock_.put(type_, earlierFile_);
}

void RecordFile::close() {
    if (!file_.isOpen()) {
        return;
    }
    bringToDisk();
    file_.close();
    if (!unsaved_) {
        lock_.remove();
    }
}

QString RecordFile::unendedEarlierFile() const {
    const QString name = lock_.earlierFile();
    return name.isEmpty() ? QString() : QFileInfo(file_.fileName()).dir().filePath(name);
}

void RecordFile::unendedRecovered() {
    unsaved_ = true;
    earlierFile_ = lock_.earlierFile();
}

Words RecordFile::keepUnended(QString& keptAs) {
    Words reason = keepUnderDatedName(file_.fileName(), clock_.now(), &keptAs);
    if (reason.isEmpty()) {
        lock_.remove();
    }
    return reason;
}

void RecordFile::takeUnendedFrom(const QString& otherPath) {
    const RunLock otherLock(otherPath);
    const SavedMark otherMark(otherPath);
    if (otherMark.holds() || (!QFile::exists(otherPath) && otherLock.earlierFile().isEmpty())) {
        otherLock.remove();
        return;
    }
    if (!keepUnsavedRows().isEmpty()) {
        return;
    }
    QFile::remove(file_.fileName()); // without rows that are not saved, if it is still there
    mark_.remove();
    if (lock_.copyFrom(otherLock) && (!QFile::exists(otherPath) || QFile::rename(otherPath, file_.fileName()))) {
        otherLock.remove();
    } else {
        lock_.remove();
    }
}

bool RecordFile::hasUnendedRun() const {
    return isUnended() && (QFile::exists(file_.fileName()) || !lock_.earlierFile().isEmpty());
}

namespace {

/// A row's cells from its date on, each followed by a tab.
QByteArray cellsAfterNumber(const DataSheet& sheet, int row) {
    QByteArray cells;
    sheet.writeCells(row, sheetcolumn::firstValue + valueCount(sheet.type().layout()), cells);
    return cells.mid(cells.indexOf('\t') + 1);
}

/// The rows of the sheet's type as a run would have recorded them.
QByteArray recordBytes(const DataSheet& sheet, const QDateTime& start) {
    QByteArray bytes = recordHeader(start, sheet.type().firmware);
    int number = 0;
    for (int row = sheet.rowsOfOtherLayout(); row < sheet.rowCount(); ++row) {
        // Rows of a file may be numbered otherwise; a number that is not above the last one would begin another sheet.
        number = std::max(number + 1, sheet.cell(row, sheetcolumn::record).toInt());
        QStringList cells = QString::fromLatin1(cellsAfterNumber(sheet, row)).split(u'\t');
        cells.removeLast(); // after the last tab
        const DataRow data{.date = cells.takeFirst(), .time = cells.takeFirst(), .values = cells};
        bytes += recordLine(number, data, sheet.type().layout()).toLatin1() + "\r\n";
    }
    return bytes;
}

} // namespace

bool RecordFile::holdsRowsOf(const DataSheet& sheet) const {
    const RecordedRows found = readRecordedRows(file_.fileName(), sheet.type());
    const int first = sheet.rowsOfOtherLayout();
    bool same = static_cast<int>(found.sheet.rows.size()) == sheet.rowCount() - first;
    for (int row = first; same && row < sheet.rowCount(); ++row) {
        const QByteArray& recorded = found.sheet.rows[static_cast<std::size_t>(row - first)];
        same = recorded.mid(recorded.indexOf('\t') + 1) + '\t' == cellsAfterNumber(sheet, row);
    }
    return same;
}

Words RecordFile::keepForNextStart(const DataSheet& sheet) {
    if (!file_.isOpen()) {
        return writeRowsOf(sheet);
    }
    bringToDisk();
    Words reason = takeDiskFailure();
    if (!reason.isEmpty() || !lacksRows_) {
        return reason;
    }
    file_.close(); // not every system replaces an open file
    reason = writeRowsOf(sheet);
    const bool goesOn = file_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
    return goesOn || !reason.isEmpty() ? reason : errorText(file_);
}

Words RecordFile::writeRowsOf(const DataSheet& sheet) {
    if (lock_.stands() && holdsRowsOf(sheet)) {
        return {};
    }
    if (sheet.type().layout() == RowLayout::Unknown) {
        return Words::tr("they are of no known type of instrument");
    }
    Words reason = place_ != nullptr ? place_->claim() : Words();
    if (reason.isEmpty()) {
        const auto keepOlder = holdsUnsavedRows() ? std::optional(clock_.now()) : std::nullopt;
        reason = writeWholeFile(file_.fileName(), recordBytes(sheet, clock_.now()), keepOlder);
    }
    if (!reason.isEmpty()) {
        return reason;
    }
    mark_.remove();
    type_ = sheet.type();
    earlierFile_.clear();
    putLock();
    unsaved_ = true;
    begun_ = true;
    saved_ = false;
    discarded_ = false;
    lacksRows_ = false;
    return lockFailed_ ? Words::tr("no lock file can be made beside it") : Words();
}

void RecordFile::rowsSaved() {
    saved_ = begun_;
    if (saved_ && !discarded_ && unsaved_) {
        mark_.put(); // before the lock goes: a program that dies between has nothing lost
    }
    nothingIsUnsaved();
}

bool RecordFile::rowsSavedInPart() {
    const bool recorded = unsaved_;
    rowsDiscarded();
    return recorded;
}

void RecordFile::rowsDiscarded() {
    discarded_ = discarded_ || !saved_;
    nothingIsUnsaved();
}

RecordFile::Standing RecordFile::standing() const {
    return {.unsaved = unsaved_,
            .saved = saved_,
            .discarded = discarded_,
            .earlierFile = earlierFile_,
            .keptAs = keptAs_,
            .type = lock_.type(),
            .runs = runs_};
}

void RecordFile::takeBack(const Standing& then) {
    if (runs_ == then.runs) {
        saved_ = then.saved; // what has been saved since was a sheet without these rows
        discarded_ = then.discarded;
    }
    unsaved_ = then.unsaved;
    if (unsaved_) {
        earlierFile_ = keptAs_ != then.keptAs ? keptAs_ : then.earlierFile;
        lock_.put(file_.isOpen() ? type_ : then.type, earlierFile_);
    }
}

void RecordFile::nothingIsUnsaved() {
    const bool namesEarlierFile = !std::exchange(earlierFile_, QString()).isEmpty();
    if (!std::exchange(unsaved_, false)) {
        return;
    }
    if (!file_.isOpen()) {
        lock_.remove();
    } else if (namesEarlierFile) {
        putLock();
    }
}

namespace {

// The header, in the order of its lines.
constexpr const char* firstField = "Orvtemp.tmp\t"; ///< The start's date and time follow.
constexpr const char* deviceLine = "Device File";
constexpr const char* numberColumn = "Data point\t"; ///< The number's column has a line of its own.
constexpr const char* commonColumns = "Date\tTime\tLED1\t";
constexpr const char* newerColumns = "REF1\tLED2\tREF2\tLED3\tREF3";
constexpr const char* olderColumns = "LED2\tLED3\tREF3";

/// A firmware number of the older generation, where only the generation is known.
constexpr double olderGeneration = 0.0;

/// The header from its first line feed on.
QByteArray headerAfterStart(double firmware) {
    return QByteArray("\n") + deviceLine + "\r\n\r\r\r\n" + numberColumn + "\r\n" + commonColumns +
           (firmware < newerGeneration ? olderColumns : newerColumns) + "\r\n";
}

} // namespace

QByteArray recordHeader(const QDateTime& start, double firmware) {
    const QString moment = shortDate(start.date()) + u'\t' + clockText(start.time()) + u'\r';
    return firstField + moment.toLatin1() + headerAfterStart(firmware);
}

bool isRecordHeaderOrItsBegin(const QByteArray& bytes) {
    const QByteArray begin(firstField);
    if (!bytes.startsWith(begin)) {
        return begin.startsWith(bytes);
    }
    const QByteArrayView rest = QByteArrayView(bytes).sliced(begin.size());
    const auto end = std::find_if_not(
        rest.begin(), rest.end(), [](char letter) { return QByteArrayView("0123456789/:\t APM\r").contains(letter); });
    const QByteArrayView after = rest.sliced(end - rest.begin());
    return headerAfterStart(olderGeneration).startsWith(after) || headerAfterStart(newerGeneration).startsWith(after);
}

RecordedRows readRecordedRows(const QString& path, const DataSheet::Type& type) {
    QFile file(path);
    if (!file.exists()) {
        return {};
    }
    RecordedRows found;
    if (!file.open(QIODevice::ReadOnly)) {
        found.sheet.error = errorText(file);
        return found;
    }
    constexpr qint64 largestPart = qint64{16} * 1024 * 1024;
    const qint64 begin = std::max<qint64>(0, file.size() - largestPart);
    RecordLines lines(file, type, begin);
    found.hasEarlierRows = begin > 0;
    int lastNumber = 0;
    while (auto row = lines.next(std::numeric_limits<qint16>::max())) {
        if (row->number <= lastNumber) {
            found.hasEarlierRows = true;
            found.sheet.rows.clear();
            found.missingRows = 0;
        }
        if (!found.sheet.rows.empty()) {
            found.missingRows += row->number - lastNumber - 1;
        }
        lastNumber = row->number;
        found.sheet.rows.push_back(std::move(row->cells));
    }
    found.sheet.type = lines.type();
    found.typeGuessed = lines.typeGuessed();
    found.cutOff = lines.cutOff();
    found.unreadableLines = lines.unreadableLines();
    if (file.error() != QFileDevice::NoError) {
        found.sheet.error = errorText(file);
    }
    return found;
}

} // namespace orv
