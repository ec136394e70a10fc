// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/debug.h"

#include "link/comports.h"

namespace orv {

void DebugList::append(const QString& entry) {
    const bool full = entries_.size() >= maximumEntries;
    if (full) {
        entries_.pop_front();
    }
    entries_.push_back(entry);
    appended.tell(full);
}

void DebugList::selectLast() {
    lastSelected.tell();
}

DirectSend::DirectSend(ComPorts& ports)
    : ports_(ports) {}

void DirectSend::send(const QString& text) {
    ports_.debugsay(QStringLiteral("Direct Enter"));
    ports_.write(text.toLatin1());
}

} // namespace orv
