// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/controls.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>

#include <gtest/gtest.h>

#include <set>

namespace orv {

void press(QWidget& widget, int key, const QString& text, Qt::KeyboardModifiers modifiers) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QApplication::sendEvent(&widget, &event);
    }
}

void type(QWidget& widget, const char* characters) {
    for (const char character : QByteArray(characters)) {
        press(widget, 0, QString(QLatin1Char(character)));
    }
}

void retype(QLineEdit& box, const char* text) {
    box.selectAll();
    type(box, text);
}

void clickAt(QWidget& widget, const QPointF& at) {
    QMouseEvent down(QEvent::MouseButtonPress, at, widget.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&widget, &down);
    QMouseEvent up(QEvent::MouseButtonRelease, at, widget.mapToGlobal(at), Qt::LeftButton, Qt::NoButton,
                   Qt::NoModifier);
    QApplication::sendEvent(&widget, &up);
}

void clickTab(QTabBar& tabs, int index) {
    clickAt(tabs, tabs.tabRect(index).center());
}

void postClick(QWidget& widget) {
    const QPointF at = widget.rect().center();
    const QPointF onScreen = widget.mapToGlobal(at);
    QCoreApplication::postEvent(&widget, new QMouseEvent(QEvent::MouseButtonPress, at, onScreen, Qt::LeftButton,
                                                         Qt::LeftButton, Qt::NoModifier));
    QCoreApplication::postEvent(&widget, new QMouseEvent(QEvent::MouseButtonRelease, at, onScreen, Qt::LeftButton,
                                                         Qt::NoButton, Qt::NoModifier));
}

void tellFocus(QWidget& widget, QEvent::Type inOrOut, Qt::FocusReason reason) {
    QFocusEvent event(inOrOut, reason);
    QApplication::sendEvent(&widget, &event);
}

void expectOperableAndFits(const QWidget& page) {
    std::set<QString> keys;
    const auto takeKey = [&keys](const QString& text) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (!key.isEmpty()) {
            EXPECT_TRUE(keys.insert(key).second) << key.toStdString() << " stands for two controls";
        }
    };
    for (const QWidget* widget : page.findChildren<QWidget*>()) {
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            takeKey(label->text());
        } else if (const auto* frame = qobject_cast<const QGroupBox*>(widget)) {
            takeKey(frame->title());
        } else if (button != nullptr || qobject_cast<const QLineEdit*>(widget) != nullptr) {
            const std::string name = widget->objectName().toStdString();
            EXPECT_TRUE((widget->focusPolicy() & Qt::TabFocus) != 0) << name << " cannot be reached by Tab";
            EXPECT_FALSE(widget->toolTip().isEmpty()) << name << " has no tooltip";
            EXPECT_FALSE(widget->accessibleName().isEmpty() && name.empty() && button == nullptr) << "a nameless box";
            if (button != nullptr) {
                takeKey(button->text());
                EXPECT_FALSE(button->text().isEmpty()) << name;
            }
        }
    }
    constexpr QSize room(960, 560);
    EXPECT_LE(page.minimumSizeHint().width(), room.width());
    EXPECT_LE(page.minimumSizeHint().height(), room.height());
}

} // namespace orv
