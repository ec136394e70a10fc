// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/modes.h"

#include "base/files.h"
#include "base/text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace orv {

namespace {

std::vector<const Setting*> linesOfFile() {
    return settingsInOrder("TDQILWAGMS");
}

/// Whether the text can be typed into a box of so many digits.
bool fitsBox(const QString& text, int digits) {
    return text.size() <= digits &&
           std::ranges::all_of(text, [](QChar character) { return character >= u'0' && character <= u'9'; });
}

QString usualSamples(InstrumentType type, const QString& otherwise) {
    return type == InstrumentType::Glow  ? QStringLiteral("200")
           : type == InstrumentType::Trx ? QStringLiteral("30")
                                         : otherwise;
}

QString modeSuffix() {
    return QStringLiteral(".OCM");
}

} // namespace

LoggerSettings profileMode(InstrumentType type, const QString& samples) {
    const QString none = QStringLiteral("0");
    return {.autoStart = true,
            .wakeUp = true,
            .samplesPerPoint = usualSamples(type, samples),
            .hoursBeforeBlock = none,
            .pointsPerBlock = none,
            .secondsBetweenPoints = none};
}

LoggerSettings mooredMode(InstrumentType type, const QString& samples) {
    return {.autoStart = true,
            .logEnabled = true,
            .wakeUp = true,
            .append = true,
            .samplesPerPoint = usualSamples(type, samples),
            .hoursBeforeBlock = QStringLiteral("0"),
            .pointsPerBlock = QStringLiteral("60000"),
            .secondsBetweenPoints = QStringLiteral("3600")};
}

QByteArray modeFileContent(const LoggerSettings& mode) {
    QString content;
    for (const Setting* setting : linesOfFile()) {
        content += setting->flag == nullptr ? mode.*setting->number : printedNumber(mode.*setting->flag ? 1.0 : 0.0);
        content += QLatin1String("\r\n");
    }
    return content.toLatin1();
}

ReadMode readModeFile(const QByteArray& content) {
    const QStringList lines = QString::fromLatin1(content).split(u'\n');
    const auto settings = linesOfFile();
    // What follows the last line end is no line.
    if (lines.size() - (lines.last().isEmpty() ? 1 : 0) < static_cast<qsizetype>(settings.size())) {
        return {.error = Words::tr("is not a complete mode file: it has fewer than ten lines")};
    }
    ReadMode read;
    qsizetype line = 0;
    for (const Setting* setting : settings) {
        const QString text = lines.at(line).trimmed();
        ++line;
        if (setting->flag == nullptr) {
            if (!fitsBox(text, setting->digits)) {
                return {.error = Words::tr("is not a mode file: line %1 must be empty or hold at most %2 digits")
                                     .arg(line)
                                     .arg(setting->digits)};
            }
            read.mode.*setting->number = text;
        } else {
            bool isNumber = false;
            const double number = text.toDouble(&isNumber);
            if (!isNumber || !std::isfinite(number)) {
                return {.error = Words::tr("is not a mode file: line %1 must hold a number").arg(line)};
            }
            read.mode.*setting->flag = number != 0.0;
        }
    }
    return read;
}

Modes::Modes(Link& link, SettingsState& settings, SettingsSender& sender)
    : link_(link)
    , settings_(settings)
    , sender_(sender) {}

void Modes::profile() {
    // This mode goes by the label that the operator sees, the other by the letter of the identification: they differ
    // while a connection is being made and after it was closed.
    use(profileMode(link_.session.status.instrument, settings_.record.value().samplesPerPoint), Words::tr("Profile"));
}

void Modes::moored() {
    use(mooredMode(link_.session.state.type(), settings_.record.value().samplesPerPoint), Words::tr("Moored"));
}

void Modes::use(const LoggerSettings& mode, const Words& name) {
    if (!wouldDisturb()) {
        settings_.record = mode;
        sendIfConnected(name);
    }
}

void Modes::saveMode() {
    link_.procedures.startBeside(Words::tr("Save A User Defined Mode"), [this] { return askAndSave(); });
}

Task<> Modes::askAndSave() {
    const QByteArray content = modeFileContent(settings_.record);
    const Question question =
        saveQuestion(Words::tr("Save A User Defined Mode"), QString(), modeSuffix(), u'*' + modeSuffix());
    const QString name = co_await link_.waits.answer(question);
    if (name.isEmpty()) {
        co_return;
    }
    const QString shown = QFileInfo(name).fileName();
    settings_.modeRemark = writeWholeFile(name, content).isEmpty()
                               ? Words::tr("Saved as %1.").arg(shown)
                               : Words::tr("%1 could not be written; nothing was saved.").arg(shown);
}

void Modes::loadMode() {
    if (!wouldDisturb()) {
        link_.procedures.startBeside(Words::tr("Load A User Defined Mode"), [this] { return askAndLoad(); });
    }
}

Task<> Modes::askAndLoad() {
    const Question question = openQuestion(Words::tr("Load A User Defined Mode"), modeSuffix(), u'*' + modeSuffix());
    QString name = co_await link_.waits.answer(question);
    if (name.isEmpty()) {
        co_return;
    }
    if (wouldDisturb()) { // a reset may have come before the answer
        settings_.modeRemark =
            Words::tr("%1 was not loaded: the instrument is busy. Try again.").arg(QFileInfo(name).fileName());
        co_return;
    }
    // Compared letter for letter: a name in lower case gets the suffix a second time.
    if (!name.endsWith(modeSuffix(), Qt::CaseSensitive)) {
        name += modeSuffix();
    }
    constexpr qint64 longestRead = 65536;
    QFile file(name);
    const QString shown = QDir::toNativeSeparators(name);
    if (!file.open(QIODevice::ReadOnly)) {
        refuse(Words::tr("The mode file %1 could not be opened: %2.").arg(shown, errorText(file)));
        co_return;
    }
    const QByteArray content = file.read(longestRead);
    if (file.error() != QFileDevice::NoError) {
        refuse(Words::tr("The mode file %1 could not be read: %2.").arg(shown, errorText(file)));
        co_return;
    }
    const ReadMode read = readModeFile(content);
    if (!read.error.isEmpty()) {
        refuse(Words(QStringLiteral("%1 %2.")).arg(shown, read.error));
        co_return;
    }
    settings_.record = read.mode;
    settings_.modeRemark = Words::tr("Loaded %1.").arg(QFileInfo(name).fileName());
    sendIfConnected(QFileInfo(name).fileName());
}

void Modes::sendIfConnected(const Words& name) {
    if (link_.ports.isOpen()) {
        link_.procedures.start(name, [this, name] { return send(name); });
    }
}

Task<> Modes::send(Words name) {
    settings_.sendingMode = true;
    const auto sent = qScopeGuard([this] { settings_.sendingMode = false; });
    settings_.modeRemark = Words::tr("Sending %1...").arg(name);
    auto cutShort = qScopeGuard(
        [this, &name] { settings_.modeRemark = Words::tr("%1 was not sent whole: the connection ended.").arg(name); });
    const SettingsSender::Outcome outcome = co_await sender_.send();
    cutShort.dismiss();
    settings_.modeRemark =
        outcome == SettingsSender::Outcome::Sent
            ? Words::tr("%1 was sent.").arg(name)
            : Words::tr("%1 was not sent whole: the instrument did not answer. Try again.").arg(name);
}

void Modes::refuse(const Words& text) {
    link_.session.messages.show(operatorWarning(text + Words::tr("\n\nNothing was changed and nothing was sent."),
                                                Words::tr("Load A User Defined Mode")));
}

} // namespace orv
