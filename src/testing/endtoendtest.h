// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/filedescriptor.h"
#include "link/systemport.h"
#include "testing/programrig.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTimer>

#include <array>
#include <cmath>

#include <fcntl.h>
#include <unistd.h>

namespace orv {

constexpr int patience = 60'000; ///< Milliseconds that a test waits for something that must come.

/// The instrument, served by a process of its own on a pseudo-terminal.
class InstrumentProcess {
public:
    explicit InstrumentProcess(const char* device) {
        process_.start(QStringLiteral(ORVSIM_PATH), {QString::fromLatin1(device)});
        QByteArray line;
        while (!line.endsWith('\n') && process_.waitForReadyRead(patience)) {
            line += process_.readLine();
        }
        path = QFile::decodeName(line.trimmed());
        EXPECT_TRUE(path.startsWith(QStringLiteral("/dev/"))) << qPrintable(path);
    }
    ~InstrumentProcess() { kill(); }
    InstrumentProcess(const InstrumentProcess&) = delete;
    InstrumentProcess& operator=(const InstrumentProcess&) = delete;

    void kill() {
        process_.kill();
        process_.waitForFinished(patience);
    }

    QString path;

private:
    QProcess process_;
};

/// A pseudo-terminal whose far end is the test.
class FarEnd {
public:
    FarEnd()
        : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
        std::array<char, 128> name{};
        if (::grantpt(master_.get()) == 0 && ::unlockpt(master_.get()) == 0 &&
            ::ptsname_r(master_.get(), name.data(), name.size()) == 0) {
            path = QFile::decodeName(name.data());
        }
        EXPECT_FALSE(path.isEmpty()) << "this system has no pseudo-terminals";
    }

    /// Adds what has arrived to `heard`.
    void listen() {
        std::array<char, 4096> buffer{};
        ssize_t size = 0;
        while ((size = ::read(master_.get(), buffer.data(), buffer.size())) > 0) {
            heard.append(buffer.data(), size);
        }
    }

    QString path;
    QByteArray heard;

private:
    FileDescriptor master_;
};

/// The day of the test stands still except when the program waits; the monotonic time also runs by itself.
class SkippingClock final : public Clock {
public:
    SkippingClock() { running_.start(); }

    QDateTime now() const override { return QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15)).addMSecs(skipped_); }
    qint64 monotonicMilliseconds() const override { return running_.elapsed() + skipped_; }

    void skip(qint64 milliseconds) { skipped_ += milliseconds; }

private:
    QElapsedTimer running_;
    qint64 skipped_ = 0;
};

/// Lets real events be processed for a moment and then skips the rest of the wait.
class SkippingYield final : public EventYield {
public:
    explicit SkippingYield(SkippingClock& clock)
        : clock_(clock) {}

    void processEvents(int milliseconds) override {
        constexpr int moment = 30;
        QElapsedTimer passed;
        passed.start();
        while (passed.elapsed() < moment) {
            QTimer wakeUp;
            wakeUp.start(1);
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        }
        clock_.skip(milliseconds);
        if (!inWait.empty()) {
            const auto action = std::move(inWait.front());
            inWait.pop_front();
            action();
        }
    }
    void keepResponsive(bool /*manualDialogLives*/) override {
        if (whileSeeking) {
            whileSeeking();
        }
    }
    bool programEnding() const override { return false; }

    std::deque<std::function<void()>> inWait; ///< What the operator does in the program's next waits.
    std::function<void()> whileSeeking;

private:
    SkippingClock& clock_;
};

/// One data line of the instrument, read by the test's own hand.
struct DecodedLine {
    QByteArray date;
    QByteArray time;
    QList<QByteArray> values;
};

/// Reads "MM/DD/YY" TAB count TAB values. 64800 counts are a day; each part of the time is cut.
inline DecodedLine decodeLine(const QByteArray& line) {
    const QList<QByteArray> fields = line.split('\t');
    const QList<QByteArray> date = fields.value(0).split('/');
    const auto twoDigits = [](int number) { return QByteArray::number(number).rightJustified(2, '0'); };
    const double hours = fields.value(1).toDouble() / 64800.0 * 24.0;
    const double minutes = (hours - std::floor(hours)) * 60.0;
    const double seconds = (minutes - std::floor(minutes)) * 60.0;
    return {QByteArray::number(date.value(0).toInt()) + '/' + QByteArray::number(date.value(1).toInt()) + '/' +
                date.value(2),
            QByteArray::number(static_cast<int>(hours)) + ':' + twoDigits(static_cast<int>(minutes)) + ':' +
                twoDigits(static_cast<int>(seconds)),
            fields.mid(2)};
}

/// The whole program below its windows on the instrument's pseudo-terminal as COM 1 and the test's own as COM 2, driven
/// by its own status timer.
class EndToEndTest : public testing::Test {
protected:
    ~EndToEndTest() override { program.end(); }

    void start(const char* device, bool debugOutput = false) {
        instrument = std::make_unique<InstrumentProcess>(device);
        program.ports.setDevice(1, instrument->path);
        program.ports.setDevice(2, debugEnd.path);
        program.debug.comm2Output = debugOutput;
        program.load();
    }

    /// Runs the program until the condition holds. Returns whether it did.
    template <typename Condition>
    bool until(Condition reached) {
        QElapsedTimer passed;
        passed.start();
        while (!reached()) {
            if (passed.elapsed() > patience) {
                ADD_FAILURE() << "status \"" << program.session.status.status.value().toStdString() << "\", code "
                              << static_cast<int>(program.session.state.Ctrlscrn);
                return false;
            }
            QTimer wakeUp;
            wakeUp.start(1);
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
            debugEnd.listen();
        }
        return true;
    }

    bool isReady() const {
        return program.session.status.status.value() == QLatin1String("Ready") &&
               program.session.state.Ctrlscrn == Operation::SettingsOpen;
    }
    bool runHasEnded() const { return program.session.state.Ctrlscrn == Operation::CollectionSetUp; }

    void connectAndRead() {
        program.autoConnect1();
        ASSERT_TRUE(until([this] { return isReady(); }));
    }

    /// The data lines among the complete lines that the program has received.
    std::vector<DecodedLine> receivedRows() const {
        std::vector<DecodedLine> rows;
        QByteArray text = received;
        text.truncate(text.lastIndexOf('\n') + 1);
        for (const QByteArray& line : text.split('\n')) {
            if (line.count('/') == 2 && line.count('\t') > 1) {
                rows.push_back(decodeLine(line.trimmed()));
            }
        }
        return rows;
    }

    SkippingClock clock;
    SkippingYield events{clock};
    RecordedMessages messages;
    PreparedAnswers answers;
    OwnFolder folder;
    FarEnd debugEnd;
    std::unique_ptr<InstrumentProcess> instrument;
    QByteArray received;    ///< All that the poll has read.
    QByteArray expectedLog; ///< The same, each block as one line.
    Program program{{.clock = clock,
                     .events = events,
                     .messages = messages,
                     .questions = answers,
                     .makePort = [this](const QString& device) -> std::unique_ptr<Port> {
                         auto port = std::make_unique<WatchedPort>(std::make_unique<SystemPort>(device));
                         port->read = [this](const QByteArray& block) {
                             if (!program.connection.isPolling()) {
                                 received += block;
                                 expectedLog += block + "\r\n";
                             }
                         };
                         return port;
                     }}};
};

} // namespace orv
