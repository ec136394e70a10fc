// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settingsreader.h"

#include "base/runtimeerror.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace orv {

namespace {

constexpr int memoryPointerCode = 11;
constexpr qint16 giveUpAtCall = 150;

/// In seconds, rounded up: the instrument's clock ticks every 4/3 s.
constexpr qint64 clockTick = 2;

/// After so many milliseconds without a line the status says so.
constexpr qint64 silenceLimit = 10'000;

/// The number that a report's line tells; 0 for one that is beyond all numbers.
double reportedNumber(QStringView text) {
    const double number = leadingNumber(text);
    return std::isfinite(number) ? number : 0.0;
}

/// Digits for a number of 16 bits and nothing else.
bool isNumber(QStringView text) {
    constexpr uint largest = 65535;
    constexpr qsizetype mostDigits = 5;
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    return !text.isEmpty() && text.size() <= mostDigits && std::ranges::all_of(text, isDigit) &&
           text.toUInt() <= largest;
}

bool isValueOf(const Setting& setting, QStringView text) {
    return isNumber(text) &&
           (setting.flag != nullptr ? text.size() == 1 && text.toUInt() <= 1 : text.size() <= setting.digits);
}

/// In `clockSetting`, and as the remark beside the status unless another one has come since.
void tellOfClock(SettingsState& settings, StatusState& status, const Words& sentence) {
    if (status.notice.value() == settings.clockSetting.value()) {
        status.notice = sentence;
    }
    settings.clockSetting = sentence;
}

} // namespace

SettingsReader::SettingsReader(Link& link, SettingsState& settings, ProgressState& progress)
    : link_(link)
    , settings_(settings)
    , progress_(progress)
    , requested_(link_.session.commands.activity.addNotifier([this] {
        if (link_.session.commands.activity == Activity::ReadingSettings) {
            lastLine_ = link_.session.clock.monotonicMilliseconds();
            link_.timer.wake();
        }
    }))
    , changed_(settings_.record.addNotifier([this] {
        if (prefsState == 0) { // a report selects at its end
            selectSamplingOption();
        }
    }))
    , closing_(link_.connection.aboutToClose.subscribe([this] {
        prefsState = 0;
        settings_.sent.reset();
        settings_.clockSet = SettingsState::ClockSet::NotYet;
        if (link_.session.status.notice.value() == settings_.clockSetting.value()) {
            link_.session.status.notice = Words();
        }
        settings_.clockSetting = Words();
        progress_.visible = false;
    }))
    , identified_(link_.connection.identified.subscribe([this] {
        if (!link_.connection.followsReset()) {
            settings_.syncPending = settings_.syncTimeDate.value(); // the clock of another instrument
            settings_.modeRemark = Words();
        }
    })) {}

void SettingsReader::getprefs(const QString& line) {
    link_.ports.debugsay(QStringLiteral("Get Prefs"));
    link_.manual.hide();
    SessionState& state = link_.session.state;
    // The count is never set back, neither by a report nor by a reset: the time-out comes once in a program run, at
    // its 150th report line, whichever retrieval that line belongs to.
    if (state.Timeout == std::numeric_limits<qint16>::max()) {
        endReading();
        throw RuntimeError(RuntimeError::Kind::Overflow);
    }
    ++state.Timeout;
    if (state.Timeout == giveUpAtCall) {
        giveUp();
        return;
    }
    link_.session.status.status = Words::tr("Loading Properties");
    lastLine_ = link_.session.clock.monotonicMilliseconds();
    if (prefsState == 0) {
        progress_.value = 0;
        progress_.maximum = 100;
        settings_.lamp = Lamp::Reading;
        understood.reset();
        memoryUnderstood = false;
        reading_ = settings_.record;
        settings_.reported = std::nullopt;
        if (!settings_.sent) {
            settings_.exchange = Words(); // it told of the report before
        }
    }
    progress_.valueLabel = QString::number(progress_.value);

    QString value;
    if (line.startsWith(QLatin1String("MP"))) {
        prefsState = memoryPointerCode;
        memoryUnderstood = isNumber(QStringView(line).mid(2).trimmed());
        takeMemoryPointer(reportedNumber(QStringView(line).mid(2)));
        return;
    }
    const char16_t tag = line.isEmpty() ? u'\0' : line.front().unicode();
    if (const auto* tagged = std::ranges::find(allSettings, tag, &Setting::letter); tagged != allSettings.end()) {
        prefsState = tagged->code;
        value = plainNumber(reportedNumber(QStringView(line).mid(1)));
    }
    // A line without a tag falls to the field before it, with an empty value, which counts as 0.
    const auto* field = std::ranges::find(allSettings, prefsState, &Setting::code);
    if (field == allSettings.end()) {
        return;
    }
    const bool isTagged = field->letter == tag;
    understood.set(placeOf(*field), isTagged && isValueOf(*field, QStringView(line).mid(1).trimmed()));
    const auto take = [&](LoggerSettings& record) {
        const double number = leadingNumber(value);
        if (field->number != nullptr) {
            record.*field->number = value;
        } else if (number == 1.0 || number == 0.0) {
            record.*field->flag = number == 1.0;
        }
    };
    take(reading_);
    change(settings_.record, take);
    progress_.value = ProgressState::step * static_cast<int>(field - allSettings.begin() + 1);
}

