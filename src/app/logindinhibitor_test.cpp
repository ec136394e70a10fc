// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/logindinhibitor.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <functional>
#include <optional>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace orv {
namespace {

constexpr int patience = 60'000; // milliseconds

bool comesTrue(const std::function<bool()>& condition, int milliseconds = patience) {
    const QDeadlineTimer deadline(milliseconds);
    while (!condition() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    }
    return condition();
}

/// Lets everything happen that is on its way through the bus: a call there and back comes last.
void settle(const QDBusConnection& bus) {
    QDBusMessage ping = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                                       QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId"));
    for (int round = 0; round < 3; ++round) {
        const QDBusPendingCall call = bus.asyncCall(ping);
        EXPECT_TRUE(comesTrue([&call] { return call.isFinished(); }));
    }
}

/// What a login manager does with requests for inhibitors, on a bus of the test's own.
class LoginManager final : public QDBusVirtualObject {
public:
    explicit LoginManager(const QString& address)
        : bus_(QDBusConnection::connectToBus(address, QStringLiteral("login-manager"))) {
        EXPECT_TRUE(bus_.isConnected()) << bus_.lastError().message().toStdString();
        EXPECT_TRUE(bus_.registerVirtualObject(QStringLiteral("/org/freedesktop/login1"), this));
        EXPECT_TRUE(bus_.registerService(QStringLiteral("org.freedesktop.login1")));
    }
    ~LoginManager() override { QDBusConnection::disconnectFromBus(QStringLiteral("login-manager")); }
    LoginManager(const LoginManager&) = delete;
    LoginManager& operator=(const LoginManager&) = delete;

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) override {
        asked << message.interface() + u'.' + message.member() + u' ' + message.signature();
        for (const QVariant& argument : message.arguments()) {
            asked.back() += u'|' + argument.toString();
        }
        if (answering) {
            answer(message);
        } else {
            pending = message;
        }
        return true;
    }

    void answer(const QDBusMessage& message) {
        if (denied.contains(message.arguments().value(0).toString())) {
            bus_.send(message.createErrorReply(QStringLiteral("org.freedesktop.DBus.Error.AccessDenied"),
                                               QStringLiteral("Permission denied")));
            return;
        }
        int ends[2];
        ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
        watched_.reset(ends[0]);
        const FileDescriptor given(ends[1]);
        bus_.send(message.createReply(QVariant::fromValue(QDBusUnixFileDescriptor(given.get()))));
    }

    /// Whether somebody has the inhibitor that was given last.
    bool isInhibited() const {
        pollfd watched{.fd = watched_.get(), .events = 0, .revents = 0};
        return watched_.isOpen() && ::poll(&watched, 1, 0) == 0;
    }

    const QDBusConnection& bus() const { return bus_; }

    QStringList asked;
    QStringList denied;
    bool answering = true;
    std::optional<QDBusMessage> pending;

private:
    QDBusConnection bus_;
    FileDescriptor watched_;
};

const char* const wholeRequest = "org.freedesktop.login1.Manager.Inhibit ssss|idle:sleep|ORV Host|Collecting data from "
                                 "the instrument|block";
const char* const lesserRequest = "org.freedesktop.login1.Manager.Inhibit ssss|idle|ORV Host|Collecting data from "
                                  "the instrument|block";

class LogindTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder_.isValid());
        QFile file(folder_.filePath(QStringLiteral("bus.conf")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
                   " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
                   "<busconfig><type>session</type><listen>" +
                   address().toUtf8() +
                   "</listen><auth>EXTERNAL</auth><policy context=\"default\"><allow send_destination=\"*\"/><allow "
                   "receive_sender=\"*\"/>"
                   "<allow own=\"*\"/></policy></busconfig>\n");
    }
    void TearDown() override { stopBus(); }

    QString socketPath() const { return folder_.filePath(QStringLiteral("bus")); }
    QString address() const { return QStringLiteral("unix:path=") + socketPath(); }

    void startBus() {
        daemon_.start(QStringLiteral("dbus-daemon"),
                      {QStringLiteral("--nofork"), QStringLiteral("--print-address"), QStringLiteral("--config-file"),
                       folder_.filePath(QStringLiteral("bus.conf"))});
        ASSERT_TRUE(daemon_.waitForReadyRead(patience))
            << "dbus-daemon is needed: " << daemon_.errorString().toStdString()
            << daemon_.readAllStandardError().toStdString();
    }

    void stopBus() {
        if (daemon_.state() != QProcess::NotRunning) {
            daemon_.terminate();
            EXPECT_TRUE(daemon_.waitForFinished(patience));
        }
        QFile::remove(socketPath());
    }

    /// Listens where the bus should be, with room for one who waits to be let in.
    void listen(FileDescriptor& listener) const {
        sockaddr_un place{};
        place.sun_family = AF_UNIX;
        const QByteArray path = socketPath().toUtf8();
        ASSERT_LT(static_cast<std::size_t>(path.size()), sizeof(place.sun_path));
        std::copy(path.begin(), path.end(), std::begin(place.sun_path));
        listener.reset(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        ASSERT_EQ(::bind(listener.get(), reinterpret_cast<const sockaddr*>(&place), sizeof place), 0);
        ASSERT_EQ(::listen(listener.get(), 1), 0);
    }

private:
    QTemporaryDir folder_;
    QProcess daemon_;
};

TEST_F(LogindTest, HoldsWhatIsGrantedUntilItIsReleased) {
    startBus();
    LoginManager manager(address());
    LogindInhibitor inhibitor(address());
    settle(manager.bus());
    EXPECT_TRUE(manager.asked.isEmpty()) << "nothing is asked for before it is wanted";
    for (int run = 1; run <= 2; ++run) {
        inhibitor.take();
        inhibitor.take();
        EXPECT_TRUE(comesTrue([&inhibitor] { return inhibitor.isHeld(); }));
        EXPECT_EQ(manager.asked.join(u'\n').toStdString(), wholeRequest);
        settle(manager.bus());
        EXPECT_TRUE(manager.isInhibited());
        inhibitor.release();
        EXPECT_FALSE(inhibitor.isHeld());
        EXPECT_TRUE(comesTrue([&manager] { return !manager.isInhibited(); }));
        inhibitor.release();
        manager.asked.clear();
    }
}

TEST_F(LogindTest, HoldsTheIdleStateWhereSleepItselfMayNotBeBlocked) {
    startBus();
    LoginManager manager(address());
    manager.denied << QStringLiteral("idle:sleep");
    LogindInhibitor inhibitor(address());
    inhibitor.take();
    EXPECT_TRUE(comesTrue([&inhibitor] { return inhibitor.isHeld(); }));
    EXPECT_EQ(manager.asked.join(u'\n').toStdString(), std::string(wholeRequest) + "\n" + lesserRequest);
    settle(manager.bus());
    EXPECT_TRUE(manager.isInhibited());
}

TEST_F(LogindTest, ARefusalIsTakenAndTheNextRunAsksAgain) {
    startBus();
    LoginManager manager(address());
    manager.denied << QStringLiteral("idle:sleep") << QStringLiteral("idle");
    LogindInhibitor inhibitor(address());
    inhibitor.take();
    EXPECT_TRUE(comesTrue([&manager] { return manager.asked.size() == 2; }));
    settle(manager.bus());
    EXPECT_EQ(manager.asked.size(), 2);
    EXPECT_FALSE(inhibitor.isHeld());
    inhibitor.release();
    manager.denied.clear();
    inhibitor.take();
    EXPECT_TRUE(comesTrue([&inhibitor] { return inhibitor.isHeld(); }));
}

TEST_F(LogindTest, WhatIsGrantedTooLateIsGivenBack) {
    startBus();
    LoginManager manager(address());
    manager.answering = false;
    LogindInhibitor inhibitor(address());
    inhibitor.take();
    ASSERT_TRUE(comesTrue([&manager] { return manager.pending.has_value(); }));
    inhibitor.release();
    manager.answer(*manager.pending);
    EXPECT_TRUE(comesTrue([&manager] { return !manager.isInhibited(); }));
    EXPECT_FALSE(inhibitor.isHeld());
}

TEST_F(LogindTest, ReleasedAtOnceItAsksForNothing) {
    startBus();
    LoginManager manager(address());
    LogindInhibitor inhibitor(address());
    inhibitor.take();
    inhibitor.release();
    settle(manager.bus());
    EXPECT_TRUE(manager.asked.isEmpty());
}

