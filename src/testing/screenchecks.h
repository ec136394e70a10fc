// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QWidget>

#include <gtest/gtest.h>

#include <set>

namespace orv {

/// For tests: the control of a screen that bears this name; the test fails if there is none.
template <typename Widget>
Widget& control(QWidget& screen, const char* name) {
    auto* found = screen.findChild<Widget*>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return *found;
}

/// Types text into the focused box, as an operator does: by key events, replacing what it held.
inline void type(QLineEdit& box, const char* text) {
    box.selectAll();
    for (const char character : std::string(text)) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(QLatin1Char(character)));
        QApplication::sendEvent(&box, &press);
    }
}

inline void pressKey(QWidget& widget, int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &release);
}

inline void clickAt(QWidget& widget, const QPoint& position) {
    const QPointF at(position);
    const QPointF global(widget.mapToGlobal(position));
    QMouseEvent press(QEvent::MouseButtonPress, at, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, at, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &release);
}

/// Fails for every operable control that the keyboard cannot reach or that tells nothing of itself, and for every
/// access key that two of them share.
inline void expectOperable(QWidget& screen) {
    std::set<QString> keys;
    const auto takeKey = [&keys](const QString& text) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (!key.isEmpty()) {
            EXPECT_TRUE(keys.insert(key).second) << key.toStdString() << " stands for two controls";
        }
    };
    for (const QLabel* label : screen.findChildren<QLabel*>()) {
        takeKey(label->text());
    }
    for (const QGroupBox* box : screen.findChildren<QGroupBox*>()) {
        takeKey(box->title());
    }
    for (const QWidget* widget : screen.findChildren<QWidget*>()) {
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const auto* box = qobject_cast<const QLineEdit*>(widget);
        if (button == nullptr && box == nullptr) {
            continue;
        }
        const std::string name = widget->objectName().toStdString();
        EXPECT_TRUE((widget->focusPolicy() & Qt::TabFocus) != 0) << name << " cannot be reached by Tab";
        EXPECT_FALSE(widget->toolTip().isEmpty()) << name << " has no tooltip";
        if (button != nullptr) {
            takeKey(button->text());
            EXPECT_FALSE(button->text().isEmpty()) << name;
        } else {
            EXPECT_FALSE(widget->accessibleName().isEmpty() && widget->objectName().isEmpty()) << "a nameless box";
        }
    }
}

/// Fails if the screen does not fit into the main window of 1000 x 680, of which menus and tabs take some.
inline void expectFits(const QWidget& screen) {
    constexpr int width = 960;
    constexpr int height = 560;
    EXPECT_LE(screen.minimumSizeHint().width(), width);
    EXPECT_LE(screen.minimumSizeHint().height(), height);
}

} // namespace orv
