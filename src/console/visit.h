// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/options.h"
#include "console/terminal.h"
#include "program/program.h"

#include <coroutine>
#include <exception>
#include <functional>
#include <optional>

namespace orv {

/// How a command ends, for the shell.
enum class ExitStatus {
    Done = 0,
    Failed = 1,
    WrongOptions = 2,
    Incomplete = 3 ///< Data are missing; what came is kept and counted.
};

/// Ends a command.
class Failure final : public std::exception {
public:
    /// `text` says what went wrong and what to do next; empty: that has been told.
    explicit Failure(QString text, ExitStatus status = ExitStatus::Failed)
        : text_(std::move(text))
        , status_(status) {}

    const QString& text() const { return text_; }
    ExitStatus status() const { return status_; }
    const char* what() const noexcept override { return "the command has failed"; }

private:
    QString text_;
    ExitStatus status_;
};

/// What a wait throws when the operator wants the command to end.
class Interrupted {};

/// How a command's work has ended.
struct Ending {
    std::exception_ptr thrown; ///< Nothing: it has come to its end.
};

/// Does the work. What has to be done however it ends follows, and may wait.
Task<Ending> endingOf(Task<> work);

/// One command's visit to an instrument: the program, and what commands do with it through its procedures. A command is
/// a procedure that waits.
class Visit {
public:
    Visit(Program& program, Terminal& terminal, const Options& options);
    ~Visit();
    Visit(const Visit&) = delete;
    Visit& operator=(const Visit&) = delete;

    /// Performs the command, once, and calls `ended` with the exit status. A failure has been told, everything has been
    /// ended whole and the port is closed.
    void perform(std::function<Task<>(Visit&)> command, std::function<void(int status)> ended);

    /// Has the command end, whole: its wait throws Interrupted. The exit status is 128 and the signal's number.
    void interrupt(int signal);
    bool isInterrupted() const { return signal_ != 0 && !finishing_; }
    /// The command ends what it does; its waits go on until the operator interrupts it again. Returns whether he had
    /// interrupted it.
    bool finish();

    /// Waits until `reached()` holds, which is looked at whenever the program's state has changed, and after look().
    /// Returns false if it did not within so many milliseconds.
    Task<bool> reached(qint64 milliseconds, std::function<bool()> condition);
    void look();

    /// Wakes the instrument on the port and reads its settings and its clock, as "Auto Connect" does. Throws Failure.
    Task<> connect();

    /// By how many seconds the instrument's clock was ahead of the computer's when it was read last; nothing if it
    /// could not be read.
    std::optional<qint64> clockOffset() const;
    /// What it showed then.
    std::optional<QDateTime> instrumentTime() const;
    /// Waits for the clock's reply, which has been asked for.
    Task<> awaitClock();

    Program& program;
    Terminal& terminal;
    const Options& options;
    Clock& clock;

private:
    struct Turn;

    Task<> run(std::function<Task<>(Visit&)> command, std::function<void(int status)> ended);
    Task<> attempt();
    void goOn();

    std::function<bool()> condition_; ///< Of the wait.
    std::coroutine_handle<> waiting_;
    Subscription limit_;
    Subscription next_;
    int signal_ = 0; ///< 0: the operator has not interrupted the command.
    bool finishing_ = false;
    bool isClockRead_ = false;
    std::vector<QPropertyNotifier> notifiers_;
    std::vector<Subscription> subscriptions_;
};

} // namespace orv
