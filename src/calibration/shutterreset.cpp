// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/shutterreset.h"

#include <QStringList>

#include <utility>

namespace orv {

namespace {

constexpr int retryLimit = 20;
constexpr int pollLimit = 30000;
constexpr int moveSeconds = 30;

/// How often the windows are kept alive while the port is polled, in milliseconds of monotonic time.
constexpr qint64 responsiveInterval = 10;

/// Polls between two counts on the screen, so that the count can be read.
constexpr int pollsPerCount = 100;

} // namespace

QString inWords(const LoggerSettings& settings) {
    QStringList ticked;
    for (const Setting* setting : settingsInOrder("MLWAGS")) {
        if (settings.*setting->flag) {
            ticked << setting->plainCaption();
        }
    }
    QString words = ticked.isEmpty() ? QStringLiteral("no control bit") : ticked.join(QLatin1String(", "));
    const std::pair<const char*, QString> numbers[] = {{"; samples per point ", settings.samplesPerPoint},
                                                       {", points per block ", settings.pointsPerBlock},
                                                       {", seconds between points ", settings.secondsBetweenPoints},
                                                       {", hours before a block ", settings.hoursBeforeBlock}};
    for (const auto& [caption, number] : numbers) {
        words += QLatin1String(caption) + (number.isEmpty() ? QStringLiteral("none") : number);
    }
    return words;
}

LoggerSettings shutterSettings() {
    const QString none = QStringLiteral("0");
    const QString one = QStringLiteral("1");
    return {.samplesPerPoint = one, .hoursBeforeBlock = none, .pointsPerBlock = one, .secondsBetweenPoints = none};
}

ShutterReset::ShutterReset(Parts parts)
    : p_(std::move(parts))
    , lampNotifier_(p_.settings.lamp.addNotifier([this] { lampChanged(); })) {}

void ShutterReset::shutterreset() {
    p_.ports.debugsay(QStringLiteral("Reset Shutter"));
    if (!p_.ports.isOpen()) {
        return;
    }
    Run run;
    // "Reset" connects again inside the wait in which it is pressed. What belongs to the old connection must be put in
    // order before that, not when the wait has ended.
    const auto closing = p_.session.commands.portOpen.addNotifier([this, &run] { interrupt(run); });
    try {
        if (!perform(run)) {
            interrupt(run);
        }
    } catch (...) {
        interrupt(run);
        throw;
    }
}

bool ShutterReset::perform(Run& run) {
    Session& session = p_.session;
    session.commands.activity = Activity::ResettingShutter;
    readBackOn_.reset();
    session.commands.runEnabled = false;
    showResetting();
    p_.ports.discardInput();
    session.commands.resetShutterEnabled = false;
    p_.ports.write("P");
    showStep(QStringLiteral("Getting Settings"));
    if (!readSettings(run)) {
        return false;
    }
    run.remembered = p_.settings.record;
    if (!rest(run, 0.5F)) {
        return false;
    }
    p_.settings.record = shutterSettings();
    showStep(QStringLiteral("Sending New Settings"));
    run.temporarySent = true;
    // The report that this sending asks for is only polled away: its lines find the code 999.
    if (!send(run) || !rest(run, 1.0F) || !moveShutter(run)) {
        return false;
    }
    counter_ = 0;
    p_.settings.record = *run.remembered;
    showStep(QStringLiteral("Restoring Orignal Settings"));
    p_.timer.setInterval(StatusTimer::normalInterval);
    if (!rest(run, 2.0F)) {
        return false;
    }
    const Outcome restored = p_.setprefs();
    if (run.over || restored == Outcome::ConnectionLost) {
        return false;
    }
    finish(run, restored);
    return true;
}

bool ShutterReset::readSettings(const Run& run) {
    // Ticks would take lines that belong here.
    p_.timer.setInterval(0);
    bool complete = false;
    do {
        if (!p_.wait.waitConnected(0.1F) || run.over) {
            return false;
        }
        ++counter_;
        showCounted(QStringLiteral("Getting Settings"));
        const QString line = p_.poll.quary();
        if (!run.over && !line.isEmpty()) {
            p_.getprefs(line);
            complete = line.startsWith(QLatin1String("MP"));
        }
        if (run.over) {
            return false;
        }
        showResetting();
    } while (counter_ <= retryLimit && !complete);
    // Until the sending, ticks poll away what is left of the report, its prompt above all.
    p_.timer.setInterval(StatusTimer::normalInterval);
    return true;
}

bool ShutterReset::send(const Run& run) {
    const Outcome outcome = p_.setprefs();
    if (run.over || outcome == Outcome::ConnectionLost) {
        return false;
    }
    p_.session.commands.activity = Activity::ResettingShutter;
    showResetting();
    return true;
}

bool ShutterReset::moveShutter(const Run& run) {
    p_.timer.setInterval(0);
    showStep(QStringLiteral("Moving Shutter"));
    p_.events.keepResponsive(false);
    if (run.over) {
        return false;
    }
    p_.ports.write("r");
    for (int left = moveSeconds; left > 0; --left) {
        p_.session.status.shutterCountdown = QStringLiteral("%1 s").arg(left);
        if (!rest(run, 1.0F)) {
            return false;
        }
    }
    p_.session.status.shutterCountdown = QString();
    p_.ports.discardInput();
    return pollForPrompt(run);
}

bool ShutterReset::pollForPrompt(const Run& run) {
    const Clock& clock = p_.session.clock;
    qint64 lastResponsive = clock.monotonicMilliseconds();
    QByteArray text;
    do {
        // The count goes on from the retries.
        ++counter_;
        if (counter_ % pollsPerCount == 0) {
            showCounted(QStringLiteral("Moving Shutter"));
        }
        p_.ports.waitForInput(1);
        text = p_.ports.readAll();
        if (text.isEmpty() && p_.ports.checkFailure()) {
            return false;
        }
        const qint64 now = clock.monotonicMilliseconds();
        if (now - lastResponsive >= responsiveInterval) {
            lastResponsive = now;
            p_.events.keepResponsive(false);
            if (run.over || p_.events.programEnding()) {
                return false;
            }
        }
    } while (text != ">" && counter_ <= pollLimit);
    return true;
}

bool ShutterReset::rest(const Run& run, float seconds) {
    // The port is looked at here because the timer may be stopped, and then nothing else notices a pulled cable.
    return p_.wait.waitConnected(seconds) && !run.over && !p_.ports.checkFailure();
}

void ShutterReset::finish(Run& run, Outcome restored) {
    run.over = true;
    CommandState& commands = p_.session.commands;
    commands.activity = Activity::None;
    commands.runEnabled = true;
    showStep(QString());
    readBackOn_ = p_.ports.connectionNumber();
    if (restored == Outcome::Failed) {
        p_.session.state.Ctrlscrn = Operation::SettingsOpen;
        p_.session.status.status = QStringLiteral("Ready");
        tell(QStringLiteral(
                 "The settings from before could not be sent back. The instrument may still hold the temporary "
                 "settings (%1).\n\nThe settings from before are on the settings screen again (%2). When the "
                 "instrument answers, send them with \"Apply Settings\".")
                 .arg(inWords(shutterSettings()), inWords(*run.remembered)));
    }
}

void ShutterReset::interrupt(Run& run) {
    if (run.over) {
        return;
    }
    run.over = true;
    counter_ = 0;
    p_.session.status.shutterCountdown = QString();
    showStep(QString());
    if (run.remembered) {
        p_.settings.record = *run.remembered;
    }
    CommandState& commands = p_.session.commands;
    commands.activity = Activity::None;
    if (p_.events.programEnding()) {
        return;
    }
    p_.timer.setInterval(StatusTimer::normalInterval);
    if (p_.ports.isOpen()) {
        p_.session.state.Ctrlscrn = Operation::SettingsOpen;
        p_.session.status.status = QStringLiteral("Ready");
        commands.runEnabled = true;
        readBackOn_ = p_.ports.connectionNumber();
    }
    if (!run.temporarySent) {
        tell(QStringLiteral("The shutter reset was interrupted before the temporary settings were sent. The instrument "
                            "still has its own settings."));
        return;
    }
    // Connecting reads the instrument's settings over those on the screen, so they are told here too.
    tell(QStringLiteral(
             "The shutter reset was interrupted. The instrument may still hold the temporary settings (%1).\n\n"
             "Its settings from before: %2.\n\nConnect again, compare them with the settings screen, and send "
             "them with \"Apply Settings\" if they differ.")
             .arg(inWords(shutterSettings()), inWords(*run.remembered)));
}

void ShutterReset::showResetting() {
    // The code keeps ticks and report lines from acting; a sending has set another.
    p_.session.state.Ctrlscrn = Operation::ShutterReset;
    p_.session.status.status = QStringLiteral("Resetting Shutter");
}

void ShutterReset::showStep(const QString& text) {
    p_.session.status.shutterProgress = text;
}

void ShutterReset::showCounted(const QString& text) {
    showStep(text + QStringLiteral(" %1").arg(counter_));
}

void ShutterReset::lampChanged() {
    if (!readBackOn_ || p_.settings.lamp.value() != Lamp::Read) {
        return;
    }
    if (*readBackOn_ == p_.ports.connectionNumber()) {
        p_.session.commands.resetShutterEnabled = true;
    }
    readBackOn_.reset();
}

void ShutterReset::tell(const QString& text) {
    p_.session.messages.show(operatorWarning(text, QStringLiteral("Reset Shutter")));
}

} // namespace orv
