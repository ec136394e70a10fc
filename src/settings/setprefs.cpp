// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/setprefs.h"

namespace orv {

QString controlBits(const LoggerSettings& record) {
    QString bits;
    for (const bool flag : {record.autoStart.value(), record.gain.value(), record.auxAdc.value(),
                            record.logEnabled.value(), record.wakeUp.value(), record.append.value()}) {
        bits += QLatin1Char(flag ? '1' : '0');
    }
    return bits;
}

SettingsSender::SettingsSender(const Parts& parts)
    : p_(parts)
    , dialogue_(parts)
    , clock_(parts, dialogue_) {}

SettingsSender::Outcome SettingsSender::setprefs() {
    if (!p_.ports.isOpen()) {
        return Outcome::ConnectionLost;
    }
    QProperty<Activity>& activity = p_.session.commands.activity;
    const Activity before = activity;
    activity = Activity::Sending;
    p_.timer.setInterval(0);
    p_.progress.maximum = 100;
    p_.progress.value = 0;

    const Outcome outcome = ended(talk());
    // Whoever ended the connection inside a wait has set the activity already, perhaps to one of its own.
    if (activity == Activity::Sending || activity == Activity::SettingClock) {
        activity = before;
    }
    return outcome;
}

PromptOutcome SettingsSender::talk() {
    const LoggerSettings& record = p_.settings.record;
    PromptOutcome outcome = sendItem(QStringLiteral("B"));
    if (outcome == PromptOutcome::Came) {
        outcome = sendItem(controlBits(record));
    }
    if (outcome == PromptOutcome::Came) {
        outcome = sendNumber(QStringLiteral("T"), record.samplesPerPoint);
    }
    if (outcome == PromptOutcome::Came) {
        outcome = sendNumber(QStringLiteral("D"), record.hoursBeforeBlock);
    }
    if (outcome == PromptOutcome::Came) {
        outcome = sendNumber(QStringLiteral("Q"), record.pointsPerBlock);
    }
    if (outcome == PromptOutcome::Came) {
        outcome = sendNumber(QStringLiteral("I"), record.secondsBetweenPoints);
    }
    // During a shutter reset the settings are sent only for a while; the clock is none of its business.
    if (outcome == PromptOutcome::Came && p_.settings.syncTimeDate &&
        p_.session.state.Ctrlscrn != opstate::shutterReset) {
        p_.session.commands.activity = Activity::SettingClock;
        outcome = clock_.setclock();
    }
    return outcome;
}

PromptOutcome SettingsSender::sendItem(const QString& item, const QByteArray& terminator) {
    dialogue_.send(item, terminator);
    return dialogue_.waitprompt();
}

PromptOutcome SettingsSender::sendNumber(const QString& command, const QProperty<QString>& value) {
    const PromptOutcome outcome = sendItem(command);
    return outcome == PromptOutcome::Came ? sendItem(value, "\r") : outcome;
}

SettingsSender::Outcome SettingsSender::ended(PromptOutcome outcome) {
    switch (outcome) {
    case PromptOutcome::Came:
        // The setting of the clock has requested the report too; while the clock reply is awaited the second one is
        // passed over.
        dialogue_.finish();
        return Outcome::Sent;
    case PromptOutcome::TimedOut:
        p_.progress.visible = false;
        p_.timer.setInterval(StatusTimer::slowInterval);
        p_.session.status.status = QStringLiteral("Ready");
        p_.session.messages.show({.title = QStringLiteral("Error"),
                                  .text = QStringLiteral("Error Sending Prefs. Error Code 1"),
                                  .icon = Message::Icon::Exclamation});
        if (showMainWindow) {
            showMainWindow();
        }
        return Outcome::Failed;
    case PromptOutcome::ConnectionLost:
        break;
    }
    // The timer was stopped here, so nobody else starts it again for the next connection. One that runs belongs to a
    // sending that was begun and ended inside the wait.
    if (!p_.events.programEnding() && !p_.timer.isRunning()) {
        p_.progress.visible = false;
        p_.timer.setInterval(StatusTimer::normalInterval);
    }
    return Outcome::ConnectionLost;
}

} // namespace orv
