// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/systemport.h"

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTimer>

#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <poll.h>
#include <unistd.h>

namespace orv {
namespace {

/// A pseudo-terminal: its far end is the test, its near end a device that a port can open.
class PseudoTerminal {
public:
    PseudoTerminal()
        : farEnd_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        if (farEnd_ >= 0 && ::grantpt(farEnd_) == 0 && ::unlockpt(farEnd_) == 0) {
            path = QString::fromLocal8Bit(::ptsname(farEnd_));
        }
    }
    ~PseudoTerminal() {
        hangUp();
        ::close(reservation_);
    }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    void send(const QByteArray& bytes) const {
        EXPECT_EQ(::write(farEnd_, bytes.constData(), static_cast<std::size_t>(bytes.size())), bytes.size());
    }

    /// Waits for `count` bytes from the port, at most two seconds.
    QByteArray receive(qsizetype count) const {
        QByteArray all;
        const QDeadlineTimer limit(2000);
        while (all.size() < count && !limit.hasExpired()) {
            all += receiveWaiting(10);
        }
        return all;
    }

    /// What arrives until nothing has come for `milliseconds`.
    QByteArray receiveWaiting(int milliseconds) const {
        QByteArray all;
        pollfd watched{.fd = farEnd_, .events = POLLIN, .revents = 0};
        while (::poll(&watched, 1, milliseconds) > 0 && (watched.revents & POLLIN) != 0) {
            char buffer[4096];
            const ssize_t count = ::read(farEnd_, buffer, sizeof buffer);
            if (count <= 0) {
                break;
            }
            all.append(buffer, count);
        }
        return all;
    }

    /// Closes the far end. The device's name is gone at once but given to nobody else while the terminal lives: the
    /// tests of other processes take pseudo-terminals too, and would be handed the same number.
    void hangUp() {
        if (farEnd_ >= 0) {
            reservation_ = ::open(path.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
            ::close(farEnd_);
            farEnd_ = -1;
        }
    }

    QString path;

private:
    int farEnd_;
    int reservation_ = -1; ///< The near end, held open so that its number is not given away.
};

/// Runs the event loop until the condition holds, at most two seconds.
template <typename Condition>
void waitUntil(Condition reached) {
    const QDeadlineTimer limit(2000);
    while (!reached() && !limit.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    }
}

/// Lets the port take what has been sent, until it holds `count` characters.
void waitForCount(SystemPort& port, qsizetype count) {
    waitUntil([&port, count] { return port.inputCount() >= count; });
    ASSERT_EQ(port.inputCount(), count);
}

/// Reads until `count` characters have come.
QByteArray readCount(SystemPort& port, qsizetype count) {
    QByteArray all;
    waitUntil([&port, &all, count] { return (all += port.readAll()).size() >= count; });
    return all;
}

void waitForFailure(SystemPort& port) {
    waitUntil([&port] { return !port.failure().isEmpty(); });
}

/// The event loop for a moment in which something could come.
void liveAMoment() {
    const QDeadlineTimer moment(20);
    waitUntil([&moment] { return moment.hasExpired(); });
}

class SystemPortTest : public testing::Test {
protected:
    SystemPortTest() {
        if (terminal.path.isEmpty()) {
            ADD_FAILURE() << "this system has no pseudo-terminals";
        }
    }

