// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/debuglist.h"

#include <QProperty>
#include <QString>

#include <array>

namespace orv {

/// What the debug screen shows and what its controls ask for.
struct DebugPanel {
    QProperty<bool> comm2Output{false}; ///< `Check1`, "Comm 2 Debug Output".
    QProperty<bool> rawBuffer{false};   ///< `Option1`, "Raw Buffer".
    QProperty<bool> showParsing{false}; ///< `Option2`, "Show Parsing".
    QProperty<bool> debugFrameVisible{false};
    QProperty<bool> turbidityFrameVisible{false};
    QProperty<bool> fluorometerFrameVisible{false};
    QProperty<bool> transmissometerFrameVisible{false};
    QProperty<bool> outputFrameVisible{false}; ///< The scattering meter's output frame.

    // The newest row's values, as the sheet shows them; empty before the first.
    QProperty<QString> fluorometerOutput;
    std::array<QProperty<QString>, 3> scatteringOutputs; ///< Angles 100, 125, 150.
    QProperty<QString> scatteringReference;              ///< "Ref Det".
    QProperty<QString> transmissometerOutput;
    QProperty<QString> turbidityOutput;

    DebugList list;
};

} // namespace orv
