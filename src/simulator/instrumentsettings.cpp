// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/instrumentsettings.h"

#include <algorithm>
#include <array>

namespace orv {

namespace {

struct Preset {
    qint64 samples;
    qint64 milliseconds;
};

constexpr std::array<Preset, 4> trxPresets{{{10, 500}, {30, 1000}, {100, 2000}, {210, 4000}}};
constexpr std::array<Preset, 4> glowPresets{{{25, 200}, {55, 333}, {90, 500}, {200, 1000}}};

const std::array<Preset, 4>& presetsOf(InstrumentKind kind) {
    return kind == InstrumentKind::Trx ? trxPresets : glowPresets;
}

QByteArray reportLine(const char* tag, qsizetype value) {
    return tag + QByteArray::number(value) + "\r\n";
}

} // namespace

InstrumentSettings InstrumentSettings::initial(const SimulatorOptions& options) {
    InstrumentSettings settings;
    settings.samplesPerPoint = static_cast<int>(presetsOf(options.kind).front().samples);
    settings.pointsPerBlock = options.pointsPerBlock;
    return settings;
}

void InstrumentSettings::setFlags(const QByteArray& bits) {
    const std::array flags{&autoStart, &gain, &auxAdc, &logEnabled, &wakeUp, &append};
    qsizetype position = 0;
    for (bool* flag : flags) {
        *flag = bits.at(position) == '1';
        ++position;
    }
}

int* InstrumentSettings::number(char letter) {
    switch (letter) {
    case 'T':
        return &samplesPerPoint;
    case 'D':
        return &hoursBeforeBlock;
    case 'Q':
        return &pointsPerBlock;
    case 'I':
        return &secondsBetweenPoints;
    default:
        return nullptr;
    }
}

QByteArray InstrumentSettings::report(qsizetype memoryPointer) const {
    const auto flag = [](const char* tag, bool value) { return reportLine(tag, value ? 1 : 0); };
    return flag("S", autoStart) + flag("G", gain) + flag("A", auxAdc) + flag("L", logEnabled) + flag("W", wakeUp) +
           flag("M", append) + reportLine("T", samplesPerPoint) + reportLine("D", hoursBeforeBlock) +
           reportLine("Q", pointsPerBlock) + reportLine("I", secondsBetweenPoints) + reportLine("MP", memoryPointer);
}

bool InstrumentSettings::allowShutter() const {
    InstrumentSettings required;
    required.wakeUp = false;
    required.append = false;
    required.samplesPerPoint = 1;
    required.pointsPerBlock = 1;
    return *this == required;
}

qint64 InstrumentSettings::samplingMilliseconds(InstrumentKind kind) const {
    const qint64 samples = std::max(samplesPerPoint, 1);
    Preset below{0, 0};
    for (const Preset& preset : presetsOf(kind)) {
        if (samples <= preset.samples) {
            return std::max<qint64>(1, below.milliseconds + (samples - below.samples) *
                                                                (preset.milliseconds - below.milliseconds) /
                                                                (preset.samples - below.samples));
        }
        below = preset;
    }
    return samples * below.milliseconds / below.samples;
}

} // namespace orv