    PseudoTerminal terminal;
    SystemPort port{terminal.path};
    int tellings = 0; ///< Of something to read or a failure.

private:
    Subscription listening_ = port.stirred.subscribe([this] { ++tellings; });
};

TEST_F(SystemPortTest, isClosedUntilItIsOpened) {
    EXPECT_FALSE(port.isOpen());
    EXPECT_EQ(port.open(), QString());
    EXPECT_TRUE(port.isOpen());
    EXPECT_EQ(port.failure(), QString());
    EXPECT_EQ(port.open(), QString()) << "opening an open port does nothing";
    port.close();
    EXPECT_FALSE(port.isOpen());
    port.close();
}

TEST_F(SystemPortTest, opensADeviceByItsNameWithoutTheFolderToo) {
    ASSERT_TRUE(terminal.path.startsWith(QStringLiteral("/dev/")));
    SystemPort named(terminal.path.mid(5));
    ASSERT_EQ(named.open(), QString());
    named.write("abc");
    EXPECT_EQ(terminal.receive(3), "abc");
}

TEST_F(SystemPortTest, sendsEveryByteAsItStandsWithoutAnEventLoop) {
    ASSERT_EQ(port.open(), QString());
    const QByteArray bytes("P\r\n\0\x03\x11\x13\xff~", 9);
    port.write(bytes);
    EXPECT_EQ(terminal.receive(9), bytes);
    EXPECT_EQ(terminal.receiveWaiting(20), QByteArray());
}

TEST_F(SystemPortTest, receivesEveryByteAsItStands) {
    ASSERT_EQ(port.open(), QString());
    const QByteArray bytes("V512\r\n\0\x03\x11\x13\xff", 11);
    terminal.send(bytes);
    EXPECT_EQ(readCount(port, 11), bytes);
    EXPECT_EQ(port.readAll(), QByteArray());
    EXPECT_EQ(terminal.receiveWaiting(20), QByteArray()) << "nothing is echoed";
}

TEST_F(SystemPortTest, dropsNothingOfALongReply) {
    ASSERT_EQ(port.open(), QString());
    QByteArray sent;
    QByteArray received;
    for (int block = 0; block < 100; ++block) {
        const QByteArray bytes = QByteArray::number(block) + QByteArray(998, 'x') + "\r\n";
        terminal.send(bytes);
        sent += bytes;
        received += readCount(port, bytes.size());
    }
    EXPECT_EQ(received, sent);
}

TEST_F(SystemPortTest, countsWhatWaitsAndTakesItAllAtOnce) {
    ASSERT_EQ(port.open(), QString());
    EXPECT_EQ(port.inputCount(), 0);
    terminal.send("abc");
    waitForCount(port, 3);
    EXPECT_EQ(port.inputCount(), 3);
    EXPECT_EQ(port.readAll(), "abc");
    EXPECT_EQ(port.inputCount(), 0);
}

TEST_F(SystemPortTest, tellsFromTheEventLoopThatSomethingHasCome) {
    ASSERT_EQ(port.open(), QString());
    liveAMoment();
    EXPECT_EQ(tellings, 0);
    EXPECT_EQ(port.failure(), QString()) << "that nothing came is no failure";
    for (const int before : {0, 1, 2}) {
        terminal.send("abc");
        EXPECT_EQ(port.inputCount(), 0);
        EXPECT_EQ(tellings, before);
        waitUntil([this, before] { return tellings > before; });
        EXPECT_EQ(tellings, before + 1);
        EXPECT_EQ(port.readAll(), "abc");
    }
    liveAMoment();
    EXPECT_EQ(tellings, 3) << "nothing has come since";
}

TEST_F(SystemPortTest, tellsAgainWhenWhatHadComeWasDiscarded) {
    ASSERT_EQ(port.open(), QString());
    for (const int before : {0, 1}) {
        terminal.send("abc");
        waitUntil([this, before] { return tellings > before; });
        EXPECT_EQ(tellings, before + 1);
        port.discardInput();
    }
}

TEST_F(SystemPortTest, letsTheRestOfALineGatherAndTellsOfItsEnd) {
    ASSERT_EQ(port.open(), QString());
    constexpr int characters = 48; // 50 ms
    for (const char* end : {"\n", ">", "!"}) {
        const int before = tellings;
        QElapsedTimer passed;
        passed.start();
        port.expectRestOfLine(characters + 1000);
        EXPECT_EQ(port.readAll(), "") << "it may be read meanwhile";
        passed.restart();
        port.expectRestOfLine(characters);
        terminal.send(QByteArray(characters - 1, 'x'));
        const QDeadlineTimer gathering(40);
        waitUntil([&gathering] { return gathering.hasExpired(); });
        const qsizetype meanwhile = port.inputCount();
        if (passed.elapsed() < 50) { // the test has not been held up
            EXPECT_EQ(meanwhile, 0) << "the system has them";
        }
        waitUntil([this] { return port.inputCount() > 0; });
        EXPECT_GE(passed.elapsed(), 50);
        EXPECT_EQ(port.inputCount(), characters - 1);
        liveAMoment();
        const int tellingsMeanwhile = tellings;
        if (passed.elapsed() < 150) {
            EXPECT_EQ(tellingsMeanwhile, before) << "it is longer than was expected";
        }
        terminal.send(end);
        waitUntil([this, before] { return tellings > before; });
        EXPECT_EQ(tellings, before + 1);
        EXPECT_EQ(port.readAll(), QByteArray(characters - 1, 'x') + end);
        terminal.send("at once");
        port.discardInput();
    }
}

TEST_F(SystemPortTest, tellsOfALineWithoutEndInTheEndAndAtOnceOfWhatFollowsASending) {
    ASSERT_EQ(port.open(), QString());
    port.expectRestOfLine(1);
    terminal.send("abc");
    waitUntil([this] { return tellings == 1; });
    EXPECT_EQ(tellings, 1);
    EXPECT_EQ(port.readAll(), "abc");
    port.expectRestOfLine(10'000);
    port.write("P");
    terminal.send("def");
    waitUntil([this] { return tellings == 2; });
    EXPECT_EQ(port.readAll(), "def");
    port.expectRestOfLine(10'000);
    port.close();
    ASSERT_EQ(port.open(), QString());
    terminal.send("ghi");
    waitUntil([this] { return tellings == 3; });
    EXPECT_EQ(port.readAll(), "ghi");
    port.expectRestOfLine(30);
    terminal.hangUp();
    waitForFailure(port);
    EXPECT_NE(port.failure(), QString()) << "it is noticed after the rest would have come";
}

TEST_F(SystemPortTest, mayBeClosedByWhomItTells) {
    ASSERT_EQ(port.open(), QString());
    const Subscription closing = port.stirred.subscribe([this] { port.close(); });
    terminal.send("abc");
    waitUntil([this] { return !port.isOpen(); });
    EXPECT_FALSE(port.isOpen());
    ASSERT_EQ(port.open(), QString());
    terminal.hangUp();
    waitUntil([this] { return !port.isOpen(); });
    EXPECT_FALSE(port.isOpen());
    EXPECT_NE(port.failure(), QString());
}

TEST_F(SystemPortTest, discardsWhatHasArrived) {
    ASSERT_EQ(port.open(), QString());
    terminal.send("taken over");
    waitForCount(port, 10);
    terminal.send("still in the system");
    port.discardInput();
    EXPECT_EQ(port.inputCount(), 0);
    liveAMoment();
    EXPECT_EQ(port.readAll(), QByteArray());
    EXPECT_EQ(port.failure(), QString());
    terminal.send("new");
    EXPECT_EQ(readCount(port, 3), "new");
}

TEST_F(SystemPortTest, staysConnectedWhenItsInputIsDiscardedBetweenArrivalAndReading) {
    ASSERT_EQ(port.open(), QString());
    for (int round = 0; round < 20; ++round) {
        terminal.send("abc");
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [this] { port.discardInput(); }, Qt::QueuedConnection);
        QTimer::singleShot(0, [this] { port.discardInput(); });
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(port.failure(), QString());
    EXPECT_TRUE(port.isOpen());
    terminal.send("new");
    EXPECT_EQ(readCount(port, 3).right(3), "new");
}

TEST_F(SystemPortTest, staysConnectedWhenTheLineHasNoDataTerminalReady) {
    ASSERT_EQ(port.open(), QString());
    port.setDataTerminalReady(true);
    port.setDataTerminalReady(false);
    EXPECT_EQ(port.failure(), QString());
    EXPECT_TRUE(port.isOpen());
    port.write("P");
    EXPECT_EQ(terminal.receive(1), "P");
}

TEST_F(SystemPortTest, doesNothingWhileItIsClosed) {
    port.write("P");
    port.discardInput();
    port.setDataTerminalReady(true);
    EXPECT_EQ(port.readAll(), QByteArray());
    EXPECT_EQ(port.inputCount(), 0);
    EXPECT_EQ(port.failure(), QString());
    ASSERT_EQ(port.open(), QString());
    EXPECT_EQ(terminal.receiveWaiting(20), QByteArray());
}

TEST_F(SystemPortTest, forgetsItsInputWhenItIsClosed) {
    ASSERT_EQ(port.open(), QString());
    terminal.send("old");
    waitForCount(port, 3);
    port.close();
    EXPECT_EQ(port.readAll(), QByteArray());
    ASSERT_EQ(port.open(), QString());
    EXPECT_EQ(port.readAll(), QByteArray());
}

TEST_F(SystemPortTest, failsOnceAndForGoodWhenTheFarEndIsClosed) {
    ASSERT_EQ(port.open(), QString());
    terminal.send("abc");
    waitForCount(port, 3);
    liveAMoment();
    const int before = tellings;
    terminal.hangUp();
    waitForFailure(port);
    const QString failure = port.failure();
    ASSERT_EQ(failure, QStringLiteral("The device is gone: the cable was pulled or the adapter switched off."));
    EXPECT_EQ(port.readAll(), "abc") << "what had arrived is still there";
    port.write("P");
    port.discardInput();
    port.setDataTerminalReady(true);
    liveAMoment();
    EXPECT_EQ(tellings, before + 1) << "several errors came";
    EXPECT_EQ(port.failure(), failure);
    EXPECT_EQ(port.readAll(), QByteArray());
    port.close();
    EXPECT_FALSE(port.isOpen());
}

TEST_F(SystemPortTest, saysThatALostDeviceIsGoneWhenItIsOpenedAgain) {
    ASSERT_EQ(port.open(), QString());
    terminal.hangUp();
    waitForFailure(port);
    port.close();
    EXPECT_TRUE(port.open().startsWith(QStringLiteral("There is no such device.")));
    EXPECT_FALSE(port.isOpen());
}

TEST_F(SystemPortTest, neitherBlocksNorFailsWhenTheFarEndTakesNothing) {
    ASSERT_EQ(port.open(), QString());
    const QDeadlineTimer generous(5000);
    for (int block = 0; block < 300; ++block) {
        port.write(QByteArray(1000, 'x'));
    }
    EXPECT_FALSE(generous.hasExpired());
    EXPECT_EQ(port.failure(), QString());
    qsizetype arrived = 0;
    for (QByteArray bytes = terminal.receiveWaiting(20); !bytes.isEmpty(); bytes = terminal.receiveWaiting(20)) {
        arrived += bytes.size();
        port.write(QByteArray());
        QCoreApplication::processEvents();
    }
    EXPECT_GE(arrived, 60000);
    EXPECT_LT(arrived, 200000) << "output to a stuck line is bounded";
}

TEST_F(SystemPortTest, takesAsMuchAsMayWaitAndNoMore) {
    ASSERT_EQ(port.open(), QString());
    constexpr qsizetype mayWait = 65536;
    for (const qsizetype longer : {0, 1}) {
        port.write(QByteArray(mayWait + longer, 'x'));
        qsizetype arrived = 0;
        waitUntil([&] {
            arrived += terminal.receiveWaiting(1).size();
            QCoreApplication::processEvents();
            return arrived == mayWait || longer == 1;
        });
        EXPECT_EQ(arrived, longer == 0 ? mayWait : 0);
    }
}

TEST_F(SystemPortTest, saysThatADeviceIsUsedByAnotherProgramAndByWhich) {
    ASSERT_EQ(port.open(), QString());
    const QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("by-id"));
    const QString linkToLink = folder.filePath(QStringLiteral("adapter"));
    ASSERT_TRUE(QFile::link(terminal.path, link) && QFile::link(link, linkToLink));
    for (const QString& name : {terminal.path, terminal.path.mid(5), link, linkToLink}) {
        SystemPort second(name);
        EXPECT_TRUE(sameDevice(name, terminal.path));
        const QString reason = second.open();
        EXPECT_TRUE(reason.startsWith(QStringLiteral("It is used by another program (")))
            << name.toStdString() << ": " << reason.toStdString();
        EXPECT_TRUE(reason.contains(QStringLiteral("process %1").arg(::getpid()))) << reason.toStdString();
        EXPECT_TRUE(reason.endsWith(QStringLiteral("Close that program, then connect again."))) << reason.toStdString();
        EXPECT_FALSE(second.isOpen());
    }
    EXPECT_EQ(port.failure(), QString());
    port.close();
    SystemPort second(link);
    EXPECT_EQ(second.open(), QString());
    EXPECT_NE(port.open(), QString()) << "opened by the link it is locked by the device's own name";
}

TEST_F(SystemPortTest, followsALinkThatLeadsElsewhereAtTheNextOpening) {
    const PseudoTerminal other;
    const QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("by-id"));
    ASSERT_TRUE(QFile::link(terminal.path, link));
    SystemPort linked(link);
    ASSERT_EQ(linked.open(), QString());
    linked.close();
    ASSERT_TRUE(QFile::remove(link) && QFile::link(other.path, link));
    ASSERT_EQ(linked.open(), QString());
    linked.write("abc");
    EXPECT_EQ(other.receive(3), "abc");
    ASSERT_TRUE(QFile::remove(link));
    linked.close();
    EXPECT_TRUE(linked.open().startsWith(QStringLiteral("There is no such device.")));
}

TEST(SystemPortOpening, saysThatThereIsNoSuchDevice) {
    for (const char* name : {"/dev/ttyNONE99", "ttyNONE99", "", "/no/such/folder/tty"}) {
        SystemPort port(QString::fromLatin1(name));
        EXPECT_EQ(port.open(),
                  QStringLiteral("There is no such device. Plug the adapter in, check the device's name, and "
                                 "connect again."))
            << name;
        EXPECT_FALSE(port.isOpen());
        EXPECT_EQ(port.failure(), QString());
    }
}

TEST(SystemPortOpening, saysThatAFileOrFolderIsNoSerialPort) {
    const QString expected =
        QStringLiteral("It is not a serial port. Choose the device of the serial adapter and connect again.");
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    SystemPort filePort(file.fileName());
    EXPECT_EQ(filePort.open(), expected);
    const QTemporaryDir folder;
    SystemPort folderPort(folder.path());
    EXPECT_EQ(folderPort.open(), expected);
}

TEST(SystemPortOpening, saysThatADeviceOfAnotherKindIsNoSerialPort) {
    SystemPort port(QStringLiteral("/dev/null"));
    EXPECT_EQ(port.open(),
              QStringLiteral("It is not a serial port. Choose the device of the serial adapter and connect again."));
}

} // namespace
} // namespace orv

#endif
