// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/sleepinhibitor.h"

#include <QRegularExpression>

#include <utility>

#if defined(Q_OS_LINUX)
#include "base/filedescriptor.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QSocketNotifier>

#include <algorithm>
#include <string_view>

#include <sys/socket.h>
#include <sys/un.h>
#elif defined(Q_OS_WIN)
#include <windows.h>
#endif

namespace orv {

AwakeWhileCollecting::AwakeWhileCollecting(const CommandState& commands, SleepInhibitor& inhibitor) {
    bindings_.bind(commands.activity, [this, &inhibitor](Activity activity) {
        const bool wanted = activity == Activity::Collecting || activity == Activity::Downloading;
        if (std::exchange(held_, wanted) != wanted) {
            if (wanted) {
                inhibitor.take();
            } else {
                inhibitor.release();
            }
        }
    });
}

QString busSocketPath(const QString& address) {
    static const QRegularExpression form(QStringLiteral("(?:^|;)unix:(?:[^;,]*,)*path=([^;,]*)"));
    return QString::fromUtf8(QByteArray::fromPercentEncoding(form.match(address).captured(1).toUtf8()));
}

namespace {

#if defined(Q_OS_LINUX)
/// Holds the file descriptor that the login manager gives. A bus that is missing, silent or without a login manager
/// costs nothing and is not told of; the next take() tries again.
class LogindInhibitor final : public SleepInhibitor {
public:
    explicit LogindInhibitor(QString busAddress)
        : address_(std::move(busAddress)) {}
    ~LogindInhibitor() override { letGo(); }

    void take() override {
        if (!request_) {
            request_ = std::make_unique<QObject>();
            knock();
        }
    }

    void release() override { letGo(); }
    bool isHeld() const override { return descriptor_.isValid(); }

private:
    static QString connectionName() { return QStringLiteral("orvhost-sleep"); }

    void letGo() {
        request_.reset(); // what is still granted is closed with its reply
        door_.reset();
        descriptor_ = QDBusUnixFileDescriptor();
        if (std::exchange(connected_, false)) {
            QDBusConnection::disconnectFromBus(connectionName());
        }
    }

    /// To connect waits for the bus, so only one that has answered is connected to.
    void knock() {
        sockaddr_un place{};
        place.sun_family = AF_UNIX;
        const QByteArray path = QFile::encodeName(busSocketPath(address_));
        if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof(place.sun_path)) {
            return;
        }
        std::copy(path.begin(), path.end(), std::begin(place.sun_path));
        door_.reset(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
        // A bus answers a request to authenticate by nothing with the ways that it knows.
        constexpr std::string_view request("\0AUTH\r\n", 7);
        if (::connect(door_.get(), reinterpret_cast<const sockaddr*>(&place), sizeof place) != 0 ||
            ::send(door_.get(), request.data(), request.size(), MSG_NOSIGNAL) < 0) {
            return;
        }
        auto* answer = new QSocketNotifier(door_.get(), QSocketNotifier::Read, request_.get());
        QObject::connect(answer, &QSocketNotifier::activated, request_.get(), [this, answer] {
            answer->setEnabled(false); // before the descriptor that it watches is closed
            char first = 0;
            const bool answered = ::recv(door_.get(), &first, 1, 0) == 1;
            door_.reset();
            if (answered) {
                connected_ = true;
                ask(QDBusConnection::connectToBus(address_, connectionName()), QStringLiteral("idle:sleep"));
            }
        });
    }

    void ask(const QDBusConnection& bus, const QString& kind) {
        const QString manager = QStringLiteral("org.freedesktop.login1");
        QDBusMessage message =
            QDBusMessage::createMethodCall(manager, QStringLiteral("/org/freedesktop/login1"),
                                           manager + QLatin1String(".Manager"), QStringLiteral("Inhibit"));
        message << kind << QStringLiteral("ORV Host") << QStringLiteral("Collecting data from the instrument")
                << QStringLiteral("block");
        constexpr int mostMilliseconds = 30'000; // after that the run goes on without
        auto* call = new QDBusPendingCallWatcher(bus.asyncCall(message, mostMilliseconds), request_.get());
        QObject::connect(call, &QDBusPendingCallWatcher::finished, request_.get(), [this, bus, kind, call] {
            const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *call;
            // Sleep itself first: desktops that go to sleep by their own clock do not ask the login manager whether
            // somebody is busy. To block the idle state alone is allowed to everybody.
            if (!reply.isError()) {
                descriptor_ = reply.value();
            } else if (kind != u"idle") {
                ask(bus, QStringLiteral("idle"));
            }
        });
    }

    QString address_;
    std::unique_ptr<QObject> request_; ///< While taken; what is on its way goes with it.
    FileDescriptor door_;              ///< Open until the bus has answered the knock.
    bool connected_ = false;
    QDBusUnixFileDescriptor descriptor_;
};
#elif defined(Q_OS_WIN)
/// What it says holds for the thread that says it: the program has only one.
class WindowsInhibitor final : public SleepInhibitor {
public:
    ~WindowsInhibitor() override { ::SetThreadExecutionState(ES_CONTINUOUS); }
    void take() override { held_ = ::SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED) != 0; }
    void release() override {
        held_ = false;
        ::SetThreadExecutionState(ES_CONTINUOUS);
    }
    bool isHeld() const override { return held_; }

private:
    bool held_ = false;
};
#endif

} // namespace

std::unique_ptr<SleepInhibitor> makeSleepInhibitor([[maybe_unused]] const QString& busAddress) {
#if defined(Q_OS_LINUX)
    return std::make_unique<LogindInhibitor>(
        busAddress.isEmpty()
            ? qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS", QStringLiteral("unix:path=/run/dbus/system_bus_socket"))
            : busAddress);
#elif defined(Q_OS_WIN)
    return std::make_unique<WindowsInhibitor>();
#else
    return std::make_unique<SleepInhibitor>();
#endif
}

} // namespace orv
