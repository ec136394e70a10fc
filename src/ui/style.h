// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QProxyStyle>

namespace orv {

/// The desktop's own style with three amends: buttons leave some room around their text, a button that is switched on
/// stands out in light and dark, and what is disabled can still be read.
class ProgramStyle final : public QProxyStyle {
public:
    using QProxyStyle::polish;
    using QProxyStyle::QProxyStyle;

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void polish(QPalette& palette) override;
};

/// The program's icon in the sizes that windows need. It is part of the program: asking the desktop's icon theme, whose
/// picture is the same, would read its index at every start.
QIcon applicationIcon();

} // namespace orv
