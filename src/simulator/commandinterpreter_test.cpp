// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/commandinterpreter.h"

#include "testing/expected.h"

namespace orv {
namespace {

qint64 samplingTime(InstrumentKind kind, int samples) {
    InstrumentSettings settings;
    settings.samplesPerPoint = samples;
    return settings.samplingMilliseconds(kind);
}

TEST(InstrumentSettings, FlagsStandInTheirFixedOrder) {
    InstrumentSettings settings;
    settings.setFlags("100000");
    EXPECT_TRUE(settings.autoStart);
    EXPECT_FALSE(settings.append);
    settings.setFlags("011000");
    EXPECT_TRUE(settings.gain && settings.auxAdc);
    EXPECT_FALSE(settings.autoStart);
    settings.setFlags("000110");
    EXPECT_TRUE(settings.logEnabled && settings.wakeUp);
    settings.setFlags("000001");
    EXPECT_TRUE(settings.append);
    EXPECT_FALSE(settings.wakeUp);
}

TEST(InstrumentSettings, ReportHasItsOrder) {
    InstrumentSettings settings;
    settings.setFlags("101001");
    settings.samplesPerPoint = 30;
    settings.hoursBeforeBlock = 24;
    settings.pointsPerBlock = 65535;
    settings.secondsBetweenPoints = 7;
    EXPECT_EQ(settings.report(1234), "S1\r\nG0\r\nA1\r\nL0\r\nW0\r\nM1\r\nT30\r\nD24\r\nQ65535\r\nI7\r\nMP1234\r\n");
}

TEST(InstrumentSettings, ShutterNeedsItsOwnSettings) {
    InstrumentSettings settings;
    settings.setFlags("000000");
    settings.samplesPerPoint = 1;
    settings.pointsPerBlock = 1;
    EXPECT_TRUE(settings.allowShutter());
    for (const char letter : {'T', 'D', 'Q', 'I'}) {
        InstrumentSettings other = settings;
        *other.number(letter) = 2;
        EXPECT_FALSE(other.allowShutter()) << letter;
    }
    settings.setFlags("000001");
    EXPECT_FALSE(settings.allowShutter());
}

TEST(InstrumentSettings, PresetsGiveTheirRatesAndOtherNumbersOfSamplesWhatLiesBetween) {
    const std::pair<int, int> trx[] = {{10, 500}, {30, 1000}, {100, 2000}, {210, 4000},
                                       {0, 50},   {1, 50},    {20, 750},   {420, 8000}};
    expectEach(trx, [](int samples) { return samplingTime(InstrumentKind::Trx, samples); });
    const std::pair<int, int> glow[] = {{25, 200}, {55, 333}, {90, 500}, {200, 1000}, {1, 8}, {65535, 327675}};
    expectEach(glow, [](int samples) { return samplingTime(InstrumentKind::Glow, samples); });
}

class CommandInterpreterTest : public testing::Test {
protected:
    /// What follows the echo of the last of these characters; "(nothing)" if the instrument waits for more.
    QByteArray reply(const QByteArray& characters, Deed deed = Deed::Wait) {
        std::optional<CommandReply> last;
        for (const char character : characters) {
            last = interpreter.take(character, 0);
        }
        if (!last) {
            return "(nothing)";
        }
        EXPECT_EQ(last->deed, deed);
        return last->text;
    }

    void expectReplies(std::initializer_list<std::pair<const char*, const char*>> dialogue) {
        expectEach(dialogue, [this](const char* typed) { return reply(typed); });
    }

    InstrumentSettings settings;
    InstrumentClock clock{QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15)), 0};
    InstrumentMemory memory{12, {0}};
    CommandInterpreter interpreter{settings, clock, memory};
};

TEST_F(CommandInterpreterTest, CommandsWithoutValues) {
    EXPECT_EQ(reply("P"), "\r\n" + settings.report(12) + ">");
    EXPECT_EQ(reply("C"), "\r\n11/21/26\t25661\r\n>");
    EXPECT_EQ(reply("R", Deed::Run), "\r\n");
    EXPECT_EQ(reply("O", Deed::Dump), "\r\n");
    expectReplies({{"x", "\r\n>"}, {"p", "\r\n>"}, {"\r", "\r\n>"}});
}

TEST_F(CommandInterpreterTest, FlagsAreExactlySixCharacters) {
    expectReplies({{"B", "."}, {"11111", "(nothing)"}, {"1", ">"}});
    EXPECT_TRUE(settings.autoStart && settings.gain && settings.auxAdc && settings.logEnabled && settings.wakeUp &&
                settings.append);
    expectReplies({{"B", "."}, {"00\r000x1", ">"}});
    EXPECT_FALSE(settings.autoStart);
    EXPECT_TRUE(settings.append);
}

TEST_F(CommandInterpreterTest, NumbersEndWithCarriageReturn) {
    expectReplies({{"T", "."}, {"030", "(nothing)"}, {"\r", ">"}, {"D24\r", ">"}, {"Q65535\r", ">"}, {"I7\r", ">"}});
    EXPECT_EQ(settings.samplesPerPoint, 30);
    EXPECT_EQ(settings.hoursBeforeBlock, 24);
    EXPECT_EQ(settings.pointsPerBlock, 65535);
    EXPECT_EQ(settings.secondsBetweenPoints, 7);
}

TEST_F(CommandInterpreterTest, AnEmptyNumberIsZeroAndALargeOneIsTheLargest) {
    settings.pointsPerBlock = 5;
    for (const auto& [typed, points] : {std::pair("Q\r", 0), {"Q99999999999999999999\r", 65535}, {"Q1a2\r", 12}}) {
        EXPECT_EQ(reply(typed), ">");
        EXPECT_EQ(settings.pointsPerBlock, points);
    }
}

TEST_F(CommandInterpreterTest, ClockIsSetWithTheLastDigit) {
    expectReplies({{"U", "."}, {"01059", "(nothing)"}, {"9", "."}, {"150", "(nothing)"}});
    EXPECT_EQ(clock.at(0).text(), "11/21/26\t25661");
    EXPECT_EQ(reply("7"), ">");
    EXPECT_EQ(clock.at(0).text(), "01/05/99\t40815");
}

TEST_F(CommandInterpreterTest, ShutterMovesOnlyUnderItsSettings) {
    EXPECT_EQ(reply("r"), "\r\n>");
    reply("B000000T1\rD0\rQ1\rI0\r");
    EXPECT_EQ(reply("r", Deed::MoveShutter), "\r\n");
}

TEST_F(CommandInterpreterTest, ResetForgetsAValueThatIsBeingEntered) {
    reply("B000");
    interpreter.reset();
    EXPECT_EQ(reply("C"), "\r\n11/21/26\t25661\r\n>");
    EXPECT_TRUE(settings.wakeUp);
}

} // namespace
} // namespace orv
