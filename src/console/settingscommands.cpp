// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/answers.h"
#include "console/commands.h"

#include "base/files.h"
#include "base/text.h"

#include <QFileInfo>

namespace orv {

namespace {

/// Waits until what is being sent has been sent and read back. Throws Failure.
Task<> awaitSending(Visit& visit) {
    constexpr qint64 limit = 120'000; // each prompt has a limit of its own, 5 s
    const SettingsState& settings = visit.program.settings.shown;
    const Link& link = visit.program.link;
    const std::function<bool()> over = [&visit, &settings, &link] {
        if (const int left = settings.secondsToFullMinute; left > 0) {
            visit.terminal.showProgress(
                QStringLiteral("Setting at %1, %2 s left").arg(settings.fullMinute.value()).arg(left));
        }
        return link.procedures.isIdle() && link.session.commands.activity.value() == Activity::None;
    };
    const bool ended = co_await visit.reached(limit, over);
    if (!ended || settings.lamp.value() != Lamp::Read) {
        throw Failure(QStringLiteral("The instrument on %1 did not take everything; what was sent before stays in it. "
                                     "Look at the cable, then try again.")
                          .arg(visit.options.port));
    }
    co_await visit.awaitClock();
}

LoggerSettings modeOf(const QString& name, InstrumentType type, const LoggerSettings& present) {
    if (name == QLatin1String("profile")) {
        return profileMode(type, present.samplesPerPoint);
    }
    if (name == QLatin1String("moored")) {
        return mooredMode(type, present.samplesPerPoint);
    }
    constexpr qint64 longestRead = 65536;
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        throw Failure(
            QStringLiteral("The mode file %1 could not be read: %2. Nothing was sent.").arg(name, errorText(file)));
    }
    const ReadMode read = readModeFile(file.read(longestRead));
    if (!read.error.isEmpty()) {
        throw Failure(QStringLiteral("%1 %2. Nothing was sent.").arg(name, read.error));
    }
    return read.mode;
}

/// The present settings with what the options change.
LoggerSettings wantedSettings(const Visit& visit, const LoggerSettings& present) {
    const Options& options = visit.options;
    LoggerSettings wanted =
        options.mode.isEmpty() ? present : modeOf(options.mode, visit.program.link.session.state.type(), present);
    for (const auto& [setting, value] : options.set) {
        if (setting->flag != nullptr) {
            wanted.*setting->flag = value == QLatin1String("1");
        } else {
            wanted.*setting->number = value;
        }
    }
    return wanted;
}

/// What the instrument has taken otherwise than it was sent; empty if nothing.
QStringList notTaken(const LoggerSettings& sent, const LoggerSettings& read) {
    QStringList found;
    const SettingSet different = settingsThatDiffer(sent, read);
    const auto inWords = [](const Setting& setting, const LoggerSettings& settings) -> QString {
        if (setting.flag != nullptr) {
            return settings.*setting.flag ? QStringLiteral("true") : QStringLiteral("false");
        }
        return valueInWords(setting, settings).english();
    };
    for (const Setting& setting : allSettings) {
        if (different[placeOf(setting)]) {
            found << QStringLiteral("%1 did not stick: %2 was sent, the instrument has %3.")
                         .arg(QLatin1String(setting.name), inWords(setting, sent), inWords(setting, read));
        }
    }
    return found;
}

/// The setting is sent as it was read.
bool isSentBack(const Setting& setting, const Options& options) {
    const bool isBuiltIn = options.mode == QLatin1String("profile") || options.mode == QLatin1String("moored");
    const bool isOfMode = !options.mode.isEmpty() && !(isBuiltIn && setting.letter == u'T');
    return !isOfMode &&
           std::ranges::none_of(options.set, [&setting](const auto& set) { return set.first == &setting; });
}

/// Reads the report once more and waits for its end.
Task<> readAgain(Visit& visit) {
    constexpr qint64 limit = 15'000;
    visit.program.settings.sender.retrieveSettings();
    const SessionState& state = visit.program.link.session.state;
    const std::function<bool()> over = [&visit, &state] {
        const CommandState& commands = visit.program.link.session.commands;
        return !visit.program.link.ports.isOpen() ||
               (commands.activity.value() == Activity::None && state.Ctrlscrn != Operation::Ready);
    };
    const bool ended = co_await visit.reached(limit, over);
    if (!ended || !visit.program.link.ports.isOpen()) {
        throw Failure(QStringLiteral("The instrument on %1 no longer answers; nothing was sent. Look at the cable, "
                                     "then try again.")
                          .arg(visit.options.port));
    }
    co_await visit.awaitClock();
}

/// What is to be sent. What goes back as it was read must have been read whole, twice the same: a byte that the line
/// has added or lost would change a setting that nobody named. Throws Failure.
Task<LoggerSettings> settingsToSend(Visit& visit) {
    const Settings& settings = visit.program.settings;
    bool isWhole = true;
    const auto look = [&visit, &settings, &isWhole] {
        for (const Setting& setting : allSettings) {
            isWhole = isWhole && (settings.reader.understood[placeOf(setting)] || !isSentBack(setting, visit.options));
        }
    };
    LoggerSettings wanted = wantedSettings(visit, settings.shown.record);
    look();
    if (std::ranges::any_of(allSettings, [&visit](const Setting& each) { return isSentBack(each, visit.options); })) {
        co_await readAgain(visit);
        look();
    }
    if (!isWhole || wanted != wantedSettings(visit, settings.shown.record)) {
        throw Failure(QStringLiteral("The settings could not be read whole; nothing was sent. Try again."));
    }
    co_return wanted;
}

Task<> send(Visit& visit) {
    SettingsState& settings = visit.program.settings.shown;
    const LoggerSettings wanted = co_await settingsToSend(visit);
    settings.record = wanted;
    visit.program.settings.sender.applySettings();
    if (visit.program.link.procedures.isIdle()) {
        throw Failure(QString()); // why has been told
    }
    co_await awaitSending(visit);
    const QStringList differences = notTaken(wanted, settings.record);
    if (!differences.isEmpty()) {
        throw Failure(differences.join(u' ') + QStringLiteral(" Send it again."));
    }
    if (!visit.program.settings.reader.understood.all()) {
        throw Failure(QStringLiteral("The settings were sent, but could not be read back whole. Read them again."));
    }
}

} // namespace

