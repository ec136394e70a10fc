// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/textfile.h"

#include <QFileInfo>
#include <QSaveFile>

namespace orv {

QString writeWholeFile(const QString& name, const QByteArray& bytes) {
    QSaveFile file(name);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit()) {
        return {};
    }
    return file.errorString();
}

Message fileNotSaved(const QString& title, const QString& name, const QString& reason) {
    return {.title = title,
            .text = QStringLiteral("%1 could not be saved: %2.\n\nA file that was there before is unchanged. Choose "
                                   "another folder or make room on the disk, then save again.")
                        .arg(QFileInfo(name).absoluteFilePath(), reason),
            .icon = Message::Icon::Exclamation};
}

} // namespace orv
