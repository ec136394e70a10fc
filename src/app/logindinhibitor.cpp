// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/logindinhibitor.h"

#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QFile>

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace orv {

namespace {

/// So long may the login manager take; after that the run goes on without.
constexpr int requestMilliseconds = 30'000;

/// Sleep itself, where this is allowed: desktops that go to sleep by their own clock do not ask the login manager
/// whether somebody is busy. To block the idle state alone is allowed to everybody.
QStringList kindsByPreference() {
    return {QStringLiteral("idle:sleep"), QStringLiteral("idle")};
}

/// Lets go of an object that is emitting a signal just now.
template <typename Object>
void retire(std::unique_ptr<Object>& object) {
    if (object) {
        object->disconnect();
        object.release()->deleteLater();
    }
}

} // namespace

QString busSocketPath(const QString& address) {
    const QLatin1String prefix("path=");
    for (const QString& part : address.split(u';')) {
        if (!part.startsWith(QLatin1String("unix:"))) {
            continue;
        }
        for (const QString& field : part.mid(5).split(u',')) {
            if (field.startsWith(prefix)) {
                return QString::fromUtf8(QByteArray::fromPercentEncoding(field.mid(prefix.size()).toUtf8()));
            }
        }
    }
    return {};
}

LogindInhibitor::LogindInhibitor(QString busAddress)
    : address_(std::move(busAddress)) {}

LogindInhibitor::~LogindInhibitor() {
    release();
    disconnectFromBus();
}

void LogindInhibitor::disconnectFromBus() {
    if (!connectionName_.isEmpty()) {
        QDBusConnection::disconnectFromBus(connectionName_);
        connectionName_.clear();
    }
}

void LogindInhibitor::take() {
    if (wanted_) {
        return;
    }
    wanted_ = true;
    if (!connectionName_.isEmpty() && !QDBusConnection(connectionName_).isConnected()) {
        disconnectFromBus(); // the bus has been started anew
    }
    if (connectionName_.isEmpty()) {
        knock();
    } else {
        request(kindsByPreference());
    }
}

void LogindInhibitor::release() {
    wanted_ = false;
    answer_.reset();
    door_.reset();
    call_.reset(); // a descriptor that still comes is closed with its reply
    descriptor_ = QDBusUnixFileDescriptor();
}

void LogindInhibitor::knock() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray path = QFile::encodeName(busSocketPath(address_));
    if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof(address.sun_path)) {
        return;
    }
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    door_.reset(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    // A bus answers a request to authenticate by nothing with the ways that it knows.
    constexpr std::string_view request("\0AUTH\r\n", 7);
    if (!door_.isOpen() || ::connect(door_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::send(door_.get(), request.data(), request.size(), MSG_NOSIGNAL) < 0) {
        door_.reset();
        return;
    }
    answer_ = std::make_unique<QSocketNotifier>(door_.get(), QSocketNotifier::Read);
    QObject::connect(answer_.get(), &QSocketNotifier::activated, answer_.get(), [this] { heard(); });
}

void LogindInhibitor::heard() {
    char first = 0;
    const bool answered = ::recv(door_.get(), &first, 1, 0) == 1;
    answer_->setEnabled(false); // before the descriptor that it watches is closed
    retire(answer_);
    door_.reset();
    if (answered) {
        connectToBus();
    }
}

void LogindInhibitor::connectToBus() {
    static int connections = 0;
    connectionName_ = QStringLiteral("orvhost-sleep-%1").arg(++connections);
    if (QDBusConnection::connectToBus(address_, connectionName_).isConnected()) {
        request(kindsByPreference());
    } else {
        disconnectFromBus();
    }
}

void LogindInhibitor::request(const QStringList& kinds) {
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
    message << kinds.constFirst() << QStringLiteral("ORV Host") << QStringLiteral("Collecting data from the instrument")
            << QStringLiteral("block");
    call_ = std::make_unique<QDBusPendingCallWatcher>(
        QDBusConnection(connectionName_).asyncCall(message, requestMilliseconds));
    QObject::connect(call_.get(), &QDBusPendingCallWatcher::finished, call_.get(), [this, kinds] {
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *call_;
        retire(call_);
        if (!reply.isError()) {
            descriptor_ = reply.value();
        } else if (kinds.size() > 1) {
            request(kinds.mid(1));
        }
    });
}

} // namespace orv
