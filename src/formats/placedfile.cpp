// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/placedfile.h"

#include "base/files.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <filesystem>
#include <utility>

namespace orv {

Words cannotBeWritten(const QString& name, OutputFile::Existing existing) {
    const QFileInfo info(name);
    if (info.exists() && !info.isFile()) {
        return Words::tr("it is a folder or a device, not a file");
    }
    return info.exists() && existing == OutputFile::Existing::Refuse ? Words::tr("a file of that name is there already")
                                                                     : Words();
}

PlacedFile::PlacedFile(OutputFile file)
    : file_(std::move(file))
    , path_(QStringLiteral("%1.%2.part").arg(file_.name, QString::number(QRandomGenerator::global()->generate(), 16))) {
}

PlacedFile::~PlacedFile() {
    QFile::remove(path_);
}

Words PlacedFile::check() const {
    return cannotBeWritten(file_.name, file_.existing);
}

Words PlacedFile::place(QString* keptAs) {
    QFile written(path_);
    if (!written.open(QIODevice::ReadWrite)) {
        return errorText(written);
    }
    Words reason = syncToDisk(written.handle());
    written.close();
    reason = reason.isEmpty() ? check() : reason;
    if (reason.isEmpty() && file_.existing == OutputFile::Existing::KeepDated) {
        reason = keepUnderDatedName(file_.name, file_.now, keptAs);
    }
    if (!reason.isEmpty()) {
        return reason;
    }
    if (file_.existing == OutputFile::Existing::Replace) {
        std::error_code error;
        std::filesystem::rename(QFileInfo(path_).filesystemFilePath(), QFileInfo(file_.name).filesystemFilePath(),
                                error);
        if (error) {
            return systemErrorText(error.value());
        }
    } else if (!written.rename(file_.name)) { // never over a file that has come since
        return errorText(written);
    }
    syncFolderOf(file_.name);
    return {};
}

} // namespace orv
