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
        const QString problem = isSimulatedDevice(choice.device) ? QString() : openObstacle(choice.device).english();
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
    for (const Setting& setting : allSettings) {
        const QJsonValue value = !settings.reader.understood[placeOf(setting)] ? QJsonValue()
                                 : setting.flag != nullptr                     ? QJsonValue(record.*setting.flag)
                                                           : QJsonValue(leadingNumber(record.*setting.number));
        object.insert(QLatin1String(setting.name), value);
    }
    return object;
}

void requireAllSettings(const Settings& settings, const QString& file) {
    if (!settings.reader.understood.all()) {
        const QString unwritten = file.isEmpty() ? QString() : QStringLiteral(" %1 was not written.").arg(file);
        throw Failure(QStringLiteral("The settings could not be read whole.%1 Try again.").arg(unwritten),
                      ExitStatus::Incomplete);
    }
}

void printSettings(Terminal& terminal, const Settings& settings) {
    const LoggerSettings& record = settings.shown.record.value();
    for (const Setting& setting : allSettings) {
        const QString value = !settings.reader.understood[placeOf(setting)] ? QStringLiteral("not read")
                              : setting.flag == nullptr                     ? record.*setting.number
                              : record.*setting.flag                        ? QStringLiteral("true")
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

void requireClock(const Visit& visit) {
    if (!visit.clockOffset()) {
        throw Failure(QStringLiteral("The instrument's clock could not be read. Try again."), ExitStatus::Incomplete);
    }
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
    const Settings& settings = visit.program.settings;
    const SettingsState& shown = settings.shown;
    const QString type = instrumentName(status.instrument);
    // Sentences cannot leave out what was not read.
    const QString sentences = settings.reader.understood.all() ? inSentences(shown.record) : QString();
    const bool hasMemory = settings.reader.memoryUnderstood;
    if (visit.options.json) {
        const auto orNull = [](bool isRead, const QJsonValue& value) { return isRead ? value : QJsonValue(); };
        QJsonObject object{{QStringLiteral("port"), visit.options.port},
                           {QStringLiteral("type"), type},
                           {QStringLiteral("firmware"), visit.program.link.session.state.firmware},
                           {QStringLiteral("settings"), settingsObject(settings)},
                           {QStringLiteral("plainEnglish"), orNull(!sentences.isEmpty(), sentences)},
                           {QStringLiteral("records"), orNull(hasMemory, leadingNumber(shown.memoryPointer.value()))},
                           {QStringLiteral("memoryPercent"), orNull(hasMemory, leadingNumber(shown.capacity.value()))}};
        addClock(visit, object);
        visit.terminal.print(object);
    } else {
        Terminal& terminal = visit.terminal;
        terminal.print(QStringLiteral("%1, firmware %2").arg(type, status.firmware.value()));
        terminal.print(QStringLiteral("Clock: %1").arg(clockInWords(visit)));
        terminal.print(hasMemory ? QStringLiteral("Memory: %1 records, %2 % full")
                                       .arg(shown.memoryPointer.value(), shown.capacity.value())
                                 : QStringLiteral("Memory: could not be read"));
        terminal.print(QStringLiteral("Settings:"));
        printSettings(terminal, settings);
        if (!sentences.isEmpty()) {
            terminal.print(sentences);
        }
    }
    requireAllSettings(settings);
    if (!hasMemory) {
        throw Failure(QStringLiteral("The number of records in the memory could not be read. Try again."),
                      ExitStatus::Incomplete);
    }
    requireClock(visit);
}

} // namespace orv
