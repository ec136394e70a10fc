// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/options.h"

#include "formats/rowwriter.h"
#include "program/devices.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace orv {

namespace {

/// What is wrong with the options, in a sentence.
class Wrong final : public std::runtime_error {
public:
    explicit Wrong(const QString& text)
        : std::runtime_error(text.toStdString()) {}
};

QString fromBytes(const std::string& text) {
    return QString::fromLocal8Bit(text.data(), static_cast<qsizetype>(text.size()));
}

struct Name {
    Options::Command command;
    const char* name;
    const char* description;
};

constexpr Name names[] = {
    {Options::Command::Ports, "ports", "List the computer's ports, and why one cannot be opened"},
    {Options::Command::Info, "info", "Wake the instrument and tell what it is, its clock, settings and memory"},
    {Options::Command::Settings, "settings", "Read the settings, or send some and read them back"},
    {Options::Command::Clock, "clock", "Compare the instrument's clock with the computer's, or set it"},
    {Options::Command::Collect, "collect", "Run the instrument and write its rows to a file"},
    {Options::Command::Download, "download", "Write the instrument's memory to a file"},
    {Options::Command::Shutter, "shutter", "Move the shutter to its rest position"},
    {Options::Command::Convert, "convert", "Convert sheets, record files and text downloads"},
    {Options::Command::Watch, "watch", "Show what goes over the line, both ways"},
};

/// The texts as they stand on the command line.
struct Texts {
    std::string port;
    std::string output;
    std::vector<std::string> inputs;
    std::vector<std::string> set;
    std::string mode;
    std::string save;
    std::string forTime;
    std::string every;
};

void addOptionsOf(Options::Command command, CLI::App& app, Options& options, Texts& texts) {
    using Command = Options::Command;
    const bool needsPort = command != Command::Ports && command != Command::Convert;
    if (needsPort) {
        app.add_option("PORT", texts.port, "Serial port (ttyUSB0, /dev/ttyUSB0) or simulated instrument (sim:trx)")
            ->required();
    }
    const bool writes = command == Command::Collect || command == Command::Download || command == Command::Convert;
    if (command == Command::Convert) {
        app.add_option("IN", texts.inputs, "Sheets, record files, text downloads")->required();
    }
    if (writes) {
        app.add_option("-o,--output", texts.output,
                       command == Command::Collect ? "File to write: .csv, .nc, .jsonl or .txt; - for standard output"
                                                   : "File to write: .csv, .nc, .jsonl or .txt")
            ->required()
            ->type_name("FILE");
    }
    if (writes || command == Command::Settings) {
        app.add_flag("--force", options.force, "Keep an existing file under a dated name");
    }
    switch (command) {
    case Command::Settings:
        app.add_option("--set", texts.set, "Send a setting, such as samplesPerPoint=30 or logEnabled=true")
            ->type_name("NAME=VALUE")
            ->expected(1)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        app.add_option("--mode", texts.mode, "Send a mode: profile, moored, or a mode file")->type_name("MODE");
        app.add_option("--save", texts.save, "Write the settings to a mode file")->type_name("FILE");
        break;
    case Command::Clock:
        app.add_flag("--sync", options.sync, "Set the clock to the computer's time");
        break;
    case Command::Collect:
        app.add_option("--points", options.points, "End after so many rows")
            ->type_name("N")
            ->check(CLI::Range(1, 2'000'000'000));
        app.add_option("--for", texts.forTime, "End after that time: 30s, 15m, 2h, 1d")->type_name("TIME");
        app.add_option("--every", texts.every, "Begin a new dated file after that time")->type_name("TIME");
        app.add_flag("--keep-trying", options.keepTrying, "Connect again after a lost line or a power cut, and go on");
        app.add_flag("--stamp", options.stamp, "Add a column with the computer's time of each row");
        break;
    case Command::Download:
        app.add_flag("--verify", options.verify, "Read the memory twice and compare it record by record");
        break;
    default:
        break;
    }
    if (command != Command::Shutter && command != Command::Convert) {
        app.add_flag("--json", options.json, "Answer in JSON, one object a line");
    }
    app.add_flag("-q,--quiet", options.quiet, "Tell nothing but what went wrong");
    app.add_flag("--verbose", options.verbose, "Tell each step");
}

qint64 spanOf(const std::string& text, const char* option) {
    if (text.empty()) {
        return 0;
    }
    const qint64 span = timeSpan(fromBytes(text));
    if (span == 0) {
        throw Wrong(QStringLiteral("%1 needs a time such as 30s, 15m, 2h or 1d, not \"%2\".")
                        .arg(QLatin1String(option), fromBytes(text)));
    }
    return span;
}

QString flagValue(const QString& text, const QString& name) {
    const QString lower = text.toLower();
    if (lower == QLatin1String("true") || lower == QLatin1String("1")) {
        return QStringLiteral("1");
    }
    if (lower == QLatin1String("false") || lower == QLatin1String("0")) {
        return QStringLiteral("0");
    }
    throw Wrong(QStringLiteral("%1 is true or false, not \"%2\".").arg(name, text));
}

QString numberValue(const QString& text, const Setting& setting) {
    bool isNumber = false;
    const uint number = text.toUInt(&isNumber);
    constexpr uint largest = 65535; // more counts as this
    const bool fits = isNumber && text.size() <= setting.digits && number <= largest && text.front() != u'+';
    if (!fits) {
        throw Wrong(QStringLiteral("%1 is a number from 0 to %2, not \"%3\".")
                        .arg(QLatin1String(setting.name),
                             setting.digits == 3 ? QStringLiteral("999") : QString::number(largest), text));
    }
    return QString::number(number);
}

std::pair<const Setting*, QString> settingOf(const std::string& assignment) {
    const QString text = fromBytes(assignment);
    const QString name = text.section(u'=', 0, 0);
    const auto* setting = std::ranges::find_if(
        allSettings, [&name](const Setting& candidate) { return name == QLatin1String(candidate.name); });
    if (setting == allSettings.end() || !text.contains(u'=')) {
        QStringList known;
        for (const Setting& candidate : allSettings) {
            known << QLatin1String(candidate.name);
        }
        throw Wrong(QStringLiteral("\"%1\" sets nothing. Give NAME=VALUE; the names are %2.")
                        .arg(text, known.join(QLatin1String(", "))));
    }
    const QString value = text.section(u'=', 1);
    return {setting, setting->flag != nullptr ? flagValue(value, name) : numberValue(value, *setting)};
}

void take(const Texts& texts, Options& options) {
    options.port = fromBytes(texts.port);
    options.output = fromBytes(texts.output);
    options.mode = fromBytes(texts.mode);
    options.save = fromBytes(texts.save);
    for (const std::string& input : texts.inputs) {
        options.inputs << fromBytes(input);
    }
    for (const std::string& assignment : texts.set) {
        options.set.push_back(settingOf(assignment));
    }
    options.forMilliseconds = spanOf(texts.forTime, "--for");
    options.everyMilliseconds = spanOf(texts.every, "--every");
    const QString problem = options.port.isEmpty() ? QString() : deviceProblem(options.port);
    if (!problem.isEmpty()) {
        throw Wrong(problem);
    }
    const bool toDevice = options.command == Options::Command::Collect && options.output == QLatin1String("-");
    if (!options.output.isEmpty() && !toDevice && !formatOfName(options.output)) {
        throw Wrong(QStringLiteral("\"%1\" does not say its format. Let its name end with .csv, .nc, .jsonl or .txt.")
                        .arg(options.output));
    }
    if (options.everyMilliseconds != 0 && options.output == QLatin1String("-")) {
        throw Wrong(QStringLiteral("--every needs files; standard output is one."));
    }
}

Options onlyPrint(Options::Wish wish, const QString& text) {
    Options options;
    options.wish = wish;
    options.text = text;
    return options;
}

} // namespace

qint64 timeSpan(const QString& text) {
    constexpr std::pair<char16_t, qint64> units[] = {
        {u's', 1000}, {u'm', 60'000}, {u'h', 3'600'000}, {u'd', 86'400'000}};
    const QString digits = text.chopped(text.isEmpty() ? 0 : 1);
    const bool isNumber = std::ranges::all_of(digits, [](QChar digit) { return digit >= u'0' && digit <= u'9'; });
    for (const auto& [letter, milliseconds] : units) {
        if (isNumber && text.endsWith(QChar(letter))) {
            return digits.toUInt() * milliseconds;
        }
    }
    return 0;
}

Options readOptions(const QStringList& arguments, const QString& version) {
    Options options;
    options.program = QStringLiteral("ORV Host ") + version;
    Texts texts;
    CLI::App app("Works with the ORV optical water sensors without a window.", "orv");
    app.set_version_flag("--version", "orv " + version.toStdString(), "Show the program's version and end");
    app.set_help_flag("-h,--help", "Show this help and end");
    app.require_subcommand(1);
    for (const Name& name : names) {
        CLI::App* command = app.add_subcommand(name.name, name.description);
        command->callback([&options, &name] { options.command = name.command; });
        addOptionsOf(name.command, *command, options, texts);
    }
    std::vector<std::string> words; // last first, as the parser takes them
    for (qsizetype word = arguments.size() - 1; word > 0; --word) {
        words.push_back(arguments[word].toLocal8Bit().toStdString());
    }
    try {
        app.parse(words);
        take(texts, options);
    } catch (const CLI::CallForVersion& call) {
        return onlyPrint(Options::Wish::Print, QString::fromUtf8(call.what()) + u'\n');
    } catch (const CLI::CallForHelp&) {
        return onlyPrint(Options::Wish::Print, QString::fromStdString(app.help()));
    } catch (const CLI::CallForAllHelp&) {
        return onlyPrint(Options::Wish::Print, QString::fromStdString(app.help()));
    } catch (const std::exception& error) {
        return onlyPrint(Options::Wish::Refuse,
                         QStringLiteral("orv: %1\nTry \"orv --help\".\n").arg(QString::fromLocal8Bit(error.what())));
    }
    return options;
}

} // namespace orv
