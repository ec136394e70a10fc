// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/programlog.h"

namespace orv {

QString ProgramLog::open(const QString& path) {
    file_.setFileName(path);
    return file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered) ? QString()
                                                                                          : file_.errorString();
}

QString ProgramLog::write(const QByteArray& block) {
    if (!file_.isOpen()) {
        return {};
    }
    const QByteArray line = block + "\r\n";
    if (file_.write(line) == line.size()) {
        failureTold_ = false;
        return {};
    }
    QString reason = failureTold_ ? QString() : file_.errorString();
    failureTold_ = true;
    return reason;
}

} // namespace orv
