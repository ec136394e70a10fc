// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/program.h"

#include "base/runtimeerror.h"
#include "base/text.h"
#include "base/words.h"

#include <QScopedValueRollback>

#include <utility>

namespace orv {

Program::Program(const Surroundings& surroundings)
    : link(surroundings)
    , settings(link)
    , sheet(link, settings)
    , sheetExport(link, sheet.data, sheet.shown, settings)
    , calibration(link, sheet.data, sheet.shown)
    , shutter(link, settings.shown, settings.reader, settings.sender)
    , progress(link.session, settings.shown, sheet.run, sheet.download, surroundings.freeSpace)
    , nextStep(link, settings.shown, sheet.shown, progress)
    , subscriptions_{link.timer.tick.subscribe([this] { tick(); }),
                     link.connection.aboutToClose.subscribe([this] { closeRecordFile(); }),
                     link.connection.wasReset.subscribe([this] {
                         forgetToldErrors();
                         pages.shown = pageOfCaption(pages.upperCaption);
                     })} {}

Program::~Program() {
    link.waits.endAll();
}

void Program::act(const char* operation, const std::function<void()>& body) {
    runOperation(link.session.messages, Words::tr(operation), body);
}

void Program::load(Files files) {
    act(QT_TRANSLATE_NOOP("orv", "Start"), [this, files] {
        if (link.debug.comm2Output && !link.ports.openDebugPort()) {
            link.debug.comm2Output = false;
        }
        link.ports.debugsay(QStringLiteral("Form Loading"));
        link.connection.fixit();
        if (files == Files::InFolder) {
            takePlace();
            openLog();
        }
        link.timer.enable();
    });
}

void Program::autoConnect1() {
    forgetToldErrors();
    link.connection.autoConnect1();
}

void Program::autoConnect2() {
    forgetToldErrors();
    link.connection.autoConnect2();
}

void Program::connectPort(int portNumber) {
    if (!link.ports.isOpen()) {
        link.manual.hide(); // it is of a connection that is no more wanted
    }
    forgetToldErrors();
    link.connection.autoConnect(portNumber);
}

void Program::trySimulation() {
    link.portChoices.chooseSimulation();
    connectPort(1);
}

void Program::manualConnect(int portNumber) {
    forgetToldErrors();
    act(QT_TRANSLATE_NOOP("orv", "Manual Connect"), [this, portNumber] { link.connection.manualConnect(portNumber); });
}

void Program::closePort() {
    act(QT_TRANSLATE_NOOP("orv", "Close Port"), [this] {
        link.connection.closePort();
        forgetToldErrors();
        // The debug frame is hidden; an empty window would help nobody.
        if (pages.shown.value() == Page::Debug) {
            pages.shown = pageOfCaption(pages.upperCaption);
        }
    });
}

void Program::reset() {
    act(QT_TRANSLATE_NOOP("orv", "Reset"), [this] {
        link.ports.debugsay(QStringLiteral("Abort Run"));
        sheet.shown.records = QStringLiteral("0");
        link.connection.abortrun();
    });
}

void Program::abort2() {
    act(QT_TRANSLATE_NOOP("orv", "Reset"), [this] {
        link.ports.debugsay(QStringLiteral("Abort 2"));
        link.connection.abortrun();
    });
}

void Program::run() {
    act(QT_TRANSLATE_NOOP("orv", "Run"), [this] {
        tickErrorsTold_.clear(); // what ended the operation before is worth telling again
        if (sheet.place.cannotLock()) {
            // There may be room by now.
            sheet.place.take();
            useOwnFiles();
            openLog();
        }
        if (sheet.prepare()) {
            sheet.run.run1();
        }
    });
}

void Program::clearAll() {
    act(QT_TRANSLATE_NOOP("orv", "Clear All"), [this] { sheet.clearAll(); });
}

void Program::bringBack() {
    act(QT_TRANSLATE_NOOP("orv", "Bring Back"), [this] { sheet.bringBack(); });
}

void Program::saveAs() {
    link.procedures.startBeside(Words::tr("Save As"), [this] { return saveSheet(); });
}

void Program::saveSupportFile() {
    link.procedures.startBeside(Words::tr("Save Support File"), [this] { return capture.saveSupportFile(); });
}

void Program::exportSheet(const std::vector<RowRange>& chosen) {
    link.procedures.startBeside(Words::tr("Export"), [this, &chosen] { return sheetExport.exportSheet(chosen); });
}

Task<> Program::saveSheet() {
    co_await sheet.files.saveas();
}

void Program::openSheet() {
    link.procedures.startBeside(Words::tr("Open"), [this] { return sheet.files.loadit(); });
}

void Program::downloadText() {
    tickErrorsTold_.clear();
    sheet.download.saveAsText();
}

void Program::vwhp() {
    act(QT_TRANSLATE_NOOP("orv", "Download Stored Data"), [this] {
        tickErrorsTold_.clear();
        if (sheet.prepare()) {
            sheet.download.vwhp();
        }
    });
}

void Program::resetShutter() {
    shutter.shutterreset();
}

void Program::showSettingsForm() {
    link.ports.debugsay(QStringLiteral("Show Settings Form"));
    settings.shown.visible = true;
}

void Program::setComm2Output(bool ticked) {
    link.debug.comm2Output = ticked;
    if (!ticked) {
        link.ports.closeDebugPort();
    } else if (!link.ports.openDebugPort()) {
        link.debug.comm2Output = false;
    }
    link.timer.wake(); // what a tick announces is heard from now on
}

void Program::toggleServiceMode() {
    // The grey of the marker once the service mode has been left.
    constexpr quint32 leftMarkerColour = 13684686;
    if (link.session.state.trouble == 0) {
        pages.markerColour = 0;
        pages.serviceMode = true;
        link.session.state.trouble = 1;
        return;
    }
    pages.serviceMode = false;
    pages.markerColour = leftMarkerColour;
    link.session.state.trouble = 0;
    const Page page = pages.shown;
    if (page == Page::Debug || page == Page::Testing || page == Page::Calibration) {
        link.debug.debugFrameVisible = false;
        pages.shown = pageOfCaption(pages.upperCaption);
    }
}

void Program::selectUpperTab(const QString& caption) {
    link.ports.debugsay(QStringLiteral("Tabstrip changing"));
    pages.upperCaption = caption;
    link.debug.debugFrameVisible = false;
    pages.shown = pageOfCaption(caption);
}

void Program::selectLowerTab(const QString& caption) {
    const Page page = pageOfCaption(caption);
    link.debug.debugFrameVisible = page == Page::Debug;
    pages.shown = page;
}

void Program::quit() {
    link.ports.debugsay(QStringLiteral("Exit"));
    leave();
}

void Program::leave() {
    takeWhatArrived();
    link.waits.cancelQuestion();
    link.procedures.startBeside(Words::tr("Quit"), [this] { return askAndEnd(); });
}

Task<> Program::askAndEnd() {
    const bool mayEnd = co_await sheet.files.ask();
    if (mayEnd) {
        aboutToEnd.tell();
        end();
        ended.tell();
    }
}

void Program::end() {
    if (end_ == End::Unasked) {
        return;
    }
    end_ = End::Asked;
    takeWhatArrived();
    sheet.run.closeRecordFile();
    sheet.download.endIncomplete(Download::SheetThen::Goes);
    sheet.recordFile.rowsDiscarded(); // the operator has been asked about what is not saved
    stopEverything();
}

void Program::endUnasked() {
    if (end_ != End::NotYet) {
        return;
    }
    end_ = End::Unasked;
    link.waits.cancelQuestion();
    takeWhatArrived();
    sheet.run.closeRecordFile();
    const bool kept = keepForNextStart();
    sheet.download.endIncomplete(kept ? Download::SheetThen::IsOffered : Download::SheetThen::Goes);
    stopEverything();
    endedUnasked.tell();
}

void Program::stopEverything() {
    link.ports.close();
    link.timer.setInterval(0);
}

bool Program::keepForNextStart() {
    const Words reason = sheet.shown.unsaved ? sheet.recordFile.keepForNextStart(sheet.data) : Words();
    if (!reason.isEmpty()) {
        link.session.messages.show(
            operatorWarning(Words::tr("The rows on the sheet are not saved, and could not be kept for the next "
                                      "start either: %1.")
                                .arg(reason)));
    }
    return reason.isEmpty();
}

bool Program::collecting() const {
    const Operation operation = link.session.state.Ctrlscrn;
    return operation == Operation::Collecting || operation == Operation::SavingText ||
           operation == Operation::Importing;
}

void Program::takeWhatArrived() {
    // A line that fails meanwhile resets the program, which comes here again.
    if (takingWhatArrived_ || !collecting() || !link.ports.isOpen()) {
        return;
    }
    const QScopedValueRollback taking(takingWhatArrived_, true);
    const auto take = [this] {
        duringTick([this] {
            collect(takeLine());
            sheet.run.syncWhenDue();
        });
    };
    take();
    for (auto lines = link.poll.rxbuffer.count('\n'); lines > 0 && collecting() && link.ports.isOpen(); --lines) {
        take();
    }
}

void Program::closeRecordFile() {
    takeWhatArrived();
    sheet.run.closeRecordFile();
    sheet.download.endIncomplete();
}

void Program::forgetToldErrors() {
    tickErrorsTold_.clear();
    link.poll.log.forgetToldFailure();
}

void Program::tick() {
    bool again = true;
    do {
        again = true; // after an error too
        duringTick([this, &again] { again = dispatch(); });
    } while (link.poll.linesTogether > 1 && collecting() && link.poll.hasLine());
    // A tick that found nothing and changed nothing would be followed by such ticks, until something comes or is due.
    if (again) {
        link.timer.wake();
    }
}

void Program::duringTick(const std::function<void()>& body) {
    try {
        body();
    } catch (const RuntimeError& error) {
        const Message message = runtimeErrorMessage(error, Words::tr(tickStep_));
        if (!tickErrorsTold_.contains(message.text)) {
            tickErrorsTold_.insert(message.text);
            link.session.messages.show(message);
        }
    }
}

QString Program::takeLine() {
    tickStep_ = QT_TRANSLATE_NOOP("orv", "Reading the port");
    return link.ports.isOpen() ? link.poll.quary() : QString();
}

/// Returns whether the next tick may find something to do.
bool Program::dispatch() {
    // Every test reads the code afresh: a procedure called by one step can enable a later one in the same tick.
    SessionState& state = link.session.state;
    const Operation before = state.Ctrlscrn;
    if (state.Ctrlscrn == Operation::Identified) {
        link.ports.debugsay(QStringLiteral("Version Detected"));
        state.Ctrlscrn = Operation::Ready;
        // Without a letter the type that is shown stays.
        if (const InstrumentType type = state.type(); type != InstrumentType::Unknown) {
            (type == InstrumentType::Trx ? link.debug.outputFrameVisible : link.debug.fluorometerFrameVisible) = true;
            link.session.status.instrument = type;
        }
    }
    const QString line = takeLine();
    if (state.Ctrlscrn == Operation::Ready && !line.isEmpty()) {
        tickStep_ = QT_TRANSLATE_NOOP("orv", "Reading the settings");
        settings.reader.getprefs(line);
    }
    if (state.Ctrlscrn == Operation::ClockCheck) {
        tickStep_ = QT_TRANSLATE_NOOP("orv", "Reading the clock");
        settings.clock.checktime(line);
    }
    if (state.Ctrlscrn == Operation::SettingsOpen) {
        const QDateTime now = link.session.clock.now();
        settings.shown.computerTime = clockText(now.time());
        settings.shown.computerDate = shortDate(now.date());
        constexpr int second = 1000;
        link.timer.wake(second - now.time().msec());
    }
    settings.reader.lookForSilence();
    collect(line);
    if (const auto left = sheet.run.syncWhenDue()) {
        link.timer.wake(*left);
    }
    // The awaiting of the clock is announced at every tick.
    const bool announces = state.Ctrlscrn == Operation::ClockCheck && link.debug.comm2Output;
    // A prompt that came with a run's first line is seen by the poll after it.
    const QByteArray& rest = link.poll.rxbuffer;
    const bool prompted = state.gatherstart == 1 && !line.isEmpty() && (rest.contains('>') || rest.contains('!'));
    // The poll notices that the line is lost when it has read everything else.
    const bool isRead = link.ports.isOpen() && (link.poll.hasLine() || link.ports.hasFailed());
    return isRead || state.Ctrlscrn != before || prompted || announces;
}

void Program::collect(const QString& line) {
    const Operation& operation = link.session.state.Ctrlscrn;
    if (operation == Operation::Collecting) {
        tickStep_ = QT_TRANSLATE_NOOP("orv", "Collecting");
        if (!line.isEmpty()) {
            sheet.run.profilemode(line);
        } else {
            sheet.run.endIfPrompted();
        }
    }
    if (operation == Operation::SavingText) {
        tickStep_ = QT_TRANSLATE_NOOP("orv", "Downloading");
        sheet.download.savefiletxt(line);
    }
    if (operation == Operation::Importing) {
        tickStep_ = QT_TRANSLATE_NOOP("orv", "Downloading");
        sheet.download.importtofg1(line);
    }
}

} // namespace orv
