// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/checktime.h"

#include "session/datetimetext.h"
#include "session/numbertext.h"
#include "session/runtimeerror.h"

namespace orv {

ClockDisplay::ClockDisplay(Session& session, ComPorts& ports, DebugPanel& debug, SettingsPanel& settings)
    : session_(session)
    , ports_(ports)
    , debug_(debug)
    , settings_(settings) {}

void ClockDisplay::checktime() {
    ports_.debugsay(QStringLiteral("Check Orv Sensor Time"));
    const QString reply = session_.state.Rtn;
    if (reply.size() < 10) {
        return;
    }
    const qsizetype dateLength = reply.indexOf(u'\t') + 1;
    const QString dateText = reply.first(dateLength);
    const QString timeText = reply.sliced(dateLength);
    if (debug_.showParsing && session_.state.trouble == 1) {
        debug_.list.append(dateText);
        debug_.list.append(timeText);
    }
    try {
        show(dateText, timeText);
    } catch (const RuntimeError&) {
        session_.messages.show({.title = QStringLiteral("Software Error"),
                                .text = QStringLiteral("Unable to read clock. Error #2"),
                                .icon = Message::Icon::Exclamation});
    }
}

void ClockDisplay::show(const QString& dateText, const QString& timeText) {
    const auto date = instrumentDate(dateText);
    if (!date) {
        throw RuntimeError(RuntimeError::Kind::TypeMismatch);
    }
    const QString time = timeOfDay(wholeNumberText(timeText)).text12();
    session_.status.date = shortDate(*date);
    settings_.loggerDate = shortDate(*date);
    session_.status.time = time;
    settings_.loggerTime = time;
    session_.state.Ctrlscrn = opstate::settingsOpen;
}

} // namespace orv
