// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/options.h"

#include "testing/expected.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

/// "''" is an empty word.
Options read(const char* words) {
    QStringList arguments = QString::fromLatin1(words).split(u' ', Qt::SkipEmptyParts);
    arguments.replaceInStrings(QStringLiteral("''"), QString());
    return readOptions(QStringList{QStringLiteral("orv")} + arguments, QStringLiteral("1.2.3"));
}

TEST(OrvOptions, NameACommandAndWhatItNeeds) {
    const Options collect = read("collect sim:trx -o out.csv --points 20 --for 2h --every 1d --keep-trying --stamp "
                                 "--force --json --quiet");
    ASSERT_EQ(collect.wish, Options::Wish::Perform) << qPrintable(collect.text);
    EXPECT_EQ(collect.command, Options::Command::Collect);
    EXPECT_EQ(collect.port.toStdString(), "sim:trx");
    EXPECT_EQ(collect.output.toStdString(), "out.csv");
    EXPECT_EQ(collect.points, 20);
    EXPECT_EQ(collect.forMilliseconds, 7'200'000);
    EXPECT_EQ(collect.everyMilliseconds, 86'400'000);
    EXPECT_TRUE(collect.keepTrying && collect.stamp && collect.force && collect.json && collect.quiet);
    EXPECT_EQ(read("collect sim:trx -o out.csv --every 48h").everyMilliseconds, 172'800'000);
    EXPECT_EQ(read("collect -o - sim:glow").output.toStdString(), "-");
    const Options convert = read("convert a.txt b.tmp -o c.nc");
    EXPECT_EQ(convert.inputs.join(u'|').toStdString(), "a.txt|b.tmp");
    EXPECT_EQ(convert.output.toStdString(), "c.nc");
    EXPECT_TRUE(read("clock ttyS0 --sync").sync);
    EXPECT_TRUE(read("download ttyS0 -o a.csv --verify").verify);
    EXPECT_EQ(read("info ttyS0 --capture a.jsonl").capture.toStdString(), "a.jsonl");
}

TEST(OrvOptions, TakeSettingsByTheirNames) {
    const Options options = read("settings sim:trx --set samplesPerPoint=030 --set logEnabled=TRUE --set append=0 "
                                 "--mode moored --save now.OCM");
    ASSERT_EQ(options.wish, Options::Wish::Perform) << qPrintable(options.text);
    QStringList set;
    for (const auto& [setting, value] : options.set) {
        set << QLatin1String(setting->name) + u'=' + value;
    }
    EXPECT_EQ(set.join(u' ').toStdString(), "samplesPerPoint=30 logEnabled=1 append=0");
    EXPECT_EQ(options.mode.toStdString(), "moored");
    EXPECT_EQ(options.save.toStdString(), "now.OCM");
}

