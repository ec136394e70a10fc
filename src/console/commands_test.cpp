// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/consolerig.h"

namespace orv {
namespace {

using OrvCommands = ConsoleTest;

QJsonObject object(const std::string& line) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(line)).object();
}

QString told(const ProgramRig& rig) {
    QStringList texts;
    for (const Message& message : rig.messages.shown) {
        texts << message.text;
    }
    return texts.join(u'|');
}

TEST_F(OrvCommands, InfoTellsWhatTheInstrumentIs) {
    struct Kind {
        const char* device;
        const char* first;
        const char* type;
        double firmware;
    };
    for (const Kind& kind : {Kind{"sim:trx", "TRX, firmware 512\n", "TRX", 512},
                             Kind{"sim:trx?firmware=412", "TRX, firmware 412\n", "TRX", 412},
                             Kind{"sim:glow?fault=noise", "GLOW, firmware 310\n", "GLOW", 310}}) {
        const QString device = QString::fromLatin1(kind.device);
        const Answered info = orv(QStringLiteral("info ") + device);
        EXPECT_EQ(info.status, 0) << kind.device << info.error;
        EXPECT_TRUE(info.output.starts_with(kind.first)) << info.output;
        EXPECT_NE(info.output.find("Memory: 200 records, 0.3 % full\n"), std::string::npos) << info.output;
        EXPECT_NE(info.output.find("\nThe Orv Sensor will come up waiting for a command."), std::string::npos);
        const QJsonObject json = object(orv(QStringLiteral("info --json ") + device).output);
        EXPECT_EQ(json[u"type"].toString().toStdString(), kind.type);
        EXPECT_EQ(json[u"firmware"].toDouble(), kind.firmware);
        EXPECT_EQ(json[u"records"].toInt(), 200);
        EXPECT_NEAR(json[u"clockOffset"].toDouble(-100), 0, 2);
        EXPECT_TRUE(json[u"clock"].toString().startsWith(QStringLiteral("2026-11-21T09:30:"))) << kind.device;
        EXPECT_EQ(json[u"settings"][u"append"].toBool(), true);
    }
}

TEST_F(OrvCommands, SettingsThatWereNotReadAreNull) {
    for (const char* command : {"info", "settings"}) {
        const Answered told = orv(QLatin1String(command) + QStringLiteral(" sim:trx?fault=garbage&seed=1 --json"));
        const QJsonObject answer = object(told.output);
        const QJsonObject values = answer.contains(u"settings") ? answer[u"settings"].toObject() : answer;
        EXPECT_EQ(told.status, 3) << told.error;
        EXPECT_TRUE(QJsonDocument(values).toJson().contains(": null")) << told.output;
        EXPECT_NE(told.error.find("The settings could not be read whole. Try again."), std::string::npos);
    }
}

/// Two settings and the memory pointer have been garbled on the line.
const QByteArrayList garbledReport{"S1", "G0", "A#", "L0", "W1", "M1", "T3x0", "D24", "Q7", "I5", "MP2#0"};

TEST_F(OrvCommands, WhatWasNotReadIsNoNumber) {
    reportInstead(garbledReport);
    const Answered info = orv("info sim:trx?baud=0");
    EXPECT_EQ(info.status, 3);
    EXPECT_EQ(info.output.substr(info.output.find("Memory")), "Memory: could not be read\n"
                                                              "Settings:\n"
                                                              "  autoStart             true\n"
                                                              "  gain                  false\n"
                                                              "  auxAdc                not read\n"
                                                              "  logEnabled            false\n"
                                                              "  wakeUp                true\n"
                                                              "  append                true\n"
                                                              "  samplesPerPoint       not read\n"
                                                              "  hoursBeforeBlock      24\n"
                                                              "  pointsPerBlock        7\n"
                                                              "  secondsBetweenPoints  5\n");
    const QJsonObject json = object(orv("info sim:trx?baud=0 --json").output);
    for (const char* name : {"records", "memoryPercent", "plainEnglish"}) {
        EXPECT_TRUE(json[QLatin1String(name)].isNull()) << name;
    }
    EXPECT_TRUE(json[u"settings"][u"samplesPerPoint"].isNull());
    EXPECT_EQ(json[u"settings"][u"pointsPerBlock"].toInt(), 7);
}

