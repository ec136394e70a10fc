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

std::vector<const Setting*> linesOfFile() {
    return settingsInOrder("TDQILWAGMS");
}

QString modeSuffix() {
    return QStringLiteral(".OCM");
}

} // namespace

QByteArray modeFileContent(const LoggerSettings& mode) {
    QString content;
    for (const Setting* setting : linesOfFile()) {
        content += setting->flag == nullptr ? mode.*setting->number : printedNumber(mode.*setting->flag ? 1.0 : 0.0);
        content += QLatin1String("\r\n");
    }
    return content.toLatin1();
}

std::optional<LoggerSettings> readModeFile(const QByteArray& content) {
    const QStringList lines = QString::fromLatin1(content).split(u'\n');
    const auto settings = linesOfFile();
    // What follows the last line end is no line.
    if (lines.size() - (lines.last().isEmpty() ? 1 : 0) < static_cast<qsizetype>(settings.size())) {
        return std::nullopt;
    }
    LoggerSettings mode;
    auto line = lines.cbegin();
    for (const Setting* setting : settings) {
        if (setting->flag == nullptr) {
            mode.*setting->number = line->trimmed();
        } else {
            mode.*setting->flag = leadingNumber(*line) != 0.0;
        }
        ++line;
    }
    return mode;
}

Modes::Modes(Link& link, SettingsState& settings, SettingsSender& sender, OperatorQuestions& questions)
    : link_(link)
    , settings_(settings)
    , sender_(sender)
    , questions_(questions) {}

void Modes::profile() {
    // This mode goes by the label that the operator sees, the other by the letter of the identification: they differ
    // while a connection is being made and after it was closed.
    const QString none = QStringLiteral("0");
    use({.autoStart = true,
         .wakeUp = true,
         .hoursBeforeBlock = none,
         .pointsPerBlock = none,
         .secondsBetweenPoints = none},
        link_.session.status.instrument);
}

void Modes::moored() {
    use({.autoStart = true,
         .logEnabled = true,
         .wakeUp = true,
         .append = true,
         .hoursBeforeBlock = QStringLiteral("0"),
         .pointsPerBlock = QStringLiteral("60000"),
         .secondsBetweenPoints = QStringLiteral("3600")},
        link_.session.state.type());
}

void Modes::use(LoggerSettings mode, InstrumentType type) {
    if (wouldDisturb()) {
        return;
    }
    mode.samplesPerPoint = type == InstrumentType::Glow  ? QStringLiteral("200")
                           : type == InstrumentType::Trx ? QStringLiteral("30")
                                                         : settings_.record.value().samplesPerPoint;
    settings_.record = mode;
    sendIfConnected();
}

void Modes::saveMode() {
    const QByteArray content = modeFileContent(settings_.record);
    const QString name = questions_.saveFileName(QStringLiteral("Save A User Defined Mode"), QString(), modeSuffix(),
                                                 u'*' + modeSuffix());
    if (name.isEmpty()) {
        return;
    }
    const QString shown = QFileInfo(name).fileName();
    settings_.modeRemark = writeWholeFile(name, content).isEmpty()
                               ? QStringLiteral("Saved as %1.").arg(shown)
                               : QStringLiteral("%1 could not be written; nothing was saved.").arg(shown);
}

void Modes::loadMode() {
    if (wouldDisturb()) {
        return;
    }
    QString name =
        questions_.openFileName(QStringLiteral("Load A User Defined Mode"), modeSuffix(), u'*' + modeSuffix());
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
    const std::optional<LoggerSettings> mode = readModeFile(content);
    if (!mode) {
        refuse(QStringLiteral("%1 is not a complete mode file: it has fewer than ten lines.").arg(shown));
        return;
    }
    settings_.record = *mode;
    settings_.modeRemark = QStringLiteral("Loaded %1.").arg(QFileInfo(name).fileName());
    sendIfConnected();
}

void Modes::sendIfConnected() {
    if (link_.ports.isOpen()) {
        settings_.computerDate = shortDate(link_.session.clock.now().date()); // it is what the clock is set to
        sender_.setprefs();
    }
}

void Modes::refuse(const QString& text) {
    link_.session.messages.show(operatorWarning(text + QStringLiteral("\n\nNothing was changed and nothing was sent."),
                                                QStringLiteral("Load A User Defined Mode")));
}

} // namespace orv
