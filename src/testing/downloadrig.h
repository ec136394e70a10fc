// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "testing/fakes.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>

namespace orv {

/// The dump as it came in these blocks: the lines from ">O" to the end, without the two characters of their ends, and
/// what was left unfinished. The prompt of before may have been read ahead of the echo.
inline QByteArrayList dumpLines(const QByteArrayList& blocks) {
    QByteArray all = blocks.join();
    if (all.startsWith('O')) {
        all.prepend('>');
    }
    QByteArrayList found = all.split('\n');
    for (QByteArray& line : found) {
        line.chop(1);
    }
    return found;
}

/// How many values a record of the simulated instrument has.
inline qsizetype valuesOf(const std::string& device) {
    constexpr qsizetype newerTrx = 4;
    constexpr qsizetype olderTrx = 6;
    if (device.find("glow") != std::string::npos) {
        return 1;
    }
    return device.find("firmware=412") != std::string::npos ? olderTrx : newerTrx;
}

/// What a download must make of an instrument's lines, worked out from the lines alone.
struct ExpectedDump {
    QByteArray textRows;  ///< Rows of the text file.
    QByteArray sheetRows; ///< Rows as the sheet file has them.
    int records = 0;
    int unreadable = 0;
    qint64 bytes = 0; ///< Characters without line ends, the end included.
    bool ended = false;

    ExpectedDump(const QByteArrayList& lines, qsizetype values) {
        for (qsizetype index = 0; index + 1 < lines.size() && !ended; ++index) {
            const QByteArray& line = lines.at(index);
            bytes += line.size();
            ended = line == "EOF" || line == "0";
            if (line.isEmpty() || line == ">O" || line == "65535" || ended) {
                continue;
            }
            const QByteArrayList fields = line.split('\r').front().split('\t');
            if (fields.size() < values + 2) {
                ++unreadable;
                continue;
            }
            ++records;
            const QByteArray head = QByteArray::number(records) + '\t' + date(fields.at(0)) + '\t' + time(fields.at(1));
            const QByteArrayList cells = fields.mid(2, values);
            if (values == 4) {
                textRows += head + '\t' + cells[0] + "\t\t" + cells[1] + "\t\t" + cells[2] + '\t' + cells[3] + "\r\n";
            } else {
                textRows += head + '\t' + cells.join('\t') + "\r\n";
            }
            QByteArrayList saved = cells.mid(0, 5); // the sheet file drops the last reference of the older TRX
            if (values == 4) {
                saved << QByteArray();
            }
            sheetRows += head + '\t' + saved.join('\t') + "\t\r";
        }
    }

private:
    static QByteArray unpadded(const QByteArray& digits) { return QByteArray::number(digits.toInt()); }

    static QByteArray date(const QByteArray& field) {
        const QByteArrayList pieces = field.split('/');
        return pieces.size() == 3 && field.size() == 8
                   ? unpadded(pieces[0]) + '/' + unpadded(pieces[1]) + '/' + pieces[2]
                   : field;
    }

    static QByteArray padded(double value) {
        const QByteArray digits = QByteArray::number(static_cast<int>(value));
        return digits.size() < 2 ? '0' + digits : digits;
    }

    static QByteArray time(const QByteArray& field) {
        bool isCount = false;
        const int count = field.toInt(&isCount);
        if (!isCount) {
            return field;
        }
        const double hours = count / 64800.0 * 24.0;
        const double minutes = (hours - std::floor(hours)) * 60.0;
        const double seconds = (minutes - std::floor(minutes)) * 60.0;
        return QByteArray::number(static_cast<int>(hours)) + ':' + padded(minutes) + ':' + padded(seconds);
    }
};

/// The whole program below its windows with one instrument on COM 1, in a folder of the test's own.
class DownloadRig : public testing::Test {
protected:
    DownloadRig() {
        QDir::setCurrent(folder.path());
        yield.tick = [this] { pass(); };
    }
    ~DownloadRig() override {
        program.end();
        QDir::setCurrent(QDir::rootPath());
    }

