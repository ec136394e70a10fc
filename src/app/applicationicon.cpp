// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/applicationicon.h"

namespace orv {

QIcon applicationIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 64}) {
        icon.addFile(QStringLiteral(":/icon/orvhost-%1.png").arg(size), QSize(size, size));
    }
    return icon;
}

} // namespace orv
