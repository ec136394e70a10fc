// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProperty>
#include <QString>

namespace orv {

/// What the status page shows. Where two labels always read the same (the status on the status page and on the debug
/// screen, the buffer counts) they show one value.
struct StatusPanel {
    static QString unknownShort() { return QStringLiteral("________"); }
    static QString unknownLong() { return QStringLiteral("________________"); }

    QProperty<QString> status{QStringLiteral("Offline")};
    QProperty<QString> firmware{unknownShort()};   ///< The caption that is read as the firmware number.
    QProperty<QString> instrument{unknownShort()}; ///< "TRX" or "GLOW" once identified.
    QProperty<QString> date{unknownLong()};        ///< The instrument's date at the last clock reply.
    QProperty<QString> time{unknownLong()};        ///< The instrument's time at the last clock reply.
    QProperty<int> bufferCount{0};                 ///< Characters received and not yet consumed as a line.
    QProperty<QString> shutterProgress;            ///< `Text38`.
    QProperty<QString> shutterCountdown;           ///< Seconds left of the shutter's long wait; empty otherwise.
    QProperty<QString> downloadedBytes{QStringLiteral("0")}; ///< Size of the last whole download.
    QProperty<QString> notice; ///< A remark beside the status that needs no answer; empty most of the time.
};

} // namespace orv
