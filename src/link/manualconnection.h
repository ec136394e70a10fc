// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "link/connection.h"

#include <QProperty>
#include <QString>

namespace orv {

/// What the "Manual Connection" dialog shows.
struct ManualConnectionState {
    QProperty<bool> visible{false};
    QProperty<Words> text;
    QProperty<bool> startVisible{false};
    QProperty<bool> startEnabled{true};
    QProperty<bool> proceedVisible{true};
    QProperty<bool> retryEnabled{true};
    QProperty<bool> seeking{false}; ///< "Start" waits without limit for the instrument.

    /// What follows for "Start" and "Retry": while a procedure has the instrument, or its port is open, they could do
    /// nothing, and `reason` says so; it is empty otherwise.
    QProperty<bool> canStart;
    QProperty<bool> canRetry;
    QProperty<Words> reason;

    /// What is to be done now, or why the dialog has been shown, if an attempt or a connection ended by itself; may be
    /// empty.
    QProperty<Words> advice;
};

/// The "Manual Connection" dialog: lets the operator connect with a power cycle, by hand or after a failed attempt.
/// Shown when the connection wants it.
class ManualConnection {
public:
    ManualConnection(Session& session, Connection& connection, Procedures& procedures);

    /// Opens the dialog afresh, with the text of the checked connect item; no text if none is checked.
    void show();
    void hide();

    /// The dialog's buttons. While start() waits for the instrument, a notice says what ends it.
    void proceed();
    void start();
    void retry();
    void quit();

    /// The dialog was closed by its frame or by Esc: while the instrument is not connected that is "Quit", afterwards
    /// the dialog only goes away.
    void closed();

    ManualConnectionState shown;

private:
    Task<> seek();

    Session& session_;
    Connection& connection_;
    Procedures& procedures_;
    Subscription wanted_;
    int showings_ = 0; ///< How often the dialog has been shown.
};

} // namespace orv
