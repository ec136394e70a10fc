// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingspanel.h"

#include <QColor>
#include <QWidget>

namespace orv {

/// The lamp's colour: red while a report is read, yellow while settings are sent, green when they were sent, blue when
/// a report has been read; an invalid colour while it is off.
QColor lampColour(Lamp lamp);

/// What the lamp says, in words, for those who cannot tell it by its colour.
QString lampText(Lamp lamp);

/// The status lamp: a filled circle.
class StatusLamp final : public QWidget {
public:
    explicit StatusLamp(QWidget* parent = nullptr);

    void show(Lamp lamp);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Lamp lamp_ = Lamp::Off;
};

} // namespace orv
