// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/waits.h"

#include <QScopeGuard>

#include <algorithm>
#include <cmath>
#include <utility>

namespace orv {

namespace {

/// A wait looks at the line and at the clock so often, in milliseconds: a line whose driver does not tell that it is
/// lost, and a clock that has been set, are noticed by then.
constexpr qint64 longestSleep = 500;

} // namespace

void StatusTimer::setInterval(int milliseconds) {
    interval_ = milliseconds;
    running_ = milliseconds != 0;
    last_ = clock_.monotonicMilliseconds();
    alarm_.reset();
    wake();
}

void StatusTimer::wake(qint64 milliseconds) {
    if (!running_ || isHeld()) {
        return;
    }
    const qint64 now = clock_.monotonicMilliseconds();
    const qint64 due = std::max(now + milliseconds, last_ + interval_);
    if (!alarm_ || due < next_) {
        next_ = due;
        alarm_ = clock_.callAfter(due - now, [this] { strike(); });
    }
}

void StatusTimer::strike() {
    alarm_.reset();
    if (!isHeld()) {
        last_ = clock_.monotonicMilliseconds();
        tick.tell();
    }
}

/// One suspension of a procedure; lives in its frame.
class Waits::Wait {
public:
    Wait(Waits& waits, Until until)
        : waits_(waits)
        , until_(until) {
        waits_.standing_.push_back(this);
    }
    ~Wait() {
        std::erase(waits_.standing_, this);
        for (Wait** role : {&waits_.reading_, &waits_.question_}) {
            *role = *role == this ? nullptr : *role;
        }
    }
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

    /// Looks at the line after so many milliseconds, and goes on if it is not lost.
    void lookAfter(qint64 milliseconds) {
        alarm_ = waits_.session_.clock.callAfter(milliseconds, [this, waits = &waits_] {
            if (!waits->lineIsLost()) {
                goOn();
            }
        });
    }

    /// Looks at the line again and again while something else is waited for.
    void watchLine() {
        alarm_ = waits_.session_.clock.callAfter(longestSleep, [this, waits = &waits_] {
            if (!waits->lineIsLost()) {
                watchLine();
            }
        });
    }

    void goOn() {
        over_ = true;
        alarm_.reset();
        if (const auto waiting = std::exchange(waiting_, {})) {
            waiting.resume();
        }
    }

    /// The wait is over before its time: that of the connection throws, a question counts as cancelled.
    void end() {
        ended_ = until_ == Until::ConnectionEnds;
        goOn();
    }

    bool isOfConnection() const { return until_ == Until::ConnectionEnds; }

    struct Awaiter {
        Wait* wait;

        bool await_ready() const noexcept { return wait->over_; }
        void await_suspend(std::coroutine_handle<> waiting) const noexcept { wait->waiting_ = waiting; }
        void await_resume() const {
            if (wait->ended_) {
                throw ConnectionEnded();
            }
        }
    };

    /// The awaiter is copied into the awaiting frame; this object is not.
    Awaiter over() { return {this}; }

private:
    Waits& waits_;
    Until until_;
    std::coroutine_handle<> waiting_;
    Subscription alarm_;
    bool over_ = false;
    bool ended_ = false;
};

Waits::Waits(Session& session, ComPorts& ports, StatusTimer& timer, OperatorQuestions& questions)
    : session_(session)
    , ports_(ports)
    , timer_(timer)
    , questions_(questions)
    , stirring_(ports.stirred.subscribe([this] { stirred(); }))
    , closing_(ports.closed.subscribe([this] { end(Until::ConnectionEnds); })) {}

Waits::~Waits() {
    endAll();
}

void Waits::end(Until until) {
    const std::vector<Wait*> standing = standing_;
    for (Wait* wait : standing) {
        const bool stands = std::ranges::find(standing_, wait) != standing_.end();
        if (stands && (wait->isOfConnection() || until == Until::Answered)) {
            wait->end();
        }
    }
}

void Waits::endAll() {
    end(Until::Answered);
}

bool Waits::lineIsLost() {
    if (reading_ != nullptr) {
        return ports_.inputCount() == 0 && ports_.checkFailure();
    }
    if (timer_.isRunning()) {
        timer_.wake(); // the ticks take the lines that came before they notice
        return false;
    }
    return ports_.checkFailure();
}

void Waits::stirred() {
    if (!lineIsLost() && reading_ != nullptr && ports_.inputCount() > 0) {
        reading_->goOn();
    }
}

void Waits::requireConnection() const {
    if (!ports_.isOpen()) {
        throw ConnectionEnded();
    }
}

Task<> Waits::waitsec(float seconds) {
    requireConnection();
    const Clock& clock = session_.clock;
    const float start = clock.secondsSinceMidnight();
    float left = seconds;
    passed.tell(Event::Time, std::llround(seconds * 1000.0F));
    while (left > 0.0F) {
        const auto milliseconds = static_cast<qint64>(std::ceil(left * 1000.0F));
        Wait wait(*this, Until::ConnectionEnds);
        wait.lookAfter(std::min(milliseconds, longestSleep));
        co_await wait.over();
        left = seconds - (clock.secondsSinceMidnight() - start);
    }
}

Task<> Waits::pause(qint64 milliseconds) {
    requireConnection();
    const Clock& clock = session_.clock;
    const qint64 until = clock.monotonicMilliseconds() + milliseconds;
    for (qint64 left = milliseconds; left > 0; left = until - clock.monotonicMilliseconds()) {
        Wait wait(*this, Until::ConnectionEnds);
        wait.lookAfter(std::min(left, longestSleep));
        co_await wait.over();
    }
}

Task<QByteArray> Waits::input(qint64 milliseconds) {
    requireConnection();
    const StatusTimer::Hold hold(timer_);
    const Clock& clock = session_.clock;
    const qint64 until = clock.monotonicMilliseconds() + milliseconds;
    QByteArray block;
    passed.tell(Event::Input, milliseconds);
    while (true) {
        Wait wait(*this, Until::ConnectionEnds);
        reading_ = &wait;
        // A line that never falls silent must not keep the windows from living.
        const qint64 left = ports_.inputCount() > 0 ? 0 : until - clock.monotonicMilliseconds();
        wait.lookAfter(std::clamp<qint64>(left, 0, longestSleep));
        co_await wait.over();
        block = ports_.readAll();
        if (!block.isEmpty() || clock.monotonicMilliseconds() >= until) {
            break;
        }
    }
    if (block.isEmpty()) {
        passed.tell(Event::NothingCame, milliseconds);
    }
    co_return block;
}

Task<QString> Waits::answer(Question question, Until until) {
    if (until == Until::ConnectionEnds) {
        requireConnection();
    }
    cancelQuestion();
    Wait wait(*this, until);
    question_ = &wait;
    QString answer;
    const Subscription asking = questions_.ask(question, [&wait, &answer](const QString& given) {
        answer = given;
        wait.goOn();
    });
    // While the question is on the screen and not before or after, so that the focus can be given back to what it
    // found.
    session_.commands.asking = true;
    const auto asked = qScopeGuard([this] { session_.commands.asking = false; });
    if (until == Until::ConnectionEnds) {
        wait.watchLine();
    }
    co_await wait.over();
    co_return answer;
}

void Waits::cancelQuestion() {
    if (question_ != nullptr) {
        question_->goOn();
    }
}

} // namespace orv
