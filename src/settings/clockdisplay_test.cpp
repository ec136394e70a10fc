// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settingsreader.h"

#include "testing/programrig.h"

#include <gtest/gtest.h>

namespace orv {

namespace {

class CheckTimeTest : public ProgramTest {
protected:
    CheckTimeTest() {
        ports.open();
        tickDebugOutput();
        for (QProperty<QString>* label : labels()) {
            *label = QStringLiteral("kept");
        }
    }

    std::array<QProperty<QString>*, 4> labels() {
        return {&status.date, &settings.loggerDate, &status.time, &settings.loggerTime};
    }

    /// A line that arrives while the clock is awaited.
    void check(const char* reply) {
        state.Ctrlscrn = Operation::ClockCheck;
        receive(reply + QByteArray("\r\n"));
    }

    void expectLabelsKept() {
        for (const QProperty<QString>* label : labels()) {
            EXPECT_EQ(label->value(), QStringLiteral("kept"));
        }
    }
};

TEST_F(CheckTimeTest, ReplyIsShownOnBothScreensAndTheCodeBecomesSettingsOpen) {
    check("11/21/26\t25652");
    EXPECT_EQ(status.date.value(), QStringLiteral("11/21/26"));
    EXPECT_EQ(settings.loggerDate.value(), QStringLiteral("11/21/26"));
    EXPECT_EQ(status.time.value(), QStringLiteral("9:30:02 AM"));
    EXPECT_EQ(settings.loggerTime.value(), QStringLiteral("9:30:02 AM"));
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(said(), "Check Orv Sensor Time\r");
}

TEST_F(CheckTimeTest, ReplyUnderTenCharactersChangesNothingAndTellsNothing) {
    for (const char* reply : {"", ">C", "1/5/26\t99", "123456789", "\t\t\t\t\t\t\t\t\t"}) {
        SCOPED_TRACE(reply);
        check(reply);
        expectLabelsKept();
        EXPECT_EQ(state.Ctrlscrn, Operation::ClockCheck);
    }
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(com2.writes.size(), 5) << "announced at every call";
}

TEST_F(CheckTimeTest, ReplyOfTenCharactersIsRead) {
    check("1/5/26\t100");
    EXPECT_EQ(status.date.value(), QStringLiteral("1/5/26"));
    EXPECT_EQ(status.time.value(), QStringLiteral("0:02:13 AM"));
}

TEST_F(CheckTimeTest, TimeCountsOfThe64800CountDay) {
    const struct {
        const char* reply;
        const char* shown;
    } cases[] = {
        {"01/05/1999\t0", "0:00:00 AM"},
        {"01/05/1999\t32400", "0:00:00 PM"},
        {"01/05/1999\t2700", "1:00:00 AM"},
        {"01/05/1999\t32399", "11:59:58 AM"},
        {"01/05/1999\t35100", "1:00:00 PM"},
        {"01/05/1999\t64799", "11:59:58 PM"},
        {"01/05/1999\t33081", "0:15:08 PM"},
        {"01/05/1999\t13726", "5:05:01 AM"},
        {"01/05/1999\t 2700 ", "1:00:00 AM"},
        {"01/05/1999\t2700.75", "1:00:01 AM"},
        // The parts are cut in floating-point steps: exact arithmetic would give 5:05:00 and 0:22:12.
        {"01/05/1999\t13725", "5:04:59 AM"},
        {"01/05/1999\t999", "0:22:11 AM"},
    };
    for (const auto& each : cases) {
        check(each.reply);
        EXPECT_EQ(status.time.value(), QString::fromLatin1(each.shown)) << each.reply;
        EXPECT_EQ(settings.loggerTime.value(), QString::fromLatin1(each.shown)) << each.reply;
    }
}

TEST_F(CheckTimeTest, DatesAreMonthDayYearWithTwoDigitYearsUpTo29InThisCentury) {
    const struct {
        const char* reply;
        const char* shown;
    } cases[] = {
        {"01/05/99\t100", "1/5/99"},  {"1/5/1999\t100", "1/5/99"},  {"12/31/29\t100", "12/31/29"},
        {"2/29/00\t1000", "2/29/00"}, {"02-29-24\t100", "2/29/24"}, {"02/29/2028\t1", "2/29/28"},
    };
    for (const auto& each : cases) {
        check(each.reply);
        EXPECT_EQ(status.date.value(), QString::fromLatin1(each.shown)) << each.reply;
        EXPECT_EQ(settings.loggerDate.value(), QString::fromLatin1(each.shown)) << each.reply;
    }
}

TEST_F(CheckTimeTest, ReplyThatCannotBeReadIsToldAndTheLabelsKeepWhatTheyHad) {
    const Message expected{.title = QStringLiteral("Software Error"),
                           .text = QStringLiteral("Unable to read clock. Error #2"),
                           .icon = Message::Icon::Exclamation,
                           .withoutWindow =
                               QStringLiteral("The instrument answered with a date or a time that cannot be read. Its "
                                              "clock is not known; \"orv clock\" asks again.")};
    for (const char* reply :
         {"13/45/26\t100", "garbage\t1000", "2/29/26\t1000", "21/11/26\t100", "11/21/26\tnoon", "11/21/2026\t",
          "11/21/26\t12x", "11/21/26 25652", "\t11/21/26\t25652", "11/21/26\t1e300", "1234567890"}) {
        SCOPED_TRACE(reply);
        messages.shown.clear();
        sender.displayLoggerTime();
        check(reply);
        EXPECT_EQ(messages.shown, std::vector<Message>{expected});
        check(reply);
        EXPECT_EQ(messages.shown.size(), 1U) << "once until the clock is asked for again";
        expectLabelsKept();
        EXPECT_EQ(state.Ctrlscrn, Operation::ClockCheck);
    }
}

TEST_F(CheckTimeTest, PartsEvenOfAnUnreadableReplyAreListedWhenParsingIsShownInServiceMode) {
    debug.showParsing = true;
    state.trouble = 1;
    std::deque<QString> listed;
    for (const auto& [date, time] : {std::pair("11/21/26\t", "2700"), std::pair("garbage\t", "noon")}) {
        const QString reply = QLatin1String(date) + QLatin1String(time);
        check(qPrintable(reply));
        listed.insert(listed.end(), {reply, QLatin1String(date), QLatin1String(time)});
        EXPECT_EQ(debug.list.entries(), listed);
    }
}

TEST_F(CheckTimeTest, PartsAreNotListedOtherwise) {
    debug.showParsing = true;
    check("11/21/26\t2700");
    debug.showParsing = false;
    debug.rawBuffer = true;
    state.trouble = 1;
    check("11/21/26\t2700");
    EXPECT_EQ(debug.list.entries(), std::deque<QString>{QStringLiteral("11/21/26\t2700\r\n")}) << "the raw block";
}

} // namespace

} // namespace orv
