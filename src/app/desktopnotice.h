// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"

#include <functional>
#include <memory>

namespace orv {

/// Shows a short text on the desktop, outside of the program's windows. Best effort: no call waits for anything or
/// fails. This one is for systems that offer no way to do it.
class DesktopNotice {
public:
    DesktopNotice() = default;
    DesktopNotice(const DesktopNotice&) = delete;
    DesktopNotice& operator=(const DesktopNotice&) = delete;
    virtual ~DesktopNotice() = default;

    virtual void show(const QString& /*title*/, const QString& /*text*/) {}
};

/// The one of this system: Linux's notification service on the bus at `busAddress`, the session's own if empty;
/// elsewhere none. Nothing is asked of the bus before show().
std::unique_ptr<DesktopNotice> makeDesktopNotice(const QString& busAddress = {});

/// Tells on the desktop that a run or a download of over 30 s has ended, however it ended, unless one of the program's
/// windows is active. Program and notice outlive it.
class NoticeWhenDone {
public:
    NoticeWhenDone(const Program& program, DesktopNotice& notice, std::function<bool()> windowIsActive);

private:
    void follow(Activity activity);
    void tell(Activity ended);

    const Program& program_;
    DesktopNotice& notice_;
    std::function<bool()> windowIsActive_;
    Activity going_ = Activity::None;
    qint64 start_ = 0; ///< Monotonic milliseconds.
    Subscription soon_;
    Bindings bindings_;
};

} // namespace orv
