// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPalette>

#include <array>

namespace orv {

/// The colours of the plot.
struct PlotTheme {
    static constexpr int curveColours = 6; ///< As many as a row of the sheet can have values.

    QColor background;
    QColor text; ///< Also the axes.
    QColor grid;
    QColor focus;
    /// Colours that people of every kind of colour vision can tell apart from each other and from the background.
    std::array<QColor, curveColours> curves;
};

/// The colours that go with a window's palette, light or dark.
PlotTheme plotTheme(const QPalette& palette);

/// Black on white, for pictures and print.
PlotTheme paperTheme();

} // namespace orv
