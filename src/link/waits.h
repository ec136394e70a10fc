// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clock.h"
#include "base/observe.h"
#include "base/operator.h"
#include "link/comports.h"

#include <QByteArray>
#include <QCoroTask>

#include <coroutine>
#include <functional>
#include <vector>

namespace orv {

/// A procedure that waits. It begins at its call and runs to its first wait; the caller awaits it or hands it to the
/// Procedures.
template <typename T = void>
using Task = QCoro::Task<T>;

/// What a wait throws when the instrument's connection has ended: the procedure puts its things in order and ends.
class ConnectionEnded {};

/// `Timer1`: drives everything while the program waits for the instrument, one line a tick. Ticks are an interval apart
/// at least; the timer sleeps as long as there is nothing to do.
class StatusTimer {
public:
    static constexpr int normalInterval = 5; ///< Milliseconds.
    static constexpr int slowInterval = 10;  ///< Milliseconds, after settings were sent or the clock was set.

    explicit StatusTimer(Clock& clock)
        : clock_(clock) {}

    Signal<> tick;

    /// Lets the timer run at its interval; an interval of 0 keeps it still. There is a next tick in any case.
    void enable() { setInterval(interval_); }

    /// Milliseconds between ticks; 0 stops the timer.
    void setInterval(int milliseconds);

    int interval() const { return interval_; }
    bool isRunning() const { return running_; }

    /// There is something to do so many milliseconds from now: a tick comes then, or when the interval since the last
    /// one is over. It may come before, and then has to ask again. Nothing happens while the timer is stopped.
    void wake(qint64 milliseconds = 0);

    /// While one lives no tick comes: a procedure reads the port itself. Ticks that were wanted come afterwards.
    class Hold {
    public:
        explicit Hold(StatusTimer& timer)
            : timer_(timer) {
            ++timer_.holds_;
        }
        ~Hold() {
            --timer_.holds_;
            timer_.wake();
        }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        StatusTimer& timer_;
    };

    bool isHeld() const { return holds_ > 0; }

private:
    void strike();

    Clock& clock_;
    int interval_ = normalInterval;
    bool running_ = false;
    int holds_ = 0;
    qint64 last_ = 0; ///< When the last tick came or the timer was started, in monotonic milliseconds.
    qint64 next_ = 0; ///< When the next tick comes, if `alarm_` stands.
    Subscription alarm_;
};

/// The waits of the instrument's connection. All of them end with it: within its closing they throw ConnectionEnded,
/// and without a connection at once. Nothing here blocks; while a procedure waits everything else goes on.
class Waits {
public:
    Waits(Session& session, ComPorts& ports, StatusTimer& timer, OperatorQuestions& questions);
    ~Waits();
    Waits(const Waits&) = delete;
    Waits& operator=(const Waits&) = delete;

    /// Waits for `seconds` (fractions allowed) on the clock of seconds since midnight; 0 does not wait. A wait that
    /// runs across midnight never ends by itself, because the clock falls back to 0.
    Task<> waitsec(float seconds);

    /// Waits so many milliseconds on the clock that never jumps; 0 does not wait.
    Task<> pause(qint64 milliseconds);

    /// Waits until characters have come and returns all of them; nothing if none came within so many milliseconds.
    /// Meanwhile the status timer does not tick.
    Task<QByteArray> input(qint64 milliseconds);

    enum class Until { Answered, ConnectionEnds };

    /// Asks the operator and waits for the answer, which is empty when he cancels. Only one question stands: another,
    /// cancelQuestion() and the end of the program take it back, and the answer is empty too. Without `ConnectionEnds`
    /// the question outlives the connection.
    Task<QString> answer(Question question, Until until = Until::Answered);

    /// Takes back the question that stands.
    void cancelQuestion();

    /// Ends every wait.
    void endAll();

    enum class Event { Time, Input, NothingCame };
    /// Tells that a wait begins and how many milliseconds it may last, or that one for input was in vain.
    Signal<Event, qint64> passed;

private:
    class Wait;

    void end(Until until);
    void stirred();
    /// Looks whether the line has failed, unless something of it is still to be read. If so all waits of the connection
    /// have ended when it returns.
    bool lineIsLost();
    void requireConnection() const;

    Session& session_;
    ComPorts& ports_;
    StatusTimer& timer_;
    OperatorQuestions& questions_;
    std::vector<Wait*> standing_;
    Wait* reading_ = nullptr;  ///< The wait for input.
    Wait* question_ = nullptr; ///< The wait for an answer.
    Subscription stirring_;
    Subscription closing_;
};

} // namespace orv
