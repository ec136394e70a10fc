// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/nextstep.h"

namespace orv {

QString rowsInWords(const QString& count) {
    return count == QLatin1String("1") ? QStringLiteral("1 row") : QStringLiteral("%1 rows").arg(count);
}

namespace {

QString connecting(const Link& link) {
    if (link.manual.shown.seeking) {
        return QStringLiteral("Switch the instrument's power on.");
    }
    for (const int portNumber : {1, 2}) {
        if (link.ports.use(portNumber).value() == PortUse::Instrument) {
            return QStringLiteral("Waking the instrument on COM %1 (%2). This takes a few seconds.")
                .arg(QString::number(portNumber), link.ports.chosenDevice(portNumber).value());
        }
    }
    return {};
}

QString collecting(const RunProgress& progress) {
    QString step = progress.late.value().isEmpty()
                       ? QStringLiteral("Collecting. Reset ends the run.")
                       : QStringLiteral("%1. Reset ends the run.").arg(progress.late.value());
    if (const QString disk = progress.disk; !disk.isEmpty()) {
        step += QStringLiteral(" Only %1.").arg(disk);
    }
    return step;
}

QString underWay(Activity activity, const Link& link, const RunProgress& progress) {
    switch (activity) {
    case Activity::Connecting:
        return connecting(link);
    case Activity::ReadingSettings:
        return QStringLiteral("Reading the instrument's settings.");
    case Activity::Collecting:
        return collecting(progress);
    case Activity::Downloading:
        return QStringLiteral("Downloading. Reset stops it; what has arrived is kept.");
    case Activity::Sending:
        return QStringLiteral("Sending the settings.");
    case Activity::SettingClock:
        return QStringLiteral("Setting the instrument's clock.");
    case Activity::ResettingShutter:
        return QStringLiteral("Moving the shutter.");
    case Activity::None:
        break;
    }
    return {};
}

QString atRest(const Link& link, const SheetState& sheet) {
    const bool open = link.session.commands.portOpen;
    if (sheet.unsaved) {
        return QStringLiteral("%1, not saved. Save As is on the page Output: Spread Sheet.")
            .arg(rowsInWords(sheet.counter));
    }
    if (!open) {
        return link.portChoices.shown.offersSimulation
                   ? QStringLiteral("Plug in an adapter, or choose a port and press Connect.")
                   : QStringLiteral("Choose a port and press Connect.");
    }
    return link.session.status.instrument.value() == InstrumentType::Unknown
               ? QStringLiteral("The instrument has not said what it is. Press Reset to ask again.")
               : QStringLiteral("Press Run to collect. Reset ends a run.");
}

QString sentence(const Link& link, const SheetState& sheet, const RunProgress& progress) {
    const CommandState& commands = link.session.commands;
    if (commands.asking) {
        return QStringLiteral("A question waits for your answer.");
    }
    if (const Activity activity = commands.activity; activity != Activity::None) {
        return underWay(activity, link, progress);
    }
    if (QString failure = link.session.status.failure; !failure.isEmpty()) {
        return failure;
    }
    if (link.manual.shown.visible) {
        return QStringLiteral("The dialog Manual Connection says how to go on.");
    }
    return atRest(link, sheet);
}

} // namespace

NextStep::NextStep(const Link& link, const SheetState& sheet, const RunProgress& progress) {
    text.setBinding([&link, &sheet, &progress] { return sentence(link, sheet, progress); });
}

} // namespace orv
