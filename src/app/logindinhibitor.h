// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/sleepinhibitor.h"
#include "base/filedescriptor.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusUnixFileDescriptor>
#include <QSocketNotifier>

namespace orv {

/// Asks Linux's login manager on the system bus for an inhibitor, and holds the file descriptor that it is.
///
/// Nothing here waits for the bus: it is first knocked at, and only one that answers is connected to, since that
/// handshake could not be had without waiting. The request is a pending call. A bus that is missing, silent or without
/// a login manager costs nothing and is not told of. The next take() tries again.
class LogindInhibitor final : public SleepInhibitor {
public:
    /// `busAddress` as the bus itself gives it ("unix:path=/run/dbus/system_bus_socket").
    explicit LogindInhibitor(QString busAddress);
    ~LogindInhibitor() override;

    void take() override;
    void release() override;

    /// Whether the login manager has granted it and it has not been released.
    bool isHeld() const { return descriptor_.isValid(); }

private:
    void knock();
    void heard();
    void connectToBus();
    void disconnectFromBus();
    /// Asks for an inhibitor of the first of these kinds that is granted.
    void request(const QStringList& kinds);

    QString address_;
    QString connectionName_; ///< Empty: not connected.
    bool wanted_ = false;
    FileDescriptor door_; ///< Open while the bus has not answered the knock.
    std::unique_ptr<QSocketNotifier> answer_;
    std::unique_ptr<QDBusPendingCallWatcher> call_;
    QDBusUnixFileDescriptor descriptor_;
};

/// The path of the socket in a bus address, of the first alternative that has one, or the empty text.
QString busSocketPath(const QString& address);

} // namespace orv