TEST_F(OrvCommands, AMemoryThatWasNotReadIsTold) {
    QByteArrayList report = garbledReport;
    report[2] = "A0";
    report[6] = "T30";
    for (const char* pointer : {"MP2#0", "MP", "MP-1", "MP65536"}) {
        report.back() = pointer;
        reportInstead(report);
        const Answered info = orv("info sim:trx?baud=0");
        EXPECT_EQ(info.status, 3) << pointer;
        EXPECT_EQ(info.error, "orv: The number of records in the memory could not be read. Try again.\n") << pointer;
    }
}

class OrvWithoutClock : public OrvCommands, public testing::WithParamInterface<const char*> {};

TEST_P(OrvWithoutClock, SaysSo) {
    lineMade = [this] {
        line->written = [this](const QByteArray& bytes) {
            if (bytes == "P") {
                line->silent = true; // from now on
                line->input += "P\r\nS1\r\nG0\r\nA0\r\nL0\r\nW1\r\nM1\r\nT30\r\nD24\r\nQ7\r\nI5\r\nMP200\r\n>";
            }
        };
    };
    const Answered told = orv(QLatin1String(GetParam()) + QStringLiteral(" sim:trx?baud=0"));
    EXPECT_EQ(told.status, 3);
    EXPECT_NE(told.output.find("could not be read\n"), std::string::npos) << told.output;
    EXPECT_EQ(told.error, "orv: The instrument's clock could not be read. Try again.\n");
}

INSTANTIATE_TEST_SUITE_P(Commands, OrvWithoutClock, testing::Values("info", "clock"));

TEST_F(OrvCommands, SettingsThatWereNotReadWholeAreNotSaved) {
    reportInstead(garbledReport);
    const Answered told = orv("settings sim:trx?baud=0 --save lake.OCM");
    EXPECT_EQ(told.status, 3);
    EXPECT_EQ(told.error, "orv: The settings could not be read whole. lake.OCM was not written. Try again.\n");
    EXPECT_NE(told.output.find("  samplesPerPoint       not read\n"), std::string::npos) << told.output;
    EXPECT_FALSE(QFile::exists(path("lake.OCM")));
}

TEST_F(OrvCommands, ASilentInstrumentIsToldWithWhatToDo) {
    const Answered info = orv("info sim:trx?fault=silent");
    EXPECT_EQ(info.status, 1);
    EXPECT_EQ(info.output, "");
    EXPECT_NE(info.error.find("sim:trx?fault=silent does not answer. Look at its power"), std::string::npos)
        << info.error;
    EXPECT_FALSE(ports.isOpen());
}

TEST_F(OrvCommands, AnInstrumentThatVanishesEndsTheCommand) {
    EXPECT_EQ(orv("info sim:trx?fault=unplug&after=250ms").status, 1);
    EXPECT_TRUE(told(*this).contains(QStringLiteral("was lost"))) << qPrintable(told(*this));
}

TEST_F(OrvCommands, TheDialogueTakesNoLongerThanItsOwnWaits) {
    const qint64 began = clock.monotonicMilliseconds();
    ASSERT_EQ(orv("info sim:trx").status, 0);
    // The pulse, the greeting, the pause behind it, and 75 characters of report and clock at the pace of the line.
    constexpr qint64 waits = 1000 + 100 + 200 + 80;
    EXPECT_LE(clock.monotonicMilliseconds() - began, waits + 200);
}

TEST_F(OrvCommands, SettingsAreSentReadBackAndSaved) {
    const Answered sent = orv("settings sim:trx --set samplesPerPoint=30 --set wakeUp=false --save lake.OCM");
    EXPECT_EQ(sent.status, 0) << sent.error;
    EXPECT_EQ(sent.output, "  autoStart             false\n"
                           "  gain                  false\n"
                           "  auxAdc                false\n"
                           "  logEnabled            false\n"
                           "  wakeUp                false\n"
                           "  append                true\n"
                           "  samplesPerPoint       30\n"
                           "  hoursBeforeBlock      0\n"
                           "  pointsPerBlock        0\n"
                           "  secondsBetweenPoints  0\n");
    EXPECT_EQ(contentsOf(path("lake.OCM")).toStdString(), "30\r\n0\r\n0\r\n0\r\n 0\r\n 0\r\n 0\r\n 0\r\n 1\r\n 0\r\n");
    const Answered moored = orv("settings sim:trx --mode moored --set pointsPerBlock=50 --json");
    EXPECT_EQ(moored.status, 0) << moored.error;
    EXPECT_EQ(moored.output,
              "{\"append\":true,\"autoStart\":true,\"auxAdc\":false,\"gain\":false,\"hoursBeforeBlock\":0,"
              "\"logEnabled\":true,\"pointsPerBlock\":50,\"samplesPerPoint\":30,"
              "\"secondsBetweenPoints\":3600,\"wakeUp\":true}\n");
    const Answered loaded = orv("settings sim:trx --mode lake.OCM --json");
    EXPECT_EQ(object(loaded.output)[u"secondsBetweenPoints"].toInt(), 0);
    EXPECT_EQ(object(loaded.output)[u"wakeUp"].toBool(), false);
}