TEST(OrvOptions, ThatAreWrongAreRefusedWithTheReason) {
    constexpr const char* commands = "ports, info, settings, clock, collect, download, shutter, convert, watch.";
    struct Refused {
        const char* words;
        std::string text;
        const char* help;
    };
    const Refused refused[] = {
        {"", std::string("Give a command: ") + commands, "orv"},
        {"fly", std::string("There is no command \"fly\". The commands are ") + commands, "orv"},
        {"fly --json sim:trx", std::string("There is no command \"fly\". The commands are ") + commands, "orv"},
        {"--points 3", std::string("Give a command before --points: ") + commands, "orv"},
        {"--json info sim:trx", "Put --json after the command: \"orv info ... --json\".", "orv info"},
        {"info", "\"orv info\" needs PORT, such as ttyUSB0 or sim:trx. \"orv ports\" lists the ports.", "orv info"},
        {"info ''",
         "PORT is empty. \"orv info\" needs PORT, such as ttyUSB0 or sim:trx. \"orv ports\" lists the ports.",
         "orv info"},
        {"info sim:boat", "\"sim:boat\" names no simulated instrument. It must begin with sim:trx or sim:glow.",
         "orv info"},
        {"info sim:trx --loud --points 3",
         "\"orv info\" has no option --loud. Its options are --help, --capture, --json, --quiet, --verbose.",
         "orv info"},
        {"info sim:replay", "\"sim:replay\" names no replay. It must be sim:replay?file=NAME.", "orv info"},
        {"collect sim:trx -o a.jsonl --capture a.jsonl", "--capture needs a file of its own.", "orv collect"},
        {"collect sim:trx -o a.jsonl --capture b/../a.jsonl", "--capture needs a file of its own.", "orv collect"},
        {"collect sim:trx -o a.csv --capture ./a.csv-metadata.json", "--capture needs a file of its own.",
         "orv collect"},
        {"settings sim:trx --mode ./a.OCM --capture a.OCM", "--capture needs a file of its own.", "orv settings"},
        {"settings sim:trx --save a.OCM --capture ./a.OCM", "--capture needs a file of its own.", "orv settings"},
        {"info sim:trx --capture", "--capture needs a value: \"--capture FILE\".", "orv info"},
        {"info --json=5 sim:trx", "--json takes no value.", "orv info"},
        {"info sim:trx more", "\"more\" is too much: \"orv info\" takes one PORT and options.", "orv info"},
        {"info sim:trx clock sim:trx", "\"clock\" is too much: \"orv info\" takes one PORT and options.", "orv info"},
        {"ports sim:trx", "\"sim:trx\" is too much: \"orv ports\" takes nothing but options.", "orv ports"},
        {"collect sim:trx", "\"orv collect\" needs --output FILE, the file to write.", "orv collect"},
        {"collect sim:trx -o ''", "--output is empty. \"orv collect\" needs --output FILE, the file to write.",
         "orv collect"},
        {"collect sim:trx -o", "--output needs a value: \"--output FILE\".", "orv collect"},
        {"collect sim:trx -o --points 3", "--output needs a value: \"--output FILE\".", "orv collect"},
        {"collect sim:trx -o a.csv -o b.csv", "--output is given more than once.", "orv collect"},
        {"collect sim:trx -o a.pdf",
         "\"a.pdf\" does not say its format. Let its name end with .csv, .nc, .jsonl or .txt.", "orv collect"},
        {"collect sim:trx -o a.csv --points", "--points needs a value: \"--points N\".", "orv collect"},
        {"collect sim:trx -o a.csv --points ''", "--points needs a value: \"--points N\".", "orv collect"},
        {"collect sim:trx -o a.csv --points 0", "--points needs a number of rows from 1 to 2147483647, not \"0\".",
         "orv collect"},
        {"collect sim:trx -o a.csv --points many",
         "--points needs a number of rows from 1 to 2147483647, not \"many\".", "orv collect"},
        {"collect sim:trx -o a.csv --for 2", "--for needs a time such as 30s, 15m, 2h or 1d, not \"2\".",
         "orv collect"},
        {"collect sim:trx -o a.csv --for -2h", "--for needs a time such as 30s, 15m, 2h or 1d, not \"-2h\".",
         "orv collect"},
        {"collect sim:trx -o a.csv --for ''", "--for needs a value: \"--for TIME\".", "orv collect"},
        {"collect sim:trx -o a.csv --every 0d", "--every needs a time such as 30s, 15m, 2h or 1d, not \"0d\".",
         "orv collect"},
        {"collect sim:trx -o - --every 1d", "--every needs files; standard output is one.", "orv collect"},
        {"collect sim:trx -o a.TXT --stamp",
         "--stamp needs a column that a sheet file (.txt) has not. Write .csv, .nc or .jsonl.", "orv collect"},
        {"collect sim:trx -o a.csv --every 36h",
         "--every counts from midnight: more than a day must be whole days such as 2d, not \"36h\".", "orv collect"},
        {"clock sim:trx --now", "--now says when --sync sets the clock. Give both, or neither.", "orv clock"},
        {"settings sim:trx --set", "--set needs a value: \"--set NAME=VALUE\".", "orv settings"},
        {"settings sim:trx --save ''", "--save needs a value: \"--save FILE\".", "orv settings"},
        {"settings sim:trx --mode --save x", "--mode needs a value: \"--mode MODE\".", "orv settings"},
        {"settings sim:trx --set speed=3",
         "\"speed=3\" sets nothing. Give NAME=VALUE; the names are autoStart, gain, auxAdc, logEnabled, wakeUp, "
         "append, samplesPerPoint, hoursBeforeBlock, pointsPerBlock, secondsBetweenPoints.",
         "orv settings"},
        {"settings sim:trx --set samplesPerPoint=1000", "samplesPerPoint is a number from 0 to 999, not \"1000\".",
         "orv settings"},
        {"settings sim:trx --set pointsPerBlock=65536", "pointsPerBlock is a number from 0 to 65535, not \"65536\".",
         "orv settings"},
        {"settings sim:trx --set pointsPerBlock=", "pointsPerBlock is a number from 0 to 65535, not \"\".",
         "orv settings"},
        {"settings sim:trx --set pointsPerBlock=+5", "pointsPerBlock is a number from 0 to 65535, not \"+5\".",
         "orv settings"},
        {"settings sim:trx --set logEnabled=perhaps", "logEnabled is true or false, not \"perhaps\".", "orv settings"},
        {"convert -o a.csv", "\"orv convert\" needs IN, the files to convert.", "orv convert"},
        {"convert '' -o a.csv", "IN is empty. \"orv convert\" needs IN, the files to convert.", "orv convert"},
    };
    for (const auto& [words, text, help] : refused) {
        const Options options = read(words);
        EXPECT_EQ(options.wish, Options::Wish::Refuse) << words;
        EXPECT_EQ(options.text.toStdString(), "orv: " + text + "\nTry \"" + help + " --help\".\n") << words;
    }
}

TEST(OrvOptions, HelpAndVersionArePrinted) {
    EXPECT_EQ(read("--version").text.toStdString(), "orv 1.2.3\n");
    const Options help = read("collect --help");
    EXPECT_EQ(help.wish, Options::Wish::Print);
    EXPECT_TRUE(help.text.contains(QStringLiteral("--keep-trying"))) << qPrintable(help.text);
}

TEST(OrvOptions, TimeSpansHaveAUnit) {
    constexpr std::pair<const char*, qint64> spans[] = {
        {"30s", 30'000}, {"15m", 900'000}, {"2h", 7'200'000}, {"1d", 86'400'000}, {"", 0},    {"s", 0},
        {"2", 0},        {"2w", 0},        {"2 h", 0},        {"0s", 0},          {"+2s", 0}, {"1.5h", 0}};
    expectEach(spans, [](const char* text) { return timeSpan(QString::fromLatin1(text)); });
}

} // namespace
} // namespace orv
