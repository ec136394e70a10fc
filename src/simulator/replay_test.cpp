// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/replay.h"

#include "testing/expected.h"
#include "testing/fakes.h"

#include <QJsonValue>

namespace orv {
namespace {

class ReplayTest : public testing::Test {
protected:
    void add(qint64 milliseconds, CaptureKind kind, const char* bytes) {
        file += captureLine(milliseconds, kind, QByteArrayView(bytes));
    }
    void add(qint64 milliseconds, CaptureKind kind, const QJsonValue& value) {
        file += captureLine(milliseconds, kind, value);
    }
    /// A wake-up, its greeting 50 ms later in two parts, and "P" with its answer; times as in a field report.
    void addVisit(qint64 start) {
        add(start, CaptureKind::Opened, QJsonValue(QStringLiteral("ttyUSB0")));
        add(start, CaptureKind::Dtr, QJsonValue(true));
        add(start + 1000, CaptureKind::Dtr, QJsonValue(false));
        add(start + 1000, CaptureKind::Discarded, "noise");
        add(start + 1050, CaptureKind::Received, "V51");
        add(start + 1052, CaptureKind::Received, "2\r");
        add(start + 1300, CaptureKind::Sent, "P");
        add(start + 1305, CaptureKind::Discarded, "");
        add(start + 1330, CaptureKind::Received, "P\r\nS1\r\n");
    }
    void addClosing(qint64 at) { add(at, CaptureKind::Closed, QJsonValue(true)); }

    ReplayPort& play(double speed = 1.0) {
        const CaptureContents contents = readCapture(file);
        EXPECT_EQ(contents.error, QString());
        port = std::make_unique<ReplayPort>(contents, QStringLiteral("lake.jsonl"), speed, clock,
                                            [this](const QString& text) { told << text; });
        stirring = port->stirred.subscribe([this] { ++stirrings; });
        return *port;
    }
    /// What has come within so many milliseconds, read as it comes: "50:V51 52:2\r".
    std::string come(int milliseconds) {
        std::string all;
        for (int passed = 1; passed <= milliseconds; ++passed) {
            clock.advance(1);
            const QByteArray block = port->readAll();
            all += block.isEmpty() ? "" : (all.empty() ? "" : " ") + std::to_string(passed) + ':' + block.toStdString();
        }
        return all;
    }
    void wake(int pulse = 1000) {
        EXPECT_EQ(port->open(), QString());
        port->setDataTerminalReady(true);
        clock.advance(pulse);
        port->setDataTerminalReady(false);
    }

    QByteArray file = captureHeader(QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15)), {});
    TestClock clock;
    std::unique_ptr<ReplayPort> port;
    Subscription stirring;
    int stirrings = 0;
    QStringList told;
};

