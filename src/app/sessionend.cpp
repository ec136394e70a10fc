// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/sessionend.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>

#include <cstdio>

#ifdef Q_OS_LINUX
#include <QLibrary>

#include <fcntl.h>
#include <sys/eventfd.h>
#include <unistd.h>
#endif

namespace orv {

namespace {

/// The library by which Qt's xcb platform speaks with a session manager ends the process when that is gone. From now on
/// the program goes on without one.
void outliveSessionManager() {
#ifdef Q_OS_LINUX
    if (QGuiApplication::platformName() != QLatin1String("xcb")) {
        return;
    }
    using Handler = void (*)(void* connection);
    constexpr int version = 6;
    QLibrary library(QStringLiteral("ICE"), version);
    const auto setHandler = reinterpret_cast<Handler (*)(Handler)>(library.resolve("IceSetIOErrorHandler"));
    static const auto numberOf = reinterpret_cast<int (*)(void*)>(library.resolve("IceConnectionNumber"));
    if (setHandler == nullptr || numberOf == nullptr) {
        return;
    }
    setHandler([](void* connection) {
        // Qt would read the end of the connection over and over: in its place comes what never has anything to read.
        const int silent = ::eventfd(0, EFD_CLOEXEC);
        ::dup3(silent, numberOf(connection), O_CLOEXEC);
        ::close(silent);
    });
#endif
}

} // namespace

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
    outliveSessionManager();
}

void SessionEnd::commitData(QSessionManager& manager) {
    if (!prepare()) {
        // The operator has been told why and can act. Where nobody may be asked the session ends all the same, and its
        // manager is told that not everything is kept.
        manager.allowsErrorInteraction();
        manager.cancel();
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
