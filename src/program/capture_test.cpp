// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/capture.h"

#include "testing/expected.h"
#include "testing/programrig.h"

#include <QJsonDocument>

#include <gmock/gmock.h>

namespace orv {
namespace {

class CaptureTest : public ProgramTest {
protected:
    CaptureTest() { program.load(); }

    /// The entries of a capture without their times, joined; those of the kinds in question.
    static std::string entries(const QByteArray& file, std::initializer_list<const char*> kinds) {
        QByteArray found;
        for (const QByteArray& line : file.split('\n')) {
            const qsizetype comma = line.indexOf(',');
            for (const char* kind : kinds) {
                found += line.startsWith("{\"ms\"") && line.sliced(comma + 1).startsWith('"' + QByteArray(kind) + '"')
                             ? line.sliced(comma + 1).chopped(1) + '\n'
                             : QByteArray();
            }
        }
        return found.toStdString();
    }
    std::string entries(std::initializer_list<const char*> kinds) const {
        return entries(capture.supportFile(), kinds);
    }

    Capture& capture = program.capture;
};

TEST_F(CaptureTest, LineIsKeptByteForByteWithItsControlsAndWaits) {
    com1.dtrChanged = [this](bool on) { com1.input += on ? "" : "noise\xff"; };
    replies = {"V51", "2\r"};
    autoConnect();
    receive("P\r\nS1\r\n");
    ports.close();
    EXPECT_EQ(entries({"open", "dtr", "sent", "received", "discarded", "closed", "waits", "nothingCame"}),
              R"("open":"ttyA"
"dtr":true
"waits":{"for":"time","ms":1000}
"dtr":false
"discarded":"noise\u00ff"
"waits":{"for":"input","ms":5001}
"received":"V51"
"waits":{"for":"input","ms":5000}
"received":"2\r"
"waits":{"for":"time","ms":200}
"sent":"P"
"received":"P\r\nS1\r\n"
"closed":true
)");
    const CaptureContents contents = readCapture(capture.supportFile());
    EXPECT_EQ(contents.error, QString());
    EXPECT_EQ(contents.entries.at(3).milliseconds - contents.entries.at(2).milliseconds, 0);
}

TEST_F(CaptureTest, SilenceAndAFailedOpeningAreKept) {
    autoConnect();
    manual.quit();
    ports.close();
    com1.openReason = QStringLiteral("/dev/ttyA is away.");
    autoConnect();
    EXPECT_EQ(entries({"open", "notOpened", "nothingCame"}), "\"open\":\"ttyA\"\n\"nothingCame\":true\n"
                                                             "\"notOpened\":\"ttyA is away.\"\n");
}

TEST_F(CaptureTest, LostLineIsKeptWithWhatTheOperatorIsTold) {
    runWithRows(3);
    com1.unplugged = true;
    live(1.0);
    EXPECT_EQ(entries({"failed", "closed", "told", "instrument", "sheet", "status"}),
              R"("status":"Connecting..."
"instrument":{"firmware":"512","type":"TRX"}
"status":"Loading Properties"
"status":"Ready"
"status":"Running"
"failed":"Pulled."
"closed":true
"sheet":{"last":"11/21/26\t1:00:00\t3\t20\t30\t40","rows":3}
"status":"Offline"
"told":{"text":"The connection on COM 1 (ttyA) was lost.\n\nPulled.\n\nAll rows received so far are kept. Check the cable, then connect again.","title":"ORV Host Program"}
)");
}

TEST_F(CaptureTest, SettingsAreKeptWhenTheyAreRead) {
    connectAndRead();
    EXPECT_EQ(entries({"settings"}),
              R"("settings":{"lamp":"reading"}
"settings":{"append":false,"autoStart":true,"auxAdc":false,"gain":false,"hoursBeforeBlock":"24","lamp":"read","logEnabled":true,"pointsPerBlock":"0","samplesPerPoint":"30","secondsBetweenPoints":"5","wakeUp":true}
)");
}

TEST_F(CaptureTest, FilesAreNamedWithoutTheirFolders) {
    runWithRows(1);
    answers.fileName = path("my lake.txt");
    program.saveAs();
    answers.fileName = path("none/lake.txt");
    program.saveAs();
    capture.did(QStringLiteral("Text37"), QStringLiteral("File name"), QStringLiteral("/home/jo/Lake Data/lake"));
    capture.said(
        QStringLiteral("orv: \"/home/dev/x.csv\" on /dev/pts/0 and C:\\Users\\jo\\y.csv (/tmp/z) in ug/L, 11/21/26"));
    EXPECT_EQ(entries({"asked", "answered", "did", "said"}),
              R"("asked":{"kind":"save","text":"","title":"Save as"}
"answered":"my lake.txt"
"asked":{"kind":"save","text":"","title":"Save as"}
"answered":"lake.txt"
"did":{"caption":"File name","control":"Text37","value":"Lake Data/lake"}
"said":"orv: \"x.csv\" on pts/0 and y.csv (z) in ug/L, 11/21/26"
)");
    const QByteArray all = capture.supportFile();
    EXPECT_FALSE(all.contains(folder.path().toUtf8())) << all.constData();
    EXPECT_THAT(entries({"told"}),
                testing::StartsWith(R"("told":{"text":"The sheet could not be saved as lake.txt: )"));
    // A folder within another is left out too, in whatever order they were met.
    for (const char* folderOfAnswer : {"a", "a/b", "a/b/c", "d/e", "d"}) {
        answers.fileName = path(folderOfAnswer) + QStringLiteral("/lake.txt");
        program.saveAs();
    }
    EXPECT_THAT(entries({"told"}), testing::Not(testing::HasSubstr("/lake.txt")));
    expectEach(
        std::vector<std::pair<QString, QString>>{
            {QStringLiteral("--com1"), QStringLiteral("--com1")},
            {QStringLiteral("/dev/ttyUSB0"), QStringLiteral("ttyUSB0")},
            {QStringLiteral("/dev/pts/0"), QStringLiteral("pts/0")},
            {QStringLiteral("--demo=/home/jo/a b"), QStringLiteral("--demo=a b")},
            {QStringLiteral("C:\\Users\\jo\\y.csv"), QStringLiteral("y.csv")},
            {QStringLiteral("sim:replay?file=/home/jo/lake.jsonl"), QStringLiteral("sim:replay?file=lake.jsonl")}},
        withoutFolder);
}

TEST_F(CaptureTest, RowsThatFailToComeAreKeptOnceAndAgainWhenOneComes) {
    runWithRows(3);
    live(25.0);
    com1.input = "11/21/26\t2700\t4\t20\t30\t40\r\n";
    live(3.0);
    EXPECT_EQ(entries({"late"}), "\"late\":\"No row for 4 s\"\n\"late\":\"\"\n");
}

TEST_F(CaptureTest, RowsThatAreSavedAndClearedAreCounted) {
    runWithRows(3);
    program.run();
    answers.fileName = path("lake.txt");
    program.saveAs();
    program.clearAll();
    program.bringBack();
    EXPECT_EQ(entries({"saved", "cleared"}),
              "\"saved\":{\"name\":\"lake.txt\",\"rows\":3}\n\"cleared\":3\n\"cleared\":0\n"
              "\"saved\":{\"name\":\"lake.txt\",\"rows\":3}\n")
        << "as it was before";
}

TEST_F(CaptureTest, FoldersWithASpaceAreLeftOutOfWhatIsSaid) {
    capture.noteFile(QStringLiteral("/data/lake one/../lake two/rows.csv"));
    capture.noteFile(QStringLiteral("my lakes/old.txt"));
    capture.said(QStringLiteral("/data/lake one/../lake two/rows.csv and /data/lake two/x.tmp, my lakes/old.txt"));
    EXPECT_EQ(entries({"said"}), "\"said\":\"rows.csv and x.tmp, old.txt\"\n");
}

TEST_F(CaptureTest, RowsOfAFileAreNotKept) {
    state.Vartemp = QStringLiteral("V");
    session.setFirmware(QStringLiteral("512"));
    program.clearAll();
    haveRows(2);
    answers.fileName = path("lake.txt");
    program.saveAs();
    answers.openName = answers.fileName;
    program.openSheet();
    ASSERT_EQ(sheet.rowCount(), 2);
    const QByteArray all = capture.supportFile();
    EXPECT_FALSE(all.contains("9:05:01"));
    EXPECT_TRUE(all.contains("\"rows\":2"));
}

TEST_F(CaptureTest, SupportFileIsSavedWhereTheOperatorWants) {
    connectAndRead();
    answers.fileName = path("help.jsonl");
    program.saveSupportFile();
    EXPECT_EQ(answers.asked.constLast(),
              QStringLiteral("Save Support File|support-20261121-0930%1.jsonl|.jsonl|*.jsonl")
                  .arg(clock.now().time().second()));
    const CaptureContents contents = readCapture(contentsOf(path("help.jsonl")));
    EXPECT_EQ(contents.error, QString());
    ASSERT_FALSE(contents.entries.empty());
    EXPECT_EQ(contents.entries.back().kind, CaptureKind::State);
    const QJsonObject state = contents.entries.back().value.toObject();
    EXPECT_EQ(state.value(QLatin1String("status")).toString(), QStringLiteral("Ready"));
    EXPECT_EQ(state.value(QLatin1String("firmware")).toString(), QStringLiteral("512"));
    EXPECT_TRUE(messages.shown.back().text.startsWith(QStringLiteral("help.jsonl tells what went over the line")));

    answers.fileName = path("none/help.jsonl");
    program.saveSupportFile();
    EXPECT_TRUE(messages.shown.back().text.contains(QStringLiteral("could not be saved")));
    answers.fileName.clear();
    const std::size_t told = messages.shown.size();
    program.saveSupportFile();
    EXPECT_EQ(messages.shown.size(), told);
}

TEST_F(CaptureTest, FileThatCannotBeWrittenIsToldOnceAndTheRunGoesOn) {
    capture.begin(path("none/lake.jsonl"));
    EXPECT_TRUE(theMessage().text.startsWith(QStringLiteral("Nothing is captured: ")));
    for (const char* own : {"log.ohp", "log-2.ohp", "log-9-older.ohp", "Orvtemp-3.tmp", "Orvtemp-3.tmp.lock"}) {
        messages.shown.clear();
        capture.begin(path(own));
        EXPECT_TRUE(theMessage().text.startsWith(QStringLiteral("Nothing is captured: "))) << own;
        EXPECT_TRUE(!QFile::exists(path(own)) || contentsOf(path(own)).isEmpty()) << own;
    }
    messages.shown.clear();
    capture.begin(path("lake.jsonl"));
    runWithRows(3);
    live(1.0);
    EXPECT_EQ(messages.shown, std::vector<Message>());
    EXPECT_NE(entries(contentsOf(path("lake.jsonl")), {"sent"}), "");
}

TEST_F(CaptureTest, WithoutAFileNoFileIsMade) {
    const QStringList before = folder.files();
    runWithRows(3);
    program.closePort();
    QStringList after = folder.files();
    after.removeIf([&before](const QString& name) { return before.contains(name); });
    EXPECT_EQ(after.filter(QStringLiteral("json")), QStringList());
}

} // namespace
} // namespace orv
