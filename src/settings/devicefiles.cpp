// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/devicefiles.h"

#include "base/files.h"
#include "base/words.h"

#include <QFile>
#include <QFileInfo>

namespace orv {

namespace {

/// The box of each line of the file.
std::array<QProperty<QString>*, 6> boxes(SettingsState& settings) {
    auto& [angle100, angle125, angle150] = settings.trxCalibration;
    return {&angle100.offset, &angle125.offset, &angle150.offset, &angle100.scale, &angle125.scale, &angle150.scale};
}

/// Takes one field and what ends it from the front of `text`.
QString takeField(QStringView& text) {
    const auto isEnd = [](QChar character) { return character == u',' || character == u'\r' || character == u'\n'; };
    qsizetype start = 0;
    while (start < text.size() && text[start] == u' ') {
        ++start;
    }
    QString field;
    qsizetype end = 0;
    const bool quoted = start < text.size() && text[start] == u'"';
    if (quoted) {
        const qsizetype quote = text.indexOf(u'"', start + 1);
        end = quote < 0 ? text.size() : quote;
        field = text.sliced(start + 1, end - start - 1).toString();
    }
    while (end < text.size() && !isEnd(text[end])) {
        ++end;
    }
    if (!quoted) {
        field = text.first(end).toString();
    }
    const bool windowsLineEnd = text.sliced(end).startsWith(QLatin1String("\r\n"));
    text = text.sliced(std::min(end + (windowsLineEnd ? 2 : 1), text.size()));
    return field;
}

} // namespace

QByteArray deviceFileBytes(const DeviceValues& values) {
    QByteArray bytes;
    for (const QString& value : values) {
        bytes += value.toUtf8() + "\r\n";
    }
    return bytes;
}

std::optional<DeviceValues> readDeviceFile(const QByteArray& bytes) {
    const QString text = QString::fromUtf8(bytes);
    QStringView rest(text);
    DeviceValues values;
    for (QString& value : values) {
        if (rest.isEmpty()) {
            return std::nullopt;
        }
        value = takeField(rest);
    }
    return values;
}

DeviceFiles::DeviceFiles(Link& link, SettingsState& settings)
    : link_(link)
    , settings_(settings) {}

void DeviceFiles::loadDeviceFile() {
    link_.procedures.startBeside(Words::tr("Load Device File"), [this] { return askAndLoad(); });
}

Task<> DeviceFiles::askAndLoad() {
    constexpr qint64 mostBytes = 65536; // six numbers need far less; a mistaken choice must not fill the memory
    const Question question = openQuestion(Words::tr("Load Device File"), suffix_, filter_);
    const QString name = co_await link_.waits.answer(question);
    QFile file(name);
    // Opening a pipe would wait for its writer.
    if (!QFileInfo(file.fileName()).isFile() || !file.open(QIODevice::ReadOnly)) {
        co_return;
    }
    const auto values = readDeviceFile(file.read(mostBytes));
    if (!values) {
        co_return;
    }
    const auto targets = boxes(settings_);
    for (std::size_t line = 0; line < targets.size(); ++line) {
        targets.at(line)->setValue(values->at(line));
    }
}

void DeviceFiles::saveDeviceFile() {
    link_.procedures.startBeside(Words::tr("Save Device File"), [this] { return askAndSave(); });
}

Task<> DeviceFiles::askAndSave() {
    DeviceValues values;
    const auto sources = boxes(settings_);
    for (std::size_t line = 0; line < sources.size(); ++line) {
        values.at(line) = sources.at(line)->value();
    }
    suffix_ = QStringLiteral(".ODV");
    filter_ = QStringLiteral("*.ODV");
    const Words title = Words::tr("Save Device File");
    const Question question = saveQuestion(title, QString(), suffix_, filter_);
    const QString name = co_await link_.waits.answer(question);
    if (name.isEmpty()) {
        co_return;
    }
    const Words reason = writeWholeFile(name, deviceFileBytes(values));
    if (!reason.isEmpty()) {
        link_.session.messages.show(fileNotSaved(title, name, reason));
    }
}

} // namespace orv
