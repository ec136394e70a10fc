// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/simulatoroptions.h"

#include <QStringList>

#include <algorithm>
#include <iterator>
#include <utility>

namespace orv {

namespace {

constexpr std::pair<const char*, SimulatedFault> faults[] = {
    {"none", SimulatedFault::None},       {"silent", SimulatedFault::Silent}, {"late", SimulatedFault::Late},
    {"garbage", SimulatedFault::Garbage}, {"cut", SimulatedFault::Cut},       {"unplug", SimulatedFault::Unplug},
    {"nocr", SimulatedFault::NoCr},       {"noise", SimulatedFault::Noise}};

bool isDigits(QStringView text) {
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

std::optional<qint64> wholeNumber(QStringView text, qint64 least, qint64 most) {
    constexpr qsizetype longest = 12;
    if (!isDigits(text) || text.size() > longest) {
        return std::nullopt;
    }
    const qint64 value = text.toLongLong();
    return value >= least && value <= most ? std::optional(value) : std::nullopt;
}

/// A number of at most three decimals, in thousandths.
std::optional<qint64> thousandths(QStringView text, qint64 least, qint64 most) {
    constexpr qsizetype decimals = 3;
    const qsizetype point = text.indexOf(u'.');
    QString digits = text.toString();
    qsizetype given = 0;
    if (point >= 0) {
        given = text.size() - point - 1;
        if (point == 0 || given == 0 || given > decimals) {
            return std::nullopt;
        }
        digits.remove(point, 1);
    }
    digits += QString(decimals - given, u'0');
    return wholeNumber(digits, least, most);
}

// Each of these stores an option's value and returns the empty text, or returns what the value may be.

template <typename Integer>
Words storeWhole(Integer& field, const QString& value, qint64 least, qint64 most) {
    const std::optional<qint64> number = wholeNumber(value, least, most);
    field = static_cast<Integer>(number.value_or(0));
    return number ? Words()
                  : Words::tr("a whole number from %1 to %2").arg(QString::number(least), QString::number(most));
}

Words storeSeconds(qint64& milliseconds, const QString& value) {
    const std::optional<qint64> number = thousandths(value, 0, 3'600'000);
    milliseconds = number.value_or(0);
    return number ? Words() : Words::tr("a number of seconds from 0 to 3600");
}

Words storeRate(SimulatorOptions& options, const QString& value) {
    options.linesPerThousandSeconds = thousandths(value, 1, 1'000'000);
    return options.linesPerThousandSeconds ? Words() : Words::tr("a number from 0.001 to 1000");
}

Words storeEnd(SimulatorOptions& options, const QString& value) {
    options.dumpEndsWithZero = value == u"0";
    return value == u"0" || value == u"eof" ? Words()
                                            : Words::tr("%1 or %2").arg(QStringLiteral("eof"), QStringLiteral("0"));
}

Words storeFault(SimulatorOptions& options, const QString& value) {
    QStringList names;
    for (const auto& [name, fault] : faults) {
        if (value == QLatin1String(name)) {
            options.fault = fault;
            return {};
        }
        names.append(QLatin1String(name));
    }
    return Words::tr("one of %1").arg(names.join(QStringLiteral(", ")));
}

Words storeFaultPoint(SimulatorOptions& options, const QString& value) {
    constexpr qint64 most = 1'000'000'000;
    std::optional<qint64> amount;
    FaultPoint& point = options.faultPoint;
    if (value.endsWith(u'%')) {
        point.unit = FaultPoint::Unit::Percent;
        amount = wholeNumber(value.chopped(1), 0, 100);
    } else if (value.endsWith(u"ms")) {
        point.unit = FaultPoint::Unit::Milliseconds;
        amount = wholeNumber(value.chopped(2), 0, most);
    } else {
        point.unit = FaultPoint::Unit::Bytes;
        amount = wholeNumber(value, 0, most);
    }
    point.amount = amount.value_or(0);
    return amount ? Words() : Words::tr("a number of bytes, 0% to 100% or a number of milliseconds (\"1500ms\")");
}

using Store = Words (*)(SimulatorOptions& options, const QString& value);

constexpr std::pair<const char*, Store> optionTable[] = {
    {"firmware", [](auto& to, auto& value) { return storeWhole(to.firmware, value, 0, 99999); }},
    {"baud", [](auto& to, auto& value) { return storeWhole(to.baud, value, 0, 1'000'000); }},
    {"rate", storeRate},
    {"records", [](auto& to, auto& value) { return storeWhole(to.records, value, 0, 65525); }},
    {"points", [](auto& to, auto& value) { return storeWhole(to.pointsPerBlock, value, 0, 65535); }},
    {"erased", [](auto& to, auto& value) { return storeWhole(to.erasedRecords, value, 0, 1'000'000); }},
    {"end", storeEnd},
    {"shutter", [](auto& to, auto& value) { return storeSeconds(to.shutterMilliseconds, value); }},
    {"seed", [](auto& to, auto& value) { return storeWhole(to.seed, value, 0, 4'294'967'295); }},
    {"fault", storeFault},
    {"delay", [](auto& to, auto& value) { return storeSeconds(to.delayMilliseconds, value); }},
    {"after", storeFaultPoint}};

/// Takes one option, "name=value", and adds its name to `seen`. Returns the empty text, or what is wrong.
Words takeOption(SimulatorOptions& options, const QString& option, QStringList& seen) {
    const QString name = option.section(u'=', 0, 0);
    const QString value = option.section(u'=', 1);
    const auto* const found = std::find_if(std::begin(optionTable), std::end(optionTable),
                                           [&name](const auto& entry) { return name == QLatin1String(entry.first); });
    if (found == std::end(optionTable)) {
        QStringList names;
        for (const auto& [optionName, store] : optionTable) {
            names << QLatin1String(optionName);
        }
        return Words::tr("There is no option \"%1\". The options are %2.").arg(name, names.join(QStringLiteral(", ")));
    }
    const Words allowed = found->second(options, value);
    if (!allowed.isEmpty()) {
        return Words::tr("The option %1 must be %2, not \"%3\".").arg(name, allowed, value);
    }
    if (seen.contains(name)) {
        return Words::tr("The option %1 is given twice.").arg(name);
    }
    seen.append(name);
    return {};
}

} // namespace

bool namesSimulator(const QString& device) {
    return device.startsWith(QLatin1String("sim:"));
}

ParsedSimulatorOptions parseSimulatorOptions(const QString& device) {
    const auto failed = [&device](const Words& reason) {
        return ParsedSimulatorOptions{{}, Words::tr("\"%1\" names no simulated instrument. %2").arg(device, reason)};
    };
    const qsizetype question = device.indexOf(u'?');
    const QString type = device.left(question);
    SimulatorOptions options;
    if (type == u"sim:glow") {
        constexpr int glowFirmware = 310;
        options.kind = InstrumentKind::Glow;
        options.firmware = glowFirmware;
    } else if (type != u"sim:trx") {
        return failed(Words::tr("It must begin with sim:trx or sim:glow."));
    }
    if (question < 0) {
        return {options, {}};
    }
    QStringList seen;
    for (const QString& option : device.mid(question + 1).split(u'&')) {
        const Words error = takeOption(options, option, seen);
        if (!error.isEmpty()) {
            return failed(error);
        }
    }
    if (seen.contains(QStringLiteral("delay")) && options.fault != SimulatedFault::Late) {
        return failed(Words::tr("The option delay needs fault=late."));
    }
    if (seen.contains(QStringLiteral("after")) && options.fault != SimulatedFault::Cut &&
        options.fault != SimulatedFault::Unplug) {
        return failed(Words::tr("The option after needs fault=cut or fault=unplug."));
    }
    return {options, {}};
}

FaultStrike::FaultStrike(const SimulatorOptions& options)
    : point_(options.faultPoint)
    , armed_(options.fault == SimulatedFault::Cut || options.fault == SimulatedFault::Unplug) {}

void FaultStrike::beginCollection(qsizetype lines) {
    constexpr qint64 whole = 100;
    lineToStrike_ = lines * point_.amount / whole;
    linesPassed_ = 0;
    bytesLeft_ = point_.amount;
}

qsizetype FaultStrike::allowance(qsizetype lineSize) {
    if (!armed_) {
        return lineSize;
    }
    qsizetype allowed = lineSize;
    if (point_.unit == FaultPoint::Unit::Bytes && bytesLeft_ < lineSize) {
        allowed = bytesLeft_;
    } else if (point_.unit == FaultPoint::Unit::Percent && linesPassed_ == lineToStrike_) {
        allowed = lineSize / 2;
    }
    bytesLeft_ -= allowed;
    ++linesPassed_;
    return allowed;
}

std::optional<qint64> FaultStrike::millisecondsAfterGreeting() const {
    if (!armed_ || point_.unit != FaultPoint::Unit::Milliseconds) {
        return std::nullopt;
    }
    return point_.amount;
}

} // namespace orv
