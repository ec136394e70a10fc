// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/loggersettings.h"

#include "base/text.h"

#include <QStringList>

#include <algorithm>

namespace orv {

namespace {

using Record = LoggerSettings;

} // namespace

constinit const std::array<Setting, 10> allSettings{{
    {u'S', 9, &Record::autoStart, nullptr, "autoStart", "AutoStart", QT_TRANSLATE_NOOP("orv", "Auto &Start"),
     QT_TRANSLATE_NOOP("orv", "Auto Start: This tells the logger to start collecting data at power up."), 0},
    {u'G', 1, &Record::gain, nullptr, "gain", "Gain", QT_TRANSLATE_NOOP("orv", "&Gain"),
     QT_TRANSLATE_NOOP("orv", "Function not available"), 0},
    {u'A', 2, &Record::auxAdc, nullptr, "auxAdc", "AuxAdc", QT_TRANSLATE_NOOP("orv", "Aux A&DC"),
     QT_TRANSLATE_NOOP("orv", "Function not available"), 0},
    {u'L', 4, &Record::logEnabled, nullptr, "logEnabled", "LogEnabled", QT_TRANSLATE_NOOP("orv", "&Log Enabled"),
     QT_TRANSLATE_NOOP("orv", "Log Enabled: This tells the logger to record data in memory"), 0},
    {u'W', 3, &Record::wakeUp, nullptr, "wakeUp", "WakeUp", QT_TRANSLATE_NOOP("orv", "&Wake Up"),
     QT_TRANSLATE_NOOP(
         "orv",
         "Wake Up: This tells the logger to sleep after gathering a data block or stay ready to accept a command."),
     0},
    {u'M', 10, &Record::append, nullptr, "append", "Append", QT_TRANSLATE_NOOP("orv", "App&end"),
     QT_TRANSLATE_NOOP("orv", "Append: This tells the logger to add new data blocks to the end of memory. If this is "
                              "not set, all pervious data "
                              "blocks will be erased."),
     0},
    {u'T', 5, nullptr, &Record::samplesPerPoint, "samplesPerPoint", "Text2",
     QT_TRANSLATE_NOOP("orv", "Samples Per &Second"),
     QT_TRANSLATE_NOOP(
         "orv", "This tells the logger to grab X number of samples and average then to determine one data point."),
     3},
    {u'D', 6, nullptr, &Record::hoursBeforeBlock, "hoursBeforeBlock", "Text1",
     QT_TRANSLATE_NOOP("orv", "Delay &Before Data Blocks (hours)"),
     QT_TRANSLATE_NOOP(
         "orv",
         "This is the amount of time in hours that the logger will wait before collecting a data block. For example: A "
         "value of 24 is 1 data block per 24 hours."),
     3},
    {u'Q', 7, nullptr, &Record::pointsPerBlock, "pointsPerBlock", "Text4",
     QT_TRANSLATE_NOOP("orv", "&Number of Data Points per Data Block"), "", 5},
    {u'I', 8, nullptr, &Record::secondsBetweenPoints, "secondsBetweenPoints", "Text3",
     QT_TRANSLATE_NOOP("orv", "Delay Between Data &Points (Seconds)"), "", 5},
}};

Words Setting::plainCaption() const {
    const Words words = Words::tr(caption);
    return {words.english().remove(u'&'), QString(words.shown()).remove(u'&')};
}

std::vector<const Setting*> settingsInOrder(const char* letters) {
    std::vector<const Setting*> ordered;
    for (; *letters != 0; ++letters) {
        ordered.push_back(std::ranges::find(allSettings, QLatin1Char(*letters).unicode(), &Setting::letter));
    }
    return ordered;
}

QString asOptions(const LoggerSettings& settings) {
    QStringList options;
    for (const Setting& setting : allSettings) {
        const QString value = setting.flag == nullptr  ? settings.*setting.number
                              : settings.*setting.flag ? QStringLiteral("true")
                                                       : QStringLiteral("false");
        options << QStringLiteral("--set %1=%2")
                       .arg(QLatin1String(setting.name), value.isEmpty() ? QStringLiteral("0") : value);
    }
    return options.join(u' ');
}

SettingSet settingsThatDiffer(const LoggerSettings& one, const LoggerSettings& other) {
    SettingSet found;
    for (const Setting& setting : allSettings) {
        found.set(placeOf(setting), valueInWords(setting, one) != valueInWords(setting, other));
    }
    return found;
}

Words valueInWords(const Setting& setting, const LoggerSettings& settings) {
    if (setting.flag != nullptr) {
        return settings.*setting.flag ? Words::tr("on") : Words::tr("off");
    }
    return plainNumber(leadingNumber(settings.*setting.number));
}

Words differenceInWords(const Setting& setting, const LoggerSettings& there, const LoggerSettings& wanted) {
    return Words::tr("%1 is %2 there, not %3")
        .arg(setting.plainCaption(), valueInWords(setting, there), valueInWords(setting, wanted));
}

QList<Words> captionsOf(const SettingSet& settings) {
    QList<Words> captions;
    for (const Setting* setting : settingsInOrder("SMLWAGTDQI")) {
        if (settings.test(placeOf(*setting))) {
            captions << setting->plainCaption();
        }
    }
    return captions;
}

Words SettingsState::fullMinuteWait() const {
    const int seconds = secondsToFullMinute;
    return seconds == 0 ? Words() : Words::tr("Waiting for the full minute: %1 s.").arg(seconds);
}

std::array<SamplingPreset, 4> samplingPresets(bool glow) {
    const auto preset = [](const char* caption, const char* samples) {
        return SamplingPreset{.caption = QString::fromLatin1(caption), .samplesPerPoint = QString::fromLatin1(samples)};
    };
    if (glow) {
        return {preset("5", "25"), preset("3", "55"), preset("2", "90"), preset("1", "200")};
    }
    return {preset("2", "10"), preset("1", "30"), preset("1/2", "100"), preset("1/4", "210")};
}

} // namespace orv
