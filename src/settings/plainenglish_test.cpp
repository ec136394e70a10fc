// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/plainenglish.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace orv {
namespace {

struct Settings {
    bool autoStart = false;
    bool logEnabled = false;
    bool wakeUp = false;
    bool append = false;
    const char* samples = "30";
    const char* hours = "0";
    const char* points = "0";
    const char* seconds = "0";
};

QStringList describe(const Settings& settings) {
    LoggerSettings record;
    record.autoStart = settings.autoStart;
    record.logEnabled = settings.logEnabled;
    record.wakeUp = settings.wakeUp;
    record.append = settings.append;
    record.samplesPerPoint = QString::fromLatin1(settings.samples);
    record.hoursBeforeBlock = QString::fromLatin1(settings.hours);
    record.pointsPerBlock = QString::fromLatin1(settings.points);
    record.secondsBetweenPoints = QString::fromLatin1(settings.seconds);
    const PlainEnglish english = inPlainEnglish(record);
    return {english.lines.begin(), english.lines.end()};
}

std::string line(const Settings& settings, PlainEnglish::Line which) {
    return describe(settings).at(which).toStdString();
}

TEST(PlainEnglish, AllNineSentencesOfALoggedBlock) {
    EXPECT_EQ(describe({.autoStart = true,
                        .logEnabled = true,
                        .wakeUp = true,
                        .append = true,
                        .samples = "30",
                        .hours = "24",
                        .points = "060000",
                        .seconds = "3725"})
                  .join(QLatin1Char('\n'))
                  .toStdString(),
              "     The Orv Sensor will start to collect data  24 hours after power up\n"
              "\n"
              "It will bin for 30 sample(s) to create 1 data point.\n"
              "Then the sensor will sleep for  1 hour(s),  2 minute(s),  5 second(s).\n"
              "After this it wakes up and takes another data point. The process\n"
              "continues for 060000 data points to create 1 data block.\n"
              "The data point displayed will be saved in memory.\n"
              "After finishing a data block, the sensor will wait for new commands.\n"
              "If you decide to take another data block, data in memory will be appended.");
}

TEST(PlainEnglish, AllNineSentencesOfContinuousSampling) {
    EXPECT_EQ(
        describe({.wakeUp = true, .append = true, .samples = "", .hours = "1"}).join(QLatin1Char('\n')).toStdString(),
        "     The Orv Sensor will come up waiting for a command.\n"
        "If you press run, it will start to collect data an hour after you press run.\n"
        "It will bin for  sample(s) to create 1 data point.\n"
        "Then the sensor will sleep for  0 hour(s),  0 minute(s),  0 second(s).\n"
        "After this it wakes up and takes another data point. The process\n"
        "continues until power is shut off. All of the data collected is known as the data block\n"
        "The data point displayed will not be saved in memory.\n"
        "\n"
        "");
}

TEST(PlainEnglish, TheDelayBeforeABlock) {
    const std::pair<const char*, const char*> table[] = {
        {"0", " half a second"},   {"", " half a second"}, {"1", " an hour"},   {"01", " an hour"}, {"2", " 2 hours"},
        {"24", " 24 hours"},       {"1.5", " 1.5 hours"},  {"007", " 7 hours"}, {"-1", ""},         {"0.5", ""},
        {"abc", " half a second"}, {"3 days", " 3 hours"},
    };
    for (const auto& [hours, phrase] : table) {
        EXPECT_EQ(line({.autoStart = true, .hours = hours}, PlainEnglish::Opening),
                  "     The Orv Sensor will start to collect data " + std::string(phrase) + " after power up");
        EXPECT_EQ(line({.autoStart = true, .hours = hours}, PlainEnglish::Run), "");
        EXPECT_EQ(line({.hours = hours}, PlainEnglish::Opening),
                  "     The Orv Sensor will come up waiting for a command.");
        EXPECT_EQ(line({.hours = hours}, PlainEnglish::Run),
                  "If you press run, it will start to collect data" + std::string(phrase) + " after you press run.");
    }
}

TEST(PlainEnglish, TheSleepBetweenPoints) {
    const std::pair<const char*, const char*> table[] = {
        {"0", " 0 hour(s),  0 minute(s),  0 second(s)."},        {"59", " 0 hour(s),  0 minute(s),  59 second(s)."},
        {"60", " 0 hour(s),  1 minute(s),  0 second(s)."},       {"3599", " 0 hour(s),  59 minute(s),  59 second(s)."},
        {"3600", " 1 hour(s),  0 minute(s),  0 second(s)."},     {"3725", " 1 hour(s),  2 minute(s),  5 second(s)."},
        {"65535", " 18 hour(s),  12 minute(s),  15 second(s)."}, {"", " 0 hour(s),  0 minute(s),  0 second(s)."},
        {"61.9", " 0 hour(s),  1 minute(s),  1 second(s)."},
    };
    for (const auto& [seconds, text] : table) {
        EXPECT_EQ(line({.seconds = seconds}, PlainEnglish::Sleep),
                  "Then the sensor will sleep for " + std::string(text));
    }
}

TEST(PlainEnglish, TheEndOfABlockIsToldOnlyWhenThereIsOne) {
    for (const bool wakeUp : {false, true}) {
        for (const bool append : {false, true}) {
            for (const char* points : {"0", "", "-5", "x"}) {
                const Settings settings{.wakeUp = wakeUp, .append = append, .points = points};
                EXPECT_EQ(line(settings, PlainEnglish::EndOfBlock), "");
                EXPECT_EQ(line(settings, PlainEnglish::NextBlock), "");
            }
            const Settings settings{.wakeUp = wakeUp, .append = append, .points = "1"};
            EXPECT_EQ(line(settings, PlainEnglish::EndOfBlock),
                      wakeUp ? "After finishing a data block, the sensor will wait for new commands."
                             : "After finishing a data block, the sensor will sleep until power is cycled.");
            EXPECT_EQ(line(settings, PlainEnglish::NextBlock),
                      append ? "If you decide to take another data block, data in memory will be appended."
                             : "If you decide to take another data block, data in memory will be erased.");
        }
    }
}

TEST(PlainEnglish, ANegativeNumberOfPointsHasNoBlockLine) {
    EXPECT_EQ(line({.points = "-5"}, PlainEnglish::Block), "");
    EXPECT_EQ(line({.points = "5 or so"}, PlainEnglish::Block),
              "continues for 5 or so data points to create 1 data block.");
}

} // namespace
} // namespace orv
