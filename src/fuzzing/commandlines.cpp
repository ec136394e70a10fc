// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commandline.h"
#include "console/options.h"
#include "formats/rowwriter.h"
#include "fuzzing/fuzzing.h"
#include "program/devices.h"
#include "simulator/simulatoroptions.h"

namespace orv::fuzzing {

namespace {

QString thousandths(qint64 value) {
    return QStringLiteral("%1.%2").arg(value / 1000).arg(value % 1000, 3, 10, QLatin1Char('0'));
}

/// The device text that these options come from, or one that means the same.
QString deviceText(const SimulatorOptions& options) {
    constexpr const char* faults[] = {"none", "silent", "late", "garbage", "cut", "unplug", "nocr", "noise"};
    QString text = QStringLiteral("sim:%1?firmware=%2&baud=%3&records=%4&points=%5&erased=%6&end=%7&shutter=%8&seed=%9")
                       .arg(options.kind == InstrumentKind::Glow ? QStringLiteral("glow") : QStringLiteral("trx"))
                       .arg(options.firmware)
                       .arg(options.baud)
                       .arg(options.records)
                       .arg(options.pointsPerBlock)
                       .arg(options.erasedRecords)
                       .arg(options.dumpEndsWithZero ? QStringLiteral("0") : QStringLiteral("eof"),
                            thousandths(options.shutterMilliseconds))
                       .arg(options.seed) +
                   QStringLiteral("&fault=%1").arg(QLatin1String(faults[static_cast<std::size_t>(options.fault)]));
    if (options.linesPerThousandSeconds) {
        text += QStringLiteral("&rate=") + thousandths(*options.linesPerThousandSeconds);
    }
    if (options.fault == SimulatedFault::Late) {
        text += QStringLiteral("&delay=") + thousandths(options.delayMilliseconds);
    }
    if (options.fault == SimulatedFault::Cut || options.fault == SimulatedFault::Unplug) {
        constexpr const char* units[] = {"", "%", "ms"};
        text += QStringLiteral("&after=%1%2")
                    .arg(options.faultPoint.amount)
                    .arg(QLatin1String(units[static_cast<std::size_t>(options.faultPoint.unit)]));
    }
    return text;
}

QStringList arguments(Input& input) {
    QStringList words{QStringLiteral("program")};
    while (!input.isEmpty()) {
        words << QString::fromUtf8(input.piece('\n'));
    }
    return words;
}

} // namespace

void simulatoroptions(Input input) {
    const QString device = QString::fromUtf8(input.rest());
    const ParsedSimulatorOptions parsed = parseSimulatorOptions(device);
    if (!parsed.error.isEmpty()) {
        require(parsed.error.endsWith(u'.'), "the error is no sentence");
        require(parsed.options == SimulatorOptions(), "a refused text has options");
        return;
    }
    require(namesSimulator(device) && deviceProblem(device).isEmpty(), "a simulated instrument is no device");
    const ParsedSimulatorOptions again = parseSimulatorOptions(deviceText(parsed.options));
    require(again.error.isEmpty(), "options are refused when they are read again", [&again] { return again.error; });
    require(again.options == parsed.options, "options are others when they are read again");
    FaultStrike strike(parsed.options);
    constexpr qsizetype lines = 40;
    constexpr qsizetype lineSize = 30;
    strike.beginCollection(lines);
    for (qsizetype line = 0; line < lines; ++line) {
        const qsizetype allowed = strike.allowance(lineSize);
        require(allowed >= 0 && allowed <= lineSize, "a fault lets through more than there is");
    }
}

void orvoptions(Input input) {
    const Options options = readOptions(arguments(input), QStringLiteral("1.0.0"));
    if (options.wish != Options::Wish::Perform) {
        require(!options.text.isEmpty() && options.text.endsWith(u'\n'), "nothing is told");
        require(options.wish == Options::Wish::Print || options.text.startsWith(QLatin1String("orv: ")),
                "the refusal does not name the program");
        return;
    }
    using Command = Options::Command;
    const bool needsPort = options.command != Command::Ports && options.command != Command::Convert;
    require(needsPort ? deviceProblem(options.port).isEmpty() : options.port.isEmpty(), "the port is none",
            [&options] { return options.port; });
    const bool writes = options.command == Command::Collect || options.command == Command::Download ||
                        options.command == Command::Convert;
    const bool toDevice = options.command == Command::Collect && options.output == QLatin1String("-");
    require(!writes || toDevice || formatOfName(options.output).has_value(), "the output has no format",
            [&options] { return options.output; });
    require(options.command != Command::Convert || !options.inputs.isEmpty(), "there is nothing to convert");
    require(options.points >= 0 && options.forMilliseconds >= 0 && options.everyMilliseconds >= 0,
            "a limit is less than nothing");
    for (const auto& [setting, value] : options.set) {
        bool isNumber = false;
        const int number = value.toInt(&isNumber);
        require(isNumber && number >= 0 && number <= (setting->flag != nullptr ? 1 : 65535),
                "a setting has a value that it cannot have", [&value = value] { return value; });
    }
}

void commandline(Input input) {
    const CommandLine line = readCommandLine(arguments(input), QStringLiteral("1.0.0"));
    if (line.wish != CommandLine::Wish::Run) {
        require(line.text.endsWith(u'\n'), "nothing is told");
        return;
    }
    require(line.text.isEmpty(), "something is told");
    require(deviceProblem(line.com1).isEmpty() && deviceProblem(line.com2).isEmpty(), "a device is none");
}

} // namespace orv::fuzzing