void refuseExisting(const Options& options, const QString& name) {
    if (!options.force && !name.isEmpty() && QFileInfo::exists(name)) {
        throw Failure(QStringLiteral("%1 exists; nothing was done. Choose another name, or keep the old file under a "
                                     "dated name with --force.")
                          .arg(name));
    }
}

Task<> exchangeSettings(Visit& visit) {
    const Options& options = visit.options;
    refuseExisting(options, options.save);
    co_await visit.connect();
    if (!options.mode.isEmpty() || !options.set.empty()) {
        co_await send(visit);
        visit.terminal.remark(QStringLiteral("The settings were sent and read back."));
    }
    const Settings& settings = visit.program.settings;
    if (options.json) {
        visit.terminal.print(settingsObject(settings));
    } else {
        printSettings(visit.terminal, settings);
    }
    requireAllSettings(settings, options.save);
    if (!options.save.isEmpty()) {
        const Words reason = writeWholeFile(options.save, modeFileContent(settings.shown.record), visit.clock.now());
        if (!reason.isEmpty()) {
            throw Failure(QStringLiteral("%1 could not be written: %2. Make room or choose another folder.")
                              .arg(options.save, reason));
        }
    }
}

Task<> compareClock(Visit& visit) {
    co_await visit.connect();
    if (visit.options.sync) {
        visit.program.settings.shown.atFullMinute = !visit.options.now;
        visit.program.settings.sender.synchronizeClock();
        co_await awaitSending(visit);
        // What is read is up to a step of the clock, 4/3 s, behind. Set at once, the instrument begins the minute
        // afresh.
        const qint64 most = visit.options.now ? 65 : 2;
        if (!visit.clockOffset() || std::abs(*visit.clockOffset()) > most) {
            throw Failure(QStringLiteral("The instrument's clock was not set to this computer's: %1. Try again.")
                              .arg(clockInWords(visit)));
        }
    }
    if (visit.options.json) {
        QJsonObject object;
        addClock(visit, object);
        visit.terminal.print(object);
    } else {
        visit.terminal.print(clockInWords(visit));
    }
    requireClock(visit);
}

Task<> resetShutter(Visit& visit) {
    constexpr qint64 limit = 180'000; // half a minute of moving, as long again of waiting, and two sendings
    co_await visit.connect();
    visit.terminal.remark(QStringLiteral("The shutter moves; this takes about 40 s. Leave the cable alone."));
    visit.program.resetShutter();
    Link& link = visit.program.link;
    const std::function<bool()> over = [&visit, &link] {
        const QString step = link.session.status.shutterProgress.value().english() + u' ' +
                             link.session.status.shutterCountdown.value().english();
        visit.terminal.showProgress(step.trimmed());
        return link.procedures.isIdle() && link.session.commands.activity.value() == Activity::None;
    };
    const bool ended = co_await visit.reached(limit, over);
    if (!ended || visit.program.settings.shown.lamp.value() != Lamp::Read) {
        throw Failure(ended ? QString() : QStringLiteral("The shutter reset did not end."));
    }
    visit.terminal.remark(QStringLiteral("The shutter is at its rest position, and the settings are as before."));
}

} // namespace orv
