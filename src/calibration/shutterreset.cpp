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

ShutterReset::ShutterReset(Link& link, SettingsState& settings, SettingsReader& reader, SettingsSender& sender)
    : link_(link)
    , settings_(settings)
    , reader_(reader)
    , sender_(sender)
    , lampNotifier_(settings_.lamp.addNotifier([this] { lampChanged(); })) {}

void ShutterReset::shutterreset() {
    link_.ports.debugsay(QStringLiteral("Reset Shutter"));
    if (!link_.ports.isOpen()) {
        return;
    }
    Run run;
    // "Reset" connects again inside the wait in which it is pressed. What belongs to the old connection must be put in
    // order before that, not when the wait has ended.
    const auto closing = link_.session.commands.portOpen.addNotifier([this, &run] { interrupt(run); });
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
    Session& session = link_.session;
    session.commands.activity = Activity::ResettingShutter;
    readBackOn_.reset();
    session.commands.runEnabled = false;
    showResetting();
    link_.ports.discardInput();
    session.commands.resetShutterEnabled = false;
    link_.ports.write("P");
    showStep(QStringLiteral("Getting Settings"));
    if (!readSettings(run)) {
        return false;
    }
    run.remembered = settings_.record;
    if (!rest(run, 0.5F)) {
        return false;
    }
    settings_.record = shutterSettings();
    showStep(QStringLiteral("Sending New Settings"));
    run.temporarySent = true;
    // The report that this sending asks for is only polled away: its lines find the code 999.
    if (!send(run) || !rest(run, 1.0F) || !moveShutter(run)) {
        return false;
    }
    counter_ = 0;
    settings_.record = *run.remembered;
    showStep(QStringLiteral("Restoring Orignal Settings"));
    link_.timer.setInterval(StatusTimer::normalInterval);
    if (!rest(run, 2.0F)) {
        return false;
    }
    const Outcome restored = sender_.setprefs();
    if (run.over || restored == Outcome::ConnectionLost) {
        return false;
    }
    finish(run, restored);
    return true;
}

bool ShutterReset::readSettings(const Run& run) {
    // Ticks would take lines that belong here.
    link_.timer.setInterval(0);
    bool complete = false;
    do {
        if (!link_.wait.waitConnected(0.1F) || run.over) {
            return false;
        }
        ++counter_;
        showCounted(QStringLiteral("Getting Settings"));
        const QString line = link_.poll.quary();
        if (!run.over && !line.isEmpty()) {
            reader_.getprefs(line);
            complete = line.startsWith(QLatin1String("MP"));
        }
        if (run.over) {
            return false;
        }
        showResetting();
    } while (counter_ <= retryLimit && !complete);
    // Until the sending, ticks poll away what is left of the report, its prompt above all.
    link_.timer.setInterval(StatusTimer::normalInterval);
    return true;
}

bool ShutterReset::send(const Run& run) {
    const Outcome outcome = sender_.setprefs();
    if (run.over || outcome == Outcome::ConnectionLost) {
        return false;
    }
    link_.session.commands.activity = Activity::ResettingShutter;
    showResetting();
    return true;
}

bool ShutterReset::moveShutter(const Run& run) {
    link_.timer.setInterval(0);
    showStep(QStringLiteral("Moving Shutter"));
    link_.events.keepResponsive(false);
    if (run.over) {
        return false;
    }
    link_.ports.write("r");
    for (int left = moveSeconds; left > 0; --left) {
        link_.session.status.shutterCountdown = QStringLiteral("%1 s").arg(left);
        if (!rest(run, 1.0F)) {
            return false;
        }
    }
    link_.session.status.shutterCountdown = QString();
    link_.ports.discardInput();
    return pollForPrompt(run);
}

bool ShutterReset::pollForPrompt(const Run& run) {
    const Clock& clock = link_.session.clock;
    qint64 lastResponsive = clock.monotonicMilliseconds();
    QByteArray text;
    do {
        // The count goes on from the retries.
        ++counter_;
        if (counter_ % pollsPerCount == 0) {
            showCounted(QStringLiteral("Moving Shutter"));
        }
        link_.ports.waitForInput(1);
        text = link_.ports.readAll();
        if (text.isEmpty() && link_.ports.checkFailure()) {
            return false;
        }
        const qint64 now = clock.monotonicMilliseconds();
        if (now - lastResponsive >= responsiveInterval) {
            lastResponsive = now;
            link_.events.keepResponsive(false);
            if (run.over || link_.events.programEnding()) {
                return false;
            }
        }
    } while (text != ">" && counter_ <= pollLimit);
    return true;
}

bool ShutterReset::rest(const Run& run, float seconds) {
    // The port is looked at here because the timer may be stopped, and then nothing else notices a pulled cable.
    return link_.wait.waitConnected(seconds) && !run.over && !link_.ports.checkFailure();
}

void ShutterReset::finish(Run& run, Outcome restored) {
    run.over = true;
    CommandState& commands = link_.session.commands;
    commands.activity = Activity::None;
    commands.runEnabled = true;
    showStep(QString());
    readBackOn_ = link_.ports.connectionNumber();
    if (restored == Outcome::Failed) {
        link_.session.state.Ctrlscrn = Operation::SettingsOpen;
        link_.session.status.status = QStringLiteral("Ready");
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
    link_.session.status.shutterCountdown = QString();
    showStep(QString());
    if (run.remembered) {
        settings_.record = *run.remembered;
    }
    CommandState& commands = link_.session.commands;
    commands.activity = Activity::None;
    if (link_.events.programEnding()) {
        return;
    }
    link_.timer.setInterval(StatusTimer::normalInterval);
    if (link_.ports.isOpen()) {
        link_.session.state.Ctrlscrn = Operation::SettingsOpen;
        link_.session.status.status = QStringLiteral("Ready");
        commands.runEnabled = true;
        readBackOn_ = link_.ports.connectionNumber();
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
    link_.session.state.Ctrlscrn = Operation::ShutterReset;
    link_.session.status.status = QStringLiteral("Resetting Shutter");
}

void ShutterReset::showStep(const QString& text) {
    link_.session.status.shutterProgress = text;
}

void ShutterReset::showCounted(const QString& text) {
    showStep(text + QStringLiteral(" %1").arg(counter_));
}

void ShutterReset::lampChanged() {
    if (!readBackOn_ || settings_.lamp.value() != Lamp::Read) {
        return;
    }
    if (*readBackOn_ == link_.ports.connectionNumber()) {
        link_.session.commands.resetShutterEnabled = true;
    }
    readBackOn_.reset();
}

void ShutterReset::tell(const QString& text) {
    link_.session.messages.show(operatorWarning(text, QStringLiteral("Reset Shutter")));
}

} // namespace orv