    virtual std::unique_ptr<Port> makeInstrument(const QString& device) = 0;

    /// What happens between two ticks.
    virtual void pass() { program.tick(); }

    std::unique_ptr<Port> makePort(const QString& device) {
        auto port = std::make_unique<WatchedPort>(makeInstrument(device));
        line = port.get();
        port->written = [this](const QByteArray& bytes) {
            if (bytes == "O") {
                line->blocks.clear();
            }
        };
        port->waited = [this](int milliseconds) {
            if (clockRunsWhileWaiting()) {
                clock.advance(milliseconds);
            }
        };
        return port;
    }
    virtual bool clockRunsWhileWaiting() const = 0;

    void load() {
        if (!loaded_) {
            loaded_ = true;
            program.load();
        }
    }

    /// Connects and reads the settings.
    void connectTo(const QString& device) {
        program.ports.setDevice(1, device);
        load();
        program.autoConnect1();
        tickUntil([this] { return program.session.state.Ctrlscrn == Operation::SettingsOpen; });
        ASSERT_TRUE(program.session.commands.canCommand);
        ASSERT_TRUE(messages.shown.empty());
    }

    /// One interval of the status timer and its tick.
    virtual void step() {
        clock.advance(program.timer.interval());
        pass();
    }

    void tickUntil(const std::function<bool()>& reached) {
        constexpr int enough = 2'000'000;
        QElapsedTimer patience;
        patience.start();
        for (int ticks = 0; !reached(); ++ticks) {
            ASSERT_LT(ticks, enough);
            ASSERT_LT(patience.elapsed(), 60'000);
            step();
        }
    }

    bool isTaking() const { return program.session.commands.activity.value() == Activity::Downloading; }

    void startText() {
        answers.fileName = path("dump.txt");
        program.downloadText();
    }

    void downloadToFile() {
        startText();
        tickUntil([this] { return !isTaking(); });
    }

    void downloadToSheet() {
        program.vwhp();
        tickUntil([this] { return !isTaking(); });
    }

    QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

    static QByteArray contents(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
    }

    std::string fileRows() const {
        const QByteArray bytes = contents(path("dump.txt"));
        return bytes.mid(bytes.indexOf('\n', bytes.indexOf("Data Point")) + 1).toStdString();
    }

    std::string savedSheetRows() {
        answers.fileName = path("sheet.txt");
        program.saveAs();
        const QByteArray bytes = contents(path("sheet.txt"));
        return bytes.mid(bytes.indexOf('\n', bytes.indexOf("Data Point")) + 1).toStdString();
    }

    std::string status() const { return program.session.status.status.value().toStdString(); }

    void expectWholeEnd(const ExpectedDump& expected) {
        EXPECT_TRUE(expected.ended);
        EXPECT_EQ(status(), "Ready");
        EXPECT_FALSE(program.progress.visible);
        EXPECT_EQ(program.session.status.downloadedBytes.value(), QString::number(expected.bytes));
        EXPECT_TRUE(program.session.commands.canCommand);
        EXPECT_TRUE(contents(path("log.ohp")).endsWith(line->blocks.join("\r\n") + "\r\n"));
        EXPECT_TRUE(messages.shown.empty());
    }

    std::vector<std::string> told() const {
        std::vector<std::string> texts;
        for (const Message& message : messages.shown) {
            texts.push_back(message.text.toStdString());
        }
        return texts;
    }

    std::string incompleteText(int records, const std::string& where) const {
        return "The download is incomplete: it was ended before the instrument had sent everything. " +
               std::to_string(records) + " records arrived and can be found " + where +
               ".\n\nThe instrument still holds its data; download it again.";
    }

    QTemporaryDir folder;
    TestClock clock;
    RecordedMessages messages;
    PreparedAnswers answers;
    SteppedYield yield{clock};
    WatchedPort* line = nullptr;
    Program program{{.clock = clock,
                     .events = yield,
                     .messages = messages,
                     .questions = answers,
                     .makePort = [this](const QString& device) { return makePort(device); }}};

private:
    bool loaded_ = false;
};

} // namespace orv
