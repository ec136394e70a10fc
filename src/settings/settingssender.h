// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/link.h"
#include "settings/loggersettings.h"

#include <exception>
#include <optional>

namespace orv {

/// What a wait for the instrument's prompt throws when none has come.
class TimedOut final : public std::exception {
public:
    const char* what() const noexcept override { return "the instrument did not answer"; }
};

/// The talk with an instrument that answers every item with a prompt.
class PromptDialogue {
public:
    static constexpr int maximumPasses = 5000;

    PromptDialogue(Link& link, SettingsState& settings, ProgressState& progress);

    /// Waits for the prompt, ">" or "." with something before it in what has come since the call; what stands before
    /// it is the reply and goes to `Rtn`. Reads the port itself, at most `maximumPasses` times: a pass is one block of
    /// input, or one millisecond without any. A prompt moves the progress bar on by 10, at most to 100, and paints the
    /// lamp as sending. Throws TimedOut.
    Task<> waitprompt();

    /// Writes `item` and the terminator to the instrument; lists the item if the transcript is wanted.
    void send(const QString& item, const QByteArray& terminator = {});

    /// Ends a talk that succeeded: bar back to 0, lamp as sent, status timer at 10 ms, input discarded, and the
    /// settings report requested, which `getprefs` reads.
    void finish();

    /// "Provide Raw Counts" of the calibration frame that belongs to the connected type: the fluorometer's when the
    /// main window shows "GLOW", else the scattering meter's.
    bool transcriptWanted() const;

private:
    bool takePrompt(const QByteArray& text, qsizetype newCharacters);

    Link& link_;
    SettingsState& settings_;
    ProgressState& progress_;
};

/// The digits of a short date ("1/5/99"), as the instrument takes its date: the three pieces between the "/" in their
/// order, a piece of one character with a leading "0" ("010599").
QString dateDigits(const QString& shortDate);

/// Hour and minutes of a time of day, as the instrument takes its time: four digits of a 24-hour clock. Takes 12-hour
/// text with "AM" or "PM" ("3:07:09 PM" is "1507", the hour after midnight "00") and 24-hour text.
QString timeDigits(const QString& timeText);

/// Writes the settings on the settings screen into the instrument, and the screen's other actions that concern it.
class SettingsSender {
public:
    enum class Outcome {
        Sent,  ///< Everything was taken; the settings report has been requested.
        Failed ///< The instrument did not answer an item. The operator has been told.
    };

    SettingsSender(Link& link, SettingsState& settings, ProgressState& progress);

    // The operator's actions. Those that need the instrument do nothing, without a word, when it is not connected or
    // when another operation is under way.

    /// "Retrieve Settings": requests the settings report and shows the "Processing" dialog until it has been read.
    void retrieveSettings();

    /// "Apply Settings": sends the settings, with the "Processing" dialog. Refused with a message if logging is asked
    /// of a block without end; no other value is checked.
    void applySettings();

    /// "Display Logger Time/Date": asks the instrument for its clock.
    void displayLoggerTime();

    /// Sets the instrument's clock to the computer's and sends nothing else; what follows is the reading of the report.
    /// If it is to be set at a full minute, that is waited for, at most 60 s, before anything is written.
    void synchronizeClock();

    /// The operator has chosen a sampling-rate option, 1..4: its preset goes into the samples per point, the
    /// fluorometer's when the main window shows "GLOW", else the scattering meter's.
    void chooseSamplingOption(int option);

    /// Sends the flags and the four numbers item by item, each after the prompt for the one before, then sets the
    /// clock if "Sync Time/Date" is ticked (never during a shutter reset), then requests the settings report; the
    /// operation code becomes 23. The status timer is stopped meanwhile and runs again at 10 ms afterwards.
    ///
    /// When the instrument does not answer, what was sent stays written in it: the "Processing" dialog goes, the
    /// operator is told, the main window comes forward, the status shows "Ready".
    ///
    /// A reset, a close or a failure of the port ends it with ConnectionEnded and nothing more is sent; without a
    /// connection it throws that at once.
    Task<Outcome> setprefs();

    /// The same as an operation of its own: with the "Processing" dialog, and what follows is the reading of the
    /// report.
    Task<Outcome> send();

    Signal<> mainWindowWanted; ///< The main window is to come to the front.

private:
    using Talk = Task<> (SettingsSender::*)();

    Task<Outcome> converse(Talk said);
    Task<Outcome> sendAlone(Talk said);
    Task<> talk();
    Task<> setclock();
    /// The clock: "U", then the date that the settings screen shows for the computer, then the present hour and
    /// minutes, each digit 0.2 s after what came before. Seconds are not sent: the instrument starts the minute afresh.
    /// At a full minute its last digit is written as the minute begins, that one's date and time being sent.
    Task<> typeClock();
    Task<std::optional<QDateTime>> awaitFullMinute();
    Task<> typed(QString digits, bool isTimed);
    Task<> apply();
    Task<> sendClock();
    void fail();

    Link& link_;
    SettingsState& settings_;
    ProgressState& progress_;
    PromptDialogue dialogue_;
    QPropertyNotifier ticked_;
};

/// The six flags as the instrument takes them, "0" or "1" each.
QString controlBits(const LoggerSettings& record);

} // namespace orv
