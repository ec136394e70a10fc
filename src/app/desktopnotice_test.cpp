// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/desktopnotice.h"

#include "testing/processes.h"
#include "testing/programrig.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace orv {
namespace {

/// A desktop's notification service, on a bus of the test's own.
class Desktop final : public QDBusVirtualObject {
public:
    explicit Desktop(const QString& address)
        : bus_(QDBusConnection::connectToBus(address, QStringLiteral("desktop"))) {
        EXPECT_TRUE(bus_.registerVirtualObject(QStringLiteral("/org/freedesktop/Notifications"), this));
        EXPECT_TRUE(bus_.registerService(QStringLiteral("org.freedesktop.Notifications")));
    }
    ~Desktop() override { QDBusConnection::disconnectFromBus(QStringLiteral("desktop")); }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) override {
        shown << message.interface() + u'.' + message.member() + u' ' + message.signature();
        for (const QVariant& argument : message.arguments().mid(0, 5)) {
            shown.back() += u'|' + argument.toString();
        }
        bus_.send(message.createReply(1U));
        return true;
    }

    QStringList shown;

private:
    QDBusConnection bus_;
};

TEST(DesktopNotice, AppearsOnTheDesktop) {
    PrivateBus bus;
    bus.start();
    Desktop desktop(bus.address());
    const auto notice = makeDesktopNotice(bus.address());
    for (int time = 1; time <= 2; ++time) {
        notice->show(QStringLiteral("The run has ended"), QStringLiteral("3 rows & more"));
        EXPECT_TRUE(comesTrue([&] { return desktop.shown.size() == time; }));
        EXPECT_EQ(desktop.shown.back().toStdString(),
                  "org.freedesktop.Notifications.Notify susssasa{sv}i|ORV Host|0|orvhost|The run has ended|3 rows "
                  "&amp; more");
    }
}

TEST(DesktopNotice, WithoutBusOrServiceNothingHappensAndNothingWaits) {
    PrivateBus bus;
    QElapsedTimer timer;
    timer.start();
    const auto notice = makeDesktopNotice(bus.address());
    notice->show({}, {});
    bus.start();
    notice->show({}, {});
    QCoreApplication::processEvents();
    constexpr qint64 farLessThanABusIsWaitedFor = 15'000;
    EXPECT_LT(timer.elapsed(), farLessThanABusIsWaitedFor);
}

class RecordedNotice final : public DesktopNotice {
public:
    void show(const QString& title, const QString& text) override {
        shown += title.toStdString() + ": " + text.toStdString() + "\n";
    }

    std::string shown;
};

class NoticeTest : public ProgramTest {
protected:
    void run(double seconds) {
        runWithRows(1);
        live(seconds);
    }

    RecordedNotice notice;
    bool active = false;
    NoticeWhenDone whenDone{program, notice, [this] { return active; }};
};

TEST_F(NoticeTest, TellsThatALongRunHasEndedAndWhatIsNext) {
    run(31.0);
    receive(">\r\n");
    live(0.1);
    EXPECT_EQ(notice.shown, "The run has ended: 1 row, not saved. Save As is on the page Output: Spread Sheet.\n");
}

TEST_F(NoticeTest, TellsThatAPulledCableHasEndedIt) {
    run(31.0);
    com1.failureReason = QStringLiteral("Gone.");
    live(1.0);
    EXPECT_EQ(notice.shown, "The run has ended: COM 1 (ttyA) was lost. Check the cable, then press Connect. "
                            "1 row, not saved.\n");
}

TEST_F(NoticeTest, TellsThatALongDownloadHasEnded) {
    connectAndRead();
    program.vwhp();
    receive("O\r\n");
    for (int record = 0; record < 40; ++record) {
        receive("11/21/26\t2700\t1\t20\t30\t40\r\n");
        live(1.0);
    }
    receive("EOF\r\n");
    live(0.1);
    EXPECT_EQ(notice.shown,
              "The download has ended: 40 rows, not saved. Save As is on the page Output: Spread Sheet.\n");
}

TEST_F(NoticeTest, SaysNothingOfAShortRunOrWhileSomebodyLooks) {
    run(29.0);
    receive(">\r\n");
    live(0.1);
    EXPECT_EQ(notice.shown, "");
    active = true;
    program.run();
    live(31.0);
    receive("R\r\n11/21/26\t2700\t1\t20\t30\t40\r\n>\r\n");
    live(0.1);
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_EQ(notice.shown, "");
}

} // namespace
} // namespace orv