TEST_F(OrvCommands, ASettingThatDoesNotStickIsNamed) {
    lineMade = [this] {
        line->written = [this](const QByteArray& bytes) {
            if (bytes == "P" && settings.lamp.value() == Lamp::Sent) {
                line->silent = true;
                line->input += settingsReport("7");
            }
        };
    };
    const Answered sent = orv("settings sim:trx --set pointsPerBlock=9 --set samplesPerPoint=30");
    EXPECT_EQ(sent.status, 1);
    EXPECT_NE(sent.error.find("pointsPerBlock did not stick: 9 was sent, the instrument has 7."), std::string::npos)
        << sent.error;
    EXPECT_EQ(sent.error.find("samplesPerPoint"), std::string::npos) << sent.error;
}

TEST_F(OrvCommands, SettingsOfAGarbledReportAreNotSentBack) {
    for (int seed = 1; seed <= 20; ++seed) {
        const Answered sent = orv(QStringLiteral("settings sim:trx?fault=garbage&seed=%1 --set gain=true").arg(seed));
        const bool isSent = line->allWritten().contains('B');
        if (isSent) { // both reports happened to be whole
            EXPECT_TRUE(line->allWritten().contains("B010011T")) << seed << line->allWritten().toStdString();
            continue;
        }
        EXPECT_EQ(sent.status, 1) << seed;
        EXPECT_NE(sent.error.find("The settings could not be read whole; nothing was sent. Try again."),
                  std::string::npos)
            << seed << sent.error;
    }
}

TEST_F(OrvCommands, SettingsAreSentBackOnlyIfTwoReadingsAgreeOnThem) {
    struct Case {
        const char* first;
        const char* second;
        const char* options;
        bool isSent;
    };
    const char* const good = "S1\r\nG0\r\nA0\r\nL0\r\nW1\r\nM0\r\nT30\r\nD24\r\nQ7\r\nI5\r\n";
    const char* const noInterval = "S1\r\nG0\r\nA0\r\nL0\r\nW1\r\nM0\r\nT30\r\nD24\r\nQ7\r\n";
    const char* const badFlag = "S1\r\nG0\r\nA0\r\nL0\r\nW1\r\nM#\r\nT30\r\nD24\r\nQ7\r\nI5\r\n";
    const char* const otherNumber = "S1\r\nG0\r\nA0\r\nL0\r\nW1\r\nM0\r\nT31\r\nD24\r\nQ7\r\nI5\r\n";
    int seed = 0;
    const char* const tooLarge = "S1\r\nG0\r\nA0\r\nL0\r\nW1\r\nM0\r\nT30\r\nD24\r\nQ65536\r\nI5\r\n";
    for (const Case& each :
         {Case{good, good, "--set gain=true", true}, Case{good, noInterval, "--set gain=true", false},
          Case{noInterval, noInterval, "--set gain=true", false},
          Case{noInterval, noInterval, "--set secondsBetweenPoints=5", true},
          Case{badFlag, badFlag, "--set gain=true", false}, Case{badFlag, badFlag, "--mode profile", true},
          Case{good, otherNumber, "--set gain=true", false}, Case{good, otherNumber, "--set samplesPerPoint=31", true},
          Case{good, otherNumber, "--mode profile", true}, Case{tooLarge, tooLarge, "--set gain=true", false}}) {
        SCOPED_TRACE(std::string(each.first) + each.second + each.options);
        int reports = 0;
        lineMade = [this, &each, &reports] {
            line->written = [this, &each, &reports](const QByteArray& bytes) {
                line->silent = !line->allWritten().contains('B');
                if (bytes == "P" && line->silent) {
                    line->input += QByteArray("P\r\n") + (++reports == 1 ? each.first : each.second) + "MP200\r\n>";
                } else if (bytes == "C" && line->silent) {
                    line->input += "C\r\n11/21/26\t25661\r\n>";
                }
            };
        };
        // Each case has an instrument of its own, and so a line of its own.
        const Answered sent =
            orv(QStringLiteral("settings sim:trx?seed=%1 ").arg(++seed) + QLatin1String(each.options));
        EXPECT_EQ(line->allWritten().contains('B'), each.isSent) << sent.error;
        EXPECT_EQ(sent.error.find("could not be read whole; nothing was sent. Try again.") == std::string::npos,
                  each.isSent)
            << sent.error;
    }
}

