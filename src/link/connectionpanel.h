// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProperty>
#include <QString>

#include <array>

namespace orv {

/// One of the four connect items of the menu.
struct ConnectItem {
    QProperty<bool> enabled{true};
    QProperty<bool> checked{false};
};

/// The connect items in the order in which the port is selected from them; a later checked item overrides.
struct ConnectionPanel {
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

} // namespace orv
