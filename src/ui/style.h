// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QIcon>
#include <QProxyStyle>

#include <array>

namespace orv {

/// The desktop's own style with some amends: buttons leave some room around their text, a button that is switched on
/// stands out in light and dark with words that can be read, what is disabled and hints can still be read, on a dark
/// window outlines of boxes and menus, the lines of a table, the tab that is chosen and which boxes are disabled can be
/// seen, the line below tabs goes on under one that is not chosen, the pictures of messages are sharp at any size, and
/// no button of a dialog has a picture, as none has elsewhere.
class ProgramStyle final : public QProxyStyle {
public:
    using QProxyStyle::polish;
    using QProxyStyle::QProxyStyle;

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void polish(QPalette& palette) override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* details) const override;
    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const override;
    QPixmap standardPixmap(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const override;
};

/// Of a label that is to catch the eye: black on amber, on light and dark.
QPalette warningPalette();

/// Whether a window with these colours is a dark one.
bool isDark(const QPalette& palette);

/// The colours of the plot.
struct PlotTheme {
    QColor background;
    QColor text; ///< Also the axes.
    QColor grid;
    QColor focus;
    /// As many as a row of the sheet can have values. People of every kind of colour vision can tell them apart from
    /// each other and from the background.
    std::array<QColor, 6> curves;
};

/// The colours that go with a window's palette, light or dark.
PlotTheme plotTheme(const QPalette& palette);

/// Black on white, for pictures and print.
PlotTheme paperTheme();

/// The program's icon in the sizes that windows need. It is part of the program: asking the desktop's icon theme, whose
/// picture is the same, would read its index at every start.
QIcon applicationIcon();

} // namespace orv