void SettingsReader::takeMemoryPointer(double value) {
    SettingsState& settings = settings_;
    settings.memoryPointer = plainNumber(value);
    // The divisor is 65525, not the 65535 shown as the maximum elsewhere: the last ten places are never written, so a
    // full memory may read slightly over 100.
    settings.capacity = plainNumber(std::floor((value / 65525.0 + 0.0005) * 1000.0) / 10.0);
    selectSamplingOption();

    SessionState& state = link_.session.state;
    const bool resettingShutter = state.Ctrlscrn == Operation::ShutterReset;
    if (!resettingShutter) {
        state.Ctrlscrn = Operation::SettingsOpen;
    }
    settings.lamp = Lamp::Read;
    progress_.value = 0;
    progress_.valueLabel = QStringLiteral("0");
    progress_.visible = false;
    prefsState = 0;
    tellExchange();
    endReading();
    CommandState& commands = link_.session.commands;
    commands.settingsFormEnabled = true;
    commands.processingMenuVisible = true;
    commands.settingsMenuVisible = true;
    commands.runVisible = true;
    settings.visible = true;
    if (!resettingShutter) {
        askForClock(link_, settings);
    }
    link_.session.status.status = Words::tr("Ready");
}

void SettingsReader::tellExchange() {
    settings_.reported = reading_;
    const QString time = clockText(link_.session.clock.now().time());
    const auto sent = std::exchange(settings_.sent, std::nullopt);
    if (!sent) {
        settings_.exchange = understood.all()
                                 ? Words::tr("Read from the instrument at %1").arg(time)
                                 : Words::tr("Read at %1, but not all: %2 could not be read. Press \"Retrieve "
                                             "Settings\".")
                                       .arg(time, join(captionsOf(~understood), QStringLiteral(", ")));
        return;
    }
    QList<Words> differences;
    const SettingSet different = settingsThatDiffer(*sent, reading_);
    for (const Setting& setting : allSettings) {
        const std::size_t place = placeOf(setting);
        if (!understood[place]) {
            differences << Words::tr("%1 could not be read back").arg(setting.plainCaption());
        } else if (different[place]) {
            differences << differenceInWords(setting, reading_, *sent);
        }
    }
    settings_.exchange = differences.isEmpty()
                             ? Words::tr("Sent and read back at %1").arg(time)
                             : Words::tr("Sent at %1, but the instrument has not all of it: %2. Correct "
                                         "it or press \"Apply Settings\" again.")
                                   .arg(time, join(differences, QStringLiteral("; ")));
}

void SettingsReader::endReading() {
    QProperty<Activity>& activity = link_.session.commands.activity;
    if (activity == Activity::ReadingSettings) {
        activity = Activity::None;
    }
}

void SettingsReader::lookForSilence() {
    lookForClock();
    if (link_.session.commands.activity != Activity::ReadingSettings) {
        return;
    }
    const qint64 left = lastLine_ + silenceLimit - link_.session.clock.monotonicMilliseconds();
    if (left > 0) {
        link_.timer.wake(left);
    } else {
        link_.session.status.status = Words::tr("No answer for 10 s. Reset connects again.");
    }
}

void SettingsReader::lookForClock() {
    const bool awaited = link_.session.state.Ctrlscrn == Operation::ClockCheck;
    if (!awaited || settings_.clockSet == SettingsState::ClockSet::NotYet || settings_.clockUnread) {
        return;
    }
    const qint64 left = settings_.clockAsked + silenceLimit - link_.session.clock.monotonicMilliseconds();
    if (left > 0) {
        link_.timer.wake(left);
        return;
    }
    settings_.clockUnread = true;
    tellOfClock(
        settings_, link_.session.status,
        Words::tr("The clock was sent, but could not be read back. Press \"Display Logger Time/Date\" to see how "
                  "it stands."));
}

void SettingsReader::selectSamplingOption() {
    int selected = 0;
    // A fluorometer's own presets count more than the scattering meter's.
    for (const bool glow : {false, true}) {
        int option = 0;
        for (const SamplingPreset& preset : samplingPresets(glow)) {
            ++option;
            if (preset.samplesPerPoint == settings_.record.value().samplesPerPoint &&
                (!glow || link_.session.state.type() == InstrumentType::Glow)) {
                selected = option;
            }
        }
    }
    settings_.samplingOption = selected;
}

