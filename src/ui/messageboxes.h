// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "base/operator.h"

#include <QPointer>
#include <QWidget>

#include <functional>

class QMessageBox;

namespace orv {

class Remembered;

/// Shows a window that comes by itself. While a question stands, that keeps the front and the keyboard. Returns whether
/// none does: the window may come to the front.
bool showUnasked(QWidget& window);

/// Message boxes that do not wait for an answer. The same message is not shown again while its box is open.
class MessageBoxes final : public OperatorMessages {
public:
    void show(const Message& message) override;

    void setParent(QWidget* parent) { parent_ = parent; }

    /// The boxes below a window that the operator has not closed yet.
    static QList<QMessageBox*> unreadIn(const QWidget& parent);

    /// Calls `read` once the operator has closed every open box or it has gone with its window, at once if none is
    /// open: the last words of a program that ends. `read` may destroy the window.
    void whenRead(std::function<void()> read);

    /// Tells every message, shown anew or not.
    Signal<Message> told;

private:
    void tellIfRead();

    QPointer<QWidget> parent_;
    std::function<void()> read_;
    QObject receiver_; ///< Boxes may outlive this object.
};

/// Questions and file dialogs. They hold nobody: while one stands every window lives. It stays above the window that it
/// came from, the settings screen or the main window.
class QuestionDialogs final : public OperatorQuestions {
public:
    [[nodiscard]] Subscription ask(const Question& question, Answered answered) override;

    void setParent(QWidget* parent) { parent_ = parent; }

    /// From now on file dialogs open in the folder of the last file of their kind. It outlives this.
    void setRemembered(Remembered* remembered) { remembered_ = remembered; }

private:
    QPointer<QWidget> parent_;
    Remembered* remembered_ = nullptr;
};

} // namespace orv