TEST_F(OrvCommands, ContinuousLoggingIsNotSent) {
    const Answered sent = orv("settings sim:trx --set logEnabled=true");
    EXPECT_EQ(sent.status, 1);
    EXPECT_EQ(sent.error, "orv: Nothing was sent: a block without end cannot be logged. Set pointsPerBlock as well, or "
                          "logEnabled=false.\n");
    EXPECT_FALSE(line->allWritten().contains('B'));
}

TEST_F(OrvCommands, AnExistingModeFileIsKept) {
    fill(path("lake.OCM"), "old");
    const Answered refused = orv("settings sim:trx --save lake.OCM");
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.error.find("lake.OCM exists"), std::string::npos) << refused.error;
    EXPECT_EQ(line, nullptr) << "nothing was asked of the instrument";
    EXPECT_EQ(contentsOf(path("lake.OCM")).toStdString(), "old");
    EXPECT_EQ(orv("settings sim:trx --save lake.OCM --force").status, 0);
    const QStringList kept = folder.files().filter(QStringLiteral("lake-2026"));
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(contentsOf(kept[0]).toStdString(), "old");
}

TEST_F(OrvCommands, TheClockIsComparedAndSet) {
    EXPECT_NE(orv("clock sim:glow").output.find(" computer's)\n"), std::string::npos);
    clock.set(QDateTime(QDate(2027, 3, 4), QTime(5, 6, 7)));
    const Answered off = orv("clock sim:glow --json");
    EXPECT_EQ(off.status, 0);
    EXPECT_LT(object(off.output)[u"clockOffset"].toDouble(), -8'000'000);
    for (const int second : {7, 30, 54, 58}) {
        clock.set(QDateTime(QDate(2027, 3, 4), QTime(5, 6, second)));
        const Answered set = orv("clock sim:glow --sync --json");
        EXPECT_EQ(set.status, 0) << set.error;
        EXPECT_LE(std::abs(object(set.output)[u"clockOffset"].toDouble()), 2) << set.output;
        EXPECT_EQ(set.error, "") << "nobody sits at a terminal";
        EXPECT_FALSE(line->allWritten().contains('B')) << "the settings are left alone";
    }
    clock.set(QDateTime(QDate(2027, 3, 4), QTime(5, 6, 20)));
    const qint64 began = clock.monotonicMilliseconds();
    const Answered atOnce = orv("clock sim:glow --sync --now --json");
    EXPECT_EQ(atOnce.status, 0) << atOnce.error;
    EXPECT_NEAR(object(atOnce.output)[u"clockOffset"].toDouble(), -24, 2);
    EXPECT_LT(clock.monotonicMilliseconds() - began, 8000);
}

TEST_F(OrvCommands, TheWaitForTheFullMinuteIsShownAndCanBeEnded) {
    progress = true;
    clock.set(QDateTime(QDate(2027, 3, 4), QTime(9, 30, 10)));
    begin(QStringLiteral("clock sim:trx --sync"));
    live(10);
    EXPECT_NE(result().error.find("\rSetting at 9:31:00 AM, 42 s left"), std::string::npos) << result().error;
    visit->interrupt(2);
    live(1);
    EXPECT_EQ(answered.status, 130);
    EXPECT_FALSE(line->allWritten().contains('U')) << "nothing is set";
    EXPECT_TRUE(QString::fromStdString(result().error).endsWith(u'\r')) << "what was shown has gone";
}

TEST_F(OrvCommands, AClockThatDoesNotKeepWhatWasSetIsTold) {
    lineMade = [this] {
        line->written = [this](const QByteArray& bytes) {
            if (bytes == "U") {
                clock.set(clock.now().addSecs(10)); // while date and time are typed
            }
        };
    };
    const Answered set = orv("clock sim:trx --sync");
    EXPECT_EQ(set.status, 1);
    EXPECT_NE(set.error.find("The instrument's clock was not set to this computer's: "), std::string::npos)
        << set.error;
    EXPECT_NE(set.error.find(" s behind this computer's). Try again."), std::string::npos) << set.error;
}

TEST_F(OrvCommands, TheShutterIsMovedAndTheSettingsAreAsBefore) {
    const QJsonObject before = object(orv("settings sim:trx?shutter=2 --json").output);
    const Answered moved = orv("shutter sim:trx?shutter=2");
    EXPECT_EQ(moved.status, 0) << moved.error << qPrintable(told(*this));
    EXPECT_TRUE(line->allWritten().contains('r'));
    EXPECT_EQ(object(orv("settings sim:trx?shutter=2 --json").output), before);
}

