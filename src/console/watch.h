// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/port.h"

#include <memory>

namespace orv {

/// What goes over lines that are watched: whether the computer has sent it, and the characters.
using Traffic = Signal<bool, const QByteArray&>;

/// A port that tells what passes.
class WatchedPort final : public Port {
public:
    WatchedPort(std::unique_ptr<Port> port, const Traffic& traffic);

    QString open() override { return port_->open(); }
    void close() override { port_->close(); }
    bool isOpen() const override { return port_->isOpen(); }
    void setDataTerminalReady(bool on) override { port_->setDataTerminalReady(on); }
    QByteArray readAll() override;
    void write(const QByteArray& bytes) override;
    void discardInput() override { port_->discardInput(); }
    qsizetype inputCount() override { return port_->inputCount(); }
    QString failure() const override { return port_->failure(); }

private:
    std::unique_ptr<Port> port_;
    const Traffic& traffic_;
    Subscription stirring_;
};

/// Characters as they can be read: a control character as "\r", "\n", "\t" or "\x1b", a backslash doubled.
QString inVisibleCharacters(const QByteArray& bytes);

} // namespace orv
