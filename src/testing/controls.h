// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QTabBar>
#include <QWidget>

#include <stdexcept>
#include <string>

namespace orv {

/// What is below a window by that object name, a control, an action or a timer; the test fails if there is nothing.
template <typename Control>
Control& control(const QObject& window, const char* name) {
    auto* found = window.findChild<Control*>(QString::fromLatin1(name));
    if (found == nullptr) {
        throw std::out_of_range(std::string("no control ") + name);
    }
    return *found;
}

void press(QWidget& widget, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Types printable characters.
void type(QWidget& widget, const char* characters);

/// The same in the place of what the box holds.
void retype(QLineEdit& box, const char* text);

void clickAt(QWidget& widget, const QPointF& at);
void clickTab(QTabBar& tabs, int index);

/// A click as the window system delivers it: it arrives when events are processed.
void postClick(QWidget& widget);

/// Puts the focus on a control or takes it away, as far as the control can tell.
void tellFocus(QWidget& widget, QEvent::Type inOrOut, Qt::FocusReason reason = Qt::TabFocusReason);

/// Fails for every button and box of a page that the keyboard cannot reach or that tells nothing of itself, for every
/// access key that two of them share, and if the page does not fit into the main window of 1000 x 680, of which menus
/// and tabs take some.
void expectOperableAndFits(const QWidget& page);

} // namespace orv
