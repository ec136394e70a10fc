// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/getprefstest.h"

namespace orv {

namespace {

struct FlagField {
    const char* tag;
    QProperty<bool> LoggerSettings::*box;
    int progress;
    float code;
};

const FlagField flagFields[] = {
    {"S", &LoggerSettings::autoStart, 10, 9.0F}, {"G", &LoggerSettings::gain, 20, 1.0F},
    {"A", &LoggerSettings::auxAdc, 30, 2.0F},    {"L", &LoggerSettings::logEnabled, 40, 4.0F},
    {"W", &LoggerSettings::wakeUp, 50, 3.0F},    {"M", &LoggerSettings::append, 60, 10.0F},
};

struct NumberField {
    const char* tag;
    QProperty<QString> LoggerSettings::*box;
    int progress;
    float code;
};

const NumberField numberFields[] = {
    {"T", &LoggerSettings::samplesPerPoint, 70, 5.0F},
    {"D", &LoggerSettings::hoursBeforeBlock, 80, 6.0F},
    {"Q", &LoggerSettings::pointsPerBlock, 90, 7.0F},
    {"I", &LoggerSettings::secondsBetweenPoints, 100, 8.0F},
};

TEST_F(GetPrefsTest, OneTicksTheFlagsBoxAndNothingElse) {
    for (const FlagField& field : flagFields) {
        SCOPED_TRACE(field.tag);
        for (const FlagField& each : flagFields) {
            record().*each.box = false;
        }
        take(qPrintable(QString::fromLatin1(field.tag) + u'1'));
        for (const FlagField& each : flagFields) {
            EXPECT_EQ((record().*each.box).value(), each.tag == field.tag) << each.tag;
        }
        EXPECT_EQ(progress.value.value(), field.progress);
        EXPECT_EQ(reader.prefsState, field.code);
    }
}

TEST_F(GetPrefsTest, ZeroClearsTheFlagsBoxAndNothingElse) {
    for (const FlagField& field : flagFields) {
        SCOPED_TRACE(field.tag);
        for (const FlagField& each : flagFields) {
            record().*each.box = true;
        }
        take(qPrintable(QString::fromLatin1(field.tag) + u'0'));
        for (const FlagField& each : flagFields) {
            EXPECT_EQ((record().*each.box).value(), each.tag != field.tag) << each.tag;
        }
        EXPECT_EQ(progress.value.value(), field.progress);
    }
}

TEST_F(GetPrefsTest, AnyOtherFlagValueLeavesTheBoxButMovesTheBar) {
    for (const FlagField& field : flagFields) {
        for (const bool before : {false, true}) {
            for (const char* value : {"2", "-1", "0.5", "10", "1.5"}) {
                SCOPED_TRACE(std::string(field.tag) + value);
                record().*field.box = before;
                progress.value = 0;
                take((std::string(field.tag) + value).c_str());
                EXPECT_EQ((record().*field.box).value(), before);
                EXPECT_EQ(progress.value.value(), field.progress);
            }
        }
    }
}

TEST_F(GetPrefsTest, FlagValuesAreReadAsLeadingNumbers) {
    const struct {
        const char* line;
        bool ticked;
    } cases[] = {{"S 1", true},  {"S01", true}, {"S1.0", true}, {"S1on", true},
                 {"Son", false}, {"S", false},  {"S-", false}};
    for (const auto& each : cases) {
        record().autoStart = !each.ticked;
        take(each.line);
        EXPECT_EQ(record().autoStart.value(), each.ticked) << each.line;
    }
}

TEST_F(GetPrefsTest, NumbersGoIntoTheirBoxesAsPlainText) {
    const struct {
        const char* value;
        const char* text;
    } values[] = {{"30", "30"}, {"030", "30"}, {" 7", "7"},   {"0", "0"}, {"65535", "65535"},  {"1.50", "1.5"},
                  {"-3", "-3"}, {"12h", "12"}, {"none", "0"}, {"", "0"},  {"123456", "123456"}};
    for (const NumberField& field : numberFields) {
        for (const auto& each : values) {
            SCOPED_TRACE(std::string(field.tag) + each.value);
            record().*field.box = QStringLiteral("before");
            take((std::string(field.tag) + each.value).c_str());
            EXPECT_EQ((record().*field.box).value(), QString::fromLatin1(each.text));
            EXPECT_EQ(progress.value.value(), field.progress);
            EXPECT_EQ(reader.prefsState, field.code);
        }
    }
}

TEST_F(GetPrefsTest, LineWithoutTagClearsTheFlagBefore) {
    for (const FlagField& field : flagFields) {
        for (const char* line : {"?", "x1", "1", "s1", "mp5", " S1", ">P"}) {
            SCOPED_TRACE(std::string(field.tag) + " then " + line);
            take((std::string(field.tag) + "1").c_str());
            progress.value = 0;
            take(line);
            EXPECT_FALSE((record().*field.box).value());
            EXPECT_EQ(progress.value.value(), field.progress);
            EXPECT_EQ(reader.prefsState, field.code);
        }
    }
}

TEST_F(GetPrefsTest, LineWithoutTagEmptiesTheNumberBefore) {
    for (const NumberField& field : numberFields) {
        SCOPED_TRACE(field.tag);
        take((std::string(field.tag) + "12").c_str());
        progress.value = 0;
        take("noise 99");
        EXPECT_EQ((record().*field.box).value(), QString());
        EXPECT_EQ(progress.value.value(), field.progress);
        EXPECT_EQ(reader.prefsState, field.code);
    }
}

TEST_F(GetPrefsTest, LineWithoutTagAheadOfTheFirstFieldChangesNoField) {
    for (const FlagField& each : flagFields) {
        record().*each.box = true;
    }
    for (const NumberField& each : numberFields) {
        record().*each.box = QStringLiteral("5");
    }
    progress.value = 40;
    take(">P");
    for (const FlagField& each : flagFields) {
        EXPECT_TRUE((record().*each.box).value()) << each.tag;
    }
    for (const NumberField& each : numberFields) {
        EXPECT_EQ((record().*each.box).value(), QStringLiteral("5")) << each.tag;
    }
    EXPECT_EQ(reader.prefsState, 0.0F);
    EXPECT_EQ(progress.value.value(), 0);
    EXPECT_EQ(session.status.status.value(), QStringLiteral("Loading Properties"));
}

TEST_F(GetPrefsTest, FirstLineOfAReportResetsTheBarAndPaintsTheLampRed) {
    progress.value = 55;
    progress.maximum = 7;
    settings.lamp = Lamp::Sent;
    take("S1");
    EXPECT_EQ(progress.maximum.value(), 100);
    EXPECT_EQ(settings.lamp.value(), Lamp::Reading);
    EXPECT_EQ(progress.valueLabel.value(), QStringLiteral("0"));
    EXPECT_EQ(progress.value.value(), 10);
}

TEST_F(GetPrefsTest, LaterLinesShowTheBarOfTheLineBeforeAndLeaveTheLamp) {
    take("S1");
    settings.lamp = Lamp::Off;
    progress.maximum = 200;
    take("G0");
    EXPECT_EQ(progress.valueLabel.value(), QStringLiteral("10"));
    EXPECT_EQ(progress.value.value(), 20);
    EXPECT_EQ(progress.maximum.value(), 200);
    EXPECT_EQ(settings.lamp.value(), Lamp::Off);
}

} // namespace

} // namespace orv