TEST_F(OrvCommands, AnInterruptedShutterResetSaysWhatTheInstrumentMayHold) {
    begin(QStringLiteral("shutter sim:trx"));
    live(20);
    ASSERT_EQ(answered.status, -1);
    visit->interrupt(15);
    live(0.1);
    EXPECT_EQ(answered.status, 143);
    EXPECT_EQ(
        result().error,
        "orv: The shutter moves; this takes about 40 s. Leave the cable alone.\n"
        "orv: The shutter reset was interrupted. The instrument may still hold the temporary settings (no control "
        "bit; samples per point 1, points per block 1, seconds between points 0, hours before a block 0).\n"
        "     Send it those from before: orv settings sim:trx --set autoStart=false --set gain=false "
        "--set auxAdc=false --set logEnabled=false --set wakeUp=true --set append=true --set samplesPerPoint=10 "
        "--set hoursBeforeBlock=0 --set pointsPerBlock=0 --set secondsBetweenPoints=0\n");
    EXPECT_FALSE(ports.isOpen());
}

/// What the window's messages say of the sheet, the settings screen and the buttons is of no use at a terminal.
TEST_F(OrvCommands, NoMessageSpeaksOfAWindow) {
    lineMade = [this] {
        line->written = [this](const QByteArray& bytes) { line->silent = line->silent || bytes == "T"; };
    };
    struct Case {
        const char* words;
        const char* told;
    };
    for (const Case& each :
         {Case{"info sim:trx?fault=unplug&after=250ms", "Look at the cable and the adapter."},
          Case{"download sim:trx?fault=cut -o lake.csv", "The download was ended before"},
          Case{"download sim:trx?fault=cut&seed=2 -o lake.txt", "The download was ended before"},
          Case{"settings sim:trx --set gain=true", "did not answer what was sent"},
          Case{"shutter sim:trx?fault=unplug&after=9000ms", "Send it those from before: orv settings 'sim:trx?"}}) {
        const Answered ended = orv(each.words);
        EXPECT_NE(ended.status, 0) << each.words;
        EXPECT_NE(ended.error.find(each.told), std::string::npos) << each.words << '\n' << ended.error;
        for (const char* word : {"sheet", "screen", "Apply", "Reset", "Press", "Error Code", "window"}) {
            EXPECT_EQ(ended.error.find(word), std::string::npos) << word << " in\n" << ended.error;
        }
    }
}

TEST_F(OrvCommands, WatchShowsTheTrafficBothWays) {
    begin(QStringLiteral("watch sim:trx"));
    live(5);
    ASSERT_EQ(answered.status, -1);
    visit->interrupt(2);
    live(0.1);
    EXPECT_EQ(answered.status, 130);
    const std::string shown = result().output;
    EXPECT_TRUE(shown.starts_with("09:30:16.")) << shown;
    for (const char* line :
         {" < V512\\r\n", " > P\n", " < P\\r\\n\n", " < MP200\\r\\n\n", " > C\n", " < 11/21/26\\t"}) {
        EXPECT_NE(shown.find(line), std::string::npos) << line << shown;
    }
    begin(QStringLiteral("watch sim:glow --json"));
    live(2);
    visit->interrupt(2);
    live(0.1);
    const std::string first = result().output.substr(0, result().output.find('\n'));
    EXPECT_EQ(object(first)[u"direction"].toString().toStdString(), "received");
    EXPECT_EQ(object(first)[u"text"].toString().toStdString(), "F310\r");
}

TEST_F(OrvCommands, WatchEndsWithALineThatIsLost) {
    EXPECT_EQ(orv("watch sim:trx?fault=unplug&after=3000ms").status, 1);
}

TEST_F(OrvCommands, PortsListsWhatIsPluggedIn) {
    portList.plugged = {
        {.name = QStringLiteral("no-such-port"), .description = QStringLiteral("Adapter"), .manufacturer = {}}};
    const Answered listed = orv("ports");
    EXPECT_EQ(listed.output, "no-such-port  Adapter\n"
                             "              There is no such device. Plug the adapter in, check the device's name, "
                             "and connect again.\n"
                             "sim:trx       simulated scattering meter\n"
                             "sim:glow      simulated fluorometer\n");
    EXPECT_EQ(orv("ports --json").output.substr(0, 18), "{\"canOpen\":false,\"");
}

} // namespace
} // namespace orv
