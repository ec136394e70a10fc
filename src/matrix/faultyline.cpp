// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/faultyline.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <utility>

namespace orv {

FaultyLine::FaultyLine(const QString& device, TestClock& clock, Way way)
    : clock_(clock)
    , way_(way) {
    connectInstrument(device);
    if (way_ == Way::PseudoTerminal) {
        makeTerminal();
    }
}

void FaultyLine::connectInstrument(const QString& device) {
    instrument_ = simulatedInstrument(device, clock_);
    sending_ = instrument_->stirred.subscribe([this] { takeFromInstrument(); });
    if (open_) {
        instrument_->open();
    }
}

void FaultyLine::makeTerminal() {
    farEnd_ = std::make_unique<FarEnd>();
    system_ = std::make_unique<SystemPort>(farEnd_->path);
    arriving_ = system_->stirred.subscribe([this] { stirred.tell(); });
}

Words FaultyLine::open() {
    if (pulled_ && !system_) {
        return explainOpenFailure({});
    }
    Words reason = system_ ? system_->open() : Words();
    open_ = reason.isEmpty();
    if (open_) {
        instrument_->open();
    }
    return reason;
}

void FaultyLine::close() {
    if (system_) {
        system_->close();
    }
    instrument_->close();
    open_ = false;
    held_.clear();
    ready_.clear();
    echoes_.clear();
    unread_ = 0;
    telling_.reset();
}

void FaultyLine::setDataTerminalReady(bool on) {
    if (system_) {
        system_->setDataTerminalReady(on); // it has none
    }
    if (!pulled_) {
        instrument_->setDataTerminalReady(on);
    }
}

QByteArray FaultyLine::readAll() {
    QByteArray block = system_ ? system_->readAll() : std::exchange(ready_, {});
    unread_ -= system_ ? block.size() : 0;
    return block;
}

void FaultyLine::write(const QByteArray& bytes) {
    if (pulled_) {
        return;
    }
    QByteArray heard = bytes;
    if (system_) {
        farEnd_->heard.clear();
        system_->write(bytes);
        farEnd_->listenUntil(bytes.size());
        heard = farEnd_->heard;
    }
    echoes_ += dropsEchoes_ ? heard : QByteArray();
    instrument_->write(heard);
}

QByteArray FaultyLine::discardInput() {
    QByteArray dropped = system_ ? system_->discardInput() : std::exchange(ready_, {});
    unread_ = 0;
    return dropped;
}

qsizetype FaultyLine::inputCount() {
    return system_ ? system_->inputCount() : ready_.size();
}

Words FaultyLine::failure() const {
    if (system_) {
        return system_->failure();
    }
    return pulled_ ? QStringLiteral("The device is gone: the cable was pulled or the adapter switched off.")
                   : QString();
}

void FaultyLine::watch(qint64 at, std::function<void()> strike) {
    count_ = 0;
    at_ = at;
    strike_ = std::move(strike);
    sent.clear();
    given.clear();
}

void FaultyLine::takeFromInstrument() {
    const QByteArray block = instrument_->readAll();
    for (const char byte : block) {
        ++count_;
        sent += byte;
        put_.clear();
        times_ = 1;
        if (count_ == at_ && strike_) {
            const auto strike = std::exchange(strike_, {});
            strike();
        }
        if (pulled_) {
            break;
        }
        held_ += put_ + QByteArray(isDropped(byte) ? 0 : times_, byte);
    }
    if (!stalled_) {
        deliver();
    }
}

bool FaultyLine::isDropped(char byte) {
    const bool isEcho = echoes_.startsWith(byte);
    echoes_.remove(0, isEcho ? 1 : 0);
    return isEcho || (dropsPrompts_ && (byte == '>' || byte == '.'));
}

/// From the clock, never inside a call of the program.
void FaultyLine::deliver() {
    if (held_.isEmpty() || pulled_ || !open_) {
        return;
    }
    const QByteArray bytes = std::exchange(held_, {});
    given += bytes;
    if (!system_) {
        ready_ += bytes;
        stirred.tell();
        return;
    }
    unread_ += bytes.size();
    farEnd_->send(bytes);
    settle();
}

/// What has been sent over the pseudo-terminal has arrived, and the program has been told.
void FaultyLine::settle() {
    const QDeadlineTimer limit(patience);
    while (open_ && (pulled_ ? system_->failure().isEmpty() : system_->inputCount() < unread_)) {
        ASSERT_FALSE(limit.hasExpired()) << "the pseudo-terminal does not bring what was sent";
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    }
    QCoreApplication::processEvents();
}

void FaultyLine::stall(qint64 milliseconds) {
    stalled_ = clock_.callAfter(milliseconds, [this] {
        stalled_.reset();
        deliver();
    });
}

void FaultyLine::pull() {
    if (!stalled_) {
        deliver(); // what came before
    }
    pulled_ = true;
    telling_ = clock_.callAfter(0, [this] {
        if (system_) {
            farEnd_->hangUp();
            settle();
        } else {
            stirred.tell();
        }
    });
}

void FaultyLine::restartInstrument() {
    instrument_->setDataTerminalReady(true);
    instrument_->setDataTerminalReady(false);
}

void FaultyLine::mend() {
    strike_ = {};
    dropsEchoes_ = false;
    dropsPrompts_ = false;
    stalled_.reset();
    if (!next_.isEmpty()) {
        connectInstrument(std::exchange(next_, {}));
    }
    if (std::exchange(pulled_, false) && way_ == Way::PseudoTerminal) {
        makeTerminal();
    }
}

} // namespace orv
