// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/abortrun.h"

namespace orv {

AbortRun::AbortRun(Session& session, ConnectionPanel& items, ComPorts& ports, Connection& connection,
                   ManualConnection& manual, ProgramActions& actions)
    : session_(session)
    , items_(items)
    , ports_(ports)
    , connection_(connection)
    , manual_(manual)
    , actions_(actions) {}

void AbortRun::abortrun() {
    ports_.debugsay(QStringLiteral("Abort Run Function"));
    if (!ports_.isOpen()) {
        return;
    }
    session_.commands.runEnabled = true;
    using Panel = ConnectionPanel;
    for (const Panel::Item item : {Panel::Auto1, Panel::Auto2, Panel::Manual1, Panel::Manual2}) {
        if (!items_.checked(item)) {
            continue;
        }
        // The reset unchecks every item, so the branches after this one do not run.
        actions_.fixit();
        items_[item].checked = true;
        const int port = Panel::portNumber(item);
        if (item == Panel::Auto1 || item == Panel::Auto2) {
            ports_.debugsay(QStringLiteral("Passed fix it for comm%1").arg(port));
            if (port == 1) {
                connection_.openport1();
            } else {
                connection_.openport2();
            }
        } else {
            session_.state.Portused = static_cast<quint8>(port);
            manual_.show();
        }
        return;
    }
}

} // namespace orv
