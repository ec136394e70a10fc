// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/plottheme.h"

namespace orv {

namespace {

// Found by a search that started from Okabe's and Ito's colours: under normal vision and each of the three kinds of
// colour blindness any two lie at least 35 apart in CIE Lab, and each has a contrast of 3 to the background.
constexpr std::array<QRgb, PlotTheme::curveColours> onLight{0xff343eb5, 0xffd97e04, 0xff00a976,
                                                            0xffaa87c7, 0xff613300, 0xff110d16};
constexpr std::array<QRgb, PlotTheme::curveColours> onDark{0xff4181fc, 0xffcf6b0a, 0xff19e987,
                                                           0xffb16faa, 0xffffe41a, 0xffd6ffff};

QColor between(const QColor& from, const QColor& to, float part) {
    return QColor::fromRgbF(from.redF() + (to.redF() - from.redF()) * part,
                            from.greenF() + (to.greenF() - from.greenF()) * part,
                            from.blueF() + (to.blueF() - from.blueF()) * part);
}

PlotTheme themeOf(const QColor& background, const QColor& text, const QColor& focus) {
    constexpr int middle = 128;
    constexpr float faint = 0.15F;
    PlotTheme theme{
        .background = background, .text = text, .grid = between(background, text, faint), .focus = focus, .curves = {}};
    const auto& colours = background.lightness() < middle ? onDark : onLight;
    for (std::size_t curve = 0; curve < colours.size(); ++curve) {
        theme.curves[curve] = QColor::fromRgb(colours[curve]);
    }
    return theme;
}

} // namespace

PlotTheme plotTheme(const QPalette& palette) {
    return themeOf(palette.color(QPalette::Base), palette.color(QPalette::Text), palette.color(QPalette::Highlight));
}

PlotTheme paperTheme() {
    return themeOf(Qt::white, Qt::black, Qt::black);
}

} // namespace orv
