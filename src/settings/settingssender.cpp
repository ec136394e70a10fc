// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settingssender.h"

#include "base/text.h"
#include "base/words.h"
#include "settings/settingsreader.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace orv {

PromptDialogue::PromptDialogue(Link& link, SettingsState& settings, ProgressState& progress)
    : link_(link)
    , settings_(settings)
    , progress_(progress) {}

Task<> PromptDialogue::waitprompt() {
    const Clock& clock = link_.session.clock;
    // A prompt left over from before stands in the poll's buffer without a line end; it would be taken for the
    // beginning of the next line.
    link_.poll.rxbuffer.clear();
    link_.session.status.bufferCount = 0;
    link_.session.state.Rtn.clear();

    QByteArray text;
    qint64 passes = 0;
    while (passes < maximumPasses) {
        const qint64 began = clock.monotonicMilliseconds();
        const QByteArray block = co_await link_.waits.input(maximumPasses - passes);
        passes += std::max<qint64>(clock.monotonicMilliseconds() - began, 1);
        if (block.isEmpty()) {
            continue;
        }
        if (transcriptWanted()) {
            link_.debug.list.append(QString::fromLatin1(block));
        }
        text += block;
        if (takePrompt(text, block.size())) {
            co_return;
        }
    }
    if (link_.session.state.trouble == 1 && link_.debug.rawBuffer) {
        link_.debug.list.append(QStringLiteral("Timeout"));
    }
    throw TimedOut();
}

bool PromptDialogue::takePrompt(const QByteArray& text, qsizetype newCharacters) {
    // A prompt that nothing stands before is left over from an earlier command.
    const auto first = text.cbegin() + std::max<qsizetype>(text.size() - newCharacters, 1);
    const auto prompt = std::find_if(first, text.cend(), [](char c) { return c == '>' || c == '.'; });
    if (prompt == text.cend()) {
        return false;
    }
    link_.session.state.Rtn = QString::fromLatin1(text.constData(), prompt - text.cbegin());
    link_.debug.list.selectLast();
    settings_.lamp = Lamp::Sending;
    progress_.value = std::min(progress_.value + ProgressState::step, 100);
    progress_.valueLabel = QString::number(progress_.value);
    return true;
}

void PromptDialogue::send(const QString& item, const QByteArray& terminator) {
    link_.ports.write(item.toLatin1() + terminator);
    // The transcript of this talk follows the settings screen's option alone, not the service mode: only the word
    // "Timeout" follows both the service mode and the debug screen's own option.
    if (transcriptWanted()) {
        link_.debug.list.append(item);
    }
}

void PromptDialogue::finish() {
    progress_.value = 0;
    progress_.valueLabel = QStringLiteral("0");
    settings_.lamp = Lamp::Sent;
    link_.timer.setInterval(StatusTimer::slowInterval);
    link_.ports.discardInput();
    link_.session.state.Ctrlscrn = Operation::Ready;
    link_.ports.write("P");
}

bool PromptDialogue::transcriptWanted() const {
    const bool glow = link_.session.status.instrument.value() == InstrumentType::Glow;
    return glow ? settings_.glowProvideRawCounts : settings_.trxProvideRawCounts;
}

