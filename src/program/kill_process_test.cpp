// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/expected.h"
#include "testing/folder.h"
#include "testing/processes.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <thread>

namespace orv {
namespace {

class KilledProgram : public testing::TestWithParam<int> {
protected:
    static int rowsIn(const QByteArray& recordFile) {
        constexpr int headerLines = 5;
        return static_cast<int>(recordFile.count("\r\n")) - headerLines;
    }

    OwnFolder folder;
    FarEnd debugEnd;
};

/// The program collects unattended and announces each line that it makes a row of on its debug port; so what it had
/// done when it was killed is known from outside.
TEST_P(KilledProgram, HasLostNoRow) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ORVHOST_PATH),
                  {QStringLiteral("--com1"), QStringLiteral("sim:trx?baud=0&rate=20"), QStringLiteral("--com2"),
                   debugEnd.path, QStringLiteral("--debug-output"), QStringLiteral("--demo"), folder.path("demo")});
    ASSERT_TRUE(process.waitForStarted(patience));
    QElapsedTimer passed;
    passed.start();
    while (rowsIn(contentsOf(folder.path("demo/Orvtemp.tmp"))) < GetParam()) {
        ASSERT_LT(passed.elapsed(), patience);
        ASSERT_EQ(process.state(), QProcess::Running) << process.readAllStandardError().toStdString();
        debugEnd.listen();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    process.kill();
    ASSERT_TRUE(process.waitForFinished(patience));
    ASSERT_EQ(process.exitStatus(), QProcess::CrashExit) << "it ended by itself before it was killed";
    debugEnd.listen();

    const QByteArray record = contentsOf(folder.path("demo/Orvtemp.tmp"));
    EXPECT_TRUE(record.endsWith("\r\n")) << "the last line is whole";
    const int rows = rowsIn(record);
    // The first announcement is of the echo. Behind the last one the program may have been stopped before the row.
    const auto announced = static_cast<int>(debugEnd.heard.count("Profile Sub\r")) - 1;
    EXPECT_GE(rows, announced - 1);
    EXPECT_LE(rows, announced);

    QByteArray log = contentsOf(folder.path("demo/log.ohp"));
    log = log.mid(log.indexOf("R\r\n"));
    std::vector<DecodedLine> received;
    for (const QByteArray& line : log.split('\n')) {
        if (line.count('\t') == 5) {
            received.push_back(decodeLine(line.trimmed()));
        }
    }
    ASSERT_GE(static_cast<int>(received.size()), rows);
    QByteArray expected;
    for (int row = 0; row < rows; ++row) {
        const DecodedLine& line = received.at(static_cast<std::size_t>(row));
        expected += QByteArray::number(row + 1) + '\t' + line.date + '\t' + line.time + '\t' + line.values.value(0) +
                    "\t\t" + line.values.value(1) + "\t\t" + line.values.value(2) + '\t' + line.values.value(3) +
                    "\r\n";
    }
    EXPECT_EQ(record.mid(record.indexOf("REF3\r\n") + 6).toStdString(), expected.toStdString());
}

INSTANTIATE_TEST_SUITE_P(AfterRows, KilledProgram, testing::Values(1, 7, 16));

} // namespace
} // namespace orv
