// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settingsreader.h"

#include "testing/programrig.h"

#include <gtest/gtest.h>

#include <limits>

namespace orv {

namespace {

struct FlagField {
    const char* tag;
    bool LoggerSettings::*box;
    int progress;
    int code;
};

const FlagField flagFields[] = {
    {"S", &LoggerSettings::autoStart, 10, 9}, {"G", &LoggerSettings::gain, 20, 1},
    {"A", &LoggerSettings::auxAdc, 30, 2},    {"L", &LoggerSettings::logEnabled, 40, 4},
    {"W", &LoggerSettings::wakeUp, 50, 3},    {"M", &LoggerSettings::append, 60, 10},
};

struct NumberField {
    const char* tag;
    QString LoggerSettings::*box;
    int progress;
    int code;
};

const NumberField numberFields[] = {
    {"T", &LoggerSettings::samplesPerPoint, 70, 5},
    {"D", &LoggerSettings::hoursBeforeBlock, 80, 6},
    {"Q", &LoggerSettings::pointsPerBlock, 90, 7},
    {"I", &LoggerSettings::secondsBetweenPoints, 100, 8},
};

const LoggerSettings everySet{true,
                              true,
                              true,
                              true,
                              true,
                              true,
                              QStringLiteral("5"),
                              QStringLiteral("5"),
                              QStringLiteral("5"),
                              QStringLiteral("5")};

/// The program at the time of a settings report, line by line, with the debug output on COM 2.
class GetPrefsTest : public ProgramTest {
protected:
    GetPrefsTest() {
        ports.openDebugPort();
        state.Vartemp = QStringLiteral("V");
    }

    /// A line that arrives while the report is awaited on an open port.
    void take(const char* line) {
        ports.open();
        state.Ctrlscrn = Operation::Ready;
        receive(line + QByteArray("\r\n"));
    }

