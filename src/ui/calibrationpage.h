// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"

#include <QWidget>

class QGridLayout;
class QGroupBox;
class QLayout;
class QListWidget;

namespace orv {

/// The page "Calibration TRX(S)": the instruments of a batch, the worksheet of the one shown, and the reference values.
class CalibrationPage final : public QWidget {
public:
    explicit CalibrationPage(Program& program);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QGroupBox* makeInstruments();
    QLayout* makeColours();
    QListWidget* makeList();
    QLayout* makeNavigation();
    QGroupBox* makeWorksheet();
    void addWorksheetRow(QGridLayout* grid, int row);
    void addResults(QGridLayout* grid, int gridRow);
    QGroupBox* makeReference();

    CalibrationState& shown_;
    Calibration& calibration_;
    const QProperty<bool>& canAsk_;
    bool chosenByPress_ = false; ///< The press of the click under way has chosen an entry of the list already.
    Bindings bindings_;
};

/// The page "Testing": resets the shutter and shows how far that is.
class TestingPage final : public QWidget {
public:
    explicit TestingPage(Program& program);

private:
    QLayout* makeProgress(const StatusState& shown);

    Bindings bindings_;
};

} // namespace orv
