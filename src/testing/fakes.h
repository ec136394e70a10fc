// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clock.h"
#include "base/operator.h"
#include "link/port.h"
#include "link/waits.h"

#include <QByteArrayList>
#include <QElapsedTimer>
#include <QStringList>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace orv {

/// A clock that stands still until a test moves it. The day of a test stands still in any case; the time that never
/// jumps can also run by itself.
class TestClock final : public Clock {
public:
    explicit TestClock(const QDateTime& start = QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15)))
        : start_(start) {}

    QDateTime now() const override { return start_.addMSecs(elapsed_); }
    qint64 monotonicMilliseconds() const override { return elapsed_ + (running_.isValid() ? running_.elapsed() : 0); }

    void advance(qint64 milliseconds) { elapsed_ += milliseconds; }
    void run() { running_.start(); }

private:
    QDateTime start_;
    qint64 elapsed_ = 0;
    QElapsedTimer running_;
};

/// Keeps what the operator is told. A test that expects no message says so by checking that `shown` is empty.
class RecordedMessages final : public OperatorMessages {
public:
    void show(const Message& message) override { shown.push_back(message); }

    std::vector<Message> shown;
};

/// Answers the operator's questions from what a test has laid ready, and keeps what was asked.
class PreparedAnswers final : public OperatorQuestions {
public:
    bool askYesNo(const QString& title, const QString& text) override {
        asked << title + QLatin1String(": ") + text;
        if (whileAsked) {
            whileAsked();
        }
        return yes;
    }
    QString saveFileName(const QString& title, const QString& presetName, const QString& suffix,
                         const QString& filter) override {
        asked << QStringList{title, presetName, suffix, filter}.join(QLatin1Char('|'));
        if (whileAsked) {
            whileAsked();
        }
        return fileName;
    }
    QString openFileName(const QString& title, const QString& suffix, const QString& filter) override {
        asked << QStringList{title, suffix, filter}.join(QLatin1Char('|'));
        if (whileAsked) {
            whileAsked();
        }
        return openName.isEmpty() ? fileName : openName;
    }

    bool yes = false;
    QString fileName; ///< Empty: cancelled.
    QString openName; ///< The same for files to open, if it is another.
    std::function<void()> whileAsked;
    QStringList asked;
};

/// A line of the program in the test's hand: its far end is the test, or another port, which the test lends or gives
/// away. Keeps what passes and can be unplugged.
class TestPort final : public Port {
public:
    TestPort() = default;
    explicit TestPort(Port* lent)
        : port_(lent) {}
    explicit TestPort(std::unique_ptr<Port> given)
        : given_(std::move(given))
        , port_(given_.get()) {}

    QString open() override {
        if (port_ != nullptr) {
            return port_->open();
        }
        if (openReason.isEmpty()) {
            isOpen_ = true;
            failureReason.clear();
        }
        return openReason;
    }
    void close() override { port_ != nullptr ? port_->close() : void(isOpen_ = false); }
    bool isOpen() const override { return port_ != nullptr ? port_->isOpen() : isOpen_; }
    void setDataTerminalReady(bool on) override {
        dtr << (on ? QStringLiteral("on") : QStringLiteral("off"));
        if (dtrChanged) {
            dtrChanged(on);
        }
        if (port_ != nullptr) {
            port_->setDataTerminalReady(on);
        }
    }
    QByteArray readAll() override {
        const QByteArray answer = port_ != nullptr ? port_->readAll() : QByteArray();
        if (unplugged || !isOpen()) {
            return {};
        }
        QByteArray block = std::exchange(input, {}) + (silent ? QByteArray() : answer);
        if (!block.isEmpty()) {
            blocks.push_back(block);
            if (read) {
                read(block);
            }
        }
        return block;
    }
    void write(const QByteArray& bytes) override {
        if (!isOpen()) {
            return;
        }
        writes.push_back(bytes);
        if (written) {
            written(bytes);
        }
        if (port_ != nullptr) {
            port_->write(bytes);
        }
    }
    void discardInput() override {
        ++discards;
        input.clear();
        if (port_ != nullptr) {
            port_->discardInput();
        }
    }
    qsizetype inputCount() override {
        return unplugged ? 0 : input.size() + (silent || port_ == nullptr ? 0 : port_->inputCount());
    }
    bool waitForInput(int milliseconds) override {
        if (port_ != nullptr && silent) {
            port_->readAll();
        }
        const bool came = !input.isEmpty() || (port_ != nullptr && port_->waitForInput(milliseconds) && !silent);
        if (waited && (!came || port_ != nullptr)) {
            waited(milliseconds);
        }
        return (came || !input.isEmpty()) && !unplugged;
    }
    QString failure() const override {
        return unplugged ? QStringLiteral("Pulled.") : port_ != nullptr ? port_->failure() : failureReason;
    }

    QByteArray allWritten() const { return writes.join(); }

    QByteArray input;      ///< Characters that are here already, in front of those of the other port.
    QByteArrayList writes; ///< Each write of the program.
    QByteArrayList blocks; ///< Each block that the program has read.
    QStringList dtr;
    int discards = 0;
    QString openReason;    ///< Why opening fails; empty: it succeeds. Without another port.
    QString failureReason; ///< Why the open line no longer works. Without another port.
    bool unplugged = false;
    bool silent = false; ///< The other port is not heard.
    std::function<void(bool on)> dtrChanged;
    std::function<void(const QByteArray& bytes)> written;
    std::function<void(const QByteArray& block)> read;
    /// Called when the program waits for input and there is none; with another port, after every wait.
    std::function<void(int milliseconds)> waited;

private:
    std::unique_ptr<Port> given_;
    Port* port_ = nullptr;
    bool isOpen_ = false;
};

/// The ports of a computer that the test plugs together.
class FakePortList final : public PortList {
public:
    std::vector<ListedPort> ports() override {
        ++listings;
        return plugged;
    }
    bool mayHaveChanged() override { return changed; }

    std::vector<ListedPort> plugged;
    bool changed = true;
    int listings = 0;
};

/// Lets the test's clock run while the program waits: each yield takes `step` milliseconds (or the whole rest of the
/// wait, if that is shorter) and then calls `tick`, as the status timer would.
class SteppedYield final : public EventYield {
public:
    explicit SteppedYield(TestClock& clock)
        : clock_(clock) {}

    void processEvents(int milliseconds) override {
        ++yields;
        if (process) {
            process(milliseconds);
            return;
        }
        clock_.advance(std::min(step, std::max(milliseconds, 1)));
        if (tick) {
            tick();
        }
    }
    void keepResponsive(bool manualDialogLives) override {
        ++responsive;
        if (whileResponsive) {
            whileResponsive(manualDialogLives);
        }
    }
    bool programEnding() const override { return ending || (programEnds && programEnds()); }

    int step = 5;
    int yields = 0;
    int responsive = 0;
    bool ending = false;
    std::function<void()> tick;
    std::function<void(int milliseconds)> process; ///< What a yield does instead of all that.
    std::function<void(bool manualDialogLives)> whileResponsive;
    std::function<bool()> programEnds;

private:
    TestClock& clock_;
};

} // namespace orv
