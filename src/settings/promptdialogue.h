// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/poll.h"
#include "link/statustimer.h"
#include "link/timedwait.h"
#include "settings/progresspanel.h"
#include "settings/settingspanel.h"

namespace orv {

/// What the procedures that write to the instrument's settings and clock work on; everything outlives them.
struct SendingParts {
    Session& session;
    ComPorts& ports;
    DebugPanel& debug;
    Poll& poll;
    TimedWait& wait;
    EventYield& events;
    StatusTimer& timer;
    SettingsPanel& settings;
    ProgressPanel& progress;
};

/// How a wait for the instrument's prompt, or a procedure made of such waits, went.
enum class PromptOutcome {
    Came,
    TimedOut,
    ConnectionLost ///< The connection has ended meanwhile, or the program is ending: nothing more may be sent.
};

/// The talk with an instrument that answers every item with a prompt.
class PromptDialogue {
public:
    static constexpr int maximumPasses = 5000;

    explicit PromptDialogue(const SendingParts& parts);

    /// Waits for the prompt, ">" or "." with something before it in what has come since the call; what stands before
    /// it is the reply and goes to `Rtn`. Does not yield: at most `maximumPasses` passes of up to 1 ms each, during
    /// which the windows repaint but nothing of the operator's is handled. A prompt moves the progress bar on by 10,
    /// at most to 100, and paints the lamp as sending.
    PromptOutcome waitprompt();

    /// Writes `item` and the terminator to the instrument; lists the item if the transcript is wanted.
    void send(const QString& item, const QByteArray& terminator = {});

    /// Ends a talk that succeeded: bar back to 0, lamp as sent, status timer at 10 ms, input discarded, and the
    /// settings report requested, which `getprefs` reads.
    void finish();

    /// "Provide Raw Counts" of the calibration frame that belongs to the connected type: the fluorometer's when the
    /// type label reads "GLOW", else the scattering meter's.
    bool transcriptWanted() const;

    /// waitprompt() is running: no tick may be dispatched.
    bool isPolling() const { return polling_; }

private:
    bool takePrompt(const QByteArray& text, qsizetype newCharacters);
    bool keepResponsive(quint64 connection);

    SendingParts p_;
    bool polling_ = false;
};

} // namespace orv
