// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/openfailure.h"

namespace orv {

QString explainOpenFailure(const OpenFailureFacts& facts) {
    if (!facts.exists) {
        return QStringLiteral(
            "There is no such device. Plug the adapter in, check the device's name, and connect again.");
    }
    if (!facts.isSerialDevice) {
        return QStringLiteral("It is not a serial port. Choose the device of the serial adapter and connect again.");
    }
    if (!facts.accessible) {
        const QString group = facts.group.isEmpty() ? QStringLiteral("dialout") : facts.group;
        return QStringLiteral("You have no permission to use it. Ask for your user to be added to the group \"%1\" "
                              "(sudo usermod -aG %1 $USER), log out and in again, then connect again.")
            .arg(group);
    }
    if (facts.busy) {
        const QString holder = facts.lockedBy.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(facts.lockedBy);
        return QStringLiteral("It is used by another program%1. Close that program, then connect again.").arg(holder);
    }
    if (!facts.lockFolderWritable) {
        return QStringLiteral("The lock file that keeps other programs off the port cannot be written in %1. Ask for "
                              "write permission to that folder, log out and in again, then connect again.")
            .arg(facts.lockFolder);
    }
    return QStringLiteral("The system says: %1. Unplug the adapter and plug it in again, then connect again.")
        .arg(facts.systemText);
}

} // namespace orv
