// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/setclock.h"

#include <functional>

namespace orv {

/// Writes the settings on the settings screen into the instrument.
class SettingsSender {
public:
    using Parts = SendingParts;

    enum class Outcome {
        Sent,          ///< Everything was taken; the settings report has been requested.
        Failed,        ///< The instrument did not answer an item. The operator has been told.
        ConnectionLost ///< The connection has ended meanwhile, or there was none.
    };

    explicit SettingsSender(const Parts& parts);

    /// Sends the flags and the four numbers item by item, each after the prompt for the one before, then sets the
    /// clock if "Sync Time/Date" is ticked (never during a shutter reset), then requests the settings report; the
    /// operation code becomes 23. The status timer is stopped meanwhile and runs again at 10 ms afterwards.
    ///
    /// When the instrument does not answer, what was sent stays written in it: the "Processing" dialog goes, the
    /// operator is told, the main window comes forward, the status shows "Ready".
    ///
    /// A reset, a close or a failure of the port ends it without a word of its own and nothing more is sent.
    Outcome setprefs();

    /// A loop that does not yield to the event loop is running: no tick may be dispatched.
    bool isPolling() const { return dialogue_.isPolling(); }

    /// Brings the main window to the front; may be empty.
    std::function<void()> showMainWindow;

private:
    Outcome ended(PromptOutcome outcome);
    PromptOutcome talk();
    PromptOutcome sendItem(const QString& item, const QByteArray& terminator = {});
    PromptOutcome sendNumber(const QString& command, const QProperty<QString>& value);

    Parts p_;
    PromptDialogue dialogue_;
    ClockSetter clock_;
};

/// The six flags as the instrument takes them, "0" or "1" each: auto start, gain, aux ADC, log enabled, wake up,
/// append.
QString controlBits(const LoggerSettings& record);

} // namespace orv
