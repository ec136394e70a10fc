// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTabBar>
#include <QWidget>

#include <stdexcept>
#include <string>

namespace orv {

/// The control of that object name; the test fails if there is none.
template <typename Widget>
Widget& control(const QWidget& window, const char* name) {
    auto* found = window.findChild<Widget*>(QString::fromLatin1(name));
    if (found == nullptr) {
        throw std::out_of_range(std::string("no control ") + name);
    }
    return *found;
}

inline void press(QWidget& widget, int key, const QString& text = {}) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &up);
}

/// Types printable characters.
inline void type(QWidget& widget, const char* characters) {
    for (const char character : QByteArray(characters)) {
        press(widget, 0, QString(QLatin1Char(character)));
    }
}

inline void clickTab(QTabBar& tabs, int index) {
    const QPointF at = tabs.tabRect(index).center();
    QMouseEvent down(QEvent::MouseButtonPress, at, tabs.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&tabs, &down);
    QMouseEvent up(QEvent::MouseButtonRelease, at, tabs.mapToGlobal(at), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&tabs, &up);
}

/// Puts the focus on a control or takes it away, as far as the control can tell.
inline void tellFocus(QWidget& widget, QEvent::Type inOrOut) {
    QFocusEvent event(inOrOut, Qt::TabFocusReason);
    QApplication::sendEvent(&widget, &event);
}

} // namespace orv
