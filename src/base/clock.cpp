// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/clock.h"

#include <QBasicTimer>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimerEvent>

#include <algorithm>
#include <limits>
#include <utility>

namespace orv {

Subscription Alarms::add(qint64 due, std::function<void()> call) {
    auto alarm = std::make_shared<Alarm>(Alarm{due, std::move(call)});
    alarms_.push_back(alarm);
    return alarm;
}

std::shared_ptr<Alarms::Alarm> Alarms::earliest() {
    std::erase_if(alarms_, [](const auto& alarm) { return alarm.expired(); });
    std::shared_ptr<Alarm> first;
    for (const auto& candidate : alarms_) {
        const std::shared_ptr<Alarm> alarm = candidate.lock();
        if (!first || alarm->due < first->due) {
            first = alarm;
        }
    }
    return first;
}

std::optional<qint64> Alarms::next() {
    const auto first = earliest();
    return first ? std::optional(first->due) : std::nullopt;
}

void Alarms::callDue(qint64 now) {
    for (auto alarm = earliest(); alarm && alarm->due <= now; alarm = earliest()) {
        std::erase_if(alarms_, [&alarm](const auto& other) { return other.lock() == alarm; });
        alarm->call();
    }
}

float Clock::secondsSinceMidnight() const {
    return static_cast<float>(now().time().msecsSinceStartOfDay() / 1000.0);
}

/// One timer of the event loop for all alarms: it runs until the earliest.
class SystemClock::Timer final : public QObject {
public:
    explicit Timer(const SystemClock& clock)
        : clock_(clock) {}

    [[nodiscard]] Subscription add(qint64 due, std::function<void()> call) {
        Subscription alarm = alarms_.add(due, std::move(call));
        if (!timer_.isActive() || due < runsUntil_) {
            start(due);
        }
        return alarm;
    }

protected:
    void timerEvent(QTimerEvent* /*event*/) override {
        timer_.stop();
        callDue();
    }

    void customEvent(QEvent* /*event*/) override {
        posted_ = false;
        callDue();
    }

private:
    void callDue() {
        alarms_.callDue(clock_.monotonicMilliseconds());
        const auto next = alarms_.next();
        if (!next) {
            timer_.stop();
        } else if (!timer_.isActive() || *next != runsUntil_) {
            start(*next);
        }
    }

    void start(qint64 due) {
        const qint64 left = due - clock_.monotonicMilliseconds();
        if (left > 0) {
            runsUntil_ = due;
            timer_.start(static_cast<int>(std::min<qint64>(left, std::numeric_limits<int>::max())), Qt::PreciseTimer,
                         this);
        } else if (!std::exchange(posted_, true)) {
            QCoreApplication::postEvent(this, new QEvent(QEvent::User)); // at once, with the timer left as it is
        }
    }

    const SystemClock& clock_;
    Alarms alarms_;
    QBasicTimer timer_;
    qint64 runsUntil_ = 0;
    bool posted_ = false;
};

SystemClock::SystemClock()
    : timer_(std::make_unique<Timer>(*this)) {}

SystemClock::~SystemClock() = default;

QDateTime SystemClock::now() const {
    return QDateTime::currentDateTime();
}

qint64 SystemClock::monotonicMilliseconds() const {
    return QDeadlineTimer::current(Qt::PreciseTimer).deadline();
}

Subscription SystemClock::callAfter(qint64 milliseconds, std::function<void()> call) {
    return timer_->add(monotonicMilliseconds() + milliseconds, std::move(call));
}

} // namespace orv
