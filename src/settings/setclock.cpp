// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/setclock.h"

#include "session/datetimetext.h"

namespace orv {

namespace {

QString atLeastTwo(const QString& piece) {
    return piece.size() == 1 ? QLatin1Char('0') + piece : piece;
}

} // namespace

QString dateDigits(const QString& shortDate) {
    constexpr QLatin1Char separator('/');
    return atLeastTwo(shortDate.section(separator, 0, 0)) + atLeastTwo(shortDate.section(separator, 1, 1)) +
           atLeastTwo(shortDate.section(separator, 2));
}

QString timeDigits(const QString& timeText) {
    constexpr QLatin1Char separator(':');
    constexpr int noon = 12;
    QString hourText = timeText.section(separator, 0, 0);
    const int hour = hourText.toInt();
    if (timeText.contains(QLatin1String("PM"), Qt::CaseInsensitive) && hour != noon) {
        hourText = QString::number(hour + noon);
    } else if (timeText.contains(QLatin1String("AM"), Qt::CaseInsensitive) && hour == noon) {
        hourText = QStringLiteral("0");
    }
    return atLeastTwo(hourText) + atLeastTwo(timeText.section(separator, 1, 1));
}

ClockSetter::ClockSetter(const SendingParts& parts, PromptDialogue& dialogue)
    : p_(parts)
    , dialogue_(dialogue) {}

PromptOutcome ClockSetter::setclock() {
    p_.ports.write("U");
    PromptOutcome outcome = dialogue_.waitprompt();
    if (outcome != PromptOutcome::Came) {
        return outcome;
    }
    // The screen shows no date before the first tick after a report.
    const QString shown = p_.settings.computerDate;
    outcome = sendDigits(dateDigits(shown.isEmpty() ? shortDate(p_.session.clock.now().date()) : shown));
    if (outcome == PromptOutcome::Came) {
        outcome = dialogue_.waitprompt();
    }
    if (outcome == PromptOutcome::Came) {
        outcome = sendDigits(timeDigits(clockText(p_.session.clock.now().time())));
    }
    if (outcome == PromptOutcome::Came) {
        dialogue_.finish();
    }
    return outcome;
}

PromptOutcome ClockSetter::sendDigits(const QString& digits) {
    // The instrument takes digits only as slowly as a person types them.
    constexpr float secondsBetweenDigits = 0.2F;
    for (const QChar digit : digits) {
        if (!p_.wait.waitConnected(secondsBetweenDigits) || p_.ports.checkFailure()) {
            return PromptOutcome::ConnectionLost;
        }
        p_.ports.write(QByteArray(1, digit.toLatin1()));
        if (dialogue_.transcriptWanted() && p_.session.state.trouble == 1) {
            p_.debug.list.append(digit);
        }
    }
    return PromptOutcome::Came;
}

} // namespace orv