    LoggerSettings record() const { return settings.record; }
};

TEST_F(GetPrefsTest, OneTicksTheFlagsBoxAndNothingElse) {
    for (const FlagField& field : flagFields) {
        SCOPED_TRACE(field.tag);
        settings.record = LoggerSettings();
        take(qPrintable(QString::fromLatin1(field.tag) + u'1'));
        for (const FlagField& each : flagFields) {
            EXPECT_EQ(record().*each.box, each.tag == field.tag) << each.tag;
        }
        EXPECT_EQ(progress.value.value(), field.progress);
        EXPECT_EQ(reader.prefsState, field.code);
    }
}

TEST_F(GetPrefsTest, ZeroClearsTheFlagsBoxAndNothingElse) {
    for (const FlagField& field : flagFields) {
        SCOPED_TRACE(field.tag);
        settings.record = everySet;
        take(qPrintable(QString::fromLatin1(field.tag) + u'0'));
        for (const FlagField& each : flagFields) {
            EXPECT_EQ(record().*each.box, each.tag != field.tag) << each.tag;
        }
        EXPECT_EQ(progress.value.value(), field.progress);
    }
}

TEST_F(GetPrefsTest, AnyOtherFlagValueLeavesTheBoxButMovesTheBar) {
    for (const FlagField& field : flagFields) {
        for (const bool before : {false, true}) {
            for (const char* value : {"2", "-1", "0.5", "10", "1.5"}) {
                SCOPED_TRACE(std::string(field.tag) + value);
                change(settings.record, [&](LoggerSettings& record) { record.*field.box = before; });
                progress.value = 0;
                take((std::string(field.tag) + value).c_str());
                EXPECT_EQ(record().*field.box, before);
                EXPECT_EQ(progress.value.value(), field.progress);
            }
        }
    }
}

TEST_F(GetPrefsTest, ANumberBeyondAllNumbersIsNone) {
    for (const char* line : {"T1e999", "D-1e999", "MP1e999"}) {
        SCOPED_TRACE(line);
        settings.record = LoggerSettings();
        settings.memoryPointer = QStringLiteral("x");
        take(line);
        EXPECT_EQ(line[0] == 'T'   ? record().samplesPerPoint
                  : line[0] == 'D' ? record().hoursBeforeBlock
                                   : settings.memoryPointer.value(),
                  QStringLiteral("0"));
    }
    EXPECT_EQ(settings.capacity.value(), QStringLiteral("0"));
}

TEST_F(GetPrefsTest, FlagValuesAreReadAsLeadingNumbers) {
    const struct {
        const char* line;
        bool ticked;
    } cases[] = {{"S 1", true},  {"S01", true}, {"S1.0", true}, {"S1on", true},
                 {"Son", false}, {"S", false},  {"S-", false}};
    for (const auto& each : cases) {
        settings.record = LoggerSettings{.autoStart = !each.ticked};
        take(each.line);
        EXPECT_EQ(record().autoStart, each.ticked) << each.line;
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
            change(settings.record, [&](LoggerSettings& record) { record.*field.box = QStringLiteral("before"); });
            take((std::string(field.tag) + each.value).c_str());
            EXPECT_EQ(record().*field.box, QString::fromLatin1(each.text));
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
            EXPECT_FALSE(record().*field.box);
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
        EXPECT_EQ(record().*field.box, QString());
        EXPECT_EQ(progress.value.value(), field.progress);
        EXPECT_EQ(reader.prefsState, field.code);
    }
}

TEST_F(GetPrefsTest, LineWithoutTagAheadOfTheFirstFieldChangesNoField) {
    settings.record = everySet;
    progress.value = 40;
    take(">P");
    EXPECT_EQ(record(), everySet);
    EXPECT_EQ(reader.prefsState, 0);
    EXPECT_EQ(progress.value.value(), 0);
    EXPECT_EQ(status.status.value(), QStringLiteral("Loading Properties"));
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

namespace {

TEST_F(GetPrefsTest, WholeReportFillsTheRecord) {
    for (const char* line : {"S1", "G0", "A1", "L1", "W0", "M1", "T30", "D24", "Q100", "I5", "MP32762"}) {
        take(line);
    }
    EXPECT_TRUE(record().autoStart);
    EXPECT_FALSE(record().gain);
    EXPECT_TRUE(record().auxAdc);
    EXPECT_TRUE(record().logEnabled);
    EXPECT_FALSE(record().wakeUp);
    EXPECT_TRUE(record().append);
    EXPECT_EQ(record().samplesPerPoint, QStringLiteral("30"));
    EXPECT_EQ(record().hoursBeforeBlock, QStringLiteral("24"));
    EXPECT_EQ(record().pointsPerBlock, QStringLiteral("100"));
    EXPECT_EQ(record().secondsBetweenPoints, QStringLiteral("5"));
    EXPECT_EQ(settings.memoryPointer.value(), QStringLiteral("32762"));
    EXPECT_EQ(settings.capacity.value(), QStringLiteral("50"));
    EXPECT_EQ(settings.samplingOption.value(), 2);
    EXPECT_EQ(state.Timeout, 11);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(GetPrefsTest, EachCallAnnouncesItselfAndHidesTheManualDialog) {
    debug.comm2Output = true;
    manual.shown.visible = true;
    take("S1");
    EXPECT_FALSE(manual.shown.visible);
    take("noise");
    take("MP0");
    EXPECT_EQ(said(), "Get Prefs\rGet Prefs\rGet Prefs\rCheck Orv Sensor Time\r");
}

TEST_F(GetPrefsTest, The150thCallOfTheProgramGivesUp) {
    debug.comm2Output = true;
    progress.visible = true;
    items[ConnectItems::Auto1].checked = true;
    for (int call = 1; call < 150; ++call) {
        take("S1");
    }
    ASSERT_EQ(saidBriefly().find("(reset)"), std::string::npos);
    progress.value = 33;
    status.status = QStringLiteral("Ready");
    QStringList statusTexts;
    const auto watching = status.status.addNotifier([&] { statusTexts << status.status.value(); });
    take("S0");
    EXPECT_EQ(statusTexts, QStringList{QStringLiteral("Offline")}) << "not \"Loading Properties\" before";
    const std::string dump = said();
    EXPECT_TRUE(dump.starts_with("Get Prefs\rReset Everything AKA FIXIT\r"));
    EXPECT_TRUE(dump.ends_with("Portused  1\r")) << "the port is told before the reset";
    EXPECT_EQ(resets, 1);
    expectOffline();
    EXPECT_EQ(state.Portused, 1);
    EXPECT_FALSE(progress.visible);
    EXPECT_TRUE(manual.shown.visible);
    EXPECT_TRUE(manual.shown.text.value().startsWith(QLatin1String("Attempt to Auto Connect Via Comm 1 Failed!")));
    EXPECT_EQ(state.Timeout, 150);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(record().autoStart) << "the line of the 150th call is not read";
    EXPECT_EQ(progress.value.value(), 33);
}

TEST_F(GetPrefsTest, The151stCallReadsOnOnANewConnection) {
    state.Timeout = 148;
    take("T30");
    take("D24");
    expectOffline();
    take("noise");
    EXPECT_EQ(record().samplesPerPoint, QStringLiteral("30")) << "the report before has ended with the reset";
    take("D25");
    EXPECT_EQ(record().hoursBeforeBlock, QStringLiteral("25"));
    EXPECT_FALSE(manual.shown.visible);
    EXPECT_TRUE(ports.isOpen());
    EXPECT_EQ(state.Timeout, 152);
}

TEST_F(GetPrefsTest, ReportsDoNotSetTheCountBack) {
    state.Timeout = 147;
    take("S1");
    take("MP0");
    EXPECT_EQ(state.Timeout, 149);
    EXPECT_TRUE(ports.isOpen());
    take("S0");
    expectOffline();
    EXPECT_TRUE(record().autoStart);
}

TEST_F(GetPrefsTest, GivingUpTakesThePortFromTheLastCheckedItem) {

    const struct {
        std::vector<ConnectItems::Item> checked;
        int port;
    } cases[] = {
        {{ConnectItems::Auto1}, 1},
        {{ConnectItems::Auto2}, 2},
        {{ConnectItems::Manual1}, 1},
        {{ConnectItems::Manual2}, 2},
        {{ConnectItems::Auto2, ConnectItems::Manual1}, 1},
        {{ConnectItems::Auto1, ConnectItems::Auto2}, 2},
        {{ConnectItems::Auto1, ConnectItems::Auto2, ConnectItems::Manual1, ConnectItems::Manual2}, 2},
        {{}, 7},
    };
    for (const auto& each : cases) {
        items.uncheckAll();
        for (const ConnectItems::Item item : each.checked) {
            items[item].checked = true;
        }
        state.Portused = 7;
        state.Timeout = 149;
        take("S1");
        expectOffline();
        EXPECT_EQ(state.Portused, each.port);
    }
}

TEST_F(GetPrefsTest, CallBeyondTheCountersRangeOverflowsWithNothingRead) {
    state.Timeout = std::numeric_limits<qint16>::max() - 1;
    take("T30");
    EXPECT_EQ(state.Timeout, std::numeric_limits<qint16>::max());
    EXPECT_EQ(record().samplesPerPoint, QStringLiteral("30"));
    take("T40");
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("Overflow")));
    EXPECT_EQ(state.Timeout, std::numeric_limits<qint16>::max());
    EXPECT_EQ(record().samplesPerPoint, QStringLiteral("30"));
    EXPECT_TRUE(ports.isOpen());
}

TEST_F(GetPrefsTest, CallBeyondTheCountersRangeEndsTheReading) {
    state.Timeout = std::numeric_limits<qint16>::max();
    connect();
    EXPECT_FALSE(commands.canRun);
    receive("P\r\n");
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("Overflow")));
    EXPECT_TRUE(commands.canRun);
    live(20.0);
    EXPECT_EQ(status.status.value().toStdString(), "Connecting...");
}

struct PointerCase {
    const char* line;
    const char* raw;
    const char* capacity;
};

TEST_F(GetPrefsTest, MemoryPointerIsShownRawAndAsPercentage) {
    const PointerCase cases[] = {
        {"MP65525", "65525", "100"},  {"MP0", "0", "0"},           {"MP32762", "32762", "50"},
        {"MP65535", "65535", "100"},  {"MP32", "32", "0"},         {"MP33", "33", "0.1"},
        {"MP65492", "65492", "99.9"}, {"MP65493", "65493", "100"}, {"MP8191", "8191", "12.5"},
        {"MP letters", "0", "0"},     {"MPabc", "0", "0"},         {"MP", "0", "0"},
        {"MP 500", "500", "0.8"},     {"MP0200x", "200", "0.3"},
    };
    for (const PointerCase& each : cases) {
        SCOPED_TRACE(each.line);
        take("S1");
        take(each.line);
        EXPECT_EQ(settings.memoryPointer.value(), QString::fromLatin1(each.raw));
        EXPECT_EQ(settings.capacity.value(), QString::fromLatin1(each.capacity));
        EXPECT_EQ(reader.prefsState, 0) << "the report has ended";
    }
}

TEST_F(GetPrefsTest, EndOfTheReportShowsTheSettingsAndAsksForTheClock) {
    take("I5");
    progress.visible = true;
    commands.runVisible = false;
    take("MP100");
    EXPECT_EQ(settings.lamp.value(), Lamp::Read);
    EXPECT_EQ(progress.value.value(), 0);
    EXPECT_EQ(progress.valueLabel.value(), QStringLiteral("0"));
    EXPECT_FALSE(progress.visible);
    EXPECT_TRUE(commands.settingsFormEnabled);
    EXPECT_TRUE(commands.processingMenuVisible);
    EXPECT_TRUE(commands.settingsMenuVisible);
    EXPECT_TRUE(commands.runVisible);
    EXPECT_TRUE(settings.visible);
    EXPECT_EQ(com1.allWritten(), "C");
    EXPECT_EQ(state.Ctrlscrn, Operation::ClockCheck);
    EXPECT_EQ(status.status.value(), QStringLiteral("Ready"));
}

TEST_F(GetPrefsTest, ShutterResetKeepsItsCodeAndTheClockIsNotAskedFor) {
    ports.open();
    state.Ctrlscrn = Operation::ShutterReset;
    reader.getprefs(QStringLiteral("MP100")); // as the shutter reset does
    EXPECT_EQ(state.Ctrlscrn, Operation::ShutterReset);
    EXPECT_EQ(com1.allWritten(), QByteArray());
    EXPECT_EQ(settings.memoryPointer.value(), QStringLiteral("100"));
    EXPECT_TRUE(settings.visible);
    EXPECT_EQ(status.status.value(), QStringLiteral("Ready"));
}

TEST_F(GetPrefsTest, SamplingOptionFollowsTypeAndSamples) {
    const struct {
        const char* letter;
        const char* samples;
        int option;
    } cases[] = {
        {"V", "10", 1}, {"V", "30", 2},  {"V", "100", 3}, {"V", "210", 4}, {"v", "30", 2},  {"V", "77", 0},
        {"V", "25", 0}, {"V", "55", 0},  {"V", "90", 0},  {"V", "200", 0}, {"V", "0", 0},   {"", "30", 2},
        {"F", "25", 1}, {"F", "55", 2},  {"F", "90", 3},  {"F", "200", 4}, {"f", "55", 2},  {"f", "200", 4},
        {"F", "77", 0}, {"F", "030", 2}, {"F", "10", 1},  {"F", "210", 4}, {"V", "030", 2}, {"X", "55", 0},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::string(each.letter) + " " + each.samples);
        state.Vartemp = QString::fromLatin1(each.letter);
        settings.samplingOption = 9;
        take((std::string("T") + each.samples).c_str());
        EXPECT_EQ(settings.samplingOption.value(), 9) << "selected only at the end of the report";
        take("MP0");
        EXPECT_EQ(settings.samplingOption.value(), each.option);
    }
}

TEST(SamplingPresets, CaptionsAndSamplesOfBothTypes) {
    const char* const expected[2][4][2] = {{{"2", "10"}, {"1", "30"}, {"1/2", "100"}, {"1/4", "210"}},
                                           {{"5", "25"}, {"3", "55"}, {"2", "90"}, {"1", "200"}}};
    for (const bool glow : {false, true}) {
        const auto presets = samplingPresets(glow);
        for (std::size_t option = 0; option < 4; ++option) {
            EXPECT_EQ(presets.at(option).caption, QString::fromLatin1(expected[glow ? 1 : 0][option][0]));
            EXPECT_EQ(presets.at(option).samplesPerPoint, QString::fromLatin1(expected[glow ? 1 : 0][option][1]));
        }
    }
}

} // namespace

} // namespace orv
