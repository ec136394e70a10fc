// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/captureformat.h"

#include "base/files.h"
#include "base/words.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace orv {

namespace {

constexpr int formVersion = 1;

/// No line that the program writes comes near.
constexpr qsizetype longestLine = qsizetype{1024} * 1024;

/// The names in the order of the kinds.
constexpr std::array<const char*, static_cast<std::size_t>(CaptureKind::Other)> kindNames = {
    "open",        "notOpened", "closed", "dtr",     "sent",  "received", "discarded", "failed", "waits",
    "nothingCame", "did",       "told",   "said",    "asked", "answered", "status",    "notice", "instrument",
    "settings",    "sheet",     "late",   "cleared", "saved", "dropped",  "state"};

const char* nameOf(CaptureKind kind) {
    return kindNames.at(static_cast<std::size_t>(kind));
}

bool isOfBytes(CaptureKind kind) {
    return kind == CaptureKind::Sent || kind == CaptureKind::Received || kind == CaptureKind::Discarded;
}

void appendByte(QByteArray& line, char character) {
    constexpr uchar firstPrintable = 0x20;
    constexpr uchar lastPrintable = 0x7e;
    constexpr char digits[] = "0123456789abcdef";
    const auto code = static_cast<uchar>(character);
    switch (character) {
    case '\r':
        line += "\\r";
        return;
    case '\n':
        line += "\\n";
        return;
    case '\t':
        line += "\\t";
        return;
    case '"':
    case '\\':
        line += '\\';
        break;
    default:
        if (code < firstPrintable || code > lastPrintable) {
            line += "\\u00";
            line += digits[code >> 4U];
            line += digits[code & 0xfU];
            return;
        }
    }
    line += character;
}

QByteArray beginningOfLine(qint64 milliseconds) {
    return R"({"ms":)" + QByteArray::number(milliseconds);
}

/// The bytes that a text stands for; nothing if a character is none.
bool takeBytes(const QString& text, QByteArray& bytes) {
    constexpr char16_t lastByte = 0xff;
    if (std::ranges::any_of(text, [](QChar character) { return character.unicode() > lastByte; })) {
        return false;
    }
    bytes = text.toLatin1();
    return true;
}

/// Returns what is wrong with the header, in a sentence.
Words takeHeader(const QByteArray& line, CaptureContents& contents) {
    contents.header = QJsonDocument::fromJson(line).object();
    const QJsonValue version = contents.header.value(QLatin1String("capture"));
    if (!version.isDouble()) {
        return Words::tr("It is no capture: its first line does not say so.");
    }
    if (version.toDouble() > formVersion) {
        return Words::tr("It was made by a newer version of the program (%1). Read it with that version.")
            .arg(contents.header.value(QLatin1String("program")).toString(QStringLiteral("not named")));
    }
    contents.began = QDateTime::fromString(contents.header.value(QLatin1String("began")).toString(), Qt::ISODateWithMs);
    return contents.began.isValid() ? Words() : Words::tr("Its first line does not say when it began.");
}

/// Returns what is wrong with the line, to stand in a sentence.
Words takeEntry(const QByteArray& line, CaptureContents& contents) {
    QJsonParseError problem{};
    const QJsonDocument document = QJsonDocument::fromJson(line, &problem);
    if (problem.error != QJsonParseError::NoError || !document.isObject()) {
        return Words::tr("is no JSON object");
    }
    const QJsonObject object = document.object();
    if (object.contains(QLatin1String("capture"))) {
        return {};
    }
    constexpr double latest = 1e15;
    const double milliseconds = object.value(QLatin1String("ms")).toDouble(-1.0);
    const qint64 before = contents.entries.empty() ? 0 : contents.entries.back().milliseconds;
    if (milliseconds < 0.0 || milliseconds > latest) {
        return Words::tr("does not say its time");
    }
    CaptureEntry entry;
    entry.milliseconds = std::max(std::llround(milliseconds), before);
    for (std::size_t kind = 0; kind < kindNames.size(); ++kind) {
        const auto found = object.constFind(QLatin1String(kindNames.at(kind)));
        if (found != object.constEnd()) {
            entry.kind = static_cast<CaptureKind>(kind);
            entry.value = found.value();
            break;
        }
    }
    if (isOfBytes(entry.kind)) {
        if (!entry.value.isString() || !takeBytes(entry.value.toString(), entry.bytes)) {
            return Words::tr("has characters that are no bytes");
        }
        entry.value = QJsonValue();
    }
    if (entry.kind != CaptureKind::Other) {
        contents.entries.push_back(std::move(entry));
    }
    return {};
}

CaptureContents failed(const Words& reason) {
    CaptureContents contents;
    contents.error = reason;
    return contents;
}

} // namespace

