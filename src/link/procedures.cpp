// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/procedures.h"

#include "base/runtimeerror.h"

#include <exception>

namespace orv {

void Procedures::start(const Words& operation, const Procedure& procedure) {
    if (isIdle()) {
        runAlone(operation, procedure);
    }
}

void Procedures::startBeside(const Words& operation, const Procedure& procedure) {
    run(operation, procedure);
}

Task<> Procedures::runAlone(Words operation, Procedure procedure) {
    running = true;
    co_await run(operation, procedure);
    running = false;
}

Task<> Procedures::run(Words operation, Procedure procedure) {
    try {
        co_await procedure();
    } catch (const ConnectionEnded&) {
        co_return; // whoever ended it has told the operator
    } catch (const RuntimeError& error) {
        session_.messages.show(runtimeErrorMessage(error, operation));
    } catch (const std::exception& error) {
        const auto ended = Words::tr("%1 has ended: %2.\n\n").arg(operation, QString::fromLocal8Bit(error.what()));
        session_.messages.show(
            withoutWindow(operatorWarning(ended + Words::tr("Save the sheet and start the program again.")),
                          ended + QStringLiteral("Try again.")));
    }
}

} // namespace orv
