// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/connectionpanel.h"
#include "session/programactions.h"
#include "session/session.h"

#include <functional>

namespace orv {

/// What the "Manual Connection" dialog shows.
struct ManualConnectionPanel {
    QProperty<bool> visible{false};
    QProperty<QString> text;
    QProperty<bool> startVisible{false};
    QProperty<bool> startEnabled{true};
    QProperty<bool> proceedVisible{true};
    QProperty<bool> retryEnabled{true};
};

/// The "Manual Connection" dialog: lets the operator connect with a power cycle, by hand or after a failed attempt.
class ManualConnection {
public:
    ManualConnection(Session& session, ConnectionPanel& connection, ProgramActions& actions);

    /// Opens the dialog afresh, with the text of the checked connect item; no text if none is checked.
    void show();
    void hide();

    /// The dialog's buttons. While start() waits for the instrument, a notice says that this dialog alone can end it.
    void proceed();
    void start();
    void retry();
    void quit();

    /// The dialog was closed by its frame or by Esc: while the instrument is not connected that is "Quit", afterwards
    /// the dialog only goes away.
    void closed();

    ManualConnectionPanel panel;

    /// Calls `openport1` or `openport2`.
    std::function<void(int portNumber)> openport;

private:
    Session& session_;
    ConnectionPanel& connection_;
    ProgramActions& actions_;
    int showings_ = 0; ///< How often the dialog has been shown.
};

} // namespace orv
