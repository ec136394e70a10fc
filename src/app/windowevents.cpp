// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/windowevents.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWindow>

namespace orv {

namespace {

bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
        return true;
    default:
        return false;
    }
}

} // namespace

void WindowEvents::processEvents(int milliseconds) {
    QTimer wakeUp;
    wakeUp.setSingleShot(true);
    wakeUp.setTimerType(Qt::PreciseTimer);
    wakeUp.start(milliseconds);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void WindowEvents::keepResponsive(bool manualDialogLives) {
    if (!manualDialogLives) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        return;
    }
    qApp->installEventFilter(this);
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    qApp->removeEventFilter(this);
}

bool WindowEvents::eventFilter(QObject* watched, QEvent* event) {
    return isInput(event->type()) && !belongsToManualDialog(watched);
}

bool WindowEvents::belongsToManualDialog(const QObject* object) const {
    if (!manualDialog_) {
        return false;
    }
    if (object->isWidgetType()) {
        return qobject_cast<const QWidget*>(object)->window() == manualDialog_;
    }
    return object == manualDialog_->windowHandle();
}

} // namespace orv
