// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QPushButton>

namespace orv {

/// Keeps the focus of a window where the operator put it. By itself Qt moves it on to the next control when the one
/// that has it is disabled or hidden, and a stray Space then presses what nobody chose. Here no control has it
/// meanwhile: the Tab key goes on from where it was, and it comes back with the control unless another has got it.
///
/// The window asks it first in its focusNextPrevChild().
class FocusKeeper final : public QObject {
public:
    explicit FocusKeeper(QWidget& window)
        : window_(window) {}

    /// Returns whether all is done that the window was to do.
    bool move(bool next);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* focus() const;
    void leave(QWidget& control);
    bool goOn(bool next);

    QWidget& window_;
    QPointer<QWidget> left_; ///< The control that would have the focus if it could.
};

/// A button that may end what goes on. Keys press it only if the focus has come to it, by a key or the pointer, since
/// it was last disarmed; a click and its access key always do.
class EndingButton : public QPushButton {
public:
    using QPushButton::QPushButton;

    /// What it would end begins.
    void disarm() { armed_ = false; }

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool armed_ = true;
};

} // namespace orv
