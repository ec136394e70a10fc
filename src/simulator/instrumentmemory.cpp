// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/instrumentmemory.h"

#include "simulator/mixing.h"

#include <array>

namespace orv {

namespace {

/// Where the readings of one channel lie: they rise and fall by `swing` above `lowest`.
struct Channel {
    quint32 lowest;
    quint32 swing;
};

constexpr Channel output{2400, 900};
constexpr Channel angle100{21000, 1200};
constexpr Channel angle125{14500, 800};
constexpr Channel angle150{9800, 600};
constexpr Channel reference{30500, 40};

/// Points in one rise and fall.
constexpr quint32 cycle = 600;
constexpr quint32 noise = 24;

quint32 reading(const SimulatorOptions& options, const Channel& channel, quint32 column, quint32 number) {
    const quint64 channelSeed = mixed(quint64{options.seed} << 8U | column);
    const quint32 phase = (number % cycle + static_cast<quint32>(channelSeed % cycle)) % cycle;
    const quint32 height = phase < cycle / 2 ? phase : cycle - phase;
    const auto jitter = static_cast<quint32>(mixed(channelSeed + number) % noise);
    return channel.lowest + height * channel.swing / (cycle / 2) + jitter;
}

} // namespace

QByteArray dataLine(const SimulatorOptions& options, const DataPoint& point) {
    constexpr int firstWithOneReference = 500;
    QByteArray line = point.moment.text();
    quint32 column = 0;
    const auto add = [&](const Channel& channel) {
        line += '\t' + QByteArray::number(reading(options, channel, column, point.number));
        ++column;
    };
    if (options.kind == InstrumentKind::Glow) {
        add(output);
    } else {
        const bool pairs = options.firmware < firstWithOneReference;
        for (const Channel& angle : {angle100, angle125, angle150}) {
            add(angle);
            if (pairs) {
                add(reference);
            }
        }
        if (!pairs) {
            add(reference);
        }
    }
    return line + "\r\n";
}

InstrumentMemory::InstrumentMemory(int records, InstrumentMoment made)
    : earlierRecords_(records)
    , made_(made) {}

DataPoint InstrumentMemory::at(qsizetype index) const {
    constexpr qint64 secondsBetweenRecords = 60;
    if (index < earlierRecords_) {
        return {{made_.seconds - (earlierRecords_ - index) * secondsBetweenRecords}, static_cast<quint32>(index)};
    }
    return points_.at(static_cast<size_t>(index - earlierRecords_));
}

void InstrumentMemory::append(const DataPoint& point) {
    if (count() < capacity) {
        points_.push_back(point);
    }
}

void InstrumentMemory::erase() {
    earlierRecords_ = 0;
    points_.clear();
    points_.shrink_to_fit();
}

} // namespace orv
