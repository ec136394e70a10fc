// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/modes.h"

#include "base/files.h"
#include "base/text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
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

namespace {

QString modeSuffix() {
    return QStringLiteral(".OCM");
}

QString modeFilter() {
    return QStringLiteral("*.OCM");
}

/// An instrument of unknown type leaves the samples as they were.
void setSamples(Mode& mode, InstrumentType type) {
    if (type != InstrumentType::Unknown) {
        mode.samplesPerPoint = type == InstrumentType::Glow ? QStringLiteral("200") : QStringLiteral("30");
    }
}

} // namespace

Modes::Modes(Session& session, const ComPorts& ports, SettingsState& settings, SettingsSender& sender,
             OperatorQuestions& questions)
    : session_(session)
    , ports_(ports)
    , settings_(settings)
    , sender_(sender)
    , questions_(questions) {}

void Modes::profile() {
    if (wouldDisturb()) {
        return;
    }
    Mode mode = Mode::of(settings_.record);
    mode.logEnabled = false;
    mode.wakeUp = true;
    mode.auxAdc = false;
    mode.gain = false;
    mode.append = false;
    mode.autoStart = true;
    mode.hoursBeforeBlock = QStringLiteral("0");
    mode.secondsBetweenPoints = QStringLiteral("0");
    mode.pointsPerBlock = QStringLiteral("0");
    // This mode goes by the label that the operator sees, the other by the letter of the identification: they differ
    // while a connection is being made and after it was closed.
    setSamples(mode, session_.status.instrument);
    mode.putInto(settings_.record);
    sendIfConnected();
}

void Modes::moored() {
    if (wouldDisturb()) {
        return;
    }
    Mode mode = Mode::of(settings_.record);
    mode.logEnabled = true;
    mode.wakeUp = true;
    mode.auxAdc = false;
    mode.gain = false;
    mode.append = true;
    mode.autoStart = true;
    mode.hoursBeforeBlock = QStringLiteral("0");
    mode.secondsBetweenPoints = QStringLiteral("3600");
    mode.pointsPerBlock = QStringLiteral("60000");
    setSamples(mode, session_.state.type());
    mode.putInto(settings_.record);
    sendIfConnected();
}

void Modes::saveMode() {
    const Mode mode = Mode::of(settings_.record);
    const QString name =
        questions_.saveFileName(QStringLiteral("Save A User Defined Mode"), QString(), modeSuffix(), modeFilter());
    if (name.isEmpty()) {
        return;
    }
    const QString shown = QFileInfo(name).fileName();
    settings_.modeRemark = writeWholeFile(name, modeFileContent(mode)).isEmpty()
                               ? QStringLiteral("Saved as %1.").arg(shown)
                               : QStringLiteral("%1 could not be written; nothing was saved.").arg(shown);
}

void Modes::loadMode() {
    if (wouldDisturb()) {
        return;
    }
    QString name = questions_.openFileName(QStringLiteral("Load A User Defined Mode"), modeSuffix(), modeFilter());
    // Ticks and a lost connection may have come before the answer.
    if (name.isEmpty() || wouldDisturb()) {
        return;
    }
    // Compared letter for letter: a name in lower case gets the suffix a second time.
    if (!name.endsWith(modeSuffix(), Qt::CaseSensitive)) {
        name += modeSuffix();
    }
    constexpr qint64 longestRead = 65536;
    QFile file(name);
    const QString shown = QDir::toNativeSeparators(name);
    if (!file.open(QIODevice::ReadOnly)) {
        refuse(QStringLiteral("The mode file %1 could not be opened: %2.").arg(shown, file.errorString()));
        return;
    }
    const QByteArray content = file.read(longestRead);
    if (file.error() != QFileDevice::NoError) {
        refuse(QStringLiteral("The mode file %1 could not be read: %2.").arg(shown, file.errorString()));
        return;
    }
    const std::optional<Mode> mode = readModeFile(content);
    if (!mode) {
        refuse(QStringLiteral("%1 is not a complete mode file: it has fewer than ten lines.").arg(shown));
        return;
    }
    mode->putInto(settings_.record);
    settings_.modeRemark = QStringLiteral("Loaded %1.").arg(QFileInfo(name).fileName());
    sendIfConnected();
}

void Modes::sendIfConnected() {
    if (ports_.isOpen()) {
        settings_.computerDate = shortDate(session_.clock.now().date()); // it is what the clock is set to
        sender_.setprefs();
    }
}

void Modes::refuse(const QString& text) {
    session_.messages.show(operatorWarning(text + QStringLiteral("\n\nNothing was changed and nothing was sent."),
                                           QStringLiteral("Load A User Defined Mode")));
}

} // namespace orv
