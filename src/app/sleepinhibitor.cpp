// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/sleepinhibitor.h"

#include <optional>
#include <utility>

#if defined(Q_OS_LINUX)
#include "app/messagebus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
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
            knock_.emplace(address_, [this] {
                connected_ = true;
                ask(QDBusConnection::connectToBus(address_, connectionName()), QStringLiteral("idle:sleep"));
            });
        }
    }

    void release() override { letGo(); }
    bool isHeld() const override { return descriptor_.isValid(); }

private:
    static QString connectionName() { return QStringLiteral("orvhost-sleep"); }

    void letGo() {
        request_.reset(); // what is still granted is closed with its reply
        knock_.reset();
        descriptor_ = QDBusUnixFileDescriptor();
        if (std::exchange(connected_, false)) {
            QDBusConnection::disconnectFromBus(connectionName());
        }
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
    std::optional<BusKnock> knock_;
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
