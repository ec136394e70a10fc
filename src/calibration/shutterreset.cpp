// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/shutterreset.h"

#include "base/text.h"

#include <QScopeGuard>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace orv {

namespace {

constexpr int retryLimit = 20;
constexpr int pollLimit = 30000;
constexpr int moveSeconds = 30;

/// Polls between two counts on the screen, so that the count can be read.
constexpr int pollsPerCount = 100;

} // namespace

Words inWords(const LoggerSettings& settings) {
    QList<Words> ticked;
    for (const Setting* setting : settingsInOrder("MLWAGS")) {
        if (settings.*setting->flag) {
            ticked << setting->plainCaption();
        }
    }
    Words words = ticked.isEmpty() ? Words::tr("no control bit") : join(ticked, QStringLiteral(", "));
    const std::pair<const char*, QString> numbers[] = {
        {QT_TRANSLATE_NOOP("orv", "; samples per point %1"), settings.samplesPerPoint},
        {QT_TRANSLATE_NOOP("orv", ", points per block %1"), settings.pointsPerBlock},
        {QT_TRANSLATE_NOOP("orv", ", seconds between points %1"), settings.secondsBetweenPoints},
        {QT_TRANSLATE_NOOP("orv", ", hours before a block %1"), settings.hoursBeforeBlock}};
    for (const auto& [caption, number] : numbers) {
        words += Words::tr(caption).arg(number.isEmpty() ? Words::tr("none") : Words(number));
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
    , closing_(link.ports.closed.subscribe([this] { readBack_ = false; }))
    , lampNotifier_(settings_.lamp.addNotifier([this] { lampChanged(); })) {}

void ShutterReset::shutterreset() {
    link_.ports.debugsay(QStringLiteral("Reset Shutter"));
    if (link_.ports.isOpen()) {
        link_.procedures.start(Words::tr("Reset Shutter"), [this] { return reset(); });
    }
}

Task<> ShutterReset::reset() {
    Run run;
    auto interrupted = qScopeGuard([this, &run] { interrupt(run); });
    SettingsSender::Outcome restored = SettingsSender::Outcome::Failed;
    {
        const Doing resetting(link_.session.commands, Activity::ResettingShutter);
        restored = co_await perform(run);
    }
    interrupted.dismiss();
    finish(run, restored);
}

Task<SettingsSender::Outcome> ShutterReset::perform(Run& run) {
    CommandState& commands = link_.session.commands;
    readBack_ = false;
    link_.session.status.notice = Words();
    commands.runEnabled = false;
    showResetting();
    link_.ports.discardInput();
    commands.resetShutterEnabled = false;
    link_.ports.write("P");
    showStep(Words::tr("Getting Settings"));
    const std::optional<LoggerSettings> reported = settings_.reported;
    co_await readSettings();
    run.remembered = settings_.record;
    if (settings_.reported.value() != reported) {
        run.reported = reported;
    }
    co_await link_.waits.waitsec(0.5F);
    settings_.record = shutterSettings();
    showStep(Words::tr("Sending New Settings"));
    run.temporarySent = true;
    // The report that this sending asks for is only polled away: its lines find the code 999.
    co_await sender_.setprefs();
    showResetting();
    co_await link_.waits.waitsec(1.0F);
    co_await moveShutter();
    counter_ = 0;
    settings_.record = *run.remembered;
    showStep(Words::tr("Restoring Orignal Settings"));
    link_.timer.setInterval(StatusTimer::normalInterval);
    co_await link_.waits.waitsec(2.0F);
    const SettingsSender::Outcome restored = co_await sender_.setprefs();
    co_return restored;
}

Task<> ShutterReset::readSettings() {
    // Ticks would take lines that belong here.
    link_.timer.setInterval(0);
    bool complete = false;
    do {
        co_await link_.waits.waitsec(0.1F);
        ++counter_;
        showCounted(Words::tr("Getting Settings"));
        const QString line = link_.poll.quary();
        if (!line.isEmpty()) {
            reader_.getprefs(line);
            complete = line.startsWith(QLatin1String("MP"));
        }
        if (!link_.ports.isOpen()) {
            throw ConnectionEnded(); // the line was lost, or the reading given up
        }
        showResetting();
    } while (counter_ <= retryLimit && !complete);
    // Until the sending, ticks poll away what is left of the report, its prompt above all.
    link_.timer.setInterval(StatusTimer::normalInterval);
}

Task<> ShutterReset::moveShutter() {
    link_.timer.setInterval(0);
    showStep(Words::tr("Moving Shutter"));
    link_.ports.write("r");
    for (int left = moveSeconds; left > 0; --left) {
        link_.session.status.shutterCountdown = Words::tr("%1 s").arg(left);
        co_await link_.waits.waitsec(1.0F);
    }
    link_.session.status.shutterCountdown = QString();
    link_.ports.discardInput();
    co_await pollForPrompt();
}

Task<> ShutterReset::pollForPrompt() {
    const Clock& clock = link_.session.clock;
    QByteArray text;
    do {
        // The count goes on from the retries: a poll is one block of input, or one millisecond without any.
        const int polls = std::min(pollsPerCount - counter_ % pollsPerCount, pollLimit + 1 - counter_);
        const qint64 began = clock.monotonicMilliseconds();
        text = co_await link_.waits.input(polls);
        counter_ += static_cast<int>(std::clamp<qint64>(clock.monotonicMilliseconds() - began, 1, polls));
        if (counter_ % pollsPerCount == 0) {
            showCounted(Words::tr("Moving Shutter"));
        }
    } while (text != ">" && counter_ <= pollLimit);
}

void ShutterReset::finish(const Run& run, SettingsSender::Outcome restored) {
    CommandState& commands = link_.session.commands;
    commands.runEnabled = true;
    showStep(QString());
    readBack_ = true;
    if (restored == SettingsSender::Outcome::Sent) {
        commands.activity = Activity::ReadingSettings;
        tellMisread(run);
        return;
    }
    link_.session.state.Ctrlscrn = Operation::SettingsOpen;
    link_.session.status.status = Words::tr("Ready");
    const auto failed =
        Words::tr("The settings from before could not be sent back. The instrument may still hold the temporary "
                  "settings (%1).\n\n")
            .arg(inWords(shutterSettings()));
    tell(failed + Words::tr("The settings from before are on the settings screen again (%1). When the instrument "
                            "answers, send them with \"Apply Settings\".")
                      .arg(inWords(*run.remembered)),
         failed + sendingBack(*run.remembered));
}

/// One character that is lost on the line makes another number, which nobody would see.
void ShutterReset::tellMisread(const Run& run) {
    const SettingSet different = run.reported ? settingsThatDiffer(*run.remembered, *run.reported) : SettingSet();
    QList<Words> differences;
    for (const Setting& setting : allSettings) {
        if (different[placeOf(setting)]) {
            differences << differenceInWords(setting, *run.remembered, *run.reported);
        }
    }
    if (!differences.isEmpty()) {
        const auto misread =
            Words::tr("The settings that the instrument gave at the beginning of the shutter reset are "
                      "not those that it gave before: %1. They were sent back as it gave them last.\n\n")
                .arg(join(differences, QStringLiteral("; ")));
        tell(misread + Words::tr("Look at the settings screen; if they are wrong, correct them and press \"Apply "
                                 "Settings\"."),
             misread + sendingBack(*run.reported));
    }
}

void ShutterReset::interrupt(const Run& run) {
    counter_ = 0;
    link_.session.status.shutterCountdown = QString();
    showStep(QString());
    if (run.remembered) {
        settings_.record = *run.remembered;
    }
    link_.timer.setInterval(StatusTimer::normalInterval);
    if (link_.ports.isOpen()) {
        link_.session.state.Ctrlscrn = Operation::SettingsOpen;
        link_.session.status.status = Words::tr("Ready");
        link_.session.commands.runEnabled = true;
        readBack_ = true;
    }
    if (!run.temporarySent) {
        tell(Words::tr("The shutter reset was interrupted before the temporary settings were sent. The instrument "
                       "still has its own settings."),
             {});
        return;
    }
    // Connecting reads the instrument's settings over those on the screen, so they are told here too.
    const auto interrupted =
        Words::tr("The shutter reset was interrupted. The instrument may still hold the temporary settings (%1)."
                  "\n\n")
            .arg(inWords(shutterSettings()));
    tell(interrupted +
             Words::tr("Its settings from before: %1.\n\nWhen it is connected again, compare them with the "
                       "settings screen, and send them with \"Apply Settings\" if they differ. This message can "
                       "stay open meanwhile.")
                 .arg(inWords(*run.remembered)),
         interrupted + sendingBack(*run.remembered));
}

void ShutterReset::showResetting() {
    // The code keeps ticks and report lines from acting; a sending has set another.
    link_.session.state.Ctrlscrn = Operation::ShutterReset;
    link_.session.status.status = Words::tr("Resetting Shutter");
}

void ShutterReset::showStep(const Words& text) {
    link_.session.status.shutterProgress = text;
}

void ShutterReset::showCounted(const Words& text) {
    showStep(text + QStringLiteral(" %1").arg(counter_));
}

void ShutterReset::lampChanged() {
    if (settings_.lamp.value() == Lamp::Read && std::exchange(readBack_, false)) {
        link_.session.commands.resetShutterEnabled = true;
    }
}

QString ShutterReset::sendingBack(const LoggerSettings& settings) const {
    return QStringLiteral("Send it those from before: orv settings %1 %2")
        .arg(shellWord(link_.ports.device(link_.ports.selectedPort())), asOptions(settings));
}

void ShutterReset::tell(const Words& text, const QString& textWithoutWindow) {
    link_.session.messages.show(withoutWindow(operatorWarning(text, Words::tr("Reset Shutter")), textWithoutWindow));
}

} // namespace orv
