// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/sessionend.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>

#include <cstdio>

namespace orv {

SessionEnd::SessionEnd(Program& program, MessageBoxes& messages)
    : program_(program)
    , messages_(messages) {
#ifdef Q_OS_UNIX
    constexpr int signalled = 128;
    interrupted_ = interruption_.wanted.subscribe([this](int signal) { end(signalled + signal); });
#endif
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this,
            [this](QSessionManager& manager) { commitData(manager); });
    // It has no state that a session could give back, and is not started again with whoever logs in.
    connect(qGuiApp, &QGuiApplication::saveStateRequest, this,
            [](QSessionManager& manager) { manager.setRestartHint(QSessionManager::RestartNever); });
    connect(qGuiApp, &QCoreApplication::aboutToQuit, this, [this] { endProgram(); });
    qGuiApp->installEventFilter(this);
}

void SessionEnd::commitData(QSessionManager& manager) {
    if (!prepare() && manager.allowsErrorInteraction()) {
        manager.cancel(); // the operator has been told why and can act
    }
}

bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
#ifndef Q_OS_MACOS // there it is the operator's wish as well, who is asked
    if (watched == qGuiApp && event->type() == QEvent::Quit) {
        end(0);
        return true;
    }
#endif
    return QObject::eventFilter(watched, event);
}

void SessionEnd::end(int status) {
    if (!status_) {
        status_ = status;
        endProgram();
        QCoreApplication::exit(status);
    }
}

void SessionEnd::endProgram() {
    const Subscription telling = messages_.told.subscribe([](const Message& message) {
        std::fprintf(stderr, "orvhost: %s\n", message.text.simplified().toLocal8Bit().constData());
    });
    program_.endUnasked();
}

} // namespace orv
