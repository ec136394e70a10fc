// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QSocketNotifier>
#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <string>
#include <vector>

#include <X11/SM/SMlib.h>

// Those of Xlib and its kin are no names for macros.
#undef Bool
#undef Status
#undef True
#undef False

namespace orv {

/// A session manager of the test's own, for one program. It speaks the X session management protocol and does what the
/// test says; only the program's registration it answers by itself. It lives by events. One at a time.
class SessionManager {
public:
    enum class Interaction { None = SmInteractStyleNone, Errors = SmInteractStyleErrors, Any = SmInteractStyleAny };

    /// The test fails if nobody could connect.
    SessionManager();
    ~SessionManager();
    SessionManager(const SessionManager&) = delete;
    SessionManager& operator=(const SessionManager&) = delete;

    /// What a program's environment has to have to find this manager and no other.
    QMap<QString, QString> variables() const;

    /// Whether the program has registered and has saved its state for the first time, as the protocol demands.
    bool hasProgram() const { return program_ != nullptr && registered_; }

    /// Asks the program to save what it has, because the session ends.
    void logOut(Interaction interaction);
    /// The program may ask the operator.
    void letInteract();
    void cancelLogOut();
    /// The program is to end.
    void die();
    /// The manager is gone without a word.
    void breakOff();

    /// What the program has said since it registered: "may I tell of an error?", "may I ask?", "cancel the logging
    /// out", "go on with the logging out", "saved", "not saved", "farewell".
    std::vector<std::string> said;

    /// What the program has told of itself, by name: the protocol's properties, each with its first value.
    QMap<QByteArray, QByteArray> properties;

private:
    struct Answers;

    void accept(IceListenObj address);
    void listen();
    void close();

    QTemporaryDir folder_;
    int addresses_ = 0;
    IceListenObj* listening_ = nullptr;
    std::vector<std::unique_ptr<QSocketNotifier>> calls_;
    IceConn connection_ = nullptr;
    std::unique_ptr<QSocketNotifier> words_;
    SmsConn program_ = nullptr;
    bool registered_ = false;
};

} // namespace orv
