// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/modes.h"

#include "session/datetimetext.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace orv {

namespace {

QString modeSuffix() {
    return QStringLiteral(".OCM");
}

QString modeFilter() {
    return QStringLiteral("*.OCM");
}

QString glowSamples() {
    return QStringLiteral("200");
}

QString trxSamples() {
    return QStringLiteral("30");
}

bool writeWhole(const QString& name, const QByteArray& content) {
    QSaveFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit();
}

} // namespace

Modes::Modes(Session& session, const ComPorts& ports, SettingsPanel& settings, SettingsSender& sender,
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
    const QString type = session_.status.instrument;
    if (type == QLatin1String("GLOW")) {
        mode.samplesPerPoint = glowSamples();
    } else if (type == QLatin1String("TRX")) {
        mode.samplesPerPoint = trxSamples();
    }
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
    if (session_.state.isGlow()) {
        mode.samplesPerPoint = glowSamples();
    } else if (session_.state.isTrx()) {
        mode.samplesPerPoint = trxSamples();
    }
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
    settings_.modeRemark = writeWhole(name, modeFileContent(mode))
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
    session_.messages.show({.title = QStringLiteral("Load A User Defined Mode"),
                            .text = text + QStringLiteral("\n\nNothing was changed and nothing was sent."),
                            .icon = Message::Icon::Exclamation});
}

} // namespace orv
