// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settingsreader.h"

#include "base/runtimeerror.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace orv {

namespace {

/// One field of the report: its tag, its code in `prefsState`, how far the bar stands behind it, and the control it
/// fills, a check box or a number box.
struct ReportField {
    char16_t tag;
    int code;
    int progress;
    QProperty<bool> LoggerSettings::*flag = nullptr;
    QProperty<QString> LoggerSettings::*number = nullptr;
};

const std::array reportFields{
    ReportField{u'S', 9, 10, &LoggerSettings::autoStart, nullptr},
    ReportField{u'M', 10, 60, &LoggerSettings::append, nullptr},
    ReportField{u'G', 1, 20, &LoggerSettings::gain, nullptr},
    ReportField{u'A', 2, 30, &LoggerSettings::auxAdc, nullptr},
    ReportField{u'L', 4, 40, &LoggerSettings::logEnabled, nullptr},
    ReportField{u'W', 3, 50, &LoggerSettings::wakeUp, nullptr},
    ReportField{u'T', 5, 70, nullptr, &LoggerSettings::samplesPerPoint},
    ReportField{u'D', 6, 80, nullptr, &LoggerSettings::hoursBeforeBlock},
    ReportField{u'Q', 7, 90, nullptr, &LoggerSettings::pointsPerBlock},
    ReportField{u'I', 8, 100, nullptr, &LoggerSettings::secondsBetweenPoints},
};

constexpr int memoryPointerCode = 11;
constexpr qint16 giveUpAtCall = 150;

} // namespace

std::array<SamplingPreset, 4> samplingPresets(bool glow) {
    const auto preset = [](const char* caption, const char* samples) {
        return SamplingPreset{.caption = QString::fromLatin1(caption), .samplesPerPoint = QString::fromLatin1(samples)};
    };
    if (glow) {
        return {preset("5", "25"), preset("3", "55"), preset("2", "90"), preset("1", "200")};
    }
    return {preset("2", "10"), preset("1", "30"), preset("1/2", "100"), preset("1/4", "210")};
}

SettingsReader::SettingsReader(const Parts& parts)
    : p_(parts) {}

void SettingsReader::getprefs() {
    p_.ports.debugsay(QStringLiteral("Get Prefs"));
    p_.manual.hide();
    SessionState& state = p_.session.state;
    // The count is never set back, neither by a report nor by a reset: the time-out comes once in a program run, at
    // its 150th report line, whichever retrieval that line belongs to.
    if (state.Timeout == std::numeric_limits<qint16>::max()) {
        throw RuntimeError(RuntimeError::Kind::Overflow);
    }
    ++state.Timeout;
    if (state.Timeout == giveUpAtCall) {
        giveUp();
        return;
    }
    p_.session.status.status = QStringLiteral("Loading Properties");
    if (prefsState == 0) {
        p_.progress.value = 0;
        p_.progress.maximum = 100;
        p_.settings.lamp = Lamp::Reading;
    }
    p_.progress.valueLabel = QString::number(p_.progress.value);

    const QString& line = state.Rtn;
    QString value;
    if (line.startsWith(QLatin1String("MP"))) {
        prefsState = memoryPointerCode;
        takeMemoryPointer(leadingNumber(QStringView(line).mid(2)));
        return;
    }
    const auto* tagged = std::find_if(std::begin(reportFields), std::end(reportFields),
                                      [&line](const auto& field) { return line.startsWith(QChar(field.tag)); });
    if (tagged != std::end(reportFields)) {
        prefsState = tagged->code;
        value = plainNumber(leadingNumber(QStringView(line).mid(1)));
    }
    // A line without a tag falls to the field before it, with an empty value, which counts as 0.
    const auto* field = std::find_if(std::begin(reportFields), std::end(reportFields),
                                     [this](const auto& candidate) { return prefsState == candidate.code; });
    if (field == std::end(reportFields)) {
        return;
    }
    if (field->flag != nullptr) {
        const double number = leadingNumber(value);
        if (number == 1.0 || number == 0.0) {
            p_.settings.record.*(field->flag) = number == 1.0;
        }
    } else {
        p_.settings.record.*(field->number) = value;
    }
    p_.progress.value = field->progress;
}

void SettingsReader::takeMemoryPointer(double value) {
    SettingsState& settings = p_.settings;
    settings.memoryPointer = plainNumber(value);
    // The divisor is 65525, not the 65535 shown as the maximum elsewhere: the last ten places are never written, so a
    // full memory may read slightly over 100.
    settings.capacity = plainNumber(std::floor((value / 65525.0 + 0.0005) * 1000.0) / 10.0);
    selectSamplingOption();

    SessionState& state = p_.session.state;
    const bool resettingShutter = state.Ctrlscrn == Operation::ShutterReset;
    if (!resettingShutter) {
        state.Ctrlscrn = Operation::SettingsOpen;
    }
    settings.lamp = Lamp::Read;
    p_.progress.value = 0;
    p_.progress.valueLabel = QStringLiteral("0");
    p_.progress.visible = false;
    prefsState = 0;
    CommandState& commands = p_.session.commands;
    commands.settingsFormEnabled = true;
    commands.processingMenuVisible = true;
    commands.settingsMenuVisible = true;
    commands.runVisible = true;
    settings.visible = true;
    if (!resettingShutter) {
        p_.ports.write("C");
        state.Ctrlscrn = Operation::ClockCheck;
    }
    p_.session.status.status = QStringLiteral("Ready");
}

void SettingsReader::selectSamplingOption() {
    const QString samples = p_.settings.record.samplesPerPoint;
    int selected = 0;
    const auto select = [&selected, &samples](bool glow) {
        const auto presets = samplingPresets(glow);
        for (int option = 0; option < 4; ++option) {
            if (presets.at(static_cast<std::size_t>(option)).samplesPerPoint == samples) {
                selected = option + 1;
            }
        }
    };
    select(false);
    if (p_.session.state.type() == InstrumentType::Glow) {
        select(true);
    }
    p_.settings.samplingOption = selected;
}

void SettingsReader::giveUp() {
    p_.progress.visible = false;
    p_.manual.show();
    const int port = p_.items.checkedPort();
    if (port != 0) {
        p_.session.state.Portused = static_cast<quint8>(port);
    }
    p_.actions.fixit();
}

ClockDisplay::ClockDisplay(Session& session, ComPorts& ports, DebugState& debug, SettingsState& settings)
    : session_(session)
    , ports_(ports)
    , debug_(debug)
    , settings_(settings) {}

void ClockDisplay::checktime() {
    ports_.debugsay(QStringLiteral("Check Orv Sensor Time"));
    const QString reply = session_.state.Rtn;
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
        session_.messages.show(
            operatorWarning(QStringLiteral("Unable to read clock. Error #2"), QStringLiteral("Software Error")));
    }
}

void ClockDisplay::show(const QString& dateText, const QString& timeText) {
    const auto date = instrumentDate(dateText);
    if (!date) {
        throw RuntimeError(RuntimeError::Kind::TypeMismatch);
    }
    const QString time = timeOfDay(wholeNumberText(timeText)).text12();
    session_.status.date = shortDate(*date);
    settings_.loggerDate = shortDate(*date);
    session_.status.time = time;
    settings_.loggerTime = time;
    session_.state.Ctrlscrn = Operation::SettingsOpen;
}

} // namespace orv
