// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/ptyserver.h"

#include "testing/fakes.h"

#include <QFile>

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <functional>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>

namespace orv {
namespace {

/// A server on a clock of its own, and a host at the other end of its line, in one thread.
class PtyServerTest : public testing::Test {
protected:
    void start(const char* device) {
        server = std::make_unique<PtyServer>(parseSimulatorOptions(QString::fromLatin1(device)).options, clock);
        ASSERT_EQ(server->open().toStdString(), "");
    }

    void openHost() {
        host.reset(::open(QFile::encodeName(server->path()).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK));
        ASSERT_TRUE(host.isOpen());
    }

    void startWithHost(const char* device) {
        start(device);
        openHost();
    }

    /// A host opens the line and has read the greeting.
    void startAndWake(const char* device) {
        startWithHost(device);
        discard();
        listen(300);
    }

    void closeHost() {
        host.reset();
        server->serve(0);
    }

    /// Lets so much of the server's time pass and returns what the host receives meanwhile.
    QByteArray listen(int milliseconds) {
        QByteArray heard;
        for (int passed = 0; passed <= milliseconds; passed += 5) {
            server->serve(0);
            heard += receive();
            clock.advance(5);
        }
        return heard;
    }

    QByteArray receive() {
        // What the server writes reaches the other end through a kernel worker, a moment later.
        pollfd polled{host.get(), POLLIN, 0};
        ::poll(&polled, 1, 1);
        QByteArray heard;
        std::array<char, 4096> buffer{};
        ssize_t size = 0;
        while ((size = ::read(host.get(), buffer.data(), buffer.size())) > 0) {
            heard += QByteArray(buffer.data(), size);
        }
        return heard;
    }

    void send(const QByteArray& characters) {
        ASSERT_EQ(::write(host.get(), characters.constData(), static_cast<size_t>(characters.size())),
                  characters.size());
    }

    QByteArray reply(const QByteArray& characters, int milliseconds = 100) {
        send(characters);
        return listen(milliseconds);
    }

    void discard() { ASSERT_EQ(::tcflush(host.get(), TCIFLUSH), 0); }

    TestClock clock;
    std::unique_ptr<PtyServer> server;
    FileDescriptor host;
};

TEST_F(PtyServerTest, AHostThatDiscardsItsInputWakesTheInstrument) {
    startWithHost("sim:trx");
    EXPECT_EQ(listen(300), "");
    discard();
    EXPECT_EQ(listen(300), "V512\r");
}

TEST_F(PtyServerTest, TheLineIsRawBeforeAHostOpensIt) {
    startWithHost("sim:trx?records=0");
    termios settings{};
    ASSERT_EQ(::tcgetattr(host.get(), &settings), 0);
    EXPECT_EQ(settings.c_lflag & (ECHO | ICANON | ISIG), 0U);
    EXPECT_EQ(settings.c_oflag & OPOST, 0U);
    EXPECT_EQ(settings.c_iflag & (ICRNL | INLCR | IXON), 0U);
    discard();
    listen(300);
    EXPECT_EQ(reply("Q5\r"), "Q.5\r>");
    EXPECT_EQ(reply("O"), "O\r\nEOF\r\n>");
}

TEST_F(PtyServerTest, DiscardingAfterACommandOnlyDiscards) {
    startAndWake("sim:trx");
    discard();
    EXPECT_EQ(listen(300), "V512\r") << "nothing was sent to the instrument yet";
    EXPECT_EQ(reply("x"), "x\r\n>");
    discard();
    EXPECT_EQ(listen(300), "");
    send("x");
    server->serve(0);
    clock.advance(1000);
    server->serve(0);
    discard();
    EXPECT_EQ(listen(300), "");
    EXPECT_EQ(reply("x"), "x\r\n>");
}

TEST_F(PtyServerTest, ClosingPutsTheInstrumentToSleepAndItKeepsItsSettings) {
    startAndWake("sim:trx");
    reply("Q5\r");
    reply("R", 1000);
    closeHost();
    clock.advance(5000);
    openHost();
    EXPECT_EQ(listen(1000), "");
    EXPECT_EQ(reply("P", 300), "");
    discard();
    EXPECT_EQ(listen(300), "V512\r");
    EXPECT_TRUE(reply("P", 300).contains("\r\nQ5\r\n"));
}

TEST_F(PtyServerTest, AHostThatClosesAndOpensAtOnceIsANewHost) {
    startAndWake("sim:trx");
    reply("R", 1000);
    host.reset();
    openHost();
    discard();
    EXPECT_EQ(listen(1000), "V512\r");
}

TEST_F(PtyServerTest, AHostThatCameAndWentUnseenWakesNothing) {
    startWithHost("sim:trx");
    discard();
    host.reset();
    openHost();
    closeHost();
    openHost();
    EXPECT_EQ(listen(300), "");
}

/// Calls somebody at one of its readings.
class InterruptedClock final : public Clock {
public:
    explicit InterruptedClock(TestClock& clock)
        : clock_(clock) {}

