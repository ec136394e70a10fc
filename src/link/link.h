// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/files.h"
#include "base/words.h"
#include "link/connection.h"
#include "link/manualconnection.h"
#include "link/ownfiles.h"
#include "link/poll.h"
#include "link/portchoices.h"

namespace orv {

/// The link to the instrument: the session, the ports, and what talks through them.
struct Link {
    /// What the program needs of its surroundings; everything outlives it.
    struct Surroundings {
        Clock& clock;
        OperatorMessages& messages;
        OperatorQuestions& questions;
        ComPorts::PortMaker makePort;
        PortList* portList = nullptr; ///< Null: this computer has no ports.
        /// What is wrong with a device name; the empty text if nothing is.
        std::function<Words(const QString& device)> deviceProblem = [](const QString&) { return Words(); };
        /// Free bytes on the disk of the working directory; nothing if that cannot be known.
        std::function<std::optional<qint64>()> freeSpace = freeSpaceHere;
    };

    explicit Link(const Surroundings& surroundings)
        : session(surroundings.clock, surroundings.messages)
        , questions(surroundings.questions, session)
        , ports(session, debug, surroundings.makePort)
        , portChoices(ports, surroundings.portList, surroundings.deviceProblem)
        , timer(surroundings.clock)
        , waits(session, ports, timer, questions)
        , procedures(session)
        , poll(session, ports, debug)
        , connection(session, debug, ports, waits, timer, procedures)
        , manual(session, connection, procedures)
        , directSend(ports) {}

    Session session;
    OwnFilesKept questions;
    DebugState debug;
    ComPorts ports;
    PortChoices portChoices;
    StatusTimer timer;
    Waits waits;
    Procedures procedures;
    Poll poll;
    Connection connection;
    ManualConnection manual;
    DirectSend directSend;
};

} // namespace orv
