// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/manualconnection.h"

#include <QScopeGuard>

namespace orv {

namespace {

Words manualText(int portNumber) {
    return Words::tr("To start manual connection on Comm %1, click Proceed. If you wish to exit connection proccess "
                     "click Quit")
        .arg(portNumber);
}

Words failureText(int portNumber) {
    // Six blanks after "Failed!" are this message's own layout.
    return Words::tr("Attempt to Auto Connect Via Comm %1 Failed!      Make sure that this cable is DTR enabled, that "
                     "power is supplied to the instrument, and that you selected the right Comm Port. Click Retry "
                     "when ready.")
        .arg(portNumber);
}

} // namespace

ManualConnection::ManualConnection(Session& session, Connection& connection, Procedures& procedures)
    : session_(session)
    , connection_(connection)
    , procedures_(procedures)
    , wanted_(connection.manualWanted.subscribe([this] { show(); })) {
    shown.reason.setBinding([this] {
        if (procedures_.running) {
            return Words::tr("An attempt is under way.");
        }
        return session_.commands.portOpen
                   ? Words::tr("The port is still open, so this would do nothing. Press Quit, then connect again.")
                   : Words();
    });
    shown.canStart.setBinding([this] { return shown.startEnabled.value() && shown.reason.value().isEmpty(); });
    shown.advice.setBinding([this] {
        if (shown.seeking) {
            return Words::tr("Switch the instrument's power on: its first line is waited for. Quit ends the wait.");
        }
        // The text asks for "Start" then, whatever the port.
        Words failure = session_.status.failure;
        if (!failure.isEmpty() && shown.startVisible && !shown.reason.value().isEmpty()) {
            return Words::tr("%1 \"Start\" can do nothing while the port is open.").arg(failure);
        }
        return failure;
    });
    shown.canRetry.setBinding([this] { return shown.retryEnabled.value() && shown.reason.value().isEmpty(); });
}

void ManualConnection::show() {
    ++showings_;
    shown.startVisible = false;
    shown.startEnabled = true;
    shown.proceedVisible = true;
    shown.retryEnabled = true;
    const ConnectItems& items = connection_.items;
    Words text;
    if (items.checked(ConnectItems::Manual1)) {
        text = manualText(1);
    } else if (items.checked(ConnectItems::Manual2)) {
        text = manualText(2);
    } else if (items.checked(ConnectItems::Auto1)) {
        text = failureText(1);
    } else if (items.checked(ConnectItems::Auto2)) {
        text = failureText(2);
    }
    shown.text = text;
    shown.visible = true;
}

void ManualConnection::hide() {
    shown.visible = false;
}

void ManualConnection::proceed() {
    shown.proceedVisible = false;
    shown.startVisible = true;
    shown.text = Words::tr("Shut power off of sensor. Press (Start) then turn power on.");
}

void ManualConnection::start() {
    procedures_.start(Words::tr("Manual Connect"), [this] { return seek(); });
}

Task<> ManualConnection::seek() {
    session_.state.Seeking = 1;
    session_.status.notice = Words::tr("Waiting for the instrument. \"Quit\" in the dialog ends it.");
    shown.seeking = true;
    shown.retryEnabled = false;
    shown.startEnabled = false;
    const int showing = showings_;
    const auto ended = qScopeGuard([this, showing] {
        session_.status.notice = QString();
        shown.seeking = false;
        session_.state.Seeking = 0; // connected or ended: a later automatic attempt must be bounded
        // The dialog may have been shown afresh during the attempt: that one stays.
        if (showings_ == showing) {
            hide();
        }
    });
    co_await connection_.openport(session_.state.Portused);
}

void ManualConnection::retry() {
    // A failed automatic attempt leaves the port open, and an open port is not opened again: the way on is "Quit",
    // "Reset" or "Close Port".
    procedures_.start(Words::tr("Manual Connect"), [this] { return connection_.openport(session_.state.Portused); });
}

void ManualConnection::quit() {
    session_.state.Seeking = 0;
    connection_.items.uncheckAll();
    connection_.fixit();
    hide();
}

void ManualConnection::closed() {
    // The code is back at idle after a download too; the menu is there while the instrument is known.
    if (session_.state.Ctrlscrn == Operation::Idle && !session_.commands.processingMenuVisible) {
        quit();
    } else {
        hide();
    }
}

} // namespace orv