TEST_F(ReplayTest, AnswersWithTheCapturedDelaysAfterTheProgramsActs) {
    addVisit(70'000);
    addClosing(75'000);
    play();
    wake();
    EXPECT_EQ(port->discardInput(), "noise");
    EXPECT_EQ(come(400), "50:V51 52:2\r");
    clock.advance(5000); // the program is slow, so the instrument waits
    port->write("P");
    clock.advance(5);
    port->discardInput();
    EXPECT_EQ(come(1000), "25:P\r\nS1\r\n");
    EXPECT_EQ(stirrings, 4);
    port->close();
    EXPECT_TRUE(port->isOver());
    EXPECT_EQ(port->differences(), std::vector<ReplayDifference>());
    EXPECT_EQ(told, QStringList(QStringLiteral(
                        "Replay of lake.jsonl: the program has sent what was captured, 1 bytes so far.")));
}

TEST_F(ReplayTest, PaceIsAsAskedFor) {
    addVisit(0);
    play(2.0);
    wake(500);
    port->discardInput();
    EXPECT_EQ(come(400), "25:V51 26:2\r");
    port->write("P");
    port->discardInput();
    EXPECT_EQ(come(400), "13:P\r\nS1\r\n");

    play(0.0);
    wake(0);
    port->discardInput();
    clock.advance(0);
    EXPECT_EQ(port->readAll(), "V512\r");
    port->write("P");
    port->discardInput();
    clock.advance(0);
    EXPECT_EQ(port->readAll(), "P\r\nS1\r\n");
}

TEST_F(ReplayTest, LateDroppingDropsWhatWasDroppedAndNoMore) {
    addVisit(0);
    play();
    wake();
    port->discardInput();
    come(300);
    port->write("P");
    clock.advance(100);
    EXPECT_EQ(port->inputCount(), 7);
    EXPECT_EQ(port->discardInput(), "");
    EXPECT_EQ(port->readAll(), "P\r\nS1\r\n");
}

TEST_F(ReplayTest, WhoDoesNotDropGetsWhatWasDropped) {
    addVisit(0);
    play();
    wake();
    EXPECT_EQ(come(400), "1:noise 50:V51 52:2\r");
    port->write("P");
    EXPECT_EQ(come(400), "30:P\r\nS1\r\n");
}

TEST_F(ReplayTest, LineFailsAsItDidAndTheNextOpeningGoesOn) {
    addVisit(0);
    add(2000, CaptureKind::Failed, QJsonValue(QStringLiteral("The device is gone.")));
    addClosing(2000);
    add(9000, CaptureKind::NotOpened, QJsonValue(QStringLiteral("There is no such device.")));
    addVisit(20'000);
    play();
    wake();
    port->discardInput();
    come(300);
    port->write("P");
    port->discardInput();
    come(694);
    EXPECT_EQ(port->failure(), QString());
    come(1);
    EXPECT_EQ(port->failure(), QStringLiteral("The device is gone."));
    port->close();
    EXPECT_EQ(port->open(), QStringLiteral("There is no such device."));
    wake();
    EXPECT_EQ(port->failure(), QString());
    port->discardInput();
    EXPECT_EQ(come(300), "50:V51 52:2\r");
    port->write("PQR"); // after the capture's end nothing is known
    port->close();
    EXPECT_EQ(port->open(), QStringLiteral("The capture lake.jsonl has no further connection. Choose another port and "
                                           "then this one again to play it from its beginning."));
}

TEST_F(ReplayTest, DifferencesAreToldWithTheirPlace) {
    add(0, CaptureKind::Opened, QJsonValue(QStringLiteral("ttyUSB0")));
    for (const char* item : {"T", "30\r", "Q", "0\r"}) {
        add(10, CaptureKind::Sent, item);
        add(11, CaptureKind::Received, ">");
    }
    addClosing(12);
    struct Case {
        QByteArrayList writes;
        std::vector<ReplayDifference> differences;
        const char* told;
    };
    const Case cases[] = {
        {{"T", "30\r", "Q", "0\r"}, {}, "the program has sent what was captured, 7 bytes so far."},
        {{"T3", "0", "\rQ0", "\r"}, {}, "the program has sent what was captured, 7 bytes so far."},
        {{"T", "31\r", "Q", "0\r"},
         {{.offset = 1, .expected = "30\r", .got = "31\r"}},
         "the program has sent something else than was captured.\nbyte 1: \"30\\r\" was sent, now \"31\\r\""},
        {{"T", "30\r"},
         {{.offset = 4, .expected = "Q0\r", .got = ""}},
         "the program has sent something else than was captured.\nbyte 4: \"Q0\\r\" was sent, now nothing"},
        {{"T", "30\r", "Q", "0\r", "R\xff"},
         {{.offset = 7, .expected = "", .got = "R\xff"}},
         "the program has sent something else than was captured.\nbyte 7: nothing was sent, now \"R\\xff\""},
        {{"A", "B", "C", "D", "E", "F", "G"},
         {{.offset = 0, .expected = "T", .got = "A"},
          {.offset = 1, .expected = "30\r", .got = "B"},
          {.offset = 4, .expected = "Q", .got = "C"},
          {.offset = 5, .expected = "0\r", .got = "D"},
          {.offset = 7, .expected = "", .got = "E"},
          {.offset = 7, .expected = "", .got = "F"},
          {.offset = 7, .expected = "", .got = "G"}},
         "the program has sent something else than was captured.\nbyte 0: \"T\" was sent, now \"A\"\nbyte 1: \"30\\r\" "
         "was sent, now \"B\"\nbyte 4: \"Q\" was sent, now \"C\"\nbyte 5: \"0\\r\" was sent, now \"D\"\nbyte 7: "
         "nothing "
         "was sent, now \"E\"\nand 2 more"},
    };
    for (const Case& example : cases) {
        play();
        told.clear();
        port->open();
        for (const QByteArray& write : example.writes) {
            port->write(write);
        }
        port->close();
        EXPECT_EQ(port->differences(), example.differences);
        EXPECT_EQ(told.join(u'|').toStdString(), std::string("Replay of lake.jsonl: ") + example.told);
    }
}

TEST_F(ReplayTest, WhatElseDiffersIsToldToo) {
    addVisit(0);
    addClosing(2000);
    add(3000, CaptureKind::NotOpened, QJsonValue(QString()));
    add(4000, CaptureKind::Opened, QJsonValue(QStringLiteral("ttyUSB0")));
    play();
    EXPECT_EQ(port->open(), QString());
    port->write("P"); // without its pulse
    port->setDataTerminalReady(true);
    port->close();
    EXPECT_NE(port->open(), QString()) << "it failed, though the capture does not say why";
    EXPECT_EQ(port->open(), QString());
    port->write("abc");
    port->close();
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told[0].toStdString(), "Replay of lake.jsonl: the program has sent what was captured, 1 bytes so far.\n"
                                     "byte 0: DTR was raised, now not\n"
                                     "byte 0: DTR was dropped, now not\n"
                                     "byte 1: DTR is raised here, as it was not there");
    EXPECT_EQ(told[1].toStdString(), "Replay of lake.jsonl: the program has sent what was captured, 1 bytes so far.\n"
                                     "3 bytes were sent after the end of the capture and are compared with nothing.");
}

TEST_F(ReplayTest, BrokenCapturesHarmNobody) {
    add(0, CaptureKind::Received, "before any opening");
    addClosing(1);
    addClosing(1);
    add(2, CaptureKind::Failed, QJsonValue(7));
    play();
    port->write("P");
    port->setDataTerminalReady(true);
    EXPECT_EQ(port->discardInput(), "");
    EXPECT_NE(port->open(), QString());
    port->close();
    add(3, CaptureKind::Opened, QJsonValue());
    add(3, CaptureKind::Failed, QJsonValue(7));
    play();
    EXPECT_EQ(port->open(), QString());
    clock.advance(1);
    EXPECT_EQ(port->failure(), QStringLiteral("The line failed."));
    port->write("P");
    port->close();
}

TEST(ReplayOptions, NameTheFileAndThePace) {
    const ReplayOptions plain = parseReplayOptions(QStringLiteral("sim:replay?file=/home/jo/a lake.jsonl"));
    EXPECT_EQ(plain.file, QStringLiteral("/home/jo/a lake.jsonl"));
    EXPECT_EQ(plain.speed, 1.0);
    EXPECT_EQ(parseReplayOptions(QStringLiteral("sim:replay?speed=0&file=a")).speed, 0.0);
    EXPECT_EQ(parseReplayOptions(QStringLiteral("sim:replay?file=a&speed=2.5")).speed, 2.5);
    const std::pair<QString, const char*> wrong[] = {
        {QStringLiteral("sim:replay"), "\"sim:replay\" names no replay. It must be sim:replay?file=NAME."},
        {QStringLiteral("sim:replay?speed=1"),
         "\"sim:replay?speed=1\" names no replay. It must be sim:replay?file=NAME."},
        {QStringLiteral("sim:replay?file=a&rate=1"), "\"sim:replay?file=a&rate=1\" names no replay. There is no option "
                                                     "\"rate\". The options are file, speed."},
        {QStringLiteral("sim:replay?file=a&speed=-1"), "\"sim:replay?file=a&speed=-1\" names no replay. The option "
                                                       "speed must be a number from 0 (without any delay) to "
                                                       "1000, not \"-1\"."},
    };
    expectEach(wrong, [](const QString& device) { return parseReplayOptions(device).error.toStdString(); });
}

} // namespace
} // namespace orv
