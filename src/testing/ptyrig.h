// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/systemport.h"
#include "simulator/ptyserver.h"
#include "testing/processes.h"
#include "testing/programrig.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace orv {

/// The real port on a pseudo-terminal whose far end is served at each millisecond of the test's clock; what one end has
/// sent is at the other before the next. Nothing takes time of its own.
class ServedPort final : public Port {
public:
    /// Serves the instrument of a device name.
    ServedPort(const QString& device, TestClock& clock)
        : clock_(clock)
        , server_(std::make_unique<PtyServer>(parseSimulatorOptions(device).options, clock)) {
        EXPECT_EQ(server_->open().toStdString(), "");
        port_ = std::make_unique<SystemPort>(server_->path());
        stirring_ = port_->stirred.subscribe([this] { stirred.tell(); });
        pump();
    }

    Words open() override { return port_->open(); }
    void close() override {
        port_->close();
        forgetInput();
    }
    bool isOpen() const override { return port_->isOpen(); }
    void setDataTerminalReady(bool on) override { port_->setDataTerminalReady(on); }
    QByteArray readAll() override {
        const QByteArray block = port_->readAll();
        read_ += block.size();
        return block;
    }
    void write(const QByteArray& bytes) override {
        port_->write(bytes);
        written_ += isOpen() && failure().isEmpty() ? bytes.size() : 0;
    }
    QByteArray discardInput() override {
        QByteArray dropped = port_->discardInput();
        forgetInput();
        return dropped;
    }
    qsizetype inputCount() override { return port_->inputCount(); }
    Words failure() const override { return port_->failure(); }

    void pullCable() { server_.reset(); }

private:
    /// One turn: the instrument acts, and what then passes between the ends arrives.
    void pump() {
        next_ = clock_.callAfter(1, [this] { pump(); });
        const QDeadlineTimer limit(patience);
        bool served = server_ && server_->serve(0);
        while (served && server_->taken() < written_ && !limit.hasExpired()) {
            served = server_->serve(1);
        }
        QCoreApplication::processEvents();
        while (isOpen() && (served ? read_ + inputCount() < server_->given() : failure().isEmpty()) &&
               !limit.hasExpired()) {
            QCoreApplication::processEvents();
        }
        EXPECT_FALSE(limit.hasExpired());
    }

    void forgetInput() { read_ = server_ ? server_->given() : 0; }

    TestClock& clock_;
    std::unique_ptr<PtyServer> server_; ///< None: the cable is pulled.
    std::unique_ptr<SystemPort> port_;
    Subscription stirring_;
    Subscription next_;
    qint64 written_ = 0;
    qint64 read_ = 0; ///< Or discarded.
};

/// One turn of a program on lines that processes of their own serve, which takes as long as the line needs, a
/// millisecond at most, and is a millisecond of the test's clock; but a wait for the computer's time passes ten times
/// as fast.
inline void pump(ProgramRig& rig) {
    if (rig.rxbuffer.contains('\n')) {
        QCoreApplication::processEvents(); // more lines need not be waited for
    } else {
        QTimer moment;
        moment.start(1);
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    constexpr int fast = 10;
    const bool waitsForTime = !rig.procedures.isIdle() && !rig.timer.isHeld();
    rig.clock.advance(waitsForTime ? fast : 1);
}

/// Such turns until the condition holds. Returns whether it did in good time.
template <typename Condition>
bool pumpUntil(ProgramRig& rig, Condition reached) {
    const QDeadlineTimer limit(patience);
    while (!reached()) {
        if (limit.hasExpired()) {
            ADD_FAILURE() << "status \"" << rig.status.status.value().toStdString() << "\", code "
                          << static_cast<int>(rig.state.Ctrlscrn);
            return false;
        }
        pump(rig);
    }
    return true;
}

} // namespace orv
