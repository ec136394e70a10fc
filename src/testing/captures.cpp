// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/captures.h"

#include "base/text.h"

#include <QDir>
#include <QJsonDocument>

namespace orv {

namespace {

QDir folder() {
    return QDir(QStringLiteral(ORV_CAPTURES));
}

QString valueText(const QJsonValue& value) {
    return QString::fromUtf8(QJsonDocument(QJsonObject{{QStringLiteral("is"), value}}).toJson(QJsonDocument::Compact));
}

} // namespace

std::vector<std::string> capturesOf(const char* program) {
    std::vector<std::string> names;
    for (const QString& name : folder().entryList({QStringLiteral("*.jsonl")}, QDir::Files, QDir::Name)) {
        const QString made = readCaptureFile(folder().filePath(name)).header.value(QLatin1String("program")).toString();
        if (made.section(u' ', 0, 0) == QLatin1String(program)) {
            names.push_back(name.toStdString());
        }
    }
    return names;
}

CaptureContents capture(const std::string& name) {
    CaptureContents contents = readCaptureFile(folder().filePath(QString::fromStdString(name)));
    EXPECT_EQ(contents.error.toStdString(), "");
    EXPECT_FALSE(contents.isCutOff);
    EXPECT_FALSE(contents.entries.empty());
    return contents;
}

QStringList outcomeOf(const CaptureContents& contents) {
    QStringList outcome;
    QByteArray received;
    QByteArray sent;
    for (const CaptureEntry& entry : contents.entries) {
        switch (entry.kind) {
        case CaptureKind::Received:
            received += entry.bytes;
            break;
        case CaptureKind::Sent:
            sent += entry.bytes;
            break;
        case CaptureKind::Did:
        case CaptureKind::Discarded:
        case CaptureKind::Waits:
        case CaptureKind::NothingCame:
        case CaptureKind::Said:
        case CaptureKind::State:
            break;
        default:
            outcome << QString::number(static_cast<int>(entry.kind)) + u' ' + valueText(entry.value);
        }
    }
    return outcome << QStringLiteral("received ") + inVisibleCharacters(received)
                   << QStringLiteral("sent ") + inVisibleCharacters(sent);
}

} // namespace orv
