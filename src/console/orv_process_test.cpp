// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/folder.h"
#include "testing/processes.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

Ended orv(const QString& arguments) {
    return runToEnd(QStringLiteral(ORV_PATH), arguments);
}

TEST(OrvProgram, KnowsNoWindows) {
    const Ended needed = runToEnd(QStringLiteral("readelf"), QStringLiteral("-d " ORV_PATH));
    ASSERT_EQ(needed.status, 0);
    EXPECT_NE(needed.output.find("libQt6Core"), std::string::npos) << needed.output;
    const Ended all = runToEnd(QStringLiteral("ldd"), QStringLiteral(ORV_PATH));
    for (const char* library : {"libQt6Gui", "libQt6Widgets", "libQt6DBus", "libX11", "libxcb", "libnetcdf"}) {
        EXPECT_EQ(all.output.find(library), std::string::npos) << all.output;
    }
}

TEST(OrvProgram, WrongOptionsEndWithStatus2) {
    const Ended ended = orv(QStringLiteral("info"));
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.error, "orv: \"orv info\" needs PORT, such as ttyUSB0 or sim:trx. \"orv ports\" lists the ports.\n"
                           "Try \"orv info --help\".\n");
    EXPECT_EQ(orv(QStringLiteral("--version")).output, "orv " ORV_VERSION "\n");
}

TEST(OrvProgram, AnAnswerThatIsNotTakenIsNoSuccess) {
    QProcess info;
    info.setStandardOutputFile(QStringLiteral("/dev/full"));
    info.start(QStringLiteral(ORV_PATH), {QStringLiteral("info"), QStringLiteral("sim:trx?baud=0")});
    ASSERT_TRUE(info.waitForFinished(patience));
    EXPECT_EQ(info.exitCode(), 1);
    EXPECT_TRUE(info.readAllStandardError().contains("Standard output takes nothing any more: "));
}

TEST(OrvProgram, AVersionThatCannotBePrintedIsNoSuccess) {
    for (const char* words : {"--version >&-", "--version >/dev/full", "info --help >&-"}) {
        QProcess shell;
        shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral(ORV_PATH " ") + QLatin1String(words)});
        ASSERT_TRUE(shell.waitForFinished(patience));
        EXPECT_EQ(shell.exitCode(), 1) << words;
        EXPECT_TRUE(shell.readAllStandardError().startsWith("orv: Standard output takes nothing: ")) << words;
    }
}

TEST(OrvProgram, WritesInNoFileInPlaceOfAClosedStream) {
    struct Closed {
        const char* words;
        int status;
    };
    for (const Closed& closed : {Closed{"-o - --points 2 >&-", 1}, Closed{"-o b.csv --points 2 2>&-", 0},
                                 Closed{"-o c.csv --points 2 <&- >&- 2>&-", 0}}) {
        const OwnFolder folder;
        QProcess shell;
        shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral(ORV_PATH " collect sim:trx?baud=0 ") +
                                                                     QLatin1String(closed.words)});
        ASSERT_TRUE(shell.waitForFinished(patience));
        EXPECT_EQ(shell.exitCode(), closed.status) << closed.words;
        for (const QString& name : folder.files()) {
            EXPECT_FALSE(contentsOf(folder.path() + u'/' + name).contains("orv: ")) << qPrintable(name);
            EXPECT_EQ(name.endsWith(QLatin1String(".csv")) ? contentsOf(folder.path() + u'/' + name).count('\n') : 3,
                      3);
        }
    }
}

TEST(OrvProgram, TellsWhichProgramUsesAPort) {
    const InstrumentProcess instrument(QStringLiteral("sim:trx?baud=0"));
    QProcess first;
    first.start(QStringLiteral(ORV_PATH), {QStringLiteral("watch"), instrument.path});
    ASSERT_TRUE(first.waitForReadyRead(patience));
    const Ended second = orv(QStringLiteral("info ") + instrument.path);
    EXPECT_EQ(second.status, 1);
    EXPECT_NE(
        second.error.find("It is used by another program (orv, process " + std::to_string(first.processId()) + ")"),
        std::string::npos)
        << second.error;
    first.terminate();
    ASSERT_TRUE(first.waitForFinished(patience));
    EXPECT_EQ(first.exitCode(), 143);
}

class OrvOverALine : public testing::TestWithParam<const char*> {};

TEST_P(OrvOverALine, TellsWhatTheInstrumentIsAndSetsIt) {
    const InstrumentProcess instrument(QString::fromLatin1(GetParam()));
    const OwnFolder folder;
    const Ended info = orv(QStringLiteral("info --json ") + instrument.path);
    EXPECT_EQ(info.status, 0) << info.error;
    EXPECT_NE(info.output.find("\"records\":200"), std::string::npos) << info.output;
    const Ended set = orv(QStringLiteral("settings --set samplesPerPoint=77 --json ") + instrument.path);
    EXPECT_EQ(set.status, 0) << set.error;
    EXPECT_NE(set.output.find("\"samplesPerPoint\":77"), std::string::npos) << set.output;
    EXPECT_EQ(orv(QStringLiteral("clock ") + instrument.path).status, 0);
    EXPECT_TRUE(folder.files().isEmpty()) << "they leave nothing in the folder";
}

INSTANTIATE_TEST_SUITE_P(Instruments, OrvOverALine,
                         testing::Values("sim:trx?baud=0", "sim:trx?firmware=412&baud=0", "sim:glow?baud=0"));

TEST(OrvProgram, EndsWithAReasonWhenTheLineVanishes) {
    const InstrumentProcess instrument(QStringLiteral("sim:trx?fault=unplug&after=100ms"));
    const Ended info = orv(QStringLiteral("info ") + instrument.path);
    EXPECT_EQ(info.status, 1);
    EXPECT_NE(info.error.find("The connection on " + instrument.path.toStdString() + " was lost."), std::string::npos)
        << info.error;
}

} // namespace
} // namespace orv
