// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tooltips.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

#include <algorithm>

namespace orv {

namespace {

/// Longer lines are broken.
constexpr qsizetype comfortableLine = 60;

} // namespace

QString ToolTips::inLines(const QString& text) {
    qsizetype longest = 0;
    for (const QStringView line : QStringView(text).split(u'\n')) {
        longest = std::max(longest, line.size());
    }
    // Qt gives rich text a width of its own, about as many letters.
    return longest <= comfortableLine
               ? text
               : QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped().replace(u'\n', QLatin1String("<br>")));
}

bool ToolTips::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTip && watched->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(watched);
        const QString text = widget->toolTip();
        const QString broken = inLines(text);
        if (broken != text) {
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), broken, widget);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace orv
