// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/nextstep.h"

namespace orv {

Words rowsInWords(const QString& count) {
    return count == QLatin1String("1") ? Words::tr("1 row") : Words::tr("%1 rows").arg(count);
}

namespace {

/// How many rows no file has, and of how many if a file has the others.
Words rowsNotSaved(const SheetState& sheet) {
    const int all = sheet.counter.value().toInt();
    const int inFile = sheet.rowsInFile;
    return inFile > 0 && inFile < all
               ? Words::tr("%1 of %2 rows").arg(QString::number(all - inFile), QString::number(all))
               : rowsInWords(sheet.counter);
}

Words connecting(const Link& link) {
    if (link.manual.shown.seeking) {
        return Words::tr("Switch the instrument's power on.");
    }
    for (const int portNumber : {1, 2}) {
        if (link.ports.use(portNumber).value() == PortUse::Instrument) {
            return Words::tr("Waking the instrument on COM %1 (%2). This takes a few seconds.")
                .arg(QString::number(portNumber), link.ports.chosenDevice(portNumber).value());
        }
    }
    return {};
}

Words collecting(const RunProgress& progress) {
    Words step = progress.late.value().isEmpty() ? Words::tr("Collecting. Reset ends the run.")
                                                 : Words::tr("%1. Reset ends the run.").arg(progress.late.value());
    if (const Words disk = progress.disk; !disk.isEmpty()) {
        step += Words::tr(" Only %1.").arg(disk);
    }
    return step;
}

Words underWay(Activity activity, const Link& link, const SettingsState& settings, const RunProgress& progress) {
    switch (activity) {
    case Activity::Connecting:
        return connecting(link);
    case Activity::ReadingSettings:
        return Words::tr("Reading the instrument's settings.");
    case Activity::Collecting:
        return collecting(progress);
    case Activity::Downloading:
        return Words::tr("Downloading. Reset stops it; what has arrived is kept.");
    case Activity::Sending:
        return Words::tr("Sending the settings.");
    case Activity::SettingClock:
        return settings.secondsToFullMinute == 0 ? Words::tr("Setting the instrument's clock.")
                                                 : Words::tr("%1 Reset stops it.").arg(settings.fullMinuteWait());
    case Activity::ResettingShutter:
        return Words::tr("Moving the shutter.");
    case Activity::None:
        break;
    }
    return {};
}

Words atRest(const Link& link, const SheetState& sheet) {
    const bool open = link.session.commands.portOpen;
    if (sheet.unsaved) {
        return Words::tr("%1, not saved. Save As is on the page Output: Spread Sheet.").arg(rowsNotSaved(sheet));
    }
    if (!open) {
        return link.portChoices.shown.offersSimulation
                   ? Words::tr("Plug in an adapter, or choose a port and press Connect.")
                   : Words::tr("Choose a port and press Connect.");
    }
    if (link.session.status.instrument.value() == InstrumentType::Unknown) {
        return Words::tr("The instrument has not said what it is. Press Reset to ask again.");
    }
    return sheet.hasOtherType ? Words::tr("The sheet has rows of another type of instrument. Clear All is on the page "
                                          "Output: Spread Sheet.")
                              : Words::tr("Press Run to collect. Reset ends a run.");
}

/// What a failure asks for; empty without one.
Words afterFailure(const Link& link, const SheetState& sheet) {
    Words failure = link.session.status.failure;
    return failure.isEmpty() || !sheet.unsaved ? failure
                                               : Words::tr("%1 %2, not saved.").arg(failure, rowsNotSaved(sheet));
}

} // namespace

// Each of these reads at most five properties at a time. Qt 6.4 keeps the observers of more than five in a list that
// may move while one of them is being told of a change, which then ends the program.
NextStep::NextStep(const Link& link, const SettingsState& settings, const SheetState& sheet,
                   const RunProgress& progress) {
    const CommandState& commands = link.session.commands;
    underWay_.setBinding(
        [&link, &settings, &progress] { return underWay(link.session.commands.activity, link, settings, progress); });
    afterFailure_.setBinding([&link, &sheet] { return afterFailure(link, sheet); });
    atRest_.setBinding([&link, &sheet] {
        // Rows of a run are not counted here.
        return link.session.commands.activity.value() == Activity::None ? atRest(link, sheet) : Words();
    });
    text.setBinding([this, &commands, &manual = link.manual.shown] {
        if (commands.asking) {
            return Words::tr("A question waits for your answer.");
        }
        if (commands.activity.value() != Activity::None) {
            return underWay_.value();
        }
        if (!afterFailure_.value().isEmpty()) {
            return afterFailure_.value();
        }
        return manual.visible ? Words::tr("The dialog Manual Connection says how to go on.") : atRest_.value();
    });
}

} // namespace orv
