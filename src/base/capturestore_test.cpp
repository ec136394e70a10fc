// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/capturestore.h"

#include "testing/fakes.h"
#include "testing/folder.h"

#include <QJsonArray>

#include <cerrno>

namespace orv {
namespace {

const QDateTime moment(QDate(2026, 11, 21), QTime(9, 30, 15, 250), Qt::OffsetFromUTC, 3600);
const QByteArray header = captureHeader(moment, {{QStringLiteral("program"), QStringLiteral("orvhost 1.0.0")}});

QByteArray everyByte() {
    QByteArray bytes;
    for (int code = 0; code < 256; ++code) {
        bytes += static_cast<char>(code);
    }
    return bytes;
}

TEST(CaptureFormat, HeaderAndEntriesAreReadableLines) {
    EXPECT_EQ(header, R"({"capture":1,"began":"2026-11-21T09:30:15.250+01:00","program":"orvhost 1.0.0"})"
                      "\n");
    EXPECT_EQ(captureLine(1250, CaptureKind::Received, QByteArrayView("V512\r\n\t\"\\\0\x7f\xff", 12)),
              R"({"ms":1250,"received":"V512\r\n\t\"\\\u0000\u007f\u00ff"})"
              "\n");
    EXPECT_EQ(captureLine(0, CaptureKind::Dtr, QJsonValue(false)), R"({"ms":0,"dtr":false})"
                                                                   "\n");
    EXPECT_EQ(captureLine(7, CaptureKind::Told, QJsonObject{{QStringLiteral("text"), QStringLiteral("No\nline.")}}),
              R"({"ms":7,"told":{"text":"No\nline."}})"
              "\n");
}

TEST(CaptureFormat, EveryByteComesBack) {
    const QByteArray line = captureLine(3, CaptureKind::Received, everyByte());
    EXPECT_TRUE(std::ranges::all_of(line, [](char character) { return character == '\n' || character >= ' '; }));
    const CaptureContents contents = readCapture(header + line);
    EXPECT_EQ(contents.error, QString());
    EXPECT_EQ(contents.began, moment);
    ASSERT_EQ(contents.entries.size(), 1U);
    EXPECT_EQ(contents.entries[0].kind, CaptureKind::Received);
    EXPECT_EQ(contents.entries[0].bytes, everyByte());
}

TEST(CaptureFormat, EveryKindComesBack) {
    for (int number = 0; number < static_cast<int>(CaptureKind::Other); ++number) {
        const auto kind = static_cast<CaptureKind>(number);
        const CaptureContents contents = readCapture(header + captureLine(5, kind, QJsonValue(QStringLiteral("é"))));
        ASSERT_EQ(contents.entries.size(), 1U) << number;
        EXPECT_EQ(contents.entries[0].kind, kind);
    }
}