TEST_F(LogindTest, ItsEndReleases) {
    startBus();
    LoginManager manager(address());
    {
        LogindInhibitor inhibitor(address());
        inhibitor.take();
        EXPECT_TRUE(comesTrue([&inhibitor] { return inhibitor.isHeld(); }));
        EXPECT_TRUE(manager.isInhibited());
    }
    EXPECT_TRUE(comesTrue([&manager] { return !manager.isInhibited(); }));
}

TEST_F(LogindTest, WithoutBusOrLoginManagerNothingHappensAndOneThatComesLaterIsFound) {
    LogindInhibitor inhibitor(address());
    inhibitor.take();
    EXPECT_FALSE(inhibitor.isHeld());
    inhibitor.release();

    startBus();
    const QDBusConnection observer = QDBusConnection::connectToBus(address(), QStringLiteral("observer"));
    inhibitor.take();
    settle(observer);
    EXPECT_FALSE(inhibitor.isHeld());
    inhibitor.release();

    LoginManager manager(address());
    inhibitor.take();
    EXPECT_TRUE(comesTrue([&inhibitor] { return inhibitor.isHeld(); }));
    inhibitor.release();
    QDBusConnection::disconnectFromBus(QStringLiteral("observer"));
}

TEST_F(LogindTest, ABusThatWasStartedAnewIsFound) {
    startBus();
    LogindInhibitor inhibitor(address());
    {
        LoginManager manager(address());
        inhibitor.take();
        EXPECT_TRUE(comesTrue([&inhibitor] { return inhibitor.isHeld(); }));
        inhibitor.release();
    }
    stopBus();
    startBus();
    LoginManager manager(address());
    // That the old connection has ended is not known at once.
    constexpr int attempts = 60;
    for (int attempt = 0; attempt < attempts && !inhibitor.isHeld(); ++attempt) {
        inhibitor.release();
        inhibitor.take();
        comesTrue([&inhibitor] { return inhibitor.isHeld(); }, 1000);
    }
    EXPECT_TRUE(inhibitor.isHeld());
}

TEST_F(LogindTest, ABusThatSaysNothingHoldsNothingUp) {
    FileDescriptor listener;
    listen(listener);
    QElapsedTimer timer;
    timer.start();
    {
        LogindInhibitor inhibitor(address());
        // More often than the listener has room for those who wait at its door.
        for (int run = 0; run < 5; ++run) {
            inhibitor.take();
            QCoreApplication::processEvents();
            EXPECT_FALSE(inhibitor.isHeld());
            inhibitor.release();
        }
        inhibitor.take();
    }
    constexpr qint64 farLessThanABusIsWaitedFor = 15'000;
    EXPECT_LT(timer.elapsed(), farLessThanABusIsWaitedFor);
    pollfd knocked{.fd = listener.get(), .events = POLLIN, .revents = 0};
    EXPECT_EQ(::poll(&knocked, 1, 0), 1);
}

TEST_F(LogindTest, ABusThatHangsUpIsNone) {
    FileDescriptor listener;
    listen(listener);
    LogindInhibitor inhibitor(address());
    inhibitor.take();
    { const FileDescriptor caller(::accept(listener.get(), nullptr, nullptr)); }
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
    }
    EXPECT_FALSE(inhibitor.isHeld());
    pollfd knocked{.fd = listener.get(), .events = POLLIN, .revents = 0};
    EXPECT_EQ(::poll(&knocked, 1, 0), 0) << "it is not connected to";
}

TEST(BusSocketPath, IsThatOfTheFirstAlternativeThatHasOne) {
    const std::pair<const char*, const char*> addresses[] = {
        {"unix:path=/run/dbus/system_bus_socket", "/run/dbus/system_bus_socket"},
        {"unix:guid=0123,path=/tmp/bus", "/tmp/bus"},
        {"tcp:host=localhost,port=1;unix:abstract=/x;unix:path=/tmp/a%20bus,guid=01", "/tmp/a bus"},
        {"unix:path=/one;unix:path=/two", "/one"},
        {"unix:abstract=/tmp/bus", ""},
        {"tcp:path=/no", ""},
        {"", ""},
    };
    for (const auto& [address, path] : addresses) {
        EXPECT_EQ(busSocketPath(QString::fromLatin1(address)).toStdString(), path) << address;
    }
}

} // namespace
} // namespace orv
