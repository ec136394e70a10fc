// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/fileappend.h"

namespace orv {

QString appendWhole(QFile& file, const QByteArray& bytes) {
    const qint64 before = file.size();
    qint64 written = 0;
    // A full disk first takes a part and tells of its trouble only at the rest.
    while (written < bytes.size()) {
        const qint64 part = file.write(bytes.sliced(written));
        if (part <= 0) {
            break;
        }
        written += part;
    }
    if (written == bytes.size()) {
        return {};
    }
    QString reason = file.errorString();
    file.resize(before);
    file.seek(before);
    return reason;
}

} // namespace orv