TEST(CaptureFormat, WhatCannotBeReadIsToldWithItsPlace) {
    const QByteArray sent = captureLine(3, CaptureKind::Sent, QByteArrayView("P"));
    const std::pair<QByteArray, const char*> files[] = {
        {"", "It is empty."},
        {"\n", "It is no capture: its first line does not say so."},
        {"11/21/26\t2700\t10\r\n", "It is no capture: its first line does not say so."},
        {"{\"rows\":1}\n", "It is no capture: its first line does not say so."},
        {everyByte(), "It is no capture: its first line does not say so."},
        {QByteArray(100 * 1024 * 1024, 'x'), "It is no capture: its first line does not end."},
        {"{\"capture\":2,\"program\":\"orvhost 3.0.0\"}\n",
         "It was made by a newer version of the program (orvhost 3.0.0). Read it with that version."},
        {"{\"capture\":1}\n", "Its first line does not say when it began."},
        {header + sent + "what is this\n" + sent, "Its line 3 is no JSON object."},
        {header + "[1]\n", "Its line 2 is no JSON object."},
        {header + "{\"sent\":\"P\"}\n", "Its line 2 does not say its time."},
        {header + "{\"ms\":-1,\"sent\":\"P\"}\n", "Its line 2 does not say its time."},
        {header + "{\"ms\":1e300,\"sent\":\"P\"}\n", "Its line 2 does not say its time."},
        {header + "{\"ms\":1,\"sent\":\"\xe2\x82\xac\"}\n", "Its line 2 has characters that are no bytes."},
        {header + "{\"ms\":1,\"received\":7}\n", "Its line 2 has characters that are no bytes."},
        {header + sent + QByteArray(2'000'000, ' ') + "\n", "Its line 3 is longer than any of a capture."},
        {header + QByteArray(100'000, '[') + "\n", "Its line 2 is no JSON object."},
    };
    for (const auto& [bytes, error] : files) {
        const CaptureContents contents = readCapture(bytes);
        EXPECT_EQ(contents.error.toStdString(), error);
        EXPECT_TRUE(contents.entries.empty());
    }
}

TEST(CaptureFormat, EveryCutLeavesWhatWasWhole) {
    const QByteArray all = header + captureLine(3, CaptureKind::Sent, QByteArrayView("P")) +
                           captureLine(9, CaptureKind::Received, QByteArrayView("S1\r\n"));
    for (qsizetype size = header.size(); size <= all.size(); ++size) {
        const QByteArray cut = all.first(size);
        const CaptureContents contents = readCapture(cut);
        EXPECT_EQ(contents.error, QString()) << size;
        // Without its line end a line may be whole.
        const bool isWhole = cut.endsWith('\n') || cut.endsWith('}');
        EXPECT_EQ(contents.isCutOff, !isWhole) << size;
        EXPECT_EQ(qsizetype(contents.entries.size()), cut.count('}') - 1) << size;
    }
}

TEST(CaptureFormat, UnknownEntriesFurtherHeadersAndATimeThatFallsBackArePassedOver) {
    const CaptureContents contents = readCapture(header +
                                                 R"({"ms":9,"dtr":true})"
                                                 "\n" +
                                                 R"({"ms":9,"temperature":21})"
                                                 "\r\n\n" +
                                                 header +
                                                 R"({"ms":4,"closed":true})"
                                                 "\n");
    EXPECT_EQ(contents.error, QString());
    ASSERT_EQ(contents.entries.size(), 2U);
    EXPECT_EQ(contents.entries[1].milliseconds, 9);
}

TEST(CaptureFormat, AFileIsNamedWithWhatIsWrong) {
    const OwnFolder folder;
    fill(folder.path("rows.txt"), "rows\n");
    QFile large(folder.path("large.jsonl"));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(largestCapture + 1));
    const std::pair<QString, QString> files[] = {
        {folder.path("rows.txt"),
         QStringLiteral("The capture rows.txt cannot be read. It is no capture: its first line does not say so.")},
        {folder.path("large.jsonl"),
         QStringLiteral("The capture large.jsonl cannot be read. It is larger than any capture (64 MB).")},
        {folder.path(),
         QStringLiteral("The capture %1 cannot be read. It is no file.").arg(QDir(folder.path()).dirName())},
        {QStringLiteral("none.jsonl"), QStringLiteral("The capture none.jsonl cannot be read. The system says: %1.")
                                           .arg(wordsOfOpening(QStringLiteral("none.jsonl"), QIODevice::ReadOnly))},
    };
    for (const auto& [name, error] : files) {
        EXPECT_EQ(readCaptureFile(name).error.toStdString(), error.toStdString());
    }
}

class CaptureStoreTest : public testing::Test {
protected:
    void receive(int count) {
        for (int i = 0; i < count; ++i) {
            store.add(CaptureKind::Received, QByteArray::number(++received) + "\r\n");
        }
    }
    /// The numbers of the entries in a file's bytes: first, last and how many.
    static std::string numbers(const QByteArray& bytes) {
        const CaptureContents contents = readCapture(bytes);
        EXPECT_EQ(contents.error, QString());
        std::vector<qint64> all;
        for (const CaptureEntry& entry : contents.entries) {
            if (entry.kind == CaptureKind::Received) {
                all.push_back(entry.bytes.trimmed().toLongLong());
            }
        }
        EXPECT_TRUE(std::ranges::adjacent_find(all, [](qint64 one, qint64 next) { return next != one + 1; }) ==
                    all.end());
        return all.empty() ? "none" : std::to_string(all.front()) + ".." + std::to_string(all.back());
    }
    std::string inFile(const char* name) const { return numbers(contentsOf(folder.path(name))); }

    OwnFolder folder;
    TestClock clock;
    int received = 0;
    CaptureStore store{clock, {.segmentBytes = 1000, .memoryBytes = 10'000, .fileBytes = 5000}};
    QStringList failures;
    Subscription failing = store.failed.subscribe([this](const QString& reason) { failures << reason; });
};

TEST_F(CaptureStoreTest, MemoryHoldsTheNewestUpToItsLimit) {
    receive(5);
    EXPECT_EQ(numbers(store.newest()), "1..5");
    EXPECT_FALSE(store.newest().contains("dropped"));
    receive(10'000);
    EXPECT_LE(store.size(), 10'000);
    EXPECT_GT(store.size(), 8'000);
    EXPECT_TRUE(store.newest().contains("dropped"));
    EXPECT_TRUE(numbers(store.newest()).ends_with("..10005"));
}

TEST_F(CaptureStoreTest, MemoryHoldsTenMinutesAndWhatWasBeforeASilence) {
    receive(1);
    clock.advance(3'600'000);
    EXPECT_EQ(numbers(store.newest()), "1..1");
    receive(1);
    EXPECT_EQ(numbers(store.newest()), "2..2");
    for (int minute = 0; minute < 30; ++minute) {
        clock.advance(60'000);
        receive(1);
    }
    EXPECT_EQ(numbers(store.newest()), "22..32");
}

TEST_F(CaptureStoreTest, LongBytesAreKeptWholeAndLongTextsCut) {
    store.add(CaptureKind::Received, QByteArray(5000, 'x'));
    store.add(CaptureKind::Discarded, QByteArrayView());
    store.add(CaptureKind::Told, QJsonObject{{QStringLiteral("text"), QString(9000, u'y')}});
    const CaptureContents contents = readCapture(store.newest());
    QByteArray all;
    for (const CaptureEntry& entry : contents.entries) {
        all += entry.bytes;
        EXPECT_LT(entry.value.toObject().value(QLatin1String("text")).toString().size(), 5000);
    }
    EXPECT_EQ(all, QByteArray(5000, 'x'));
    EXPECT_EQ(contents.entries.size(), 4U);
}

TEST_F(CaptureStoreTest, FileBeginsWithWhatIsInMemoryAndIsWrittenJoined) {
    receive(3);
    ASSERT_EQ(store.begin(folder.path("lake.jsonl")), QString());
    EXPECT_EQ(inFile("lake.jsonl"), "1..3");
    receive(2);
    clock.advance(999);
    EXPECT_EQ(inFile("lake.jsonl"), "1..3");
    clock.advance(1);
    EXPECT_EQ(inFile("lake.jsonl"), "1..5");
    receive(1);
    store.end();
    EXPECT_EQ(inFile("lake.jsonl"), "1..6");
    receive(1);
    clock.advance(5000);
    EXPECT_EQ(inFile("lake.jsonl"), "1..6");
}

TEST_F(CaptureStoreTest, AtRestNothingIsDue) {
    ASSERT_EQ(store.begin(folder.path("lake.jsonl")), QString());
    receive(1);
    clock.advance(1000);
    const QDateTime written = QFileInfo(folder.path("lake.jsonl")).lastModified();
    clock.advance(3'600'000);
    EXPECT_EQ(QFileInfo(folder.path("lake.jsonl")).lastModified(), written);
}

TEST_F(CaptureStoreTest, FileIsInTwoPartsOfWhichTheOlderGoes) {
    ASSERT_EQ(store.begin(folder.path("lake.jsonl")), QString());
    for (int second = 0; second < 1000; ++second) {
        receive(3);
        clock.advance(1000);
        ASSERT_LE(QFileInfo(folder.path("lake.jsonl")).size(), 5000);
    }
    EXPECT_EQ(folder.files(), QStringList({QStringLiteral("lake-earlier.jsonl"), QStringLiteral("lake.jsonl")}));
    EXPECT_GT(QFileInfo(folder.path("lake-earlier.jsonl")).size(), 4000);
    EXPECT_TRUE(inFile("lake.jsonl").ends_with("..3000"));
    const QByteArray both = contentsOf(folder.path("lake-earlier.jsonl")) + contentsOf(folder.path("lake.jsonl"));
    EXPECT_TRUE(numbers(both).ends_with("..3000"));
}

TEST_F(CaptureStoreTest, OlderFilesAreKept) {
    fill(folder.path("lake.jsonl"), "mine");
    fill(folder.path("lake-earlier.jsonl"), "mine too");
    ASSERT_EQ(store.begin(folder.path("lake.jsonl")), QString());
    EXPECT_EQ(contentsOf(folder.path("lake-20261121-093015.jsonl")), "mine");
    EXPECT_EQ(contentsOf(folder.path("lake-earlier-20261121-093015.jsonl")), "mine too");
}

TEST_F(CaptureStoreTest, FileThatCannotBeMadeIsTold) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("lake.jsonl")));
    EXPECT_EQ(store.begin(folder.path("lake.jsonl")), QStringLiteral("it is no file"));
    EXPECT_EQ(store.begin(folder.path("none/lake.jsonl")),
              wordsOfOpening(folder.path("none/lake.jsonl"), QIODevice::WriteOnly));
    receive(1);
    clock.advance(5000);
    EXPECT_EQ(failures, QStringList());
}

#ifdef Q_OS_LINUX
TEST_F(CaptureStoreTest, FullDiskIsToldOnceAndMemoryGoesOn) {
    ASSERT_EQ(store.begin(folder.path("lake.jsonl")), QString());
    receive(3);
    clock.advance(1000);
    const QByteArray before = contentsOf(folder.path("lake.jsonl"));
    {
        const FileSizeLimit full(rlim_t(before.size()) + 10);
        for (int second = 0; second < 5; ++second) {
            receive(1);
            clock.advance(1000);
        }
    }
    EXPECT_EQ(failures, QStringList(systemWords(EFBIG)));
    EXPECT_EQ(contentsOf(folder.path("lake.jsonl")), before);
    EXPECT_EQ(numbers(store.newest()), "1..8");
}
#endif

TEST(CaptureStore, WindowsKeepsFourMegabytesAndTheFileThirtyTwo) {
    const CaptureLimits limits;
    EXPECT_EQ(limits.memoryBytes, 4 * 1024 * 1024);
    EXPECT_EQ(limits.memoryMilliseconds, 10 * 60 * 1000);
    EXPECT_EQ(2 * limits.fileBytes, 64 * 1024 * 1024);
}

} // namespace
} // namespace orv
