// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "link/comports.h"
#include "link/session.h"
#include "link/waits.h"

#include <QProperty>

#include <array>
#include <optional>

namespace orv {

/// One of the four connect items of the menu.
struct ConnectItem {
    QProperty<bool> enabled{true};
    QProperty<bool> checked{false};
};

/// The connect items in the order in which the port is selected from them; a later checked item overrides.
struct ConnectItems {
    enum Item { Auto1, Auto2, Manual1, Manual2 };

    std::array<ConnectItem, 4> items;

    ConnectItem& operator[](Item item) { return items.at(static_cast<std::size_t>(item)); }
    const ConnectItem& operator[](Item item) const { return items.at(static_cast<std::size_t>(item)); }

    bool checked(Item item) const { return (*this)[item].checked.value(); }

    static int portNumber(Item item) { return item == Auto1 || item == Manual1 ? 1 : 2; }

    std::optional<Item> firstChecked() const {
        for (const Item item : {Auto1, Auto2, Manual1, Manual2}) {
            if (checked(item)) {
                return item;
            }
        }
        return std::nullopt;
    }

    /// The port number of the last checked item in order; 0 if none is checked.
    int checkedPort() const {
        int port = 0;
        for (const Item item : {Auto1, Auto2, Manual1, Manual2}) {
            if (checked(item)) {
                port = portNumber(item);
            }
        }
        return port;
    }

    void uncheckAll() {
        for (ConnectItem& item : items) {
            item.checked = false;
        }
    }

    void enableAll() {
        for (ConnectItem& item : items) {
            item.enabled = true;
        }
    }
};

/// Connecting to the instrument, closing the port again, and the reset that brings everything back to "Offline".
class Connection {
public:
    Connection(Session& session, DebugState& debug, ComPorts& ports, TimedWait& wait, EventYield& events,
               StatusTimer& timer);

    ConnectItems items;

    /// The items of the menu "Start Communication".
    void autoConnect1();
    void autoConnect2();
    void manualConnect(int portNumber);

    /// "Close Port".
    void closePort();

    /// The program-wide reset: the instrument port is closed and everything is "Offline" again. Ends with a dump of the
    /// state on the debug output.
    void fixit();

    /// Stops a running collection or download: the program is reset and the instrument woken again on the same port, by
    /// which it comes back to its prompt; nothing else is sent. Rows on the sheet stay. Nothing happens on a closed
    /// port or when no connect item is checked.
    void abortrun();

    /// Open the instrument port on COM 1 or COM 2 and wake the instrument, unless the port is open already.
    void openport1();
    void openport2();

    /// The same by number. Nothing happens for another number.
    void openport(int portNumber);

    /// A loop that does not yield to the event loop is running: no tick may be dispatched.
    bool isPolling() const { return polling_; }

    Signal<> pollingEnded; ///< Such a loop has ended.
    Signal<> aboutToClose; ///< By a reset or "Close Port"; the port may be closed already. Whoever writes a file ends
                           ///< it now.
    Signal<> wasReset;     ///< All but the dump.
    Signal<> identified;   ///< Type and firmware are known; the settings report has been requested.
    Signal<> manualWanted; ///< The operator is to go on with the "Manual Connection" dialog.

private:
    enum class WakeUp { Replied, NoReply, Gone };

    void openAs(ConnectItems::Item automatic, ConnectItems::Item manual);
    void openprt();
    void enableCommands(bool enabled);
    void hideFrames();
    void goOffline();
    void presets();
    WakeUp wakeUp();
    void attemptFailed();
    void listInputCount();
    void dumpState();

    Session& session_;
    DebugState& debug_;
    ComPorts& ports_;
    TimedWait& wait_;
    EventYield& events_;
    StatusTimer& timer_;
    Subscription portFailed_;
    bool polling_ = false;
};

} // namespace orv
