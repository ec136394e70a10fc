// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/folder.h"
#include "testing/processes.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <csignal>
#include <thread>

namespace orv {
namespace {

/// The commands on the page "Without a window" of a document: its indented lines.
QStringList commandsOf(const QString& document) {
    const QString text = QString::fromUtf8(contentsOf(document));
    const QString page =
        text.section(QStringLiteral("\n## Without a window\n"), 1).section(QStringLiteral("\n## "), 0, 0);
    QStringList commands;
    for (const QString& line : page.split(u'\n')) {
        if (line.startsWith(QLatin1String("    orv "))) {
            commands << line.trimmed();
        }
    }
    return commands;
}

bool isEndless(const QString& command) {
    return command.contains(QLatin1String("--keep-trying")) || command.startsWith(QLatin1String("orv watch"));
}

/// Ends a command once it has written something.
int interruptOnceItWorks(const QString& command) {
    QProcess process;
    process.start(QStringLiteral(ORV_PATH), command.split(u' ').mid(1));
    QElapsedTimer passed;
    passed.start();
    const bool writesRows = command.contains(QLatin1String("rows.csv"));
    const auto works = [&process, writesRows] {
        const QStringList rows = QDir().entryList({QStringLiteral("rows-*.csv")});
        return process.bytesAvailable() > 0 ||
               (writesRows && !rows.isEmpty() && contentsOf(rows.front()).count('\n') > 2);
    };
    while (!works() && passed.elapsed() < patience && !process.waitForFinished(0)) {
        process.waitForReadyRead(1);
    }
    ::kill(static_cast<pid_t>(process.processId()), SIGINT);
    EXPECT_TRUE(process.waitForFinished(patience));
    return process.exitCode();
}

class OrvDocument : public testing::TestWithParam<const char*> {};

TEST_P(OrvDocument, TellsCommandsThatWork) {
    const QStringList commands = commandsOf(QStringLiteral(ORV_SOURCE "/") + QString::fromLatin1(GetParam()));
    ASSERT_GE(commands.size(), 3);
    const InstrumentProcess instrument(QStringLiteral("sim:trx?baud=0&rate=50&records=20"));
    const OwnFolder folder;
    for (QString command : commands) {
        command.replace(QLatin1String("ttyUSB0"), instrument.path);
        if (isEndless(command)) {
            EXPECT_EQ(interruptOnceItWorks(command), 130) << qPrintable(command);
            continue;
        }
        const Ended ended = runToEnd(QStringLiteral(ORV_PATH), command.mid(4));
        EXPECT_EQ(ended.status, 0) << qPrintable(command) << '\n' << ended.error;
        EXPECT_FALSE(ended.output.empty() && ended.error.empty()) << qPrintable(command);
    }
    for (const QString& name : folder.files().filter(QRegularExpression(QStringLiteral("\\.(csv|jsonl)$")))) {
        EXPECT_GE(contentsOf(name).count('\n'), 3) << qPrintable(name);
    }
}

INSTANTIATE_TEST_SUITE_P(All, OrvDocument, testing::Values("README.md", "docs/USER_GUIDE.md"));

} // namespace
} // namespace orv
