// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/clock.h"
#include "base/observe.h"
#include "base/operator.h"
#include "link/port.h"

#include <QByteArrayList>
#include <QElapsedTimer>
#include <QStringList>

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace orv {

/// A clock that stands still until a test moves it, which calls what is due. The day of a test stands still in any
/// case; the time that never jumps can also run by itself.
class TestClock final : public Clock {
public:
    explicit TestClock(const QDateTime& start = QDateTime(QDate(2026, 11, 21), QTime(9, 30, 15)))
        : start_(start) {}

    QDateTime now() const override { return start_.addMSecs(elapsed_); }
    qint64 monotonicMilliseconds() const override { return elapsed_ + (running_.isValid() ? running_.elapsed() : 0); }

    void advance(qint64 milliseconds) {
        const qint64 until = monotonicMilliseconds() + milliseconds;
        while (const auto due = alarms_.next()) {
            if (*due > until) {
                break;
            }
            elapsed_ += std::max<qint64>(*due - monotonicMilliseconds(), 0);
            alarms_.callDue(monotonicMilliseconds());
        }
        elapsed_ += std::max<qint64>(until - monotonicMilliseconds(), 0);
    }
    void run() { running_.start(); }
    /// Time passes and nobody is called, as for a process that is stopped.
    void stop(qint64 milliseconds) { elapsed_ += milliseconds; }

    [[nodiscard]] Subscription callAfter(qint64 milliseconds, std::function<void()> call) override {
        return alarms_.add(monotonicMilliseconds() + milliseconds, std::move(call));
    }

    /// Sets the day and the time of day; the time that never jumps goes on.
    void set(const QDateTime& now) { start_ = now.addMSecs(-elapsed_); }

private:
    QDateTime start_;
    qint64 elapsed_ = 0;
    QElapsedTimer running_;
    Alarms alarms_;
};

/// Keeps what the operator is told. A test that expects no message says so by checking that `shown` is empty.
class RecordedMessages final : public OperatorMessages {
public:
    void show(const Message& message) override {
        shown.push_back(message);
        if (alsoShow) {
            alsoShow(message);
        }
    }

    std::vector<Message> shown;
    std::function<void(const Message& message)> alsoShow;
};

/// Answers the operator's questions from what a test has laid ready, at once unless `late`, and keeps what was asked.
class PreparedAnswers final : public OperatorQuestions {
public:
    [[nodiscard]] Subscription ask(const Question& question, Answered answered) override {
        using Kind = Question::Kind;
        QStringList words{question.title, question.presetName, question.suffix, question.filter};
        if (question.kind == Kind::OpenName) {
            words.removeAt(1);
        }
        asked << (question.kind == Kind::YesNo ? question.title + QLatin1String(": ") + question.text
                                               : words.join(u'|'));
        if (whileAsked) {
            whileAsked();
        }
        if (!late) {
            answered(question.kind == Kind::YesNo                             ? (yes ? Question::yes() : Question::no())
                     : question.kind == Kind::OpenName && !openName.isEmpty() ? openName
                                                                              : fileName);
            return {};
        }
        const auto waiting = std::make_shared<Answered>(std::move(answered));
        waiting_ = waiting;
        return waiting;
    }

    /// A question waits for its answer.
    bool stands() const { return !waiting_.expired(); }

    /// Answers the question that stands; empty: cancelled.
    void answer(const QString& given) {
        const auto waiting = std::exchange(waiting_, {}).lock();
        if (!waiting) {
            throw std::logic_error("no question stands");
        }
        (*waiting)(given);
    }

    bool yes = false;
    QString fileName; ///< Empty: cancelled.
    QString openName; ///< The same for files to open, if it is another.
    bool late = false;
    std::function<void()> whileAsked;
    QStringList asked;

private:
    std::weak_ptr<Answered> waiting_;
};

/// A value of a test; whoever it concerns is told when it is changed.
template <typename T>
class Noted {
public:
    explicit Noted(const Signal<>& changed, T value = {})
        : changed_(changed)
        , value_(std::move(value)) {}
    Noted(const Noted&) = delete;
    Noted& operator=(const Noted&) = delete;
    Noted& operator=(T value) {
        value_ = std::move(value);
        changed_.tell();
        return *this;
    }
    Noted& operator+=(const T& more) { return *this = value_ + more; }
    operator const T&() const { return value_; } // NOLINT(google-explicit-constructor): it stands for the value
    const T& operator*() const { return value_; }
    const T* operator->() const { return &value_; }
    T take() { return std::exchange(value_, T()); }

private:
    const Signal<>& changed_;
    T value_;
};

/// A line of the program in the test's hand: its far end is the test, or another port, which the test lends or gives
/// away. Keeps what passes and can be unplugged.
class TestPort final : public Port {
public:
    TestPort() = default;
    explicit TestPort(Port* lent)
        : port_(lent)
        , farEnd_(lent->stirred.subscribe([this] { stirred.tell(); })) {}
    explicit TestPort(std::unique_ptr<Port> given)
        : TestPort(given.get()) {
        given_ = std::move(given);
    }

    Words open() override {
        if (port_ != nullptr) {
            return port_->open();
        }
        if (openReason.isEmpty()) {
            isOpen_ = true;
            failureReason = QString();
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
        QByteArray block = input.take() + (silent ? QByteArray() : answer);
        if (!block.isEmpty()) {
            if (read) {
                read(block);
            }
            blocks.push_back(block);
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
    QByteArray discardInput() override {
        ++discards;
        const QByteArray dropped = input.take() + (port_ != nullptr ? port_->discardInput() : QByteArray());
        if (discarded) {
            discarded();
        }
        return dropped;
    }
    qsizetype inputCount() override {
        return unplugged ? 0 : input->size() + (silent || port_ == nullptr ? 0 : port_->inputCount());
    }
    Words failure() const override {
        return unplugged || failsSilently ? Words(QStringLiteral("Pulled."))
               : port_ != nullptr         ? port_->failure()
                                          : Words(*failureReason);
    }

    QByteArray allWritten() const { return writes.join(); }

    Noted<QByteArray> input{stirred}; ///< Characters that are here already, in front of those of the other port.
    QByteArrayList writes;            ///< Each write of the program.
    QByteArrayList blocks;            ///< Each block that the program has read.
    QStringList dtr;
    int discards = 0;
    QString openReason;                    ///< Why opening fails; empty: it succeeds. Without another port.
    Noted<QString> failureReason{stirred}; ///< Why the open line no longer works. Without another port.
    Noted<bool> unplugged{stirred};
    bool failsSilently = false; ///< Unplugged, and nobody has been told.
    bool silent = false;        ///< The other port is not heard.
    std::function<void(bool on)> dtrChanged;
    std::function<void(const QByteArray& bytes)> written;
    std::function<void(QByteArray& block)> read; ///< May change it.
    std::function<void()> discarded;

private:
    std::unique_ptr<Port> given_;
    Port* port_ = nullptr;
    Subscription farEnd_;
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

} // namespace orv
