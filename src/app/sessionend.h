// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "ui/messageboxes.h"

#ifdef Q_OS_UNIX
#include "base/interruption.h"
#endif

#include <QObject>

#include <optional>

class QSessionManager;

namespace orv {

/// The ends of a session that nobody asks the operator about: SIGTERM, SIGHUP and Ctrl+C, logging out and shutting
/// down. The program ends as "Quit" does, without its question: a run is closed whole, and rows that are not saved are
/// offered at the next start. What the end has to tell goes to the standard error too. A signal that is ignored when
/// the program starts (nohup) stays ignored.
///
/// Who logs out may change his mind: until the system says that it is the end, what is not saved is only brought to the
/// disk, and a run goes on. If the disk does not take it, the logging out is cancelled where the operator may be told
/// of it. A session manager that dies ends nothing.
class SessionEnd final : public QObject {
public:
    SessionEnd(Program& program, MessageBoxes& messages);

    /// What the program exits with: 128 and the number of the signal that ended it, 0 after the system's wish;
    /// otherwise what is handed in.
    int statusOr(int status) const { return status_.value_or(status); }

    /// The session may be about to end. Returns whether everything is on the disk.
    bool prepare() { return program_.keepForNextStart(); }

protected:
    /// Sees the system's wish that the application quits.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void commitData(QSessionManager& manager);
    void end(int status);
    void endProgram();

    Program& program_;
    MessageBoxes& messages_;
    std::optional<int> status_;
#ifdef Q_OS_UNIX
    Interruption interruption_;
    Subscription interrupted_;
#endif
};

} // namespace orv
