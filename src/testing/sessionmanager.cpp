// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/sessionmanager.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <cstring>

#include <sys/socket.h>

namespace orv {

namespace {

constexpr int no = 0;
constexpr int yes = 1;

/// Only programs of this computer.
int isFromHere(char* host) {
    return host != nullptr && std::strncmp(host, "local/", 6) == 0 ? yes : no;
}

} // namespace

/// What the library calls when the program says something; the pointer is the manager.
struct SessionManager::Answers {
    static SessionManager& manager(SmPointer pointer) { return *static_cast<SessionManager*>(pointer); }

    static int newProgram(SmsConn program, SmPointer pointer, unsigned long* mask, SmsCallbacks* answers, char**) {
        manager(pointer).program_ = program;
        *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
                SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask | SmsSaveYourselfDoneProcMask |
                SmsCloseConnectionProcMask | SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask |
                SmsGetPropertiesProcMask;
        answers->register_client = {registerProgram, pointer};
        answers->interact_request = {interactRequest, pointer};
        answers->interact_done = {interactDone, pointer};
        answers->save_yourself_request = {[](SmsConn, SmPointer, int, int, int, int, int) {}, pointer};
        answers->save_yourself_phase2_request = {[](SmsConn asking, SmPointer) { SmsSaveYourselfPhase2(asking); },
                                                 pointer};
        answers->save_yourself_done = {saveYourselfDone, pointer};
        answers->close_connection = {closeConnection, pointer};
        answers->set_properties = {setProperties, pointer};
        answers->delete_properties = {deleteProperties, pointer};
        answers->get_properties = {[](SmsConn asking, SmPointer) { SmsReturnProperties(asking, 0, nullptr); }, pointer};
        return yes;
    }

    static int registerProgram(SmsConn program, SmPointer, char* previousName) {
        std::free(previousName);
        char* name = SmsGenerateClientID(program);
        SmsRegisterClientReply(program, name);
        std::free(name);
        SmsSaveYourself(program, SmSaveLocal, no, SmInteractStyleNone, no);
        return yes;
    }

    static void interactRequest(SmsConn, SmPointer pointer, int dialog) {
        manager(pointer).said.emplace_back(dialog == SmDialogError ? "may I tell of an error?" : "may I ask?");
    }
    static void interactDone(SmsConn, SmPointer pointer, int cancel) {
        manager(pointer).said.emplace_back(cancel != no ? "cancel the logging out" : "go on with the logging out");
    }

    static void saveYourselfDone(SmsConn program, SmPointer pointer, int success) {
        if (manager(pointer).registered_) {
            manager(pointer).said.emplace_back(success != no ? "saved" : "not saved");
            return;
        }
        manager(pointer).registered_ = true;
        SmsSaveComplete(program);
    }

    static void closeConnection(SmsConn, SmPointer pointer, int count, char** reasons) {
        SmFreeReasons(count, reasons);
        manager(pointer).said.emplace_back("farewell");
        manager(pointer).close();
    }

    static void setProperties(SmsConn, SmPointer pointer, int count, SmProp** properties) {
        for (int i = 0; i < count; ++i) {
            const SmProp& property = *properties[i];
            QByteArray& value = manager(pointer).properties[property.name];
            value.clear();
            if (property.num_vals > 0) {
                value.append(static_cast<const char*>(property.vals[0].value), property.vals[0].length);
            }
            SmFreeProperty(properties[i]);
        }
        std::free(properties);
    }
    static void deleteProperties(SmsConn, SmPointer pointer, int count, char** names) {
        for (int i = 0; i < count; ++i) {
            manager(pointer).properties.remove(names[i]);
            std::free(names[i]);
        }
        std::free(names);
    }
};

SessionManager::SessionManager() {
    std::array<char, 256> error{};
    // The library ends the process by itself when a connection breaks.
    IceSetIOErrorHandler([](IceConn) {});
    const bool initialized = SmsInitialize("ORV Host", "tests", Answers::newProgram, this, isFromHere,
                                           static_cast<int>(error.size()), error.data()) != no;
    EXPECT_TRUE(initialized) << error.data();
    const bool listens =
        IceListenForConnections(&addresses_, &listening_, static_cast<int>(error.size()), error.data()) != no;
    EXPECT_TRUE(listens) << error.data();
    for (int i = 0; i < addresses_; ++i) {
        IceListenObj address = listening_[i];
        IceSetHostBasedAuthProc(address, isFromHere);
        calls_.push_back(
            std::make_unique<QSocketNotifier>(IceGetListenConnectionNumber(address), QSocketNotifier::Read));
        QObject::connect(calls_.back().get(), &QSocketNotifier::activated, [this, address] { accept(address); });
    }
}

SessionManager::~SessionManager() {
    close();
    calls_.clear();
    IceFreeListenObjs(addresses_, listening_);
}

QMap<QString, QString> SessionManager::variables() const {
    char* addresses = IceComposeNetworkIdList(addresses_, listening_);
    const QString manager = QString::fromLocal8Bit(addresses);
    std::free(addresses);
    // Without the operator's own keys nothing but where it comes from lets a program in.
    return {{QStringLiteral("SESSION_MANAGER"), manager},
            {QStringLiteral("ICEAUTHORITY"), folder_.filePath(QStringLiteral("keys"))}};
}

void SessionManager::logOut(Interaction interaction) {
    SmsSaveYourself(program_, SmSaveBoth, yes, static_cast<int>(interaction), no);
}

void SessionManager::letInteract() {
    SmsInteract(program_);
}

void SessionManager::cancelLogOut() {
    SmsShutdownCancelled(program_);
}

void SessionManager::die() {
    SmsDie(program_);
}

void SessionManager::breakOff() {
    ::shutdown(IceConnectionNumber(connection_), SHUT_RDWR);
    close();
}

void SessionManager::accept(IceListenObj address) {
    IceAcceptStatus status = IceAcceptFailure;
    IceConn connection = IceAcceptConnection(address, &status);
    ASSERT_EQ(status, IceAcceptSuccess);
    ASSERT_EQ(connection_, nullptr) << "one program at a time";
    connection_ = connection;
    IceSetShutdownNegotiation(connection_, no);
    words_ = std::make_unique<QSocketNotifier>(IceConnectionNumber(connection_), QSocketNotifier::Read);
    QObject::connect(words_.get(), &QSocketNotifier::activated, [this] { listen(); });
}

void SessionManager::listen() {
    const IceProcessMessagesStatus status = IceProcessMessages(connection_, nullptr, nullptr);
    if (connection_ != nullptr && status != IceProcessMessagesSuccess) { // no farewell has closed it
        connection_ = status == IceProcessMessagesConnectionClosed ? nullptr : connection_;
        close();
    }
}

void SessionManager::close() {
    if (words_) {
        words_->setEnabled(false); // it may be what calls
        words_.release()->deleteLater();
    }
    if (program_ != nullptr) {
        SmsCleanUp(std::exchange(program_, nullptr));
    }
    if (connection_ != nullptr) {
        IceCloseConnection(std::exchange(connection_, nullptr));
    }
}

} // namespace orv
