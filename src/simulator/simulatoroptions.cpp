// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/simulatoroptions.h"

#include <QSet>
#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

namespace orv {

namespace {

constexpr QLatin1String prefix("sim:");

struct NamedFault {
    QLatin1String name;
    SimulatedFault fault;
};

constexpr std::array namedFaults{
    NamedFault{QLatin1String("none"), SimulatedFault::None},
    NamedFault{QLatin1String("silent"), SimulatedFault::Silent},
    NamedFault{QLatin1String("late"), SimulatedFault::Late},
    NamedFault{QLatin1String("garbage"), SimulatedFault::Garbage},
    NamedFault{QLatin1String("cut"), SimulatedFault::Cut},
    NamedFault{QLatin1String("unplug"), SimulatedFault::Unplug},
    NamedFault{QLatin1String("nocr"), SimulatedFault::NoCr},
};

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

std::optional<FaultPoint> faultPoint(QStringView text) {
    constexpr qint64 most = 1'000'000'000;
    FaultPoint point;
    std::optional<qint64> amount;
    if (text.endsWith(u'%')) {
        point.unit = FaultPoint::Unit::Percent;
        amount = wholeNumber(text.chopped(1), 0, 100);
    } else if (text.endsWith(u"ms")) {
        point.unit = FaultPoint::Unit::Milliseconds;
        amount = wholeNumber(text.chopped(2), 0, most);
    } else {
        point.unit = FaultPoint::Unit::Bytes;
        amount = wholeNumber(text, 0, most);
    }
    if (!amount) {
        return std::nullopt;
    }
    point.amount = *amount;
    return point;
}

/// Takes one option after the other; each member returns what is allowed when the value is not.
class OptionReader {
public:
    explicit OptionReader(SimulatorOptions& options)
        : options_(options) {}

    /// Empty, or what is wrong.
    QString take(const QString& option) {
        const qsizetype equals = option.indexOf(u'=');
        const QString name = option.left(equals);
        const QString value = equals < 0 ? QString() : option.mid(equals + 1);
        const std::optional<QString> allowed = store(name, value);
        if (!allowed) {
            return QStringLiteral("There is no option \"%1\"; the options are firmware, baud, rate, records, points, "
                                  "erased, end, shutter, seed, fault, delay and after.")
                .arg(name);
        }
        if (!allowed->isEmpty()) {
            return QStringLiteral("The option %1 must be %2, not \"%3\".").arg(name, *allowed, value);
        }
        if (seen_.contains(name)) {
            return QStringLiteral("The option %1 is given twice.").arg(name);
        }
        seen_.insert(name);
        return {};
    }

    /// Empty, or which options do not fit each other.
    QString finish() const {
        if (seen_.contains(QStringLiteral("delay")) && options_.fault != SimulatedFault::Late) {
            return QStringLiteral("The option delay needs fault=late.");
        }
        if (seen_.contains(QStringLiteral("after")) && options_.fault != SimulatedFault::Cut &&
            options_.fault != SimulatedFault::Unplug) {
            return QStringLiteral("The option after needs fault=cut or fault=unplug.");
        }
        return {};
    }

private:
    /// Nothing if there is no such option; the empty text if it is stored; otherwise what it may be.
    std::optional<QString> store(const QString& name, const QString& value) {
        if (name == u"firmware") {
            return storeWhole(options_.firmware, value, 0, 99999);
        }
        if (name == u"baud") {
            return storeWhole(options_.baud, value, 0, 1'000'000);
        }
        if (name == u"rate") {
            options_.linesPerThousandSeconds = thousandths(value, 1, 1'000'000);
            return options_.linesPerThousandSeconds ? QString() : QStringLiteral("a number from 0.001 to 1000");
        }
        if (name == u"records") {
            return storeWhole(options_.records, value, 0, 65525);
        }
        if (name == u"points") {
            return storeWhole(options_.pointsPerBlock, value, 0, 65535);
        }
        if (name == u"erased") {
            return storeWhole(options_.erasedRecords, value, 0, 1'000'000);
        }
        if (name == u"end") {
            options_.dumpEndsWithZero = value == u"0";
            return value == u"0" || value == u"eof" ? QString() : QStringLiteral("eof or 0");
        }
        if (name == u"shutter") {
            return storeSeconds(options_.shutterMilliseconds, value);
        }
        if (name == u"seed") {
            return storeWhole(options_.seed, value, 0, 4'294'967'295);
        }
        if (name == u"fault") {
            return storeFault(value);
        }
        if (name == u"delay") {
            return storeSeconds(options_.delayMilliseconds, value);
        }
        if (name == u"after") {
            const std::optional<FaultPoint> point = faultPoint(value);
            options_.faultPoint = point.value_or(FaultPoint());
            return point ? QString()
                         : QStringLiteral("a number of bytes, 0% to 100% or a number of milliseconds (\"1500ms\")");
        }
        return std::nullopt;
    }

    template <typename Integer>
    static QString storeWhole(Integer& field, const QString& value, qint64 least, qint64 most) {
        const std::optional<qint64> number = wholeNumber(value, least, most);
        if (!number) {
            return QStringLiteral("a whole number from %1 to %2").arg(least).arg(most);
        }
        field = static_cast<Integer>(*number);
        return {};
    }

    static QString storeSeconds(qint64& milliseconds, const QString& value) {
        const std::optional<qint64> number = thousandths(value, 0, 3'600'000);
        if (!number) {
            return QStringLiteral("a number of seconds from 0 to 3600");
        }
        milliseconds = *number;
        return {};
    }

    QString storeFault(const QString& value) {
        for (const NamedFault& named : namedFaults) {
            if (value == named.name) {
                options_.fault = named.fault;
                return {};
            }
        }
        QStringList names;
        for (const NamedFault& named : namedFaults) {
            names.append(named.name);
        }
        return QStringLiteral("one of ") + names.join(QStringLiteral(", "));
    }

    SimulatorOptions& options_;
    QSet<QString> seen_;
};

} // namespace

bool namesSimulator(const QString& device) {
    return device.startsWith(prefix);
}

ParsedSimulatorOptions parseSimulatorOptions(const QString& device) {
    const auto failed = [&device](const QString& reason) {
        return ParsedSimulatorOptions{{},
                                      QStringLiteral("\"%1\" names no simulated instrument. %2").arg(device, reason)};
    };
    const qsizetype question = device.indexOf(u'?');
    const QString type = device.left(question);
    SimulatorOptions options;
    if (type == u"sim:glow") {
        constexpr int glowFirmware = 310;
        options.kind = InstrumentKind::Glow;
        options.firmware = glowFirmware;
    } else if (type != u"sim:trx") {
        return failed(QStringLiteral("It must begin with sim:trx or sim:glow."));
    }
    if (question < 0) {
        return {options, {}};
    }
    OptionReader reader(options);
    const QStringList given = device.mid(question + 1).split(u'&');
    for (const QString& option : given) {
        const QString error = reader.take(option);
        if (!error.isEmpty()) {
            return failed(error);
        }
    }
    const QString error = reader.finish();
    return error.isEmpty() ? ParsedSimulatorOptions{options, {}} : failed(error);
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
