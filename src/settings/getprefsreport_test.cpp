// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/getprefstest.h"

#include "session/runtimeerror.h"

#include <limits>

namespace orv {

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
    EXPECT_EQ(record().samplesPerPoint.value(), QStringLiteral("30"));
    EXPECT_EQ(record().hoursBeforeBlock.value(), QStringLiteral("24"));
    EXPECT_EQ(record().pointsPerBlock.value(), QStringLiteral("100"));
    EXPECT_EQ(record().secondsBetweenPoints.value(), QStringLiteral("5"));
    EXPECT_EQ(settings.memoryPointer.value(), QStringLiteral("32762"));
    EXPECT_EQ(settings.capacity.value(), QStringLiteral("50"));
    EXPECT_EQ(settings.samplingOption.value(), 2);
    EXPECT_EQ(session.state.Timeout, 11);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(GetPrefsTest, EachCallAnnouncesItselfAndHidesTheManualDialog) {
    debug.comm2Output = true;
    manual.panel.visible = true;
    take("S1");
    EXPECT_FALSE(manual.panel.visible);
    take("noise");
    take("MP0");
    EXPECT_EQ(debugPort->allWritten(), QByteArray("Get Prefs\rGet Prefs\rGet Prefs\r"));
}

TEST_F(GetPrefsTest, The150thCallOfTheProgramGivesUp) {
    debug.comm2Output = true;
    progress.visible = true;
    items[ConnectionPanel::Auto1].checked = true;
    for (int call = 1; call < 150; ++call) {
        take("S1");
    }
    ASSERT_EQ(actions.resets, 0);
    debugPort->writes.clear();
    session.status.status = QStringLiteral("as it was");
    progress.value = 33;
    take("S0");
    EXPECT_EQ(debugPort->allWritten(), QByteArray("Get Prefs\r"));
    EXPECT_EQ(actions.resets, 1);
    EXPECT_EQ(actions.portAtReset, 1);
    EXPECT_FALSE(progress.visible);
    EXPECT_TRUE(manual.panel.visible);
    EXPECT_TRUE(manual.panel.text.value().startsWith(QLatin1String("Attempt to Auto Connect Via Comm 1 Failed!")));
    EXPECT_EQ(session.state.Timeout, 150);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(record().autoStart) << "the line of the 150th call is not read";
    EXPECT_EQ(progress.value.value(), 33);
    EXPECT_EQ(session.status.status.value(), QStringLiteral("as it was"));
}

TEST_F(GetPrefsTest, The151stCallGoesOnInTheMiddleOfTheReport) {
    session.state.Timeout = 148;
    take("T30");
    take("D24");
    ASSERT_EQ(actions.resets, 1);
    take("noise");
    EXPECT_EQ(record().samplesPerPoint.value(), QString()) << "the field before the time-out is still the last one";
    take("D25");
    EXPECT_EQ(record().hoursBeforeBlock.value(), QStringLiteral("25"));
    EXPECT_FALSE(manual.panel.visible);
    EXPECT_EQ(actions.resets, 1);
    EXPECT_EQ(session.state.Timeout, 152);
}

TEST_F(GetPrefsTest, ReportsDoNotSetTheCountBack) {
    session.state.Timeout = 147;
    take("S1");
    take("MP0");
    EXPECT_EQ(session.state.Timeout, 149);
    EXPECT_EQ(actions.resets, 0);
    take("S0");
    EXPECT_EQ(actions.resets, 1);
    EXPECT_TRUE(record().autoStart);
}

TEST_F(GetPrefsTest, GivingUpTakesThePortFromTheLastCheckedItem) {
    using Panel = ConnectionPanel;
    const struct {
        std::vector<Panel::Item> checked;
        int port;
    } cases[] = {
        {{Panel::Auto1}, 1},
        {{Panel::Auto2}, 2},
        {{Panel::Manual1}, 1},
        {{Panel::Manual2}, 2},
        {{Panel::Auto2, Panel::Manual1}, 1},
        {{Panel::Auto1, Panel::Auto2}, 2},
        {{Panel::Auto1, Panel::Auto2, Panel::Manual1, Panel::Manual2}, 2},
        {{}, 7},
    };
    for (const auto& each : cases) {
        items.uncheckAll();
        for (const Panel::Item item : each.checked) {
            items[item].checked = true;
        }
        session.state.Portused = 7;
        session.state.Timeout = 149;
        take("S1");
        EXPECT_EQ(actions.portAtReset, each.port);
    }
}

TEST_F(GetPrefsTest, CallBeyondTheCountersRangeOverflowsWithNothingRead) {
    session.state.Timeout = std::numeric_limits<qint16>::max() - 1;
    take("T30");
    EXPECT_EQ(session.state.Timeout, std::numeric_limits<qint16>::max());
    EXPECT_EQ(record().samplesPerPoint.value(), QStringLiteral("30"));
    try {
        take("T40");
        FAIL() << "no overflow";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.kind(), RuntimeError::Kind::Overflow);
    }
    EXPECT_EQ(session.state.Timeout, std::numeric_limits<qint16>::max());
    EXPECT_EQ(record().samplesPerPoint.value(), QStringLiteral("30"));
    EXPECT_EQ(actions.resets, 0);
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
        EXPECT_EQ(reader.prefsState, 0.0F) << "the report has ended";
    }
}

TEST_F(GetPrefsTest, EndOfTheReportShowsTheSettingsAndAsksForTheClock) {
    take("I5");
    progress.visible = true;
    CommandPanel& commands = session.commands;
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
    EXPECT_EQ(instrument->allWritten(), QByteArray("C"));
    EXPECT_EQ(session.state.Ctrlscrn, opstate::clockCheck);
    EXPECT_EQ(session.status.status.value(), QStringLiteral("Ready"));
}

TEST_F(GetPrefsTest, ShutterResetKeepsItsCodeAndTheClockIsNotAskedFor) {
    session.state.Ctrlscrn = opstate::shutterReset;
    take("MP100");
    EXPECT_EQ(session.state.Ctrlscrn, opstate::shutterReset);
    EXPECT_EQ(instrument->allWritten(), QByteArray());
    EXPECT_EQ(settings.memoryPointer.value(), QStringLiteral("100"));
    EXPECT_TRUE(settings.visible);
    EXPECT_EQ(session.status.status.value(), QStringLiteral("Ready"));
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
        session.state.Vartemp = QString::fromLatin1(each.letter);
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