void SettingsReader::giveUp() {
    progress_.visible = false;
    link_.manual.show();
    const int port = link_.connection.items.checkedPort();
    if (port != 0) {
        link_.session.state.Portused = static_cast<quint8>(port);
    }
    link_.connection.fixit();
    link_.session.status.failure =
        Words::tr("This was the 150th line of settings reports since the program started. There it ends the "
                  "connection, once. Nothing is wrong: press Quit and connect again.");
}

void askForClock(Link& link, SettingsState& settings) {
    settings.clockErrorTold = false;
    settings.clockAsked = link.session.clock.monotonicMilliseconds();
    link.ports.write("C");
    link.session.state.Ctrlscrn = Operation::ClockCheck;
    link.timer.wake(); // the awaiting is announced at each tick
}

Words clockOffsetInWords(qint64 secondsAhead) {
    const qint64 off = std::abs(secondsAhead);
    if (off <= clockTick) {
        return Words::tr("within %1 s of this computer's").arg(clockTick);
    }
    const Words text =
        secondsAhead < 0 ? Words::tr("%1 behind this computer's") : Words::tr("%1 ahead of this computer's");
    return text.arg(durationInWords(off));
}

void tellClockSetting(SettingsState& settings, StatusState& status, qint64 secondsAhead) {
    Words sentence;
    if (settings.clockSet == SettingsState::ClockSet::AtFullMinute) {
        sentence = Words::tr("The instrument's clock was set at the full minute and is %1.")
                       .arg(clockOffsetInWords(secondsAhead));
    } else if (secondsAhead < -clockTick) {
        sentence = Words::tr("The instrument's clock was set to the minute and is %1 behind: the command carries "
                             "no seconds.")
                       .arg(durationInWords(-secondsAhead));
    } else {
        sentence =
            Words::tr("The instrument's clock was set to the minute and is %1.").arg(clockOffsetInWords(secondsAhead));
    }
    settings.clockUnread = false;
    tellOfClock(settings, status, sentence);
}

ClockDisplay::ClockDisplay(Session& session, ComPorts& ports, DebugState& debug, SettingsState& settings)
    : session_(session)
    , ports_(ports)
    , debug_(debug)
    , settings_(settings) {}

void ClockDisplay::checktime(const QString& reply) {
    ports_.debugsay(QStringLiteral("Check Orv Sensor Time"));
    if (reply.size() < 10) {
        return;
    }
    const qsizetype dateLength = reply.indexOf(u'\t') + 1;
    const QString dateText = reply.first(dateLength);
    const QString timeText = reply.sliced(dateLength);
    if (debug_.showParsing && session_.state.trouble == 1) {
        debug_.list.append(dateText);
        debug_.list.append(timeText);
    }
    try {
        show(dateText, timeText);
    } catch (const RuntimeError&) {
        // On a noisy line every one that follows would be told too.
        if (!std::exchange(settings_.clockErrorTold, true)) {
            session_.messages.show(withoutWindow(
                operatorWarning(Words::tr("Unable to read clock. Error #2"), Words::tr("Software Error")),
                QStringLiteral("The instrument answered with a date or a time that cannot be read. Its clock is not "
                               "known; \"orv clock\" asks again.")));
        }
    }
}

namespace {

/// Seconds from a moment of the computer's clock to that of the instrument's, which has no zone: as the hands stand.
qint64 secondsAhead(QDate date, const TimeOfDay& time, const QDateTime& now) {
    const qint64 seconds = (qint64{time.hours} * 60 + time.minutes) * 60 + time.seconds;
    return now.date().daysTo(date) * 86400 + seconds - now.time().msecsSinceStartOfDay() / 1000;
}

} // namespace

void ClockDisplay::show(const QString& dateText, const QString& timeText) {
    const auto date = instrumentDate(dateText);
    if (!date) {
        throw RuntimeError(RuntimeError::Kind::TypeMismatch);
    }
    const TimeOfDay timeOfClock = timeOfDay(wholeNumberText(timeText));
    const QString time = timeOfClock.text12();
    session_.status.date = shortDate(*date);
    settings_.loggerDate = shortDate(*date);
    session_.status.time = time;
    const qint64 ahead = secondsAhead(*date, timeOfClock, session_.clock.now());
    session_.status.clockOffset = ahead;
    if (settings_.clockSet != SettingsState::ClockSet::NotYet) {
        tellClockSetting(settings_, session_.status, ahead);
    }
    settings_.loggerTime = time;
    session_.state.Ctrlscrn = Operation::SettingsOpen;
}

} // namespace orv
