// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <vector>

namespace orv {

/// A serial port of this computer and what its adapter says of itself; what it does not say is empty.
struct ListedPort {
    QString name;
    QString description;
    QString manufacturer;

    bool operator==(const ListedPort&) const = default;
};

/// The serial ports of this computer.
class PortList {
public:
    PortList() = default;
    PortList(const PortList&) = delete;
    PortList& operator=(const PortList&) = delete;
    virtual ~PortList() = default;

    /// The ports that there are now, in any order. Takes some milliseconds.
    virtual std::vector<ListedPort> ports() = 0;

    /// Whether ports() may say something else than at its last call. Takes some microseconds where that can be known
    /// without listing them.
    virtual bool mayHaveChanged() = 0;
};

} // namespace orv
