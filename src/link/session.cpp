// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/session.h"

#include "base/text.h"

#include <cmath>

namespace orv {

InstrumentType instrumentType(const QString& letter) {
    if (letter.compare(QLatin1String("V"), Qt::CaseInsensitive) == 0) {
        return InstrumentType::Trx;
    }
    return letter.compare(QLatin1String("F"), Qt::CaseInsensitive) == 0 ? InstrumentType::Glow
                                                                        : InstrumentType::Unknown;
}

QString instrumentName(InstrumentType type) {
    switch (type) {
    case InstrumentType::Trx:
        return QStringLiteral("TRX");
    case InstrumentType::Glow:
        return QStringLiteral("GLOW");
    case InstrumentType::Unknown:
        break;
    }
    return StatusState::unknownShort();
}

void Session::setFirmware(const QString& text) {
    status.firmware = text;
    const double number = leadingNumber(text);
    state.firmware = std::isfinite(number) ? number : 0.0;
}

CommandState::CommandState() {
    canAsk.setBinding([this] { return !asking.value(); });
    canTypeSettings.setBinding([this] {
        const Activity now = activity.value();
        return now != Activity::Sending && now != Activity::SettingClock && now != Activity::ResettingShutter;
    });
    undisturbed.setBinding([this] { return activity.value() == Activity::None && canAsk.value(); });
    canCommand.setBinding([this] { return portOpen.value() && undisturbed.value(); });
    canRun.setBinding([this] { return runEnabled.value() && canCommand.value(); });
    // Rows that arrive must not find their sheet emptied or replaced under them.
    const auto sheetAtRest = [this] {
        return activity.value() != Activity::Collecting && activity.value() != Activity::Downloading && canAsk.value();
    };
    canClearAll.setBinding(
        [this, sheetAtRest] { return (clearAllEnabled.value() || sheetHoldsRows.value()) && sheetAtRest(); });
    canSaveAs.setBinding([this] { return (saveAsEnabled.value() || sheetHoldsRows.value()) && canAsk.value(); });
    canExport.setBinding([this] { return sheetHoldsRows.value() && canAsk.value(); });
    canOpenSheet.setBinding([sheetAtRest] { return sheetAtRest(); });
    canResetShutter.setBinding([this] { return resetShutterEnabled.value() && canCommand.value(); });
}

} // namespace orv
