// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/answers.h"
#include "console/commands.h"

#include "base/text.h"
#include "link/systemport.h"
#include "settings/plainenglish.h"

namespace orv {

Task<> listPorts(Visit& visit) {
    PortChoices& choices = visit.program.link.portChoices;
    choices.refresh();
    for (const PortChoice& choice : choices.shown.list.value()) {
        const QString problem = isSimulatedDevice(choice.device) ? QString() : openObstacle(choice.device);
        if (visit.options.json) {
            visit.terminal.print(QJsonObject{{QStringLiteral("device"), choice.device},
                                             {QStringLiteral("description"), choice.description},
                                             {QStringLiteral("canOpen"), problem.isEmpty()},
                                             {QStringLiteral("problem"), problem}});
        } else {
            visit.terminal.print(QStringLiteral("%1  %2").arg(choice.device, -12).arg(choice.description).trimmed());
            if (!problem.isEmpty()) {
                visit.terminal.print(QStringLiteral("              ") + problem);
            }
        }
    }
    co_return;
}

QJsonObject settingsObject(const Settings& settings) {
    const LoggerSettings& record = settings.shown.record.value();
    QJsonObject object;
    for (std::size_t at = 0; at < allSettings.size(); ++at) {
        const Setting& setting = allSettings.at(at);
        const QJsonValue value = !settings.reader.understood[at] ? QJsonValue()
                                 : setting.flag != nullptr       ? QJsonValue(record.*setting.flag)
                                                                 : QJsonValue(leadingNumber(record.*setting.number));
        object.insert(QLatin1String(setting.name), value);
    }
    return object;
}

void requireAllSettings(const Settings& settings) {
    if (!settings.reader.understood.all()) {
        throw Failure(QStringLiteral("The settings could not be read whole. Try again."), ExitStatus::Incomplete);
    }
}

void printSettings(Terminal& terminal, const LoggerSettings& settings) {
    for (const Setting& setting : allSettings) {
        const QString value = setting.flag == nullptr  ? settings.*setting.number
                              : settings.*setting.flag ? QStringLiteral("true")
                                                       : QStringLiteral("false");
        terminal.print(QStringLiteral("  %1 %2").arg(QLatin1String(setting.name), -21).arg(value));
    }
}

QString clockInWords(const Visit& visit) {
    if (!visit.clockOffset()) {
        return QStringLiteral("could not be read");
    }
    const qint64 offset = *visit.clockOffset();
    const QString moment = visit.instrumentTime()->toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    if (offset == 0) {
        return moment + QStringLiteral(" (as this computer's)");
    }
    return QStringLiteral("%1 (%2 s %3 this computer's)")
        .arg(moment, QString::number(std::abs(offset)),
             offset < 0 ? QStringLiteral("behind") : QStringLiteral("ahead of"));
}

void addClock(const Visit& visit, QJsonObject& object) {
    const auto time = visit.instrumentTime();
    const bool isRead = time && visit.clockOffset();
    object.insert(QStringLiteral("clock"), isRead ? QJsonValue(time->toString(Qt::ISODate)) : QJsonValue());
    object.insert(QStringLiteral("clockOffset"), isRead ? QJsonValue(*visit.clockOffset()) : QJsonValue());
}

namespace {

QString inSentences(const LoggerSettings& settings) {
    QStringList sentences;
    for (const QString& line : inPlainEnglish(settings).lines) {
        if (!line.isEmpty()) {
            sentences << line.simplified();
        }
    }
    return sentences.join(u' ');
}

} // namespace

Task<> tellInfo(Visit& visit) {
    co_await visit.connect();
    const StatusState& status = visit.program.link.session.status;
    const SettingsState& settings = visit.program.settings.shown;
    const LoggerSettings& record = settings.record.value();
    const double records = leadingNumber(settings.memoryPointer.value());
    const QString type = instrumentName(status.instrument);
    if (visit.options.json) {
        QJsonObject object{{QStringLiteral("port"), visit.options.port},
                           {QStringLiteral("type"), type},
                           {QStringLiteral("firmware"), visit.program.link.session.state.firmware},
                           {QStringLiteral("settings"), settingsObject(visit.program.settings)},
                           {QStringLiteral("plainEnglish"), inSentences(record)},
                           {QStringLiteral("records"), records},
                           {QStringLiteral("memoryPercent"), leadingNumber(settings.capacity.value())}};
        addClock(visit, object);
        visit.terminal.print(object);
        requireAllSettings(visit.program.settings);
        co_return;
    }
    Terminal& terminal = visit.terminal;
    terminal.print(QStringLiteral("%1, firmware %2").arg(type, status.firmware.value()));
    terminal.print(QStringLiteral("Clock: %1").arg(clockInWords(visit)));
    terminal.print(
        QStringLiteral("Memory: %1 records, %2 % full").arg(plainNumber(records), settings.capacity.value()));
    terminal.print(QStringLiteral("Settings:"));
    printSettings(terminal, record);
    terminal.print(inSentences(record));
    requireAllSettings(visit.program.settings);
}

} // namespace orv
