// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/focus.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace orv {

namespace {

bool canTakeFocus(const QWidget& control, const QWidget& window) {
    return control.isEnabled() && control.isVisibleTo(&window);
}

} // namespace

/// The control that has the window's focus; null if it is the window itself.
QWidget* FocusKeeper::focus() const {
    QWidget* control = window_.focusWidget();
    return control == &window_ ? nullptr : control;
}

bool FocusKeeper::move(bool next) {
    QWidget* control = focus();
    if (control != nullptr && !canTakeFocus(*control, window_)) {
        leave(*control);
        return true;
    }
    return control == nullptr && goOn(next);
}

void FocusKeeper::leave(QWidget& control) {
    if (left_) {
        left_->removeEventFilter(this);
    }
    left_ = &control;
    control.installEventFilter(this);
    control.clearFocus();
}

/// The Tab key without a control that has the focus.
bool FocusKeeper::goOn(bool next) {
    if (!left_) {
        return false;
    }
    const auto neighbour = [next](const QWidget& control) {
        return next ? control.nextInFocusChain() : control.previousInFocusChain();
    };
    for (QWidget* control = neighbour(*left_); control != left_; control = neighbour(*control)) {
        if ((control->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && control->focusProxy() == nullptr &&
            control != &window_ && control->window() == &window_ && canTakeFocus(*control, window_)) {
            control->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
    return false;
}

bool FocusKeeper::eventFilter(QObject* watched, QEvent* event) {
    const bool back = event->type() == QEvent::EnabledChange || event->type() == QEvent::Show;
    if (back && watched == left_ && canTakeFocus(*left_, window_)) {
        QWidget* control = left_;
        left_ = nullptr;
        control->removeEventFilter(this);
        if (focus() == nullptr) {
            control->setFocus(Qt::OtherFocusReason);
        }
    }
    return QObject::eventFilter(watched, event);
}

void EndingButton::focusInEvent(QFocusEvent* event) {
    switch (event->reason()) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
    case Qt::MouseFocusReason:
        armed_ = true;
        break;
    default:
        break;
    }
    QPushButton::focusInEvent(event);
}

void EndingButton::keyPressEvent(QKeyEvent* event) {
    const bool presses = event->key() == Qt::Key_Space || event->key() == Qt::Key_Select ||
                         event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (presses && (!armed_ || event->isAutoRepeat())) {
        event->ignore();
        return;
    }
    QPushButton::keyPressEvent(event);
}

} // namespace orv
