// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/checktime.h"

#include "testing/fakes.h"

#include <gtest/gtest.h>

namespace orv {

namespace {

class CheckTimeTest : public testing::Test {
protected:
    CheckTimeTest() {
        ports.setDevice(1, QStringLiteral("instrument"));
        ports.setDevice(2, QStringLiteral("debug"));
        ports.openDebugPort();
        debug.comm2Output = true;
        session.state.Ctrlscrn = opstate::clockCheck;
        for (QProperty<QString>* label : labels()) {
            *label = QStringLiteral("kept");
        }
    }

    std::unique_ptr<Port> makePort() {
        auto port = std::make_unique<FakePort>();
        debugPort = port.get();
        return port;
    }

    std::array<QProperty<QString>*, 4> labels() {
        return {&session.status.date, &settings.loggerDate, &session.status.time, &settings.loggerTime};
    }

    void check(const char* reply) {
        session.state.Rtn = QString::fromLatin1(reply);
        display.checktime();
    }

    void expectLabelsKept() {
        for (const QProperty<QString>* label : labels()) {
            EXPECT_EQ(label->value(), QStringLiteral("kept"));
        }
    }

    FakePort* debugPort = nullptr;
    TestClock clock;
    RecordedMessages messages;
    Session session{clock, messages};
    DebugPanel debug;
    ComPorts ports{session, debug, [this](const QString&) { return makePort(); }};
    SettingsPanel settings;
    ClockDisplay display{session, ports, debug, settings};
};

TEST_F(CheckTimeTest, ReplyIsShownOnBothScreensAndTheCodeBecomesSettingsOpen) {
    check("11/21/26\t25652");
    EXPECT_EQ(session.status.date.value(), QStringLiteral("11/21/26"));
    EXPECT_EQ(settings.loggerDate.value(), QStringLiteral("11/21/26"));
    EXPECT_EQ(session.status.time.value(), QStringLiteral("9:30:02 AM"));
    EXPECT_EQ(settings.loggerTime.value(), QStringLiteral("9:30:02 AM"));
    EXPECT_EQ(session.state.Ctrlscrn, opstate::settingsOpen);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(debugPort->allWritten(), QByteArray("Check Orv Sensor Time\r"));
}

TEST_F(CheckTimeTest, ReplyUnderTenCharactersChangesNothingAndTellsNothing) {
    for (const char* reply : {"", ">C", "1/5/26\t99", "123456789", "\t\t\t\t\t\t\t\t\t"}) {
        SCOPED_TRACE(reply);
        check(reply);
        expectLabelsKept();
        EXPECT_EQ(session.state.Ctrlscrn, opstate::clockCheck);
    }
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(debugPort->writes.size(), 5U) << "announced at every call";
}

TEST_F(CheckTimeTest, ReplyOfTenCharactersIsRead) {
    check("1/5/26\t100");
    EXPECT_EQ(session.status.date.value(), QStringLiteral("1/5/26"));
    EXPECT_EQ(session.status.time.value(), QStringLiteral("0:02:13 AM"));
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
        EXPECT_EQ(session.status.time.value(), QString::fromLatin1(each.shown)) << each.reply;
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
        EXPECT_EQ(session.status.date.value(), QString::fromLatin1(each.shown)) << each.reply;
        EXPECT_EQ(settings.loggerDate.value(), QString::fromLatin1(each.shown)) << each.reply;
    }
}

TEST_F(CheckTimeTest, ReplyThatCannotBeReadIsToldAndTheLabelsKeepWhatTheyHad) {
    const Message expected{.title = QStringLiteral("Software Error"),
                           .text = QStringLiteral("Unable to read clock. Error #2"),
                           .icon = Message::Icon::Exclamation};
    for (const char* reply :
         {"13/45/26\t100", "garbage\t1000", "2/29/26\t1000", "21/11/26\t100", "11/21/26\tnoon", "11/21/2026\t",
          "11/21/26\t12x", "11/21/26 25652", "\t11/21/26\t25652", "11/21/26\t1e300", "1234567890"}) {
        SCOPED_TRACE(reply);
        messages.shown.clear();
        session.state.Ctrlscrn = opstate::clockCheck;
        check(reply);
        EXPECT_EQ(messages.shown, std::vector<Message>{expected});
        expectLabelsKept();
        EXPECT_EQ(session.state.Ctrlscrn, opstate::clockCheck);
    }
}

TEST_F(CheckTimeTest, PartsAreListedWhenParsingIsShownInServiceMode) {
    debug.showParsing = true;
    session.state.trouble = 1;
    check("11/21/26\t2700");
    EXPECT_EQ(debug.list.entries(), (std::deque<QString>{QStringLiteral("11/21/26\t"), QStringLiteral("2700")}));
}

TEST_F(CheckTimeTest, PartsOfAnUnreadableReplyAreListedToo) {
    debug.showParsing = true;
    session.state.trouble = 1;
    check("garbage\tnoon");
    EXPECT_EQ(debug.list.entries(), (std::deque<QString>{QStringLiteral("garbage\t"), QStringLiteral("noon")}));
}

TEST_F(CheckTimeTest, PartsAreNotListedOtherwise) {
    debug.showParsing = true;
    check("11/21/26\t2700");
    debug.showParsing = false;
    debug.rawBuffer = true;
    session.state.trouble = 1;
    check("11/21/26\t2700");
    EXPECT_TRUE(debug.list.entries().empty());
}

} // namespace

} // namespace orv
