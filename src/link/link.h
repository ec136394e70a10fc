// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/connection.h"
#include "link/manualconnection.h"
#include "link/poll.h"
#include "link/portchoices.h"

namespace orv {

/// The link to the instrument: the session, the ports, and what talks through them.
struct Link {
    /// What the program needs of its surroundings; everything outlives it.
    struct Surroundings {
        Clock& clock;
        EventYield& events;
        OperatorMessages& messages;
        OperatorQuestions& questions; ///< For the floors above.
        ComPorts::PortMaker makePort;
        PortList* portList = nullptr; ///< Null: this computer has no ports.
        /// What is wrong with a device name; the empty text if nothing is.
        std::function<QString(const QString& device)> deviceProblem = [](const QString&) { return QString(); };
    };

    explicit Link(const Surroundings& surroundings)
        : events(surroundings.events)
        , session(surroundings.clock, surroundings.messages)
        , ports(session, debug, surroundings.makePort)
        , portChoices(ports, surroundings.portList, surroundings.deviceProblem)
        , wait(surroundings.clock, events, ports)
        , poll(session, ports, debug)
        , connection(session, debug, ports, wait, events, timer)
        , manual(session, connection)
        , directSend(ports) {}

    EventYield& events;
    Session session;
    DebugState debug;
    ComPorts ports;
    PortChoices portChoices;
    TimedWait wait;
    StatusTimer timer;
    Poll poll;
    Connection connection;
    ManualConnection manual;
    DirectSend directSend;
};

} // namespace orv
