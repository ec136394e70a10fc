// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "calibration/calibration.h"
#include "link/session.h"

#include <QWidget>

#include <functional>

class QGridLayout;

class QGroupBox;

class QLineEdit;

class QListWidget;

class QPushButton;

namespace orv {

/// The page "Calibration TRX(S)": the instruments of a batch, the worksheet of the one shown, and the reference values.
class CalibrationPage final : public QWidget {
public:
    /// Values and actions outlive the page.
    CalibrationPage(CalibrationState& shown, Calibration& actions, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QGroupBox* makeInstruments();
    QWidget* makeColours();
    QListWidget* makeList();
    QWidget* makeNavigation();
    QWidget* makeMessages();
    QGroupBox* makeWorksheet();
    void addWorksheetRow(QGridLayout* grid, int row);
    void addResults(QGridLayout* grid, int gridRow);
    QGroupBox* makeReference();
    QLineEdit* makeBox(QProperty<QString>& text, const QString& name, const QString& accessibleName);
    QPushButton* makeButton(const QString& caption, const QString& name, const QString& toolTip,
                            const std::function<void()>& action);

    CalibrationState& shown_;
    Calibration& actions_;
    bool chosenByPress_ = false; ///< The press of the click under way has chosen an entry of the list already.
    Bindings bindings_;
};

/// The page "Testing": resets the shutter and shows how far that is.
class TestingPage final : public QWidget {
public:
    /// `session` outlives the page; `resetShutter` runs the whole reset.
    TestingPage(Session& session, const std::function<void()>& resetShutter, QWidget* parent = nullptr);

private:
    QWidget* makeProgress(Session& session);

    Bindings bindings_;
};

} // namespace orv
