// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/options.h"

#include "testing/expected.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

Options read(const char* words) {
    return readOptions(QStringList{QStringLiteral("orv")} + QString::fromLatin1(words).split(u' ', Qt::SkipEmptyParts),
                       QStringLiteral("1.2.3"));
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
    EXPECT_EQ(read("collect -o - sim:glow").output.toStdString(), "-");
    const Options convert = read("convert a.txt b.tmp -o c.nc");
    EXPECT_EQ(convert.inputs.join(u'|').toStdString(), "a.txt|b.tmp");
    EXPECT_EQ(convert.output.toStdString(), "c.nc");
    EXPECT_TRUE(read("clock ttyS0 --sync").sync);
    EXPECT_TRUE(read("download ttyS0 -o a.csv --verify").verify);
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
    constexpr std::pair<const char*, const char*> refused[] = {
        {"", "subcommand"},
        {"fly", "subcommand"},
        {"info", "PORT"},
        {"info sim:boat", "sim:trx or sim:glow"},
        {"info sim:trx --loud", "--loud"},
        {"collect sim:trx", "--output"},
        {"collect sim:trx -o a.csv --points 0", "--points"},
        {"collect sim:trx -o a.csv --for 2", "--for needs a time"},
        {"collect sim:trx -o a.csv --for -2h", "--for"},
        {"collect sim:trx -o a.csv --every 0d", "--every needs a time"},
        {"collect sim:trx -o - --every 1d", "--every needs files"},
        {"settings sim:trx --set speed=3", "samplesPerPoint"},
        {"settings sim:trx --set samplesPerPoint", "NAME=VALUE"},
        {"settings sim:trx --set samplesPerPoint=1000", "from 0 to 999"},
        {"settings sim:trx --set pointsPerBlock=65536", "from 0 to 65535"},
        {"settings sim:trx --set pointsPerBlock=", "from 0 to 65535"},
        {"settings sim:trx --set pointsPerBlock=+5", "from 0 to 65535"},
        {"settings sim:trx --set logEnabled=perhaps", "true or false"},
        {"convert -o a.csv", "IN"},
    };
    for (const auto& [words, reason] : refused) {
        const Options options = read(words);
        EXPECT_EQ(options.wish, Options::Wish::Refuse) << words;
        EXPECT_TRUE(options.text.startsWith(QStringLiteral("orv: "))) << words;
        EXPECT_TRUE(options.text.contains(QString::fromLatin1(reason))) << words << ": " << qPrintable(options.text);
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
