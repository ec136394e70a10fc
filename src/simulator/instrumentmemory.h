// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/instrumentclock.h"
#include "simulator/simulatoroptions.h"

#include <vector>

namespace orv {

/// One data point: when it was taken, and its number, from which its readings follow.
struct DataPoint {
    InstrumentMoment moment;
    quint32 number = 0;
};

/// A data point as the instrument sends it, ended by CR LF: date TAB count TAB values. A GLOW has one value, a TRX of
/// firmware below 500 three pairs of value and reference, of 500 or more three values and one reference.
///
/// The values are counts within 0..65535 that vary slowly and depend on the options' seed and the point alone.
QByteArray dataLine(const SimulatorOptions& options, const DataPoint& point);

/// The records that the instrument keeps. The records from before its time are not held but made up when asked for.
class InstrumentMemory {
public:
    static constexpr qsizetype capacity = 65525;

    /// Memory with `records` records, one a minute up to `made`.
    InstrumentMemory(int records, InstrumentMoment made);

    /// How many records there are; this is also the memory pointer.
    qsizetype count() const { return earlierRecords_ + static_cast<qsizetype>(points_.size()); }

    /// The record at 0..count() - 1, oldest first.
    DataPoint at(qsizetype index) const;

    /// Keeps a point; a full memory drops it.
    void append(const DataPoint& point);

    void erase();

private:
    qsizetype earlierRecords_;
    InstrumentMoment made_;
    std::vector<DataPoint> points_;
};

} // namespace orv
