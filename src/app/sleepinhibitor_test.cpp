// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/sleepinhibitor.h"

#include "app/messagebus.h"
#include "base/filedescriptor.h"
#include "testing/expected.h"
#include "testing/processes.h"
#include "testing/programrig.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QElapsedTimer>

#include <functional>
#include <optional>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace orv {
namespace {

bool isGranted(const SleepInhibitor& inhibitor, int milliseconds = patience) {
    return comesTrue([&inhibitor] { return inhibitor.isHeld(); }, milliseconds);
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

    bool isGivenBack() const {
        return comesTrue([this] { return !isInhibited(); });
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

std::string requestFor(const std::string& kind) {
    return "org.freedesktop.login1.Manager.Inhibit ssss|" + kind +
           "|ORV Host|Collecting data from the instrument|block";
}

class LogindTest : public testing::Test {
protected:
    /// A login manager on a bus that has just been started.
    LoginManager& startManager() {
        bus.start();
        return manager_.emplace(bus.address());
    }

    void stopBus() {
        manager_.reset();
        bus.stop();
    }

    /// Listens where the bus should be, with room for one who waits to be let in.
    void listen(FileDescriptor& listener) const {
        sockaddr_un place{};
        place.sun_family = AF_UNIX;
        const QByteArray path = bus.socketPath().toUtf8();
        ASSERT_LT(static_cast<std::size_t>(path.size()), sizeof(place.sun_path));
        std::copy(path.begin(), path.end(), std::begin(place.sun_path));
        listener.reset(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        ASSERT_EQ(::bind(listener.get(), reinterpret_cast<const sockaddr*>(&place), sizeof place), 0);
        ASSERT_EQ(::listen(listener.get(), 1), 0);
    }

    PrivateBus bus;

private:
    std::optional<LoginManager> manager_;

protected:
    std::unique_ptr<SleepInhibitor> inhibitor = makeSleepInhibitor(bus.address());
};

TEST_F(LogindTest, HoldsWhatIsGrantedUntilItIsReleased) {
    LoginManager& manager = startManager();
    settle(manager.bus());
    EXPECT_TRUE(manager.asked.isEmpty()) << "nothing is asked for before it is wanted";
    for (int run = 1; run <= 2; ++run) {
        inhibitor->take();
        inhibitor->take();
        EXPECT_TRUE(isGranted(*inhibitor));
        EXPECT_EQ(manager.asked.join(u'\n').toStdString(), requestFor("idle:sleep"));
        settle(manager.bus());
        EXPECT_TRUE(manager.isInhibited());
        inhibitor->release();
        EXPECT_FALSE(inhibitor->isHeld());
        EXPECT_TRUE(manager.isGivenBack());
        inhibitor->release();
        manager.asked.clear();
    }
}

TEST_F(LogindTest, HoldsTheIdleStateWhereSleepItselfMayNotBeBlocked) {
    LoginManager& manager = startManager();
    manager.denied << QStringLiteral("idle:sleep");
    inhibitor->take();
    EXPECT_TRUE(isGranted(*inhibitor));
    EXPECT_EQ(manager.asked.join(u'\n').toStdString(), requestFor("idle:sleep") + "\n" + requestFor("idle"));
    settle(manager.bus());
    EXPECT_TRUE(manager.isInhibited());
}

TEST_F(LogindTest, ARefusalIsTakenAndTheNextRunAsksAgain) {
    LoginManager& manager = startManager();
    manager.denied << QStringLiteral("idle:sleep") << QStringLiteral("idle");
    inhibitor->take();
    EXPECT_TRUE(comesTrue([&manager] { return manager.asked.size() == 2; }));
    settle(manager.bus());
    EXPECT_EQ(manager.asked.size(), 2);
    EXPECT_FALSE(inhibitor->isHeld());
    inhibitor->release();
    manager.denied.clear();
    inhibitor->take();
    EXPECT_TRUE(isGranted(*inhibitor));
}

TEST_F(LogindTest, WhatIsGrantedTooLateIsGivenBack) {
    LoginManager& manager = startManager();
    manager.answering = false;
    inhibitor->take();
    ASSERT_TRUE(comesTrue([&manager] { return manager.pending.has_value(); }));
    inhibitor->release();
    manager.answer(*manager.pending);
    EXPECT_TRUE(manager.isGivenBack());
    EXPECT_FALSE(inhibitor->isHeld());
}

TEST_F(LogindTest, ReleasedAtOnceItAsksForNothing) {
    LoginManager& manager = startManager();
    inhibitor->take();
    inhibitor->release();
    settle(manager.bus());
    EXPECT_TRUE(manager.asked.isEmpty());
}

TEST_F(LogindTest, ItsEndReleases) {
    LoginManager& manager = startManager();
    inhibitor->take();
    EXPECT_TRUE(isGranted(*inhibitor));
    EXPECT_TRUE(manager.isInhibited());
    inhibitor.reset();
    EXPECT_TRUE(manager.isGivenBack());
}

TEST_F(LogindTest, WithoutBusOrLoginManagerNothingHappensAndOneThatComesLaterIsFound) {
    inhibitor->take();
    EXPECT_FALSE(inhibitor->isHeld());
    inhibitor->release();

    bus.start();
    const QDBusConnection observer = QDBusConnection::connectToBus(bus.address(), QStringLiteral("observer"));
    inhibitor->take();
    settle(observer);
    EXPECT_FALSE(inhibitor->isHeld());
    inhibitor->release();

    LoginManager manager(bus.address());
    inhibitor->take();
    EXPECT_TRUE(isGranted(*inhibitor));
    inhibitor->release();
    QDBusConnection::disconnectFromBus(QStringLiteral("observer"));
}

TEST_F(LogindTest, ABusThatWasStartedAnewIsFound) {
    for (int start = 1; start <= 2; ++start) {
        startManager();
        inhibitor->take();
        EXPECT_TRUE(isGranted(*inhibitor)) << start;
        inhibitor->release();
        stopBus();
    }
}

TEST_F(LogindTest, ABusThatSaysNothingHoldsNothingUp) {
    FileDescriptor listener;
    listen(listener);
    QElapsedTimer timer;
    timer.start();
    // More often than the listener has room for those who wait at its door.
    for (int run = 0; run < 5; ++run) {
        inhibitor->take();
        QCoreApplication::processEvents();
        EXPECT_FALSE(inhibitor->isHeld());
        inhibitor->release();
    }
    inhibitor->take();
    inhibitor.reset();
    constexpr qint64 farLessThanABusIsWaitedFor = 15'000;
    EXPECT_LT(timer.elapsed(), farLessThanABusIsWaitedFor);
    pollfd knocked{.fd = listener.get(), .events = POLLIN, .revents = 0};
    EXPECT_EQ(::poll(&knocked, 1, 0), 1);
}

TEST_F(LogindTest, ABusThatHangsUpIsNone) {
    FileDescriptor listener;
    listen(listener);
    inhibitor->take();
    { const FileDescriptor caller(::accept(listener.get(), nullptr, nullptr)); }
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
    }
    EXPECT_FALSE(inhibitor->isHeld());
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
        {"", ""}};
    expectEach(addresses,
               [](const char* address) { return busSocketPath(QString::fromLatin1(address)).toStdString(); });
}

class RecordedInhibitor final : public SleepInhibitor {
public:
    void take() override { calls += "take "; }
    void release() override { calls += "release "; }

    std::string calls;
};

TEST(AwakeWhileCollecting, HoldsForRunsAndDownloadsOnly) {
    CommandState commands;
    RecordedInhibitor inhibitor;
    const AwakeWhileCollecting awake(commands, inhibitor);
    for (const Activity activity : {Activity::None, Activity::Connecting, Activity::Sending, Activity::SettingClock,
                                    Activity::ResettingShutter, Activity::None}) {
        commands.activity = activity;
        EXPECT_EQ(inhibitor.calls, "");
    }
    for (const Activity activity : {Activity::Collecting, Activity::Downloading}) {
        for (const Activity next : {Activity::None, Activity::Connecting, Activity::Sending}) {
            inhibitor.calls.clear();
            commands.activity = activity;
            EXPECT_EQ(inhibitor.calls, "take ");
            commands.activity = next;
            EXPECT_EQ(inhibitor.calls, "take release ");
        }
    }
    inhibitor.calls.clear();
    commands.activity = Activity::Collecting;
    commands.activity = Activity::Downloading;
    EXPECT_EQ(inhibitor.calls, "take ");
}

class AwakeProgram : public ProgramTest {
protected:
    RecordedInhibitor inhibitor;
    AwakeWhileCollecting awake{commands, inhibitor};
};

TEST_F(AwakeProgram, ConnectingAndReadingTheSettingsLetTheComputerSleep) {
    connectAndRead();
    EXPECT_EQ(inhibitor.calls, "");
}

TEST_F(AwakeProgram, ADownloadKeepsItAwakeUntilItsEnd) {
    connectAndRead();
    answers.fileName = folder.path("dump.txt");
    program.downloadText();
    EXPECT_EQ(inhibitor.calls, "take ");
    receive("O\r\n11/21/26\t2700\t1\t20\t30\t40\r\nEOF\r\n");
    ticks(4);
    EXPECT_EQ(inhibitor.calls, "take release ");
}

TEST_F(AwakeProgram, ARunKeepsItAwakeUntilItsEnd) {
    const std::function<void()> ends[] = {[this] {
                                              replies = {"V512\r"};
                                              program.reset();
                                          },
                                          [this] { program.closePort(); },
                                          [this] {
                                              com1.failureReason = QStringLiteral("The device is gone.");
                                              program.tick();
                                          },
                                          [this] { program.end(); }};
    for (const auto& end : ends) {
        program.clearAll();
        inhibitor.calls.clear();
        runWithRows(3);
        EXPECT_EQ(inhibitor.calls, "take ");
        end();
        EXPECT_EQ(inhibitor.calls, "take release ");
    }
}

} // namespace
} // namespace orv
