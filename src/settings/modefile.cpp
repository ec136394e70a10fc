// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/modefile.h"

#include "session/numbertext.h"

#include <QStringList>

namespace orv {

namespace {

struct TextField {
    QString Mode::*value;
    QProperty<QString> LoggerSettings::*control;
};

struct FlagField {
    bool Mode::*value;
    QProperty<bool> LoggerSettings::*control;
};

// In the order of the file's lines, texts first.
constexpr TextField textFields[] = {
    {&Mode::samplesPerPoint, &LoggerSettings::samplesPerPoint},
    {&Mode::hoursBeforeBlock, &LoggerSettings::hoursBeforeBlock},
    {&Mode::pointsPerBlock, &LoggerSettings::pointsPerBlock},
    {&Mode::secondsBetweenPoints, &LoggerSettings::secondsBetweenPoints},
};
constexpr FlagField flagFields[] = {
    {&Mode::logEnabled, &LoggerSettings::logEnabled}, {&Mode::wakeUp, &LoggerSettings::wakeUp},
    {&Mode::auxAdc, &LoggerSettings::auxAdc},         {&Mode::gain, &LoggerSettings::gain},
    {&Mode::append, &LoggerSettings::append},         {&Mode::autoStart, &LoggerSettings::autoStart},
};
constexpr qsizetype lineCount = std::size(textFields) + std::size(flagFields);

} // namespace

Mode Mode::of(const LoggerSettings& record) {
    Mode mode;
    for (const auto& [value, control] : textFields) {
        mode.*value = record.*control;
    }
    for (const auto& [value, control] : flagFields) {
        mode.*value = record.*control;
    }
    return mode;
}

void Mode::putInto(LoggerSettings& record) const {
    for (const auto& [value, control] : textFields) {
        record.*control = this->*value;
    }
    for (const auto& [value, control] : flagFields) {
        record.*control = this->*value;
    }
}

QByteArray modeFileContent(const Mode& mode) {
    QString content;
    for (const auto& field : textFields) {
        content += mode.*field.value + QLatin1String("\r\n");
    }
    for (const auto& field : flagFields) {
        content += printedNumber(mode.*field.value ? 1.0 : 0.0) + QLatin1String("\r\n");
    }
    return content.toLatin1();
}

std::optional<Mode> readModeFile(const QByteArray& content) {
    QStringList lines = QString::fromLatin1(content).split(QLatin1Char('\n'));
    if (lines.last().isEmpty()) {
        lines.removeLast(); // what follows the last line end is no line
    }
    if (lines.size() < lineCount) {
        return std::nullopt;
    }
    Mode mode;
    auto line = lines.cbegin();
    for (const auto& field : textFields) {
        mode.*field.value = (line++)->trimmed();
    }
    for (const auto& field : flagFields) {
        mode.*field.value = leadingNumber(*line++) != 0.0;
    }
    return mode;
}

} // namespace orv
