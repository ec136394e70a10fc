// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/runprogress.h"

#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace orv {

namespace {

constexpr qint64 second = 1000; ///< In milliseconds.
constexpr qint64 secondsBetweenDiskLooks = 10;
constexpr double silence = 10.0;         ///< Seconds, as long as no interval between rows is known.
constexpr double shortestSilence = 3.0;  ///< The same for rows that come fast.
constexpr qint64 scarce = 1'000'000'000; ///< Bytes.

QString rateInWords(double rowsPerSecond) {
    constexpr double whole = 10.0;
    if (rowsPerSecond >= whole) {
        return QString::number(rowsPerSecond, 'f', 0);
    }
    return rowsPerSecond >= 1.0 ? QString::number(rowsPerSecond, 'f', 1) : QString::number(rowsPerSecond, 'g', 2);
}

} // namespace

RunProgress::RunProgress(const Session& session, const SettingsState& settings, Run& run, Download& download,
                         FreeSpace freeSpace)
    : session_(session)
    , settings_(settings)
    , freeSpace_(std::move(freeSpace))
    , taking_{run.taken.subscribe([this](int, const DataRow&) { noteRow(); }),
              download.taken.subscribe([this](int, const DataRow&) { noteRow(); })} {
    bindings_.bind(session.commands.activity, [this](Activity activity) { follow(activity); });
}

void RunProgress::follow(Activity activity) {
    const bool goes = activity == Activity::Collecting || activity == Activity::Downloading;
    if (std::exchange(going_, goes) == goes) {
        return;
    }
    if (!goes) {
        end();
        return;
    }
    begin();
    if (activity == Activity::Collecting) {
        noRowYet = true;
        const LoggerSettings record = settings_.reported.value().value_or(settings_.record.value());
        constexpr double hour = 3600.0;
        rowsOfBlock_ = std::max(leadingNumber(record.pointsPerBlock), 0.0);
        firstWait_ = leadingNumber(record.hoursBeforeBlock) * hour + leadingNumber(record.secondsBetweenPoints);
    }
    look();
}

void RunProgress::begin() {
    start_ = session_.clock.monotonicMilliseconds();
    rows_ = 0;
    rowsOfBlock_ = 0.0;
    firstWait_ = 0.0;
}

void RunProgress::end() {
    second_.reset();
    text = QString();
    late = QString();
    noRowYet = false;
    disk = QString();
}

void RunProgress::noteRow() {
    arrivals_.at(static_cast<std::size_t>(rows_) % arrivals_.size()) = session_.clock.monotonicMilliseconds();
    ++rows_;
    late = QString();
    noRowYet = false;
}

/// Seconds between two of the newest rows, in the mean.
std::optional<double> RunProgress::interval() const {
    const qint64 known = std::min<qint64>(rows_, static_cast<qint64>(arrivals_.size()));
    if (known < 2) {
        return std::nullopt;
    }
    const auto arrival = [this](qint64 row) { return arrivals_.at(static_cast<std::size_t>(row) % arrivals_.size()); };
    return static_cast<double>(arrival(rows_ - 1) - arrival(rows_ - known)) / static_cast<double>((known - 1) * second);
}

/// Seconds after the newest row, or the beginning, after which the next one is late.
double RunProgress::longestWait() const {
    constexpr double intervals = 4.0; // the one in which it should have come, and three more
    const auto usual = interval();
    return usual ? std::max(*usual * intervals, shortestSilence) : firstWait_ + silence;
}

void RunProgress::look() {
    second_ = session_.clock.callAfter(second, [this] { look(); });
    const qint64 now = session_.clock.monotonicMilliseconds();
    const qint64 elapsed = (now - start_) / second;
    if (elapsed % secondsBetweenDiskLooks == 0) {
        lookAtDisk();
    }
    const qint64 newest = rows_ == 0 ? start_ : arrivals_.at(static_cast<std::size_t>(rows_ - 1) % arrivals_.size());
    const bool isLate = static_cast<double>(now - newest) > longestWait() * second;
    QList<Words> parts{durationInWords(elapsed)};
    // Of rows that have ceased to come the pace of before tells nothing.
    std::optional<double> between;
    if (!isLate) {
        between = interval();
    }
    if (between && *between > 0.0) {
        parts << Words::tr("%1 rows/s").arg(rateInWords(1.0 / *between));
    }
    const auto count = static_cast<double>(rows_);
    if (count > 0.0 && count <= rowsOfBlock_) {
        parts << Words::tr("%1 of %2").arg(rows_).arg(rowsOfBlock_, 0, 'f', 0);
        if (between) {
            parts << Words::tr("%1 left").arg(durationInWords(std::llround((rowsOfBlock_ - count) * *between)));
        }
    } else if (session_.commands.activity == Activity::Downloading) {
        parts << (rows_ == 1 ? Words::tr("1 row") : Words::tr("%1 rows").arg(rows_));
    }
    text = join(parts, QStringLiteral(", "));
    late = isLate ? Words::tr("No row for %1").arg(durationInWords((now - newest) / second)) : Words();
}

void RunProgress::lookAtDisk() {
    const std::optional<qint64> bytes = freeSpace_();
    constexpr qint64 megabyte = 1'000'000;
    disk = bytes && *bytes < scarce ? Words::tr("%1 MB are free on the disk").arg(*bytes / megabyte) : Words();
}

} // namespace orv
