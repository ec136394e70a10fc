// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tooltips.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

#include <utility>

namespace orv {

namespace {

/// Longer lines are broken.
constexpr qsizetype comfortableLine = 60;

} // namespace

QString ToolTips::inLines(const QString& text) {
    QString broken;
    for (const QString& paragraph : text.split(u'\n')) {
        QString line;
        for (const QString& word : paragraph.split(u' ')) {
            if (!line.isEmpty() && line.size() + 1 + word.size() > comfortableLine) {
                broken += std::exchange(line, QString()) + u'\n';
            }
            line += (line.isEmpty() ? QString() : QStringLiteral(" ")) + word;
        }
        broken += line + u'\n';
    }
    broken.chop(1);
    return broken;
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
