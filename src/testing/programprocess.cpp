// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/programprocess.h"

#include "testing/folder.h"
#include "testing/programrig.h"

#include <QElapsedTimer>
#include <QRegularExpression>

#include <algorithm>
#include <csignal>
#include <cstdlib>

#include <unistd.h>

namespace orv {

namespace {
constexpr const char* slowInstrument = "sim:trx?rate=50&records=5000";
constexpr int headerLines = 5; ///< Of a record file.
} // namespace

ProgramProcess::ProgramProcess(const QString& program,
                               const std::function<QStringList(const QString& device)>& arguments, int ignored,
                               const QMap<QString, QString>& variables)
    : instrument(QLatin1String(slowInstrument)) {
    QMap<QString, QString> all{{QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen")}};
    all.insert(variables);
    process.setProcessEnvironment(environmentWith(all));
    process.setWorkingDirectory(folder.path());
    process.setChildProcessModifier([ignored] {
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
            std::signal(signal, signal == ignored ? SIG_IGN : SIG_DFL);
        }
    });
    process.start(program, arguments(instrument.path));
}

ProgramProcess::~ProgramProcess() {
    process.kill();
    process.waitForFinished(patience);
}

void ProgramProcess::waitFor(const std::function<bool()>& reached) {
    const bool ended = comesTrue([&] { return reached() || process.state() == QProcess::NotRunning; });
    ASSERT_TRUE(ended) << "it does not come";
    ASSERT_TRUE(reached()) << process.readAllStandardError().toStdString();
}

void ProgramProcess::waitForRows(int rows) {
    waitFor([this, rows] { return rowsOnDisk() >= rows; });
}

void ProgramProcess::waitForWord(const QByteArray& word) {
    waitFor([this, &word] { return (output += process.readAllStandardOutput()).contains(word); });
}

void ProgramProcess::send(int signal) const {
    ::kill(static_cast<pid_t>(process.processId()), signal);
}

qint64 ProgramProcess::end(int signal) {
    QElapsedTimer passed;
    passed.start();
    send(signal);
    EXPECT_TRUE(process.waitForFinished(patience));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 128 + signal);
    return passed.elapsed();
}

QByteArray ProgramProcess::file(const char* name) const {
    return contentsOf(folder.filePath(QLatin1String(name)));
}

bool ProgramProcess::has(const char* name) const {
    return QFile::exists(folder.filePath(QLatin1String(name)));
}

int ProgramProcess::rowsOnDisk() const {
    return static_cast<int>(file("Orvtemp.tmp").count('\n')) - headerLines;
}

int ProgramProcess::rowsReceived() const {
    QByteArray log = file("log.ohp"); // in pieces as they came, each with a line's end
    log.replace("\r", "").replace("\n", "");
    const QRegularExpression row(QStringLiteral(R"(\d\d/\d\d/\d\d\t\d+\t\d+\t\d+\t\d+\t\d)"));
    int rows = 0;
    for (auto match = row.globalMatch(QString::fromLatin1(log)); match.hasNext(); match.next()) {
        ++rows;
    }
    return rows;
}

void ProgramProcess::expectEveryRowOffered() const {
    const int offered = offeredIn(folder.path());
    EXPECT_GE(offered, rowsReceived() - 1);
    const QByteArray lastRow = file("Orvtemp.tmp").trimmed().split('\n').last();
    EXPECT_EQ(offered, lastRow.left(lastRow.indexOf('\t')).toInt()) << "rows are missing between the others";
}

int offeredIn(const QString& folder) {
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder);
    int rows = 0;
    {
        TestClock clock;
        RecordedMessages messages;
        PreparedAnswers answers;
        answers.yes = true;
        Program program({.clock = clock, .messages = messages, .questions = answers, .makePort = [](const QString&) {
                             return std::make_unique<TestPort>();
                         }});
        program.load();
        program.offerUnendedRun();
        rows = program.sheet.data.rowCount();
        EXPECT_EQ(answers.asked.size(), rows > 0 ? 1 : 0);
        EXPECT_TRUE(messages.shown.empty());
    }
    QDir::setCurrent(before);
    return rows;
}

bool isWithinASecond(qint64 milliseconds) {
    double load = 0.0;
    const auto processors = static_cast<double>(std::max(1L, ::sysconf(_SC_NPROCESSORS_ONLN)));
    const double sharing = ::getloadavg(&load, 1) == 1 ? load / processors : 1.0;
    return static_cast<double>(milliseconds) < 1000.0 * std::max(1.0, sharing);
}

} // namespace orv
