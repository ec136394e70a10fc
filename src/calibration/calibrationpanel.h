// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calibration/calibrationtable.h"

#include <QStringList>

namespace orv {

/// What the page "Calibration TRX(S)" shows and what its controls ask for.
struct CalibrationPanel {
    static constexpr int noRow = -1;

    QProperty<QString> instrumentName;                    ///< `Text17`, as typed.
    QProperty<LightColour> colour{LightColour::None};     ///< `Option9`, `Option10`, `Option11`.
    QProperty<QString> message;                           ///< `Text36`.
    QProperty<QStringList> instruments;                   ///< `List2`; the position is the instrument's index.
    QProperty<QString> totalEntered{QStringLiteral("0")}; ///< `Label70`.
    QProperty<qint16> current{0};                         ///< Index of the instrument shown; also `Label71`.
    QProperty<QString> worksheetCaption;                  ///< `Frame16`; empty until an instrument has been shown.
    QProperty<int> selectedRow{noRow};                    ///< The row whose selector is on, 0..5.
    BoxGrid<worksheetRows.size()> worksheet;              ///< Measured values, as text.
    BoxGrid<referenceRows.size()> reference;              ///< "KP 7", as typed.
    std::array<QProperty<QString>, channelCount> results; ///< The derived points.

    /// The list entry of the instrument shown; empty if there is none.
    QString currentEntry() const { return instruments.value().value(current.value()); }
};

} // namespace orv
