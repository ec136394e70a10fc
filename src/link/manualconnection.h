// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/session.h"

#include <QProperty>
#include <QString>

#include <array>
#include <functional>

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

/// What the "Manual Connection" dialog shows.
struct ManualConnectionState {
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
    ManualConnection(Session& session, ConnectItems& connection, ProgramActions& actions);

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

    ManualConnectionState shown;

    /// Calls `openport1` or `openport2`.
    std::function<void(int portNumber)> openport;

private:
    Session& session_;
    ConnectItems& connection_;
    ProgramActions& actions_;
    int showings_ = 0; ///< How often the dialog has been shown.
};

} // namespace orv
