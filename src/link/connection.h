// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/comports.h"
#include "link/manualconnection.h"
#include "link/session.h"
#include "link/waits.h"

namespace orv {

/// Connecting to the instrument and closing the port again.
class Connection {
public:
    /// What the link's procedures work on; everything outlives the connection.
    struct Parts {
        Session& session;
        ConnectItems& items;
        ComPorts& ports;
        DebugState& debug;
        TimedWait& wait;
        EventYield& events;
        ManualConnection& manual;
        StatusTimer& timer;
        ProgramActions& actions;
    };

    explicit Connection(const Parts& parts);

    /// The items of the menu "Start Communication".
    void autoConnect1();
    void autoConnect2();
    void manualConnect(int portNumber);

    /// "Close Port".
    void closePort();

    /// Open the instrument port on COM 1 or COM 2 and wake the instrument, unless the port is open already.
    void openport1();
    void openport2();

    /// A loop that does not yield to the event loop is running: no tick may be dispatched.
    bool isPolling() const { return polling_; }

    /// Called when such a loop has ended.
    std::function<void()> pollingEnded;

private:
    enum class WakeUp { Replied, NoReply, Gone };

    void openport(int portNumber);
    void openprt();
    void closingBranch();
    void presets();
    WakeUp wakeUp();
    void attemptFailed();
    void listInputCount();

    Parts p_;
    bool polling_ = false;
};

/// Stops a running collection or download: the program is reset and the instrument woken again on the same port, by
/// which it comes back to its prompt; nothing else is sent. Rows on the sheet stay. Nothing happens on a closed port
/// or when no connect item is checked.
class AbortRun {
public:
    AbortRun(Session& session, ConnectItems& items, ComPorts& ports, Connection& connection, ManualConnection& manual,
             ProgramActions& actions);

    void abortrun();

private:
    Session& session_;
    ConnectItems& items_;
    ComPorts& ports_;
    Connection& connection_;
    ManualConnection& manual_;
    ProgramActions& actions_;
};

} // namespace orv
