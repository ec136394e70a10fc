// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/clock.h"
#include "session/commandpanel.h"
#include "session/operatormessages.h"
#include "session/sessionstate.h"
#include "session/statuspanel.h"

namespace orv {

/// The files of the program itself; other names if another program has taken these in the same folder.
struct FileNames {
    QString log = QStringLiteral("log.ohp");
    QString record = QStringLiteral("Orvtemp.tmp");
};

/// What every procedure shares: the state, the panels of the main window that any of them may change, the clock and
/// the way to tell the operator something.
struct Session {
    Session(Clock& clockToUse, OperatorMessages& messagesToUse)
        : clock(clockToUse)
        , messages(messagesToUse) {}

    SessionState state;
    StatusPanel status;
    CommandPanel commands;
    FileNames fileNames;
    Clock& clock;
    OperatorMessages& messages;
};

} // namespace orv
