// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/program.h"

#include "base/runtimeerror.h"
#include "base/text.h"
#include "sheet/run.h"

#include <QScopedValueRollback>

namespace orv {

Program::Program(const Surroundings& surroundings)
    : session(surroundings.clock, surroundings.messages)
    , questions(surroundings.questions, session)
    , ports(session, debug, surroundings.makePort)
    , portChoices({.ports = ports, .portList = surroundings.portList, .deviceProblem = surroundings.deviceProblem})
    , wait(surroundings.clock, surroundings.events, ports)
    , connection(session, debug, ports, wait, surroundings.events, timer)
    , manual(session, connection)
    , poll(session, ports, debug, log_)
    , directSend(ports)
    , settingsSender({.session = session,
                      .ports = ports,
                      .debug = debug,
                      .poll = poll,
                      .wait = wait,
                      .events = surroundings.events,
                      .timer = timer,
                      .settings = settings,
                      .progress = progress})
    , settingsCommands(session, ports, settings, progress, settingsSender)
    , modes(session, ports, settings, settingsSender, questions)
    , deviceFiles(session, settings, questions)
    , calibration({.session = session,
                   .sheet = sheet,
                   .sheetState = sheetState,
                   .shown = calibrationState,
                   .questions = questions})
    , settingsReader_({.session = session,
                       .ports = ports,
                       .connection = connection,
                       .manual = manual,
                       .settings = settings,
                       .progress = progress})
    , clockDisplay_(session, ports, debug, settings)
    , sheetRows_(session, ports, sheet, sheetState)
    , sheetFiles_({.session = session,
                   .ports = ports,
                   .sheet = sheet,
                   .rows = sheetRows_,
                   .shown = sheetState,
                   .questions = questions})
    , automaticSave_(session, sheetRows_, sheetFiles_, sheetState)
    , recordFile_(surroundings.clock, session.fileNames.record, &place_)
    , runRecovery_({.session = session,
                    .rows = sheetRows_,
                    .files = sheetFiles_,
                    .recordFile = recordFile_,
                    .questions = questions})
    , collection_({.session = session,
                   .ports = ports,
                   .poll = poll,
                   .debug = debug,
                   .settings = settings,
                   .rows = sheetRows_,
                   .automaticSave = automaticSave_,
                   .recordFile = recordFile_})
    , download_({.session = session,
                 .ports = ports,
                 .timer = timer,
                 .settings = settings,
                 .progress = progress,
                 .rows = sheetRows_,
                 .shown = sheetState,
                 .automaticSave = automaticSave_,
                 .questions = questions})
    , shutterReset_({.session = session,
                     .ports = ports,
                     .wait = wait,
                     .events = surroundings.events,
                     .poll = poll,
                     .timer = timer,
                     .settings = settings,
                     .getprefs = [this](const QString& line) { settingsReader_.getprefs(line); },
                     .setprefs = [this] { return settingsSender.setprefs(); }}) {
    subscriptions_ = {
        timer.tick.subscribe([this] { tick(); }),
        connection.aboutToClose.subscribe([this] { closeRecordFile(); }),
        connection.wasReset.subscribe([this] {
            tickErrorsTold_.clear();
            pages.shown = pageOfCaption(pages.upperCaption);
        }),
        connection.identified.subscribe([this] { layOutHeaderRow(); }),
        sheetFiles_.saved.subscribe([this] { recordFile_.rowsSaved(); }),
        sheet.rowsRemoved.subscribe([this] { recordFile_.rowsDiscarded(); }),
    };
}

void Program::act(const char* operation, const std::function<void()>& body) {
    runOperation(session.messages, QString::fromLatin1(operation), body);
}

void Program::load() {
    act("Start", [this] {
        if (debug.comm2Output && !ports.openDebugPort()) {
            debug.comm2Output = false;
        }
        ports.debugsay(QStringLiteral("Form Loading"));
        connection.fixit();
        takePlace();
        openLog();
        timer.enable();
    });
}

void Program::autoConnect1() {
    act("Auto Connect Comm 1", [this] { connection.autoConnect1(); });
}

void Program::autoConnect2() {
    act("Auto Connect Comm 2", [this] { connection.autoConnect2(); });
}

void Program::manualConnect(int portNumber) {
    act("Manual Connect", [this, portNumber] { connection.manualConnect(portNumber); });
}

void Program::closePort() {
    act("Close Port", [this] {
        connection.closePort();
        // The debug frame is hidden; an empty window would help nobody.
        if (pages.shown.value() == Page::Debug) {
            pages.shown = pageOfCaption(pages.upperCaption);
        }
    });
}

void Program::reset() {
    act("Reset", [this] {
        ports.debugsay(QStringLiteral("Abort Run"));
        sheetState.records = QStringLiteral("0");
        connection.abortrun();
    });
}

void Program::abort2() {
    act("Reset", [this] {
        ports.debugsay(QStringLiteral("Abort 2"));
        connection.abortrun();
    });
}

void Program::run() {
    act("Run", [this] {
        prepareSheet();
        progress.visible = false; // a settings report that is still coming will not end
        collection_.run1();
    });
}

void Program::clearAll() {
    act("Clear All", [this] { sheetRows_.clearSpreadSheet(); });
}

void Program::saveAs() {
    act("Save As", [this] { sheetFiles_.saveas(); });
}

void Program::openSheet() {
    act("Open", [this] { sheetFiles_.loadit(); });
}

void Program::downloadText() {
    act("Download Stored Data", [this] {
        tickErrorsTold_.clear();
        download_.saveAsText();
    });
}

void Program::vwhp() {
    act("Download Stored Data", [this] {
        prepareSheet();
        download_.vwhp();
    });
}

void Program::resetShutter() {
    act("Reset Shutter", [this] { shutterReset_.shutterreset(); });
}

void Program::showSettingsForm() {
    ports.debugsay(QStringLiteral("Show Settings Form"));
    settings.visible = true;
}

void Program::about() {
    ports.debugsay(QStringLiteral("About"));
}

void Program::setComm2Output(bool ticked) {
    debug.comm2Output = ticked;
    if (!ticked) {
        ports.closeDebugPort();
    } else if (!ports.openDebugPort()) {
        debug.comm2Output = false;
    }
}

void Program::toggleServiceMode() {
    // The grey of the marker once the service mode has been left.
    constexpr quint32 leftMarkerColour = 13684686;
    if (session.state.trouble == 0) {
        pages.markerColour = 0;
        pages.serviceMode = true;
        session.state.trouble = 1;
        return;
    }
    pages.serviceMode = false;
    pages.markerColour = leftMarkerColour;
    session.state.trouble = 0;
    const Page page = pages.shown;
    if (page == Page::Debug || page == Page::Testing || page == Page::Calibration) {
        debug.debugFrameVisible = false;
        pages.shown = pageOfCaption(pages.upperCaption);
    }
}

void Program::selectUpperTab(const QString& caption) {
    ports.debugsay(QStringLiteral("Tabstrip changing"));
    pages.upperCaption = caption;
    debug.debugFrameVisible = false;
    pages.shown = pageOfCaption(caption);
}

void Program::selectLowerTab(const QString& caption) {
    const Page page = pageOfCaption(caption);
    debug.debugFrameVisible = page == Page::Debug;
    pages.shown = page;
}

bool Program::quit() {
    ports.debugsay(QStringLiteral("Exit"));
    return ask();
}

bool Program::ask() {
    takeWhatArrived();
    bool mayEnd = false;
    act("Quit", [this, &mayEnd] { mayEnd = sheetFiles_.ask(); });
    return mayEnd;
}

void Program::end() {
    closeRecordFile();
    recordFile_.rowsDiscarded(); // the operator has been asked about what is not saved
    timer.setInterval(0);
    ports.close();
}

void Program::layOutHeaderRow() {
    const RowLayout layout = sheetRows_.connectedLayout();
    if (layout != RowLayout::Unknown && layout != sheet.type().layout()) {
        sheetFiles_.saveAside();
    }
    sheetRows_.layOutOnOpening();
}

void Program::prepareSheet() {
    tickErrorsTold_.clear(); // what ended the operation before is worth telling again
    // A loaded sheet may be of another type than the instrument.
    const RowLayout layout = sheetRows_.connectedLayout();
    if (layout != RowLayout::Unknown && layout != sheet.type().layout()) {
        layOutHeaderRow();
    }
}

bool Program::collecting() const {
    const Operation operation = session.state.Ctrlscrn;
    return operation == Operation::Collecting || operation == Operation::SavingText ||
           operation == Operation::Importing;
}

void Program::takeWhatArrived() {
    // A line that fails meanwhile resets the program, which comes here again.
    if (takingWhatArrived_ || isPolling() || !collecting() || !ports.isOpen()) {
        return;
    }
    const QScopedValueRollback taking(takingWhatArrived_, true);
    const auto take = [this] {
        duringTick([this] {
            collect(takeLine());
            recordFile_.syncWhenDue();
        });
    };
    take();
    for (auto lines = poll.rxbuffer.count('\n'); lines > 0 && collecting() && ports.isOpen(); --lines) {
        take();
    }
}

void Program::closeRecordFile() {
    takeWhatArrived();
    collection_.closeRecordFile();
    download_.endIncomplete();
}

void Program::tick() {
    if (!isPolling()) {
        duringTick([this] { dispatch(); });
    }
}

void Program::duringTick(const std::function<void()>& body) {
    try {
        body();
    } catch (const RuntimeError& error) {
        const Message message = runtimeErrorMessage(error, QString::fromLatin1(tickStep_));
        if (!tickErrorsTold_.contains(message.text)) {
            tickErrorsTold_.insert(message.text);
            session.messages.show(message);
        }
    }
}

QString Program::takeLine() {
    tickStep_ = "Reading the port";
    return ports.isOpen() ? poll.quary() : QString();
}

void Program::dispatch() {
    // Every test reads the code afresh: a procedure called by one step can enable a later one in the same tick.
    SessionState& state = session.state;
    if (state.Ctrlscrn == Operation::Identified) {
        ports.debugsay(QStringLiteral("Version Detected"));
        state.Ctrlscrn = Operation::Ready;
        // Without a letter the type that is shown stays.
        if (const InstrumentType type = state.type(); type != InstrumentType::Unknown) {
            (type == InstrumentType::Trx ? debug.outputFrameVisible : debug.fluorometerFrameVisible) = true;
            session.status.instrument = type;
        }
    }
    const QString line = takeLine();
    if (state.Ctrlscrn == Operation::Ready && !line.isEmpty()) {
        tickStep_ = "Reading the settings";
        settingsReader_.getprefs(line);
    }
    if (state.Ctrlscrn == Operation::ClockCheck) {
        tickStep_ = "Reading the clock";
        clockDisplay_.checktime(line);
    }
    if (state.Ctrlscrn == Operation::SettingsOpen) {
        const QDateTime now = session.clock.now();
        settings.computerTime = clockText(now.time());
        settings.computerDate = shortDate(now.date());
    }
    collect(line);
    recordFile_.syncWhenDue();
}

void Program::collect(const QString& line) {
    const Operation& operation = session.state.Ctrlscrn;
    if (operation == Operation::Collecting) {
        tickStep_ = "Collecting";
        if (!line.isEmpty()) {
            collection_.profilemode(line);
        } else {
            collection_.endIfPrompted();
        }
    }
    if (operation == Operation::SavingText) {
        tickStep_ = "Downloading";
        download_.savefiletxt(line);
    }
    if (operation == Operation::Importing) {
        tickStep_ = "Downloading";
        download_.importtofg1(line);
    }
}

} // namespace orv
