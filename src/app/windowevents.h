// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/eventyield.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace orv {

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
