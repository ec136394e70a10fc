// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/portlist.h"
#include "session/clock.h"

#include <QDateTime>

#include <optional>

namespace orv {

/// The list that the system keeps.
class SystemPortList final : public PortList {
public:
    /// `deviceFolder` is where the system makes and removes the files of its devices; empty where there is none.
    SystemPortList(const Clock& clock, QString deviceFolder);

    /// The folder of this system.
    static QString systemDeviceFolder();

    std::vector<ListedPort> ports() override;
    bool mayHaveChanged() override;

private:
    const Clock& clock_;
    QString deviceFolder_;
    std::optional<QDateTime> folderChanged_; ///< As seen last.
    qint64 seenAt_ = 0;                      ///< When that change was seen, in monotonic milliseconds.
};

} // namespace orv
