// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/connection.h"

namespace orv {

/// Stops a running collection or download: the program is reset and the instrument woken again on the same port, by
/// which it comes back to its prompt; nothing else is sent. Rows on the sheet stay. Nothing happens on a closed port
/// or when no connect item is checked.
class AbortRun {
public:
    AbortRun(Session& session, ConnectionPanel& items, ComPorts& ports, Connection& connection,
             ManualConnection& manual, ProgramActions& actions);

    void abortrun();

private:
    Session& session_;
    ConnectionPanel& items_;
    ComPorts& ports_;
    Connection& connection_;
    ManualConnection& manual_;
    ProgramActions& actions_;
};

} // namespace orv
