// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/directsend.h"

namespace orv {

DirectSend::DirectSend(ComPorts& ports)
    : ports_(ports) {}

void DirectSend::send(const QString& text) {
    ports_.debugsay(QStringLiteral("Direct Enter"));
    ports_.write(text.toLatin1());
}

} // namespace orv