    QDateTime now() const override { return clock_.now(); }
    qint64 monotonicMilliseconds() const override {
        if (--readingsLeft == 0) {
            interrupt();
        }
        return clock_.monotonicMilliseconds();
    }
    [[nodiscard]] Subscription callAfter(qint64 milliseconds, std::function<void()> call) override {
        return clock_.callAfter(milliseconds, std::move(call));
    }

    mutable int readingsLeft = 0; ///< Until the call; none at 0 and below.
    std::function<void()> interrupt;

private:
    TestClock& clock_;
};

TEST_F(PtyServerTest, AHostThatComesAndDiscardsAtAnyMomentOfAPassWakesTheInstrument) {
    constexpr int mostReadings = 1000;
    int reading = 1;
    for (bool interrupted = true; interrupted && reading < mostReadings; ++reading) {
        InterruptedClock interrupting(clock);
        server = std::make_unique<PtyServer>(parseSimulatorOptions(QStringLiteral("sim:trx")).options, interrupting);
        ASSERT_EQ(server->open().toStdString(), "");
        openHost();
        send("x"); // is read only after the server has looked for hosts
        host.reset();
        interrupted = false;
        interrupting.interrupt = [&] {
            openHost();
            discard();
            interrupted = true;
        };
        interrupting.readingsLeft = reading;
        server->serve(0);
        interrupting.readingsLeft = 0;
        if (interrupted) {
            EXPECT_EQ(listen(300), "V512\r") << "at reading " << reading;
        }
        host.reset();
        server.reset(); // its clock ends here
    }
    EXPECT_GT(reading, 3);
    EXPECT_LT(reading, mostReadings);
}

TEST_F(PtyServerTest, ALineThatAHostMisconfiguredAndLockedIsPutInOrder) {
    startWithHost("sim:trx");
    termios settings{};
    ASSERT_EQ(::tcgetattr(host.get(), &settings), 0);
    settings.c_lflag |= ECHO | ICANON;
    ASSERT_EQ(::tcsetattr(host.get(), TCSANOW, &settings), 0);
    ASSERT_EQ(::ioctl(host.get(), TIOCEXCL), 0);
    server->serve(0);
    closeHost();
    openHost();
    ASSERT_EQ(::tcgetattr(host.get(), &settings), 0);
    EXPECT_EQ(settings.c_lflag & (ECHO | ICANON), 0U);
}

TEST_F(PtyServerTest, NeverBlocksOnAHostThatDoesNotReadAndLosesNothing) {
    startAndWake("sim:trx?records=20000&baud=0");
    send("O");
    for (int step = 0; step < 100; ++step) {
        EXPECT_TRUE(server->serve(0));
    }
    QByteArray heard;
    for (int idle = 0; idle < 50; ++idle) {
        server->serve(0);
        const QByteArray piece = receive();
        idle = piece.isEmpty() ? idle : 0;
        heard += piece;
    }
    EXPECT_EQ(heard.count('\n'), 1 + 20000 + 1);
    EXPECT_TRUE(heard.endsWith("EOF\r\n>"));
}

TEST_F(PtyServerTest, HandsOverWhatHasArrivedEveryEightMilliseconds) {
    startAndWake("sim:trx?records=3");
    send("O");
    qsizetype pieces = 0;
    QByteArray heard;
    for (int passed = 0; passed < 300; ++passed) {
        server->serve(0);
        const QByteArray piece = receive();
        pieces += piece.isEmpty() ? 0 : 1;
        heard += piece;
        clock.advance(1);
    }
    EXPECT_TRUE(heard.startsWith("O\r\n")) << heard.toStdString();
    EXPECT_TRUE(heard.endsWith("EOF\r\n>")) << heard.toStdString();
    EXPECT_LE(pieces, heard.size() / 6) << "nearly eight characters a time, but for the ends";
}

TEST_F(PtyServerTest, AnUnpluggedLineVanishesAfterWhatWentBefore) {
    startAndWake("sim:trx?fault=unplug&after=20&baud=0");
    send("O");
    bool served = true;
    for (int step = 0; step < 10 && served; ++step) {
        served = server->serve(0);
    }
    EXPECT_FALSE(served);
    EXPECT_FALSE(server->serve(0));
    receive();
    pollfd polled{host.get(), POLLIN, 0};
    EXPECT_EQ(::poll(&polled, 1, 1000), 1);
    EXPECT_NE(polled.revents & POLLHUP, 0);
}

TEST_F(PtyServerTest, WaitsUntilTheNextEventOnly) {
    start("sim:trx");
    const SystemClock realClock;
    const qint64 start = realClock.monotonicMilliseconds();
    server->serve(30);
    EXPECT_GE(realClock.monotonicMilliseconds() - start, 29);
    openHost();
    discard();
    server->serve(5000);
    server->serve(5000);
    clock.advance(95);
    // The greeting is due 5 ms from now on the server's clock.
    server->serve(5000);
    EXPECT_LT(realClock.monotonicMilliseconds() - start, 4000);
}

} // namespace
} // namespace orv
