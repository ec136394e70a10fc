// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/program.h"
#include "session/datetimetext.h"
#include "session/runtimeerror.h"

namespace orv {

void Program::tick() {
    if (isPolling()) {
        return;
    }
    try {
        dispatch();
    } catch (const RuntimeError& error) {
        const Message message = runtimeErrorMessage(error, QString::fromLatin1(tickStep_));
        if (!tickErrorsTold_.contains(message.text)) {
            tickErrorsTold_.insert(message.text);
            session.messages.show(message);
        }
    }
}

void Program::dispatch() {
    // Every test reads the code afresh: a procedure called by one step can enable a later one in the same tick.
    SessionState& state = session.state;
    if (state.Ctrlscrn == opstate::identified) {
        ports.debugsay(QStringLiteral("Version Detected"));
        state.Ctrlscrn = opstate::ready;
        if (state.isTrx()) {
            debug.outputFrameVisible = true;
            session.status.instrument = QStringLiteral("TRX");
        }
        if (state.isGlow()) {
            debug.fluorometerFrameVisible = true;
            session.status.instrument = QStringLiteral("GLOW");
        }
    }
    if (ports.isOpen()) {
        tickStep_ = "Reading the port";
        poll.quary();
    }
    if (state.Ctrlscrn == opstate::ready && !state.Rtn.isEmpty()) {
        tickStep_ = "Reading the settings";
        ++getprefsruns;
        settingsReader_.getprefs();
    }
    if (state.Ctrlscrn == opstate::idle) {
        getprefsruns = 0;
    }
    if (state.Ctrlscrn == opstate::collecting) {
        tickStep_ = "Collecting";
        if (!state.Rtn.isEmpty()) {
            collection_.profilemode();
        } else {
            collection_.endIfPrompted();
        }
    }
    if (state.Ctrlscrn == opstate::clockCheck) {
        tickStep_ = "Reading the clock";
        clockDisplay_.checktime();
    }
    if (state.Ctrlscrn == opstate::settingsOpen) {
        const QDateTime now = session.clock.now();
        settings.computerTime = clockText(now.time());
        settings.computerDate = shortDate(now.date());
    }
    if (state.Ctrlscrn == opstate::savingText) {
        tickStep_ = "Downloading";
        download_.savefiletxt();
    }
    if (state.Ctrlscrn == opstate::importing) {
        tickStep_ = "Downloading";
        download_.importtofg1();
    }
    recordFile_.syncWhenDue();
}

} // namespace orv
