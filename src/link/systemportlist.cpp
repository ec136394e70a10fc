// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/systemportlist.h"

#include <QFileInfo>
#include <QSerialPortInfo>

namespace orv {

namespace {

/// How long after its file has come an adapter's description may follow, in milliseconds.
constexpr qint64 settlingTime = 10'000;

} // namespace

SystemPortList::SystemPortList(const Clock& clock, QString deviceFolder)
    : clock_(clock)
    , deviceFolder_(std::move(deviceFolder)) {}

QString SystemPortList::systemDeviceFolder() {
#ifdef Q_OS_LINUX
    return QStringLiteral("/dev");
#else
    return {};
#endif
}

std::vector<ListedPort> SystemPortList::ports() {
    std::vector<ListedPort> list;
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
        list.push_back(
            {.name = port.portName(), .description = port.description(), .manufacturer = port.manufacturer()});
    }
    return list;
}

bool SystemPortList::mayHaveChanged() {
    const QFileInfo folder(deviceFolder_);
    if (deviceFolder_.isEmpty() || !folder.exists()) {
        return true;
    }
    const QDateTime changed = folder.lastModified();
    const qint64 now = clock_.monotonicMilliseconds();
    if (folderChanged_ != changed) {
        folderChanged_ = changed;
        seenAt_ = now;
    }
    return now - seenAt_ < settlingTime;
}

} // namespace orv
