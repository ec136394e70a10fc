// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/systemport.h"
#include "testing/processes.h"
#include "testing/programrig.h"

namespace orv {

/// A line from a simulated instrument to the program on which things go wrong. What the instrument sends is counted
/// byte by byte, so that a fault can strike at any of them.
class FaultyLine final : public Port {
public:
    /// How the bytes come to the program: handed to it, or over the real port on a pseudo-terminal. Neither takes time.
    enum class Way { Memory, PseudoTerminal };

    FaultyLine(const QString& device, TestClock& clock, Way way);

    Words open() override;
    void close() override;
    bool isOpen() const override { return open_; }
    void setDataTerminalReady(bool on) override;
    QByteArray readAll() override;
    void write(const QByteArray& bytes) override;
    QByteArray discardInput() override;
    qsizetype inputCount() override;
    Words failure() const override;

    /// Counts from now on. `strike` is called before byte `at`, the first being 1, is passed on; at 0 never.
    void watch(qint64 at, std::function<void()> strike);
    qint64 count() const { return count_; } ///< Bytes that the instrument has sent since watch().

    // What goes wrong.

    void put(const QByteArray& bytes) { put_ += bytes; } ///< They stand before the byte at which the fault strikes.
    void lose() { times_ = 0; }                          ///< That byte.
    void repeat() { times_ = 2; }
    void stall(qint64 milliseconds); ///< What the instrument sends meanwhile comes afterwards.
    void pull();
    void dropEchoes() { dropsEchoes_ = true; }
    void dropPrompts() { dropsPrompts_ = true; }
    void restartInstrument(); ///< It greets, and knows nothing of what it was doing.
    void replaceInstrument(const QString& device) { next_ = device; } ///< By mend().

    /// Everything is in order again. On a closed line.
    void mend();

    QByteArray sent;  ///< By the instrument, since watch().
    QByteArray given; ///< To the program, since watch().

private:
    void connectInstrument(const QString& device);
    void makeTerminal();
    void takeFromInstrument();
    bool isDropped(char byte);
    void deliver();
    void settle();

    TestClock& clock_;
    Way way_;
    QString next_; ///< The instrument that comes in place of this one.
    std::unique_ptr<Port> instrument_;
    Subscription sending_;
    std::unique_ptr<FarEnd> farEnd_;
    std::unique_ptr<SystemPort> system_; ///< None: the bytes are handed over.
    Subscription arriving_;
    bool open_ = false;
    bool pulled_ = false;
    bool dropsEchoes_ = false;
    bool dropsPrompts_ = false;
    QByteArray echoes_; ///< Of what the program has written, still to come.
    QByteArray held_;   ///< On its way.
    QByteArray ready_;  ///< Handed over and not read yet.
    Subscription stalled_;
    Subscription telling_;
    qsizetype unread_ = 0; ///< Characters given over the pseudo-terminal.

    qint64 count_ = 0;
    qint64 at_ = 0;
    std::function<void()> strike_;
    QByteArray put_;
    int times_ = 1;
};

} // namespace orv
