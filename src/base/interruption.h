// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/filedescriptor.h"
#include "base/observe.h"

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace orv {

/// Ctrl+C, a terminal that is closed, and the system's wish that the program ends. A signal that is ignored when the
/// program starts (nohup) stays ignored. One of these lives at a time. Unix.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    Signal<int> wanted; ///< From the event loop, with the signal's number.

private:
    void takeSignal();

    FileDescriptor read_; ///< A signal's number comes here.
    FileDescriptor write_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace orv