QByteArray captureHeader(const QDateTime& began, QJsonObject facts) {
    facts.insert(QStringLiteral("began"), began.toOffsetFromUtc(began.offsetFromUtc()).toString(Qt::ISODateWithMs));
    // The version comes first, whatever the facts are called.
    QByteArray line = QJsonDocument(facts).toJson(QJsonDocument::Compact);
    line.replace(0, 1, R"({"capture":)" + QByteArray::number(formVersion) + ',');
    return line + '\n';
}

QByteArray captureLine(qint64 milliseconds, CaptureKind kind, QByteArrayView bytes) {
    QByteArray line = beginningOfLine(milliseconds);
    constexpr qsizetype rest = 24;
    line.reserve(line.size() + bytes.size() + rest);
    line += ",\"";
    line += nameOf(kind);
    line += "\":\"";
    for (const char character : bytes) {
        appendByte(line, character);
    }
    line += "\"}\n";
    return line;
}

QByteArray captureLine(qint64 milliseconds, CaptureKind kind, const QJsonValue& value) {
    const QJsonObject object{{QLatin1String(nameOf(kind)), value}};
    return beginningOfLine(milliseconds) + ',' + QJsonDocument(object).toJson(QJsonDocument::Compact).sliced(1) + '\n';
}

CaptureContents readCapture(QByteArrayView bytes) {
    if (bytes.isEmpty()) {
        return failed(Words::tr("It is empty."));
    }
    CaptureContents contents;
    qsizetype number = 0;
    for (qsizetype at = 0; at < bytes.size();) {
        ++number;
        const qsizetype lineFeed = bytes.indexOf('\n', at);
        const bool isLast = lineFeed < 0;
        const qsizetype end = isLast ? bytes.size() : lineFeed;
        if (end - at > longestLine) {
            return failed(number == 1 ? Words::tr("It is no capture: its first line does not end.")
                                      : Words::tr("Its line %1 is longer than any of a capture.").arg(number));
        }
        const QByteArray line = bytes.sliced(at, end - at).toByteArray();
        at = end + 1;
        if (number == 1) {
            const Words problem = takeHeader(line, contents);
            if (!problem.isEmpty()) {
                return failed(problem);
            }
            continue;
        }
        const Words problem = line.trimmed().isEmpty() ? Words() : takeEntry(line, contents);
        if (!problem.isEmpty() && !isLast) {
            return failed(Words::tr("Its line %1 %2.").arg(QString::number(number), problem));
        }
        contents.isCutOff = contents.isCutOff || !problem.isEmpty();
    }
    return contents;
}

CaptureContents readCaptureFile(const QString& name) {
    const auto refused = [&name](const Words& reason) {
        return failed(Words::tr("The capture %1 cannot be read. %2").arg(QFileInfo(name).fileName(), reason));
    };
    const QFileInfo info(name);
    if (info.exists() && !info.isFile()) {
        return refused(Words::tr("It is no file.")); // a device or a pipe perhaps has no end
    }
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        return refused(Words::tr("The system says: %1.").arg(errorText(file)));
    }
    if (file.size() > largestCapture) {
        return refused(Words::tr("It is larger than any capture (64 MB)."));
    }
    CaptureContents contents = readCapture(file.readAll());
    return contents.error.isEmpty() ? contents : refused(contents.error);
}

} // namespace orv
