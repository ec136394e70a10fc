// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/options.h"

#include "formats/csvmetadata.h"
#include "formats/rowwriter.h"
#include "program/devices.h"
#include "simulator/replay.h"

#include <CLI/CLI.hpp>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <limits>

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
    std::string capture;
    std::string points;
    std::string forTime;
    std::string every;
};

void addFlag(CLI::App& app, const char* name, bool& flag, const char* description) {
    app.add_flag(name, flag, description)->disable_flag_override();
}

void addOptionsOf(Options::Command command, CLI::App& app, Options& options, Texts& texts) {
    using Command = Options::Command;
    const bool needsPort = command != Command::Ports && command != Command::Convert;
    if (needsPort) {
        app.add_option("PORT", texts.port, "Serial port (ttyUSB0, /dev/ttyUSB0) or simulated instrument (sim:trx)")
            ->required()
            ->type_name("");
    }
    const bool writes = command == Command::Collect || command == Command::Download || command == Command::Convert;
    if (command == Command::Convert) {
        app.add_option("IN", texts.inputs, "Sheets, record files, text downloads")->required()->type_name("");
    }
    if (writes) {
        app.add_option("-o,--output", texts.output,
                       command == Command::Collect ? "File to write: .csv, .nc, .jsonl or .txt; - for standard output"
                                                   : "File to write: .csv, .nc, .jsonl or .txt")
            ->required()
            ->type_name("FILE");
    }
    if (writes || command == Command::Settings) {
        addFlag(app, "--force", options.force, "Keep an existing file under a dated name");
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
        addFlag(app, "--sync", options.sync, "Set the clock to the computer's time when its next minute begins");
        addFlag(app, "--now", options.now, "With --sync: set it at once, up to a minute behind");
        break;
    case Command::Collect:
        app.add_option("--points", texts.points, "End after so many rows")->type_name("N");
        app.add_option("--for", texts.forTime, "End after that time: 30s, 15m, 2h, 1d")->type_name("TIME");
        app.add_option("--every", texts.every, "Begin a new dated file after that time")->type_name("TIME");
        addFlag(app, "--keep-trying", options.keepTrying, "Connect again after a lost line or a power cut, and go on");
        addFlag(app, "--stamp", options.stamp, "Add a column with the computer's time of each row");
        break;
    case Command::Download:
        addFlag(app, "--verify", options.verify, "Read the memory twice and compare it record by record");
        break;
    default:
        break;
    }
    if (needsPort) {
        app.add_option("--capture", texts.capture, "Capture all that happens, for whoever helps or mends")
            ->type_name("FILE");
    }
    if (command != Command::Shutter && command != Command::Convert) {
        addFlag(app, "--json", options.json, "Answer in JSON, one object a line");
    }
    addFlag(app, "-q,--quiet", options.quiet, "Tell nothing but what went wrong");
    addFlag(app, "--verbose", options.verbose, "Tell each step");
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

int pointsOf(const std::string& text) {
    if (text.empty()) {
        return 0;
    }
    bool isNumber = false;
    const int points = fromBytes(text).toInt(&isNumber);
    if (!isNumber || points < 1) {
        throw Wrong(QStringLiteral("--points needs a number of rows from 1 to %1, not \"%2\".")
                        .arg(QString::number(std::numeric_limits<int>::max()), fromBytes(text)));
    }
    return points;
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

QString wholePath(const QString& name) {
    return QDir::cleanPath(QFileInfo(name).absoluteFilePath());
}

void take(const Texts& texts, Options& options) {
    options.port = fromBytes(texts.port);
    options.output = fromBytes(texts.output);
    options.mode = fromBytes(texts.mode);
    options.save = fromBytes(texts.save);
    options.capture = fromBytes(texts.capture);
    for (const std::string& input : texts.inputs) {
        options.inputs << fromBytes(input);
    }
    for (const std::string& assignment : texts.set) {
        options.set.push_back(settingOf(assignment));
    }
    options.points = pointsOf(texts.points);
    options.forMilliseconds = spanOf(texts.forTime, "--for");
    options.everyMilliseconds = spanOf(texts.every, "--every");
    constexpr qint64 day = 86'400'000;
    if (options.everyMilliseconds > day && options.everyMilliseconds % day != 0) {
        throw Wrong(QStringLiteral("--every counts from midnight: more than a day must be whole days such as 2d, not "
                                   "\"%1\".")
                        .arg(fromBytes(texts.every)));
    }
    const QString problem = options.port.isEmpty() ? QString() : deviceProblem(options.port).english();
    if (!problem.isEmpty()) {
        throw Wrong(problem);
    }
    if (options.now && !options.sync) {
        throw Wrong(QStringLiteral("--now says when --sync sets the clock. Give both, or neither."));
    }
    const bool toDevice = options.command == Options::Command::Collect && options.output == QLatin1String("-");
    if (!options.output.isEmpty() && !toDevice && !formatOfName(options.output)) {
        throw Wrong(QStringLiteral("\"%1\" does not say its format. Let its name end with .csv, .nc, .jsonl or .txt.")
                        .arg(options.output));
    }
    const QStringList files = filesOf(options);
    const auto isTheCapture = [&options](const QString& name) { return wholePath(name) == wholePath(options.capture); };
    if (!options.capture.isEmpty() && std::ranges::any_of(files, isTheCapture)) {
        throw Wrong(QStringLiteral("--capture needs a file of its own."));
    }
    if (options.stamp && !toDevice && formatOfName(options.output) == FileFormat::Sheet) {
        throw Wrong(
            QStringLiteral("--stamp needs a column that a sheet file (.txt) has not. Write .csv, .nc or .jsonl."));
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

/// "orv info"
QString called(const CLI::App& command) {
    return QStringLiteral("orv ") + fromBytes(command.get_name());
}

/// "--points N", "PORT"
QString shownName(const CLI::Option& option) {
    return (fromBytes(option.get_name()) + u' ' + fromBytes(option.get_type_name())).trimmed();
}

QString missing(const CLI::App& command, const CLI::Option& option) {
    const QString sentence = QStringLiteral("\"%1\" needs %2").arg(called(command), shownName(option));
    if (option.get_name() == "PORT") {
        return sentence + QStringLiteral(", such as ttyUSB0 or sim:trx. \"orv ports\" lists the ports.");
    }
    return sentence + (option.get_name() == "IN" ? QStringLiteral(", the files to convert.")
                                                 : QStringLiteral(", the file to write."));
}

/// What is wrong with the words before the command, or with the command itself; empty if nothing.
QString wrongCommand(const CLI::App& app, const CLI::App* command) {
    QStringList known;
    for (const Name& name : names) {
        known << QLatin1String(name.name);
    }
    const std::vector<std::string> before = app.remaining();
    const QString first = before.empty() ? QString() : fromBytes(before.front());
    if (!first.isEmpty() && !first.startsWith(u'-')) {
        return QStringLiteral("There is no command \"%1\". The commands are %2.")
            .arg(first, known.join(QLatin1String(", ")));
    }
    if (command == nullptr) {
        return QStringLiteral("Give a command%1: %2.")
            .arg(first.isEmpty() ? QString() : QStringLiteral(" before %1").arg(first),
                 known.join(QLatin1String(", ")));
    }
    return before.empty() ? QString()
                          : QStringLiteral("Put %1 after the command: \"%2 ... %1\".").arg(first, called(*command));
}

/// The first option whose value is empty or looks like another option, in a sentence; empty if there is none.
QString wrongValue(const CLI::App& command) {
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& value : option->results()) {
            if (value.empty() && option->get_required()) {
                return QStringLiteral("%1 is empty. %2").arg(fromBytes(option->get_name()), missing(command, *option));
            }
            if (value.empty() || value.starts_with("--")) {
                return QStringLiteral("%1 needs a value: \"%2\".")
                    .arg(fromBytes(option->get_name()), shownName(*option));
            }
        }
    }
    return {};
}

/// What the command does not know: the first word that nothing has taken.
QString unexpected(const CLI::App& command, const QString& word) {
    QStringList known;
    QStringList places;
    for (const CLI::Option* option : command.get_options()) {
        (option->get_positional() ? places : known) << fromBytes(option->get_name());
    }
    if (word.startsWith(u'-')) {
        return QStringLiteral("\"%1\" has no option %2. Its options are %3.")
            .arg(called(command), word, known.join(QLatin1String(", ")));
    }
    return QStringLiteral("\"%1\" is too much: \"%2\" takes %3.")
        .arg(word, called(command),
             places.isEmpty() ? QStringLiteral("nothing but options")
                              : QStringLiteral("one %1 and options").arg(places.join(u' ')));
}

/// What is wrong with a command line that the parser has refused, in a sentence that says what to do.
QString wrongWords(const CLI::App& app, const CLI::App* command, const CLI::ParseError& error) {
    QString text = wrongCommand(app, command);
    if (text.isEmpty()) {
        text = wrongValue(*command);
    }
    if (!text.isEmpty()) {
        return text;
    }
    QString said = QString::fromLocal8Bit(error.what());
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) { // "--points: 1 required N missing"
        const QString name = said.section(QRegularExpression(QStringLiteral("[: ]")), 0, 0);
        const CLI::Option* option = command->get_option_no_throw(name.toStdString());
        if (said.endsWith(QLatin1String("missing")) && option != nullptr) {
            return QStringLiteral("%1 needs a value: \"%2\".").arg(name, shownName(*option));
        }
        return said.contains(QLatin1String("flag")) ? QStringLiteral("--%1 takes no value.").arg(name)
                                                    : QStringLiteral("%1 is given more than once.").arg(name);
    }
    const std::vector<std::string> extra = command->remaining();
    if (!extra.empty()) {
        return unexpected(*command, fromBytes(extra.front()));
    }
    for (const CLI::Option* option : command->get_options()) {
        if (option->get_required() && option->count() == 0) {
            return missing(*command, *option);
        }
    }
    return said;
}

Options refuse(const QString& text, const CLI::App* command) {
    return onlyPrint(Options::Wish::Refuse,
                     QStringLiteral("orv: %1\nTry \"%2 --help\".\n")
                         .arg(text, command == nullptr ? QStringLiteral("orv") : called(*command)));
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

QStringList filesOf(const Options& options) {
    QStringList files = QStringList{options.save, options.mode} + options.inputs;
    if (options.output != QLatin1String("-")) {
        files << options.output << csvMetadataName(options.output);
    }
    if (namesReplay(options.port)) {
        files << parseReplayOptions(options.port).file;
    }
    files.removeAll(QString());
    return files;
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
        if (arguments.contains(QLatin1String(name.name))) { // the others are only named in the help
            addOptionsOf(name.command, *command, options, texts);
        }
    }
    std::vector<std::string> words; // last first, as the parser takes them
    for (qsizetype word = arguments.size() - 1; word > 0; --word) {
        words.push_back(arguments[word].toLocal8Bit().toStdString());
    }
    const CLI::App* command = nullptr;
    const auto findCommand = [&app, &command] {
        const auto found = app.get_subcommands();
        command = found.empty() ? nullptr : found.front();
    };
    try {
        app.parse(words);
        findCommand();
        if (const QString problem = wrongValue(*command); !problem.isEmpty()) {
            throw Wrong(problem);
        }
        take(texts, options);
    } catch (const CLI::CallForVersion& call) {
        return onlyPrint(Options::Wish::Print, QString::fromUtf8(call.what()) + u'\n');
    } catch (const CLI::CallForHelp&) {
        return onlyPrint(Options::Wish::Print, QString::fromStdString(app.help()));
    } catch (const CLI::ParseError& error) {
        findCommand();
        return refuse(wrongWords(app, command, error), command);
    } catch (const Wrong& wrong) {
        return refuse(QString::fromUtf8(wrong.what()), command);
    }
    return options;
}

} // namespace orv
