// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/filedescriptor.h"

#include <QObject>
#include <QString>

#include <functional>

namespace orv {

/// The path of the socket in a bus address ("unix:path=/run/dbus/system_bus_socket"), of the first alternative that has
/// one, or the empty text.
QString busSocketPath(const QString& address);

/// Knocks at the door of a message bus and calls `answered` from the event loop if somebody is there. To connect to a
/// bus waits for it, so only one that has answered should be connected to; a knock waits for nothing. A bus that is
/// missing or silent never answers; who goes before the answer is not called.
class BusKnock final {
public:
    BusKnock(const QString& address, std::function<void()> answered);

private:
    FileDescriptor door_; ///< Open until the bus has answered.
    QObject listener_;
};

} // namespace orv
