// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/driver.h"

#include <QTextStream>
#include <QTimer>

#include <utility>

namespace orv {

/// Until goOn().
struct Driver::Turn {
    Driver& driver;

    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> waiting) const noexcept { driver.waiting_ = waiting; }
    void await_resume() const {
        if (driver.ended_) {
            throw Failure(QStringLiteral("the program was ended"));
        }
    }
};

Driver::Driver(Program& program, MainWindow& window, MessageBoxes& messages)
    : program_(program)
    , window_(window)
    , told_(messages.told.subscribe([this](const Message& message) { lastMessage_ = message.text.english(); })) {}

int Driver::run(std::function<Task<>()> job) {
    const Subscription ending = program_.ended.subscribe([] { QCoreApplication::exit(); });
    QTimer::singleShot(0, &context_, [this, job = std::move(job)] { perform(job); });
    QCoreApplication::exec();
    ended_ = true;
    goOn(); // the operator has ended the program
    return status_;
}

Task<> Driver::perform(std::function<Task<>()> job) {
    try {
        Task<> work = job();
        co_await work;
        status_ = 0;
    } catch (const std::exception& failure) {
        QTextStream(stderr) << "Failed: " << failure.what() << Qt::endl;
    }
    QCoreApplication::exit();
}

void Driver::goOn() {
    if (const auto waiting = std::exchange(waiting_, {})) {
        waiting.resume();
    }
}

Task<> Driver::waitFor(QString what, int milliseconds, std::function<bool()> reached) {
    constexpr int lookInterval = 10;
    Clock& clock = program_.link.session.clock;
    const qint64 until = clock.monotonicMilliseconds() + milliseconds;
    while (!reached()) {
        if (!lastMessage_.isEmpty()) {
            throw Failure(QStringLiteral("%1: %2").arg(what, lastMessage_.simplified()));
        }
        if (program_.link.manual.shown.visible) {
            throw Failure(QStringLiteral("%1: the instrument does not answer").arg(what));
        }
        if (clock.monotonicMilliseconds() > until) {
            throw Failure(QStringLiteral("%1: nothing for %2 s; the status is \"%3\"")
                              .arg(what)
                              .arg(milliseconds / 1000)
                              .arg(program_.link.session.status.status.value()));
        }
        const Subscription alarm = clock.callAfter(lookInterval, [this] { goOn(); });
        const Turn turn{*this};
        co_await turn;
    }
}

Task<> Driver::waitUntilReady(QString what, int milliseconds) {
    const std::function<bool()> ready = [&session = program_.link.session] {
        return session.status.status.value() == QLatin1String("Ready") &&
               session.state.Ctrlscrn == Operation::SettingsOpen;
    };
    Task<> wait = waitFor(what, milliseconds, ready);
    co_await wait;
}

Task<> Driver::pause(int milliseconds) {
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &context_, [this] { goOn(); });
    const Turn turn{*this};
    co_await turn;
}

void Driver::click(QAbstractButton& button) {
    if (!button.isEnabled()) {
        throw Failure(QStringLiteral("%1 is disabled").arg(button.objectName()));
    }
    button.click();
}

} // namespace orv
