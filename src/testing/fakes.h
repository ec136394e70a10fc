// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/operator.h"
#include "link/port.h"
#include "link/waits.h"
#include "testing/testclock.h"

#include <QByteArrayList>
#include <QStringList>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace orv {

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

/// A line whose far end is the test.
class FakePort final : public Port {
public:
    QString open() override {
        if (openReason.isEmpty()) {
            isOpen_ = true;
            failureReason.clear();
        }
        return openReason;
    }
    void close() override { isOpen_ = false; }
    bool isOpen() const override { return isOpen_; }
    void setDataTerminalReady(bool on) override {
        dtr << (on ? QStringLiteral("on") : QStringLiteral("off"));
        if (dtrChanged) {
            dtrChanged(on);
        }
    }
    QByteArray readAll() override { return isOpen_ ? std::exchange(input, QByteArray()) : QByteArray(); }
    void write(const QByteArray& bytes) override {
        if (isOpen_) {
            writes.push_back(bytes);
            if (written) {
                written(bytes);
            }
        }
    }
    void discardInput() override {
        ++discards;
        input.clear();
    }
    qsizetype inputCount() override { return input.size(); }
    bool waitForInput(int milliseconds) override {
        if (input.isEmpty() && waited) {
            waited(milliseconds);
        }
        return !input.isEmpty();
    }
    QString failure() const override { return failureReason; }

    QByteArray allWritten() const {
        QByteArray all;
        for (const QByteArray& bytes : writes) {
            all += bytes;
        }
        return all;
    }

    QByteArray input;               ///< What the next read finds.
    std::vector<QByteArray> writes; ///< Each write of the program.
    QStringList dtr;
    int discards = 0;
    QString openReason;    ///< Why opening fails; empty: it succeeds.
    QString failureReason; ///< Why the open line no longer works.
    std::function<void(bool on)> dtrChanged;
    std::function<void(const QByteArray& bytes)> written;
    std::function<void(int milliseconds)> waited; ///< Called when the program waits for input and there is none.

private:
    bool isOpen_ = false;
};

/// A port in front of another, which the test lends or gives away: keeps what passes and can be unplugged.
class WatchedPort final : public Port {
public:
    explicit WatchedPort(Port& lent)
        : port_(lent) {}
    explicit WatchedPort(std::unique_ptr<Port> given)
        : given_(std::move(given))
        , port_(*given_) {}

    QString open() override { return port_.open(); }
    void close() override { port_.close(); }
    bool isOpen() const override { return port_.isOpen(); }
    void setDataTerminalReady(bool on) override { port_.setDataTerminalReady(on); }
    QByteArray readAll() override {
        const QByteArray answer = port_.readAll();
        QByteArray block = unplugged ? QByteArray() : std::exchange(arrived, {}) + (silent ? QByteArray() : answer);
        if (!block.isEmpty()) {
            blocks.push_back(block);
            if (read) {
                read(block);
            }
        }
        return block;
    }
    void write(const QByteArray& bytes) override {
        writes.push_back(bytes);
        if (written) {
            written(bytes);
        }
        port_.write(bytes);
    }
    void discardInput() override {
        arrived.clear();
        port_.discardInput();
    }
    qsizetype inputCount() override { return unplugged ? 0 : arrived.size() + (silent ? 0 : port_.inputCount()); }
    bool waitForInput(int milliseconds) override {
        if (silent) {
            port_.readAll();
        }
        const bool came = !arrived.isEmpty() || (port_.waitForInput(milliseconds) && !silent);
        if (waited) {
            waited(milliseconds);
        }
        return came && !unplugged;
    }
    QString failure() const override { return unplugged ? QStringLiteral("Pulled.") : port_.failure(); }

    QByteArrayList writes; ///< Each write of the program.
    QByteArrayList blocks; ///< Each block that the program has read.
    QByteArray arrived;    ///< Characters that are here already, in front of those of the other port.
    bool unplugged = false;
    bool silent = false; ///< The other port is not heard.
    std::function<void(const QByteArray& bytes)> written;
    std::function<void(const QByteArray& block)> read;
    std::function<void(int milliseconds)> waited; ///< Called after every wait for input.

private:
    std::unique_ptr<Port> given_;
    Port& port_;
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
