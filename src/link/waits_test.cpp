// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/waits.h"

#include "base/runtimeerror.h"
#include "testing/programrig.h"

#include <gtest/gtest.h>

namespace orv {

namespace {

/// How a wait that a test has begun stands.
enum class Went { Waiting, Over, Ended };

/// Waits on an open line.
class WaitsTest : public ProgramTest {
protected:
    WaitsTest() { ports.open(); }

    Task<> note(Task<> wait) {
        went = Went::Waiting;
        try {
            co_await wait;
            went = Went::Over;
        } catch (const ConnectionEnded&) {
            went = Went::Ended;
        }
        overAt = clock.monotonicMilliseconds();
    }
    Task<> takeInput(int milliseconds) {
        taken.clear();
        taken = co_await waits.input(milliseconds);
    }
    Task<> ask(Waits::Until until) {
        taken.clear();
        const QString answer = co_await waits.answer(yesNoQuestion(QStringLiteral("T"), QStringLiteral("?")), until);
        taken = answer.toLatin1();
    }

    void wait(float seconds) { note(waits.waitsec(seconds)); }
    void read(int milliseconds) { note(takeInput(milliseconds)); }
    void startAt(QTime time) { clock.set(QDateTime(QDate(2026, 11, 21), time)); }

    Went went = Went::Over;
    qint64 overAt = 0;
    QByteArray taken;
};

TEST_F(WaitsTest, lastTheSecondsOfClockTime) {
    startAt(QTime(1, 0));
    for (const auto& [seconds, milliseconds] : {std::pair(1.0F, 1000), {0.25F, 250}, {2.5F, 2500}}) {
        const qint64 start = clock.monotonicMilliseconds();
        wait(seconds);
        clock.advance(milliseconds - 1);
        EXPECT_EQ(went, Went::Waiting);
        clock.advance(1);
        EXPECT_EQ(went, Went::Over);
        EXPECT_EQ(overAt - start, milliseconds);
    }
}

TEST_F(WaitsTest, areNeverEarlyAndAtMostAClockStepLate) {
    for (const QTime time : {QTime(0, 0), QTime(9, 30, 15, 7), QTime(18, 0, 0, 333), QTime(23, 59, 50, 1)}) {
        SCOPED_TRACE(time.toString().toStdString());
        startAt(time);
        const qint64 start = clock.monotonicMilliseconds();
        wait(0.2F);
        clock.advance(300);
        // Late in the day a single-precision count of seconds moves in steps of 8 ms.
        EXPECT_EQ(went, Went::Over);
        EXPECT_GE(overAt - start, 192);
        EXPECT_LE(overAt - start, 215);
    }
}

TEST_F(WaitsTest, doNotWaitForZeroSeconds) {
    for (const float seconds : {0.0F, -1.0F}) {
        wait(seconds);
        EXPECT_EQ(went, Went::Over);
    }
}

TEST_F(WaitsTest, neverEndByThemselvesAcrossMidnight) {
    startAt(QTime(23, 59, 59, 500));
    wait(1.0F);
    constexpr qint64 twoDays = 2 * 24 * 3600 * 1000LL;
    clock.advance(twoDays);
    EXPECT_EQ(went, Went::Waiting);
    ports.close();
    EXPECT_EQ(went, Went::Ended);
}

TEST_F(WaitsTest, areProlongedByAClockThatIsSetBack) {
    startAt(QTime(12, 0));
    wait(1.0F);
    startAt(QTime(11, 0));
    clock.advance(3'600'000);
    EXPECT_EQ(went, Went::Waiting);
    clock.advance(1000);
    EXPECT_EQ(went, Went::Over);
}

TEST_F(WaitsTest, areOverBeforeMidnight) {
    startAt(QTime(23, 59, 58));
    wait(1.0F);
    clock.advance(1100);
    EXPECT_EQ(went, Went::Over);
    EXPECT_GE(overAt, 990);
}

TEST_F(WaitsTest, takeWhatArrivesAtOnce) {
    read(1000);
    clock.advance(400);
    EXPECT_EQ(went, Went::Waiting);
    EXPECT_TRUE(timer.isHeld());
    com1.input = "ab";
    EXPECT_EQ(went, Went::Over);
    EXPECT_EQ(taken, "ab");
    EXPECT_FALSE(timer.isHeld());
}

TEST_F(WaitsTest, takeWhatIsThereAlreadyAfterEverythingElseHadItsTurn) {
    com1.input = "ab";
    read(1000);
    EXPECT_EQ(went, Went::Waiting) << "a line that is never silent would keep the windows from living";
    clock.advance(0);
    EXPECT_EQ(taken, "ab");
}

TEST_F(WaitsTest, endEmptyAtTheirLimit) {
    read(1234);
    clock.advance(1233);
    EXPECT_EQ(went, Went::Waiting);
    clock.advance(1);
    EXPECT_EQ(went, Went::Over);
    EXPECT_EQ(taken, "");
}

/// A procedure's wait must end inside the closing, whatever it waits for and whoever closes.
TEST_F(WaitsTest, endWithTheConnection) {
    const std::function<void()> begins[] = {
        [this] { wait(100.0F); },
        [this] { read(100'000); },
        [this] {
            answers.late = true;
            note(ask(Waits::Until::ConnectionEnds));
        },
    };
    const std::function<void()> ends[] = {
        [this] { ports.close(); }, [this] { fixit(); },        [this] { program.closePort(); },
        [this] { program.end(); }, [this] { waits.endAll(); },
    };
    for (const auto& begin : begins) {
        for (const auto& end : ends) {
            ports.open();
            begin();
            clock.advance(2000);
            ASSERT_EQ(went, Went::Waiting);
            end();
            EXPECT_EQ(went, Went::Ended);
            EXPECT_FALSE(answers.stands());
            EXPECT_FALSE(commands.asking);
            EXPECT_FALSE(timer.isHeld());
        }
    }
}

TEST_F(WaitsTest, areNotBegunWithoutAConnection) {
    ports.close();
    wait(0.0F);
    EXPECT_EQ(went, Went::Ended);
    read(1);
    EXPECT_EQ(went, Went::Ended);
    note(ask(Waits::Until::ConnectionEnds));
    EXPECT_EQ(went, Went::Ended);
    EXPECT_EQ(answers.asked.size(), 0);
}

TEST_F(WaitsTest, belongToTheirOwnConnection) {
    wait(1.0F);
    const Subscription reopening = ports.closed.subscribe([this] { ports.open(); });
    ports.close();
    EXPECT_EQ(went, Went::Ended);
    EXPECT_TRUE(ports.isOpen());
}

TEST_F(WaitsTest, noticeALostLineWithinHalfASecondEvenIfNobodyTells) {
    answers.late = true;
    const std::function<void()> begins[] = {[this] { wait(100.0F); }, [this] { read(100'000); },
                                            [this] { note(ask(Waits::Until::ConnectionEnds)); }};
    for (const bool timerRuns : {false, true}) {
        for (const auto& begin : begins) {
            SCOPED_TRACE(timerRuns);
            ports.open();
            timer.setInterval(timerRuns ? StatusTimer::normalInterval : 0);
            begin();
            clock.advance(700);
            const qint64 pulled = clock.monotonicMilliseconds();
            com1.failsSilently = true;
            clock.advance(510);
            EXPECT_EQ(went, Went::Ended);
            EXPECT_LE(overAt - pulled, 505);
            EXPECT_EQ(theMessage().text.section(u'\n', 0, 0),
                      QStringLiteral("The connection on COM 1 (ttyA) was lost."));
            messages.shown.clear();
            com1.failsSilently = false;
        }
    }
}

TEST_F(WaitsTest, noticeALostLineAtOnceWhenTheyAreTold) {
    read(100'000);
    com1.unplugged = true;
    EXPECT_EQ(went, Went::Ended);
    expectOffline();
}

TEST_F(WaitsTest, letTheTicksTakeWhatCameBeforeTheLineWasLost) {
    timer.enable();
    wait(100.0F);
    com1.input = "one\r\ntwo\r\n";
    com1.failureReason = QStringLiteral("Gone.");
    EXPECT_EQ(went, Went::Waiting);
    std::string lines;
    const Subscription reading = timer.tick.subscribe([&] { lines += state.Rtn.toStdString() + ' '; });
    clock.advance(100);
    EXPECT_EQ(lines, "one two wakeup!!! ");
    EXPECT_EQ(went, Went::Ended);
}

TEST_F(WaitsTest, bringTheAnswerWheneverItComes) {
    answers.late = true;
    for (const QString& answer : {Question::yes(), Question::no(), QString()}) {
        note(ask(Waits::Until::Answered));
        EXPECT_TRUE(commands.asking);
        EXPECT_FALSE(commands.undisturbed);
        clock.advance(100'000);
        EXPECT_EQ(went, Went::Waiting);
        answers.answer(answer);
        EXPECT_EQ(went, Went::Over);
        EXPECT_EQ(taken, answer.toLatin1());
        EXPECT_FALSE(commands.asking);
    }
}

TEST_F(WaitsTest, letAQuestionOutliveTheConnection) {
    answers.late = true;
    note(ask(Waits::Until::Answered));
    fixit();
    EXPECT_EQ(went, Went::Waiting);
    EXPECT_TRUE(answers.stands());
    waits.cancelQuestion();
    EXPECT_EQ(went, Went::Over);
    EXPECT_EQ(taken, "");
    EXPECT_FALSE(answers.stands());
}

TEST_F(WaitsTest, letOneQuestionStand) {
    answers.late = true;
    note(ask(Waits::Until::ConnectionEnds));
    Task<> second = ask(Waits::Until::Answered);
    EXPECT_EQ(went, Went::Over) << "taken back";
    EXPECT_TRUE(commands.asking);
    answers.answer(Question::yes());
    EXPECT_EQ(taken, "Yes");
    EXPECT_FALSE(commands.asking);
}

class ProceduresTest : public WaitsTest {
protected:
    Task<> procedure(float seconds) {
        const Doing doing(commands, Activity::Sending);
        ++begun;
        co_await waits.waitsec(seconds);
    }
    Task<> fail() {
        co_await waits.waitsec(0.1F);
        throw RuntimeError(RuntimeError::Kind::Overflow);
    }

    int begun = 0;
};

TEST_F(ProceduresTest, runOneAtATime) {
    const auto start = [this] { procedures.start(QStringLiteral("Test"), [this] { return procedure(1.0F); }); };
    start();
    start();
    EXPECT_EQ(begun, 1);
    EXPECT_FALSE(procedures.isIdle());
    EXPECT_EQ(commands.activity.value(), Activity::Sending);
    procedures.startBeside(QStringLiteral("Test"), [this] { return ask(Waits::Until::Answered); });
    EXPECT_EQ(answers.asked.size(), 1) << "beside it";
    finish();
    EXPECT_EQ(commands.activity.value(), Activity::None);
    start();
    EXPECT_EQ(begun, 2);
    ports.close();
    EXPECT_TRUE(procedures.isIdle());
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ProceduresTest, tellTheOperatorOfAnError) {
    procedures.start(QStringLiteral("Test"), [this] { return fail(); });
    finish();
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("Test")));
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("Overflow")));
    EXPECT_TRUE(ports.isOpen());
}

class StatusTimerTest : public testing::Test {
protected:
    std::vector<qint64> ticksUntil(qint64 moment) {
        moments.clear();
        clock.advance(moment - clock.monotonicMilliseconds());
        return moments;
    }

    using Moments = std::vector<qint64>;

    TestClock clock;
    StatusTimer timer{clock};
    Moments moments;
    Subscription counting = timer.tick.subscribe([this] { moments.push_back(clock.monotonicMilliseconds()); });
};

TEST_F(StatusTimerTest, standsStillUntilItIsEnabled) {
    EXPECT_FALSE(timer.isRunning());
    EXPECT_EQ(timer.interval(), 5);
    timer.wake();
    EXPECT_EQ(ticksUntil(100), Moments{});
    timer.enable();
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(ticksUntil(200), Moments{105}) << "once, and then it sleeps";
}

TEST_F(StatusTimerTest, ticksAtOnceWhenItIsWokenButNoMoreOftenThanItsInterval) {
    timer.enable();
    EXPECT_EQ(ticksUntil(42), Moments{5});
    timer.wake();
    timer.wake();
    EXPECT_EQ(moments, Moments{5}) << "not inside the call";
    EXPECT_EQ(ticksUntil(44), Moments{42}) << "once, however often it was woken";
    timer.wake();
    EXPECT_EQ(ticksUntil(60), Moments{47});
    timer.wake(100);
    timer.wake(13);
    EXPECT_EQ(ticksUntil(300), Moments{73}) << "the earlier wish; that tick says itself when it wants another";
    timer.setInterval(StatusTimer::slowInterval);
    timer.wake(7);
    EXPECT_EQ(ticksUntil(400), Moments{310});
}

TEST_F(StatusTimerTest, ticksAgainAndAgainWhileItIsWokenInItsTicks) {
    const Subscription waking = timer.tick.subscribe([this] { timer.wake(); });
    timer.enable();
    EXPECT_EQ(ticksUntil(20), (Moments{5, 10, 15, 20}));
}

TEST_F(StatusTimerTest, keepsItsIntervalWhenItIsEnabledAgain) {
    timer.setInterval(StatusTimer::slowInterval);
    timer.enable();
    EXPECT_EQ(timer.interval(), 10);
}

TEST_F(StatusTimerTest, isStoppedByAnIntervalOfZeroAndStartedByTheNextOne) {
    timer.enable();
    timer.setInterval(0);
    EXPECT_FALSE(timer.isRunning());
    timer.enable();
    EXPECT_FALSE(timer.isRunning());
    EXPECT_EQ(ticksUntil(50), Moments{});
    timer.setInterval(StatusTimer::normalInterval);
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(ticksUntil(100), Moments{55});
}

TEST_F(StatusTimerTest, doesNotTickWhileItIsHeldAndThenMakesUpForIt) {
    timer.enable();
    {
        const StatusTimer::Hold hold(timer);
        timer.wake();
        EXPECT_EQ(ticksUntil(33), Moments{});
    }
    EXPECT_EQ(ticksUntil(100), Moments{33});
}

} // namespace

} // namespace orv
