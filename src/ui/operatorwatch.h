// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "program/capture.h"

#include <QLineEdit>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <vector>

class QAction;

namespace orv {

/// Notes in the capture what the operator does: the buttons, menu items, tabs, choosers and boxes that he uses by the
/// mouse, by a key or by an assistive program, with their object names. What is typed is noted once, when he goes on
/// to something else or pauses. Nothing is noted of the file dialogs but their answers.
///
/// It is an event filter of the application, and follows each control from when it is first shown.
class OperatorWatch final : public QObject {
public:
    explicit OperatorWatch(Capture& capture);

    /// A menu item or a shortcut of a window, noted before it is performed.
    QAction* makeAction(QWidget& window, QAnyStringView text, QAnyStringView name, const std::function<void()>& action);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow(QWidget& widget);
    void noteTyping(QLineEdit& box);
    void finishTyping();
    void note(const QWidget& control, const QString& caption, const QString& value);

    Capture& capture_;
    const QObject* letGo_ = nullptr; ///< A button that is about to be released without a click.
    QPointer<QLineEdit> typing_;
    QTimer pause_;
    std::vector<Subscription> subscriptions_;
};

} // namespace orv
