// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "link/session.h"
#include "link/waits.h"

#include <functional>

namespace orv {

/// The owner of what is under way: starts the procedures that wait, and takes what they throw. The end of the
/// connection ends a procedure without a word of its own; of any other exception the operator is told the operation and
/// the error.
class Procedures {
public:
    using Procedure = std::function<Task<>()>;

    explicit Procedures(Session& session)
        : session_(session) {}

    /// Starts a procedure that has the instrument for itself. Nothing happens while another has it.
    void start(const Words& operation, const Procedure& procedure);

    /// Starts what needs nothing but the operator's answers; it runs beside everything else.
    void startBeside(const Words& operation, const Procedure& procedure);

    /// No procedure has the instrument.
    bool isIdle() const { return !running; }

    QProperty<bool> running{false}; ///< A procedure has the instrument.

private:
    Task<> run(Words operation, Procedure procedure);
    Task<> runAlone(Words operation, Procedure procedure);

    Session& session_;
};

/// What a procedure says of itself, so that the buttons follow: that activity, until this object dies; then again what
/// was there before, unless something else has been said meanwhile.
class Doing {
public:
    Doing(CommandState& commands, Activity activity)
        : commands_(commands)
        , activity_(activity)
        , before_(commands.activity) {
        commands_.activity = activity;
    }
    ~Doing() {
        if (commands_.activity == activity_) {
            commands_.activity = before_;
        }
    }
    Doing(const Doing&) = delete;
    Doing& operator=(const Doing&) = delete;

private:
    CommandState& commands_;
    Activity activity_;
    Activity before_;
};

} // namespace orv
