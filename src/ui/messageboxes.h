// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "base/operator.h"
#include "link/waits.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace orv {

/// Message boxes that do not wait for an answer. The same message is not shown again while its box is open.
class MessageBoxes final : public OperatorMessages {
public:
    void show(const Message& message) override;

    void setParent(QWidget* parent) { parent_ = parent; }

    /// Returns when the operator has closed every open box: the last words of a program that ends.
    void waitUntilRead();

    /// Tells every message, shown anew or not.
    Signal<Message> told;

private:
    QPointer<QWidget> parent_;
};

/// Questions and file dialogs. They wait for the answer; the status timer ticks on meanwhile.
class QuestionDialogs final : public OperatorQuestions {
public:
    bool askYesNo(const QString& title, const QString& text) override;
    QString saveFileName(const QString& title, const QString& presetName, const QString& suffix,
                         const QString& filter) override;
    QString openFileName(const QString& title, const QString& suffix, const QString& filter) override;

    void setParent(QWidget* parent) { parent_ = parent; }

private:
    QPointer<QWidget> parent_;
};

/// Yields to the window system's event loop.
class WindowEvents final : public QObject, public EventYield {
public:
    void processEvents(int milliseconds) override;
    void keepResponsive(bool manualDialogLives) override;
    bool programEnding() const override { return ending_; }

    /// The dialog whose input is handled while a manual connection seeks.
    void setManualDialog(QWidget* dialog) { manualDialog_ = dialog; }

    /// From now on every wait returns at once.
    void endProgram() { ending_ = true; }

protected:
    /// Drops the operator's input to everything but the manual dialog.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool belongsToManualDialog(const QObject* object) const;

    QPointer<QWidget> manualDialog_;
    bool ending_ = false;
};

} // namespace orv
