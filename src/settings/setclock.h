// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/promptdialogue.h"

namespace orv {

/// The digits of a short date ("1/5/99"), as the instrument takes its date: the three pieces between the "/" in their
/// order, a piece of one character with a leading "0" ("010599").
QString dateDigits(const QString& shortDate);

/// Hour and minutes of a time of day, as the instrument takes its time: four digits of a 24-hour clock. Takes 12-hour
/// text with "AM" or "PM" ("3:07:09 PM" is "1507", the hour after midnight "00") and 24-hour text.
QString timeDigits(const QString& timeText);

/// Sets the instrument's clock to the computer's.
class ClockSetter {
public:
    /// `dialogue` must outlive this.
    ClockSetter(const SendingParts& parts, PromptDialogue& dialogue);

    /// Sends "U", then the date that the settings screen shows for the computer, then the present hour and minutes,
    /// each digit 0.2 s after what came before; date and time wait for the instrument's prompt. Seconds are not sent:
    /// the instrument starts the minute afresh. The status timer must be stopped; it runs again, and the settings
    /// report is requested, when the outcome is `Came`.
    PromptOutcome setclock();

private:
    PromptOutcome sendDigits(const QString& digits);

    SendingParts p_;
    PromptDialogue& dialogue_;
};

} // namespace orv
