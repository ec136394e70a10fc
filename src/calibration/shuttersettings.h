// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingspanel.h"

namespace orv {

/// The logger settings that a shutter reset changes for a while.
struct ShutterSettings {
    std::array<bool, 6> flags{};    ///< "Append", "Log Enabled", "Wake Up", "Aux ADC", "Gain", "Auto Start".
    std::array<QString, 4> numbers; ///< `Text2`, `Text4`, `Text3`, `Text1`.

    /// Those under which the instrument obeys "r": no flag, one sample a point, one point a block, no delays.
    static ShutterSettings temporary();

    /// What the settings screen shows.
    static ShutterSettings shown(const LoggerSettings& record);

    /// Puts them on the settings screen.
    void show(LoggerSettings& record) const;

    /// For the operator: "Append, Wake Up; samples per point 10, points per block 0, ...".
    QString text() const;

    bool operator==(const ShutterSettings&) const = default;
};

} // namespace orv
