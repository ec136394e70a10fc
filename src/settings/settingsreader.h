// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "link/link.h"
#include "settings/loggersettings.h"

namespace orv {

/// Reads the instrument's settings report, one line a call, into the settings screen. A report that is cut short by the
/// end of its connection does not run on into the next one's.
class SettingsReader {
public:
    SettingsReader(Link& link, SettingsState& settings, ProgressState& progress);

    /// Takes a line of the report: a setting's letter and its value, or "MP" and the memory pointer, which ends the
    /// report, shows the settings screen and asks for the clock. A line without a tag counts as an empty value of the
    /// field before. The 150th call of the program run gives the retrieval up. Throws RuntimeError Overflow at call
    /// 32768.
    void getprefs(const QString& line);

    /// For the tick: if no line of a report has come for 10 s, the status says so; if a clock that was set has not been
    /// read back 10 s after it was asked for, `clockSetting` does. Looks again when the next one may be missing for so
    /// long.
    void lookForSilence();

    /// 0 between reports, else the code of the last field.
    int prefsState = 0;

    /// Which of `allSettings` the latest report gave in so many words: the tag, then 0 or 1 for a flag, digits that its
    /// box can hold for a number. The record holds something for the others too.
    SettingSet understood;
    /// The same of the memory pointer that ended it.
    bool memoryUnderstood = false;

private:
    void giveUp();
    void endReading();
    void lookForClock();
    void tellExchange();
    void takeMemoryPointer(double value);
    void selectSamplingOption();

    Link& link_;
    SettingsState& settings_;
    ProgressState& progress_;
    LoggerSettings reading_; ///< What the record would be if nobody typed while the report comes.
    qint64 lastLine_ = 0;    ///< Of a report, or its request; monotonic milliseconds.
    QPropertyNotifier requested_;
    QPropertyNotifier changed_;
    Subscription closing_;
    Subscription identified_;
};

/// Asks the instrument for its clock; a tick shows the reply (see `ClockDisplay`).
void askForClock(Link& link, SettingsState& settings);

/// How the instrument's clock stands, by the seconds that it is ahead of the computer's: "43 s behind this computer's".
Words clockOffsetInWords(qint64 secondsAhead);

/// Says of a clock that has been set, by the seconds that it is ahead of the computer's, how it stands: in
/// `clockSetting` and as the remark beside the status, unless another one has come since.
void tellClockSetting(SettingsState& settings, StatusState& status, qint64 secondsAhead);

/// Shows the instrument's clock from its reply (date, TAB, time count; 64800 counts are one day) on the main
/// window and the settings screen, and moves the operation code to 2. A reply of fewer than 10 characters is not a
/// clock reply and changes nothing. If it cannot be read, every label stays, and the operator is told, once until the
/// clock is asked for again.
class ClockDisplay {
public:
    ClockDisplay(Session& session, ComPorts& ports, DebugState& debug, SettingsState& settings);

    void checktime(const QString& reply);

private:
    void show(const QString& dateText, const QString& timeText);

    Session& session_;
    ComPorts& ports_;
    DebugState& debug_;
    SettingsState& settings_;
};

} // namespace orv