namespace {

/// The instrument takes digits only as slowly as a person types them.
constexpr int millisecondsBetweenDigits = 200;
constexpr int timeDigitCount = 4;

/// So long before a full minute the dialogue begins that ends with it: ten digits, and time for the prompts.
constexpr qint64 clockDialogue = 4000;

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

QString controlBits(const LoggerSettings& record) {
    QString bits;
    for (const Setting& setting : flagSettings) {
        bits += QLatin1Char(record.*setting.flag ? '1' : '0');
    }
    return bits;
}

SettingsSender::SettingsSender(Link& link, SettingsState& settings, ProgressState& progress)
    : link_(link)
    , settings_(settings)
    , progress_(progress)
    , dialogue_(link, settings, progress)
    , ticked_(
          settings.syncTimeDate.addNotifier([&settings] { settings.syncPending = settings.syncTimeDate.value(); })) {}

Task<SettingsSender::Outcome> SettingsSender::setprefs() {
    return converse(&SettingsSender::talk);
}

Task<SettingsSender::Outcome> SettingsSender::converse(Talk said) {
    if (!link_.ports.isOpen()) {
        throw ConnectionEnded();
    }
    link_.timer.setInterval(0);
    progress_.maximum = 100;
    progress_.value = 0;
    // The timer was stopped here, so nobody else starts it again for the next connection.
    auto cutShort = qScopeGuard([this] {
        progress_.visible = false;
        settings_.lamp = Lamp::Failed;
        link_.timer.setInterval(StatusTimer::normalInterval);
    });
    Outcome outcome = Outcome::Sent;
    try {
        const Doing sending(link_.session.commands, Activity::Sending);
        co_await (this->*said)();
        // The setting of the clock has requested the report too; while the clock reply is awaited the second one is
        // passed over.
        dialogue_.finish();
    } catch (const TimedOut&) {
        outcome = Outcome::Failed;
    }
    cutShort.dismiss();
    if (outcome == Outcome::Failed) {
        fail();
    }
    co_return outcome;
}

Task<SettingsSender::Outcome> SettingsSender::send() {
    return sendAlone(&SettingsSender::talk);
}

Task<SettingsSender::Outcome> SettingsSender::sendAlone(Talk said) {
    progress_.show();
    // The date goes to the instrument as the screen shows it, and the screen does not follow it all the time.
    settings_.computerDate = shortDate(link_.session.clock.now().date());
    const Outcome outcome = co_await converse(said);
    if (outcome == Outcome::Sent) {
        link_.session.commands.activity = Activity::ReadingSettings;
    }
    co_return outcome;
}

Task<> SettingsSender::talk() {
    struct Item {
        QString text;
        QByteArray terminator = {};
    };
    const LoggerSettings record = settings_.record; // not what is typed meanwhile
    settings_.sent.reset();
    settings_.reported = std::nullopt; // from here on the instrument may have others
    settings_.exchange = Words::tr("Sending ...");
    // The shutter reset sends back what was there.
    if (!settings_.sendingMode && link_.session.state.Ctrlscrn != Operation::ShutterReset) {
        settings_.modeRemark = Words(); // the instrument has that mode no longer
    }
    std::vector<Item> items{{QStringLiteral("B")}, {controlBits(record)}};
    for (const Setting& setting : numberSettings) {
        items.push_back({QChar(setting.letter)});
        items.push_back({record.*setting.number, "\r"});
    }
    try {
        for (const Item& item : items) {
            dialogue_.send(item.text, item.terminator);
            co_await dialogue_.waitprompt();
        }
    } catch (const TimedOut&) {
        settings_.exchange = Words::tr("Not sent whole: the instrument did not answer. What was sent before stays "
                                       "in it. Connect or press \"Retrieve Settings\" to see what it has.");
        throw;
    } catch (const ConnectionEnded&) {
        settings_.exchange = Words::tr("Not sent whole: the connection ended. What was sent before stays in the "
                                       "instrument. Connect to see what it has.");
        throw;
    }
    settings_.sent = record;
    settings_.exchange = Words::tr("Sent, and not read back yet");
    // During a shutter reset the settings are sent only for a while; the clock is none of its business.
    if (settings_.syncTimeDate && link_.session.state.Ctrlscrn != Operation::ShutterReset) {
        co_await setclock();
    }
}

Task<> SettingsSender::setclock() {
    co_await typeClock();
    dialogue_.finish();
}

Task<> SettingsSender::typeClock() {
    const Doing settingClock(link_.session.commands, Activity::SettingClock);
    const auto shown = qScopeGuard([this] {
        settings_.secondsToFullMinute = 0;
        settings_.fullMinute = QString();
    });
    const std::optional<QDateTime> minute = co_await awaitFullMinute();
    link_.ports.write("U");
    co_await dialogue_.waitprompt();
    const QString date = dateDigits(minute ? shortDate(minute->date()) : settings_.computerDate);
    co_await typed(date, minute.has_value());
    co_await dialogue_.waitprompt();
    const QDateTime now = link_.session.clock.now();
    if (minute) {
        const qint64 early = now.msecsTo(*minute) - qint64{timeDigitCount} * millisecondsBetweenDigits;
        co_await link_.waits.pause(std::clamp<qint64>(early, 0, clockDialogue));
    }
    const QDateTime set = minute.value_or(now);
    const QString time = timeDigits(clockText(set.time()));
    co_await typed(time, minute.has_value());
    // The instrument begins that minute with its last digit.
    const qint64 lost = set.time().second() + set.secsTo(link_.session.clock.now());
    settings_.clockSet = lost <= 0 ? SettingsState::ClockSet::AtFullMinute : SettingsState::ClockSet::ToTheMinute;
    tellClockSetting(settings_, link_.session.status, -lost);
    link_.session.status.notice = settings_.clockSetting.value();
    settings_.syncPending = false;
}

/// Waits until the dialogue has to begin whose end sets the clock at a full minute, which is returned. Nothing, and no
/// wait, if the clock is to be set at once; nothing, too, if the computer's clock was set meanwhile and the minute is
/// no longer in reach.
Task<std::optional<QDateTime>> SettingsSender::awaitFullMinute() {
    constexpr qint64 minute = 60'000;
    constexpr qint64 second = 1000;
    if (!settings_.atFullMinute) {
        co_return std::nullopt;
    }
    const Clock& clock = link_.session.clock;
    const Words statusBefore = link_.session.status.status;
    const qint64 until = clock.monotonicMilliseconds() + minute;
    QDateTime target;
    while (true) {
        const QDateTime begin = clock.now().addMSecs(clockDialogue);
        if (!target.isValid() || begin.msecsTo(target) > minute || begin.msecsTo(target) < -second) {
            target = begin.addMSecs((minute - begin.toMSecsSinceEpoch() % minute) % minute);
        }
        settings_.computerTime = clockText(clock.now().time()); // no tick shows it meanwhile
        settings_.computerDate = shortDate(clock.now().date());
        const qint64 left = begin.msecsTo(target);
        if (left <= 0) {
            break;
        }
        if (clock.monotonicMilliseconds() + left > until) {
            link_.session.status.status = statusBefore;
            co_return std::nullopt;
        }
        progress_.visible = false; // it would stand whole, over what tells how long this takes
        link_.session.status.status = Words::tr("Waiting");
        settings_.fullMinute = clockText(target.time());
        settings_.secondsToFullMinute = static_cast<int>((left + clockDialogue + second - 1) / second);
        co_await link_.waits.pause((left - 1) % second + 1);
    }
    settings_.secondsToFullMinute = 0;
    link_.session.status.status = statusBefore;
    link_.ports.discardInput(); // a prompt that came meanwhile answers nothing
    co_return target;
}

Task<> SettingsSender::typed(QString digits, bool isTimed) {
    for (const QChar digit : std::as_const(digits)) {
        // The last ones of a day would wait for ever on the clock that falls back at midnight.
        Task<> wait = isTimed ? link_.waits.pause(millisecondsBetweenDigits)
                              : link_.waits.waitsec(static_cast<float>(millisecondsBetweenDigits) / 1000.0F);
        co_await wait;
        link_.ports.write(QByteArray(1, digit.toLatin1()));
        if (dialogue_.transcriptWanted() && link_.session.state.trouble == 1) {
            link_.debug.list.append(digit);
        }
    }
}

void SettingsSender::fail() {
    if (std::exchange(settings_.sent, std::nullopt)) { // it was the clock
        settings_.exchange = Words::tr("Sent, but the clock was not set and nothing was read back: the instrument "
                                       "did not answer. Press \"Retrieve Settings\" to see what it has.");
    }
    progress_.visible = false;
    settings_.lamp = Lamp::Failed;
    link_.timer.setInterval(StatusTimer::slowInterval);
    link_.session.status.status = Words::tr("Ready");
    link_.session.messages.show(
        withoutWindow(operatorWarning(Words::tr("Error Sending Prefs. Error Code 1"), Words::tr("Error")),
                      QStringLiteral("The instrument did not answer what was sent.")));
    mainWindowWanted.tell();
}

void SettingsSender::retrieveSettings() {
    if (!link_.session.commands.canCommand) {
        return;
    }
    link_.ports.discardInput();
    link_.session.state.Ctrlscrn = Operation::Ready;
    link_.session.commands.activity = Activity::ReadingSettings;
    link_.ports.write("P");
    progress_.maximum = 100;
    progress_.show();
}

void SettingsSender::applySettings() {
    if (!link_.session.commands.canCommand) {
        return;
    }
    // The instrument cannot log a block without end.
    const LoggerSettings& record = settings_.record.value();
    if (leadingNumber(record.pointsPerBlock) == 0.0 && record.logEnabled) {
        link_.session.messages.show(withoutWindow(
            operatorWarning(Words::tr("Logging and Continues Sampling invalid."), Words::tr("Invalid Setup")),
            QStringLiteral("Nothing was sent: a block without end cannot be logged. Set pointsPerBlock as "
                           "well, or logEnabled=false.")));
        return;
    }
    link_.procedures.start(Words::tr("Apply Settings"), [this] { return apply(); });
}

Task<> SettingsSender::apply() {
    co_await send();
}

void SettingsSender::synchronizeClock() {
    if (link_.session.commands.canCommand) {
        link_.procedures.start(Words::tr("Sync Time/Date"), [this] { return sendClock(); });
    }
}

Task<> SettingsSender::sendClock() {
    co_await sendAlone(&SettingsSender::typeClock);
}

void SettingsSender::displayLoggerTime() {
    if (!link_.session.commands.canCommand) {
        return;
    }
    askForClock(link_, settings_);
}

void SettingsSender::chooseSamplingOption(int option) {
    const bool glow = link_.session.status.instrument.value() == InstrumentType::Glow;
    change(settings_.record, [&](LoggerSettings& record) {
        record.samplesPerPoint = samplingPresets(glow).at(static_cast<std::size_t>(option - 1)).samplesPerPoint;
    });
    settings_.samplingOption = option;
}

} // namespace orv
