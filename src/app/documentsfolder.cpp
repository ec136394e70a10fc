// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/documentsfolder.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace orv {

namespace {

/// Asked by making a file: permissions alone do not tell of a read-only file system, or of a list of rights on Windows.
bool canHoldFiles(const QString& folder) {
    QTemporaryFile probe(QDir(folder).filePath(QStringLiteral(".orvhost-XXXXXX")));
    return probe.open();
}

} // namespace

QString enterDocumentsFolder() {
    return enterFirstWritable({QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation), QDir::homePath()});
}

QString enterFirstWritable(const QStringList& folders) {
    for (const QString& folder : folders) {
        if (!folder.isEmpty() && QDir().mkpath(folder) && canHoldFiles(folder) && QDir::setCurrent(folder)) {
            return QDir::currentPath();
        }
    }
    return {};
}

} // namespace orv
