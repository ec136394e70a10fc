// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "base/words.h"

#include <QIODevice>
#include <QSocketNotifier>

namespace orv {

/// Standard output or standard error of a program that does not wait for whoever reads it: what he does not take at
/// once waits here and follows, whole lines at a time. Writing fails once he has gone, and when too much waits.
class StandardOutput final : public QIODevice {
public:
    static constexpr qsizetype mostWaiting = qsizetype{4} * 1024 * 1024;

    explicit StandardOutput(int descriptor);

    bool isSequential() const override { return true; }
    /// What waits.
    qint64 bytesToWrite() const override { return waiting_.size(); }

    /// Brings what its reader has taken to the disk if that is a file; says why it cannot be done.
    Words sync() const;

    Signal<> drained; ///< From the event loop: nothing waits any more, or the reader has gone.

protected:
    qint64 readData(char* data, qint64 most) override;
    qint64 writeData(const char* data, qint64 size) override;

private:
    void send();

    int descriptor_;
    QByteArray waiting_;
    bool hasFailed_ = false;
    QSocketNotifier ready_;
};

} // namespace orv
