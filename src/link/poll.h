// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/comports.h"
#include "link/programlog.h"

#include <QByteArray>

namespace orv {

/// Takes what the instrument port has received and cuts it into lines.
class Poll {
public:
    Poll(Session& session, ComPorts& ports, DebugPanel& debug, ProgramLog& log);

    /// One poll: joins what has arrived to `rxbuffer`, moves at most one complete line into `Rtn` (empty if there is
    /// none), watches for the prompts ">" and "!" while `gatherstart` is 1, feeds the log and the debug list. A port
    /// that has failed is noticed here, after every complete line it received has been taken.
    void quary();

    /// Characters received and not yet consumed as a line.
    QByteArray rxbuffer;

private:
    Session& session_;
    ComPorts& ports_;
    DebugPanel& debug_;
    ProgramLog& log_;
};

} // namespace orv
