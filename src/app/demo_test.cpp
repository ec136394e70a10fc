// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/folder.h"
#include "testing/processes.h"

namespace orv {
namespace {

class DemoTest : public testing::Test {
protected:
    static Ended demo(const char* device, const QString& target) {
        return runToEnd(QStringLiteral(ORVHOST_PATH),
                        QStringLiteral("--com1 %1 --com2 sim:glow --demo %2").arg(QLatin1String(device), target),
                        {{QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen")}});
    }

    OwnFolder folder;
};

TEST_F(DemoTest, DoesTheMainJobAndLeavesItsFilesAndPictures) {
    const Ended ended = demo("sim:trx?rate=50&baud=0", folder.path("out/put"));
    EXPECT_EQ(ended.how, QProcess::NormalExit);
    EXPECT_EQ(ended.status, 0) << ended.error;
    EXPECT_EQ(ended.error.find("Failed"), std::string::npos) << ended.error;
    for (const char* step : {"Connecting on COM 1", "Identified: TRX, firmware 512\n", "Settings read: 10 samples",
                             "Collected ", "Stopped and connected again\n", "Saved ", "Picture of "}) {
        EXPECT_NE(ended.output.find(step), std::string::npos) << step << " in\n" << ended.output;
    }
    // On a busy computer the next row comes together with the 25th.
    const QByteArray told = QByteArray::fromStdString(ended.output);
    const qsizetype collected = told.indexOf("Collected ") + 10;
    EXPECT_GE(told.sliced(collected, told.indexOf(" rows\n", collected) - collected).toInt(), 25);
    const QByteArray sheet = contentsOf(folder.path("out/put/sheet.txt"));
    EXPECT_TRUE(sheet.startsWith("V\t512 "));
    // Line ends of the header and then one CR for each row: rows that came while the run was being stopped count too.
    const int rows = sheet.mid(6, sheet.indexOf('\r') - 6).toInt();
    EXPECT_GE(rows, 25);
    EXPECT_EQ(contentsOf(folder.path("out/put/Orvtemp.tmp")).count("\r\n"), 5 + rows);
    EXPECT_TRUE(contentsOf(folder.path("out/put/log.ohp")).contains("MP200\r\n"));
    for (const char* picture : {"out/put/page-1.png", "out/put/page-2.png", "out/put/page-3.png"}) {
        const QByteArray file = contentsOf(folder.path(picture));
        EXPECT_TRUE(file.startsWith("\x89PNG\r\n")) << picture;
        EXPECT_GT(file.size(), 1000) << picture;
    }
}

TEST_F(DemoTest, EndsWithABlockThatIsOut) {
    const Ended ended = demo("sim:glow?rate=100&baud=0&points=25", folder.path("demo"));
    EXPECT_EQ(ended.status, 0) << ended.error;
    EXPECT_NE(ended.output.find("Identified: GLOW, firmware 310\n"), std::string::npos) << ended.output;
    EXPECT_TRUE(contentsOf(folder.path("demo/sheet.txt")).startsWith("F\t310 25\r\nsheet.txt\r\n"));
}

TEST_F(DemoTest, ClosedStandardStreamsEndUpInNoFile) {
    QProcess shell;
    shell.setProcessEnvironment(environmentWith({{QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen")}}));
    shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("exec '" ORVHOST_PATH "' --com1 "
                                                                            "'sim:glow?rate=100&baud=0&points=25' "
                                                                            "--demo '%1' <&- >&- 2>&-")
                                                                 .arg(folder.path("demo"))});
    ASSERT_TRUE(shell.waitForFinished(patience));
    EXPECT_EQ(shell.exitCode(), 0);
    const QDir made(folder.path("demo"));
    EXPECT_TRUE(made.exists(QStringLiteral("sheet.txt")));
    for (const QString& name : made.entryList(QDir::Files)) {
        EXPECT_FALSE(contentsOf(made.filePath(name)).contains("Identified: ")) << qPrintable(name);
    }
}

TEST_F(DemoTest, ReplacesNoFileOfItsFolder) {
    QDir().mkpath(folder.path("demo"));
    fill(folder.path("demo/sheet.txt"), "an older sheet");
    fill(folder.path("demo/page-1.png"), "an older picture");
    const Ended ended = demo("sim:glow?rate=100&baud=0&points=25", folder.path("demo"));
    EXPECT_EQ(ended.status, 0) << ended.error;
    EXPECT_EQ(contentsOf(folder.path("demo/sheet.txt")), "an older sheet");
    EXPECT_EQ(contentsOf(folder.path("demo/page-1.png")), "an older picture");
    const QDir made(folder.path("demo"));
    const QStringList sheets = made.entryList({QStringLiteral("sheet-*.txt")});
    ASSERT_EQ(sheets.size(), 1);
    EXPECT_TRUE(contentsOf(made.filePath(sheets[0])).startsWith("F\t310 25\r\n"));
    EXPECT_EQ(made.entryList({QStringLiteral("page-1-*.png")}).size(), 1);
}

TEST_F(DemoTest, AFileThatCannotBeWrittenFailsAndSaysSo) {
    QDir().mkpath(folder.path("demo/log.ohp"));
    const Ended ended = demo("sim:glow?rate=100&baud=0&points=25", folder.path("demo"));
    EXPECT_EQ(ended.how, QProcess::NormalExit);
    EXPECT_EQ(ended.status, 1);
    EXPECT_NE(ended.error.find("Failed: Connecting: "), std::string::npos) << ended.error;
    EXPECT_NE(ended.error.find("log.ohp"), std::string::npos) << ended.error;
}

TEST_F(DemoTest, AMissingDisplayFailsAndSaysWhatToDo) {
    const Ended ended = runToEnd(QStringLiteral(ORVHOST_PATH), QStringLiteral("--demo ") + folder.path("demo"),
                                 {{QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb")},
                                  {QStringLiteral("DISPLAY"), QStringLiteral(":77999")}});
    EXPECT_EQ(ended.how, QProcess::NormalExit);
    EXPECT_EQ(ended.status, 1);
    EXPECT_NE(ended.error.find("orvhost: there is no display to show a window on: "), std::string::npos) << ended.error;
    EXPECT_TRUE(ended.error.ends_with("QT_QPA_PLATFORM=offscreen does the job of --demo without one.\n"))
        << ended.error;
}

TEST_F(DemoTest, ASilentInstrumentFailsAndSaysSo) {
    const Ended ended = demo("sim:trx?fault=silent", folder.path("demo"));
    EXPECT_EQ(ended.how, QProcess::NormalExit);
    EXPECT_EQ(ended.status, 1);
    EXPECT_TRUE(ended.error.ends_with("Failed: Connecting: the instrument does not answer\n")) << ended.error;
    EXPECT_FALSE(QFile::exists(folder.path("demo/sheet.txt")));
}

TEST_F(DemoTest, AMissingDeviceFailsAndSaysSo) {
    const Ended ended = demo("/dev/no-such-device", folder.path("demo"));
    EXPECT_EQ(ended.how, QProcess::NormalExit);
    EXPECT_EQ(ended.status, 1);
    EXPECT_NE(ended.error.find("Failed: Connecting: COM 1 (/dev/no-such-device) could not be opened. "),
              std::string::npos)
        << ended.error;
}

TEST_F(DemoTest, ACablePulledInTheRunFailsAndSaysSo) {
    const Ended ended = demo("sim:trx?rate=50&baud=0&fault=unplug&after=10%", folder.path("demo"));
    EXPECT_EQ(ended.status, 1);
    EXPECT_NE(ended.error.find("Failed: Collecting: The connection on COM 1 (sim:trx?rate=50"), std::string::npos)
        << ended.error;
    EXPECT_EQ(contentsOf(folder.path("demo/Orvtemp.tmp")).count("\r\n"), 5 + 10);
}

TEST_F(DemoTest, AFolderThatCannotBeMadeFailsAndSaysSo) {
    fill(folder.path("file"), "in the way");
    const Ended ended = demo("sim:trx", folder.path("file/demo"));
    EXPECT_EQ(ended.status, 1);
    EXPECT_NE(ended.error.find("file/demo"), std::string::npos) << ended.error;
    EXPECT_EQ(contentsOf(folder.path("file")), "in the way");
}

} // namespace
} // namespace orv
