// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/visit.h"

#include "base/text.h"

#include <utility>

namespace orv {

Task<Ending> endingOf(Task<> work) {
    Ending ending;
    try {
        co_await work;
    } catch (...) {
        ending.thrown = std::current_exception();
    }
    co_return ending;
}

/// Until goOn().
struct Visit::Turn {
    Visit& visit;

    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> waiting) const noexcept { visit.waiting_ = waiting; }
    void await_resume() const {}
};

Visit::Visit(Program& theProgram, Terminal& theTerminal, const Options& theOptions)
    : program(theProgram)
    , terminal(theTerminal)
    , options(theOptions)
    , clock(theProgram.link.session.clock) {
    const auto follow = [this](auto& property) { notifiers_.push_back(property.addNotifier([this] { look(); })); };
    follow(program.link.procedures.running);
    follow(program.link.manual.shown.visible);
    follow(program.link.session.commands.activity);
    follow(program.link.session.commands.portOpen);
    follow(program.link.session.status.shutterProgress);
    follow(program.link.session.status.shutterCountdown);
    follow(program.settings.shown.secondsToFullMinute);
    subscriptions_.push_back(program.link.timer.tick.subscribe([this] { look(); }));
}

Visit::~Visit() {
    constexpr int terminated = 15;
    interrupt(terminated);
    goOn(); // the command's frames are to go
}

void Visit::look() {
    if (waiting_ && !next_ && (isInterrupted() || condition_())) {
        // Not inside the procedure that has changed something.
        next_ = clock.callAfter(0, [this] { goOn(); });
    }
}

void Visit::goOn() {
    next_.reset();
    limit_.reset();
    if (const auto waiting = std::exchange(waiting_, {})) {
        waiting.resume();
    }
}

void Visit::interrupt(int signal) {
    signal_ = signal;
    finishing_ = false;
    look();
}

bool Visit::finish() {
    finishing_ = true;
    return signal_ != 0;
}

Task<bool> Visit::reached(qint64 milliseconds, std::function<bool()> condition) {
    const qint64 until = clock.monotonicMilliseconds() + milliseconds;
    while (!condition()) {
        if (isInterrupted()) {
            throw Interrupted();
        }
        const qint64 left = until - clock.monotonicMilliseconds();
        if (left <= 0) {
            co_return false;
        }
        condition_ = condition;
        limit_ = clock.callAfter(left, [this] { goOn(); });
        const Turn turn{*this};
        co_await turn;
    }
    co_return true;
}

void Visit::perform(std::function<Task<>(Visit&)> command, std::function<void(int status)> ended) {
    run(std::move(command), std::move(ended));
}

Task<> Visit::run(std::function<Task<>(Visit&)> command, std::function<void(int status)> ended) {
    constexpr int signalled = 128;
    int status = static_cast<int>(ExitStatus::Done);
    try {
        Task<> work = command(*this);
        co_await work;
        // Who watches a line ends that by going.
        if (!terminal.problem().isEmpty() && options.command != Options::Command::Watch) {
            throw Failure(QStringLiteral("Standard output takes nothing any more: %1.").arg(terminal.problem()));
        }
    } catch (const Failure& failure) {
        status = static_cast<int>(failure.status());
        if (!failure.text().isEmpty()) {
            terminal.tell(failure.text());
        }
    } catch (const Interrupted&) {
        status = signalled + signal_;
    } catch (const std::exception& error) {
        status = static_cast<int>(ExitStatus::Failed);
        terminal.tell(QStringLiteral("The command has ended: %1.").arg(QString::fromLocal8Bit(error.what())));
    }
    program.end();
    terminal.showProgress(QString());
    ended(status);
}

namespace {

constexpr qint64 connectLimit = 20'000; ///< Milliseconds; the dialogue's own limits come before.
constexpr qint64 clockLimit = 3000;

} // namespace

Task<> Visit::connect() {
    Link& link = program.link;
    link.ports.setDevice(1, options.port);
    link.ports.selectPort(1);
    // The reading of the settings is given up at the 150th line of a program's life; a visit may connect again and
    // again.
    link.session.state.Timeout = 0;
    terminal.detail(QStringLiteral("Connecting on %1").arg(options.port));
    program.autoConnect1();
    const std::function<bool()> over = [this, &link] {
        const bool failed = link.manual.shown.visible || !link.ports.isOpen();
        return link.procedures.isIdle() && (failed || program.settings.shown.lamp.value() == Lamp::Read) &&
               link.session.commands.activity.value() == Activity::None;
    };
    const bool ended = co_await reached(connectLimit, over);
    if (!ended || link.manual.shown.visible) {
        link.manual.quit();
        throw Failure(
            QStringLiteral("The instrument on %1 does not answer. Look at its power, the cable (it must carry "
                           "DTR) and the port's name, then try again.")
                .arg(options.port));
    }
    if (!link.ports.isOpen()) {
        throw Failure(QString()); // why has been told
    }
    co_await awaitClock();
    if (link.session.status.instrument.value() == InstrumentType::Unknown) {
        throw Failure(QStringLiteral("The instrument on %1 did not say what it is. Try again.").arg(options.port));
    }
    terminal.detail(QStringLiteral("Connected: %1, firmware %2")
                        .arg(instrumentName(link.session.status.instrument), link.session.status.firmware.value()));
}

Task<> Visit::awaitClock() {
    const std::function<bool()> read = [this] {
        return program.link.session.state.Ctrlscrn == Operation::SettingsOpen;
    };
    isClockRead_ = co_await reached(clockLimit, read);
}

std::optional<qint64> Visit::clockOffset() const {
    return isClockRead_ ? program.link.session.status.clockOffset.value() : std::nullopt;
}

std::optional<QDateTime> Visit::instrumentTime() const {
    const auto date = instrumentDate(program.link.session.status.date.value());
    const auto time = sheetTime(program.link.session.status.time.value());
    if (!date || !time) {
        return std::nullopt;
    }
    return QDateTime(*date, *time);
}

} // namespace orv
