// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "link/comports.h"
#include "link/procedures.h"
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
    Connection(Session& session, DebugState& debug, ComPorts& ports, Waits& waits, StatusTimer& timer,
               Procedures& procedures);

    ConnectItems items;

    /// What the button beside a port's chooser can do.
    struct PortCommand {
        QProperty<bool> canConnect; ///< The port's automatic connect item can be chosen.
        QProperty<bool> canClose;   ///< The instrument's port is this one: "Close Port" closes it.
    };
    const PortCommand& portCommand(int portNumber) const {
        return portCommands_.at(static_cast<std::size_t>(portNumber - 1));
    }

    /// The button beside a port's chooser: the automatic item of that port, and always on that port. (The menu's item
    /// of Comm 1 stays on the port of the last session.)
    void autoConnect(int portNumber);

    /// The items of the menu "Start Communication".
    void autoConnect1();
    void autoConnect2();
    void manualConnect(int portNumber);

    /// "Close Port".
    void closePort();

    /// The program-wide reset: the instrument port is closed and everything is "Offline" again. Ends with a dump of the
    /// state on the debug output.
    void fixit();

    /// Stops whatever is under way with the instrument: the program is reset and the instrument woken again on the same
    /// port, by which it comes back to its prompt; nothing else is sent. Rows on the sheet stay. Without a checked
    /// connect item the automatic one of the port in use counts as checked. Nothing happens on a closed port.
    void abortrun();

    /// This connection, or the attempt at it, has followed one on the same port by a reset alone: the instrument is the
    /// one that was identified before.
    bool followsReset() const { return followsReset_; }

    /// Opens the instrument port on COM 1 or COM 2 and wakes the instrument, unless the port is open already. Nothing
    /// happens for another number. Throws ConnectionEnded if the port cannot be opened, which the operator has been
    /// told.
    Task<> openport(int portNumber);

    Signal<> aboutToClose; ///< By a reset or "Close Port"; the port may be closed already. Whoever writes a file ends
                           ///< it now.
    Signal<> wasReset;     ///< All but the dump.
    Signal<> identified;   ///< Type and firmware are known; the settings report has been requested.
    Signal<> manualWanted; ///< The operator is to go on with the "Manual Connection" dialog.

private:
    Task<> autoOpen1();
    Task<> autoOpen2();
    Task<> openport1();
    Task<> openport2();
    Task<> openAs(ConnectItems::Item automatic, ConnectItems::Item manual);
    Task<> openprt();
    void enableCommands(bool enabled);
    void hideFrames();
    void goOffline();
    Task<> presets();
    Task<bool> wakeUp();
    void attemptFailed();
    void beginAnew();
    void listInputCount();
    void dumpState();

    Session& session_;
    DebugState& debug_;
    ComPorts& ports_;
    Waits& waits_;
    StatusTimer& timer_;
    Procedures& procedures_;
    std::array<PortCommand, 2> portCommands_;
    bool identified_ = false; ///< On this connection.
    bool followsReset_ = false;
    Subscription portFailed_;
    Bindings bindings_;
};

} // namespace orv
