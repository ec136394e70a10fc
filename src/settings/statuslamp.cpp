// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/statuslamp.h"

#include <QPainter>

namespace orv {

QColor lampColour(Lamp lamp) {
    switch (lamp) {
    case Lamp::Reading:
        return {255, 0, 0};
    case Lamp::Sending:
        return {255, 255, 0};
    case Lamp::Sent:
        return {0, 255, 0};
    case Lamp::Read:
        return {0, 0, 255};
    case Lamp::Off:
        break;
    }
    return {};
}

QString lampText(Lamp lamp) {
    switch (lamp) {
    case Lamp::Reading:
        return QStringLiteral("Reading the settings");
    case Lamp::Sending:
        return QStringLiteral("Sending the settings");
    case Lamp::Sent:
        return QStringLiteral("Settings sent");
    case Lamp::Read:
        return QStringLiteral("Settings read");
    case Lamp::Off:
        break;
    }
    return QStringLiteral("Nothing read or sent yet");
}

StatusLamp::StatusLamp(QWidget* parent)
    : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(QStringLiteral("Status lamp"));
}

void StatusLamp::show(Lamp lamp) {
    lamp_ = lamp;
    setAccessibleDescription(lampText(lamp));
    update();
}

QSize StatusLamp::sizeHint() const {
    const int side = fontMetrics().height() + 4;
    return {side, side};
}

void StatusLamp::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1.5));
    const QColor colour = lampColour(lamp_);
    painter.setBrush(colour.isValid() ? QBrush(colour) : palette().brush(QPalette::Base));
    painter.drawEllipse(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5));
}

} // namespace orv
