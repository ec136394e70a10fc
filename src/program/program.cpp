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
    , timer([this] { tick(); })
    , manual(session, connectItems, *this)
    , connection({.session = session,
                  .items = connectItems,
                  .ports = ports,
                  .debug = debug,
                  .wait = wait,
                  .events = surroundings.events,
                  .manual = manual,
                  .timer = timer,
                  .actions = *this})
    , poll(session, ports, debug, log_)
    , directSend(ports)
    , debugFrames(ports, debug)
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
                       .items = connectItems,
                       .manual = manual,
                       .settings = settings,
                       .progress = progress,
                       .actions = *this})
    , clockDisplay_(session, ports, debug, settings)
    , sheetRows_(session, ports, sheet, sheetState)
    , sheetFiles_({.session = session,
                   .ports = ports,
                   .sheet = sheet,
                   .rows = sheetRows_,
                   .shown = sheetState,
                   .questions = questions})
    , automaticSave_(session, sheetRows_, sheetFiles_, sheetState)
    , recordFile_(surroundings.clock, session.fileNames.record)
    , runRecovery_({.session = session,
                    .rows = sheetRows_,
                    .files = sheetFiles_,
                    .recordFile = recordFile_,
                    .questions = questions})
    , collection_({.session = session,
                   .ports = ports,
                   .poll = poll,
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
    , abortRun_(session, connectItems, ports, connection, manual, *this)
    , shutterReset_({.session = session,
                     .ports = ports,
                     .wait = wait,
                     .events = surroundings.events,
                     .poll = poll,
                     .timer = timer,
                     .settings = settings,
                     .getprefs = [this] { settingsReader_.getprefs(); },
                     .setprefs = [this] { return settingsSender.setprefs(); }}) {
    // A line that fails while open ends like a reset; what was received stays.
    ports.portFailed = [this] { fixit(); };
    recordFile_.claim = [this] { return place_.claim(); };
    sheetFiles_.saved = [this] { recordFile_.rowsSaved(); };
    rowsRemoved_ = sheet.rowsRemoved.subscribe([this] { recordFile_.rowsDiscarded(); });
    collection_.rowTaken = [this](const DataRow& row, RowLayout layout) { showOnDebugScreen(debug, row, layout); };
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
        fixit();
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
        settingsReader_.prefsState = 0; // a report cut short must not run on into the next connection's
        progress.visible = false;
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
        abortRun_.abortrun();
    });
}

void Program::abort2() {
    act("Reset", [this] {
        ports.debugsay(QStringLiteral("Abort 2"));
        abortRun_.abortrun();
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

void Program::fixit() {
    ports.debugsay(QStringLiteral("Reset Everything AKA FIXIT"));
    closeRecordFile();
    ports.close();
    SessionState& state = session.state;
    state.Rtn = QStringLiteral("wakeup!!!");
    state.Ctrlscrn = Operation::Idle;
    ports.discardInput();
    state.Tmr = 1;
    session.status.status = QStringLiteral("Offline");

    debug.debugFrameVisible = false;
    debug.turbidityFrameVisible = false;
    debug.fluorometerFrameVisible = false;
    debug.transmissometerFrameVisible = false;
    debug.outputFrameVisible = false;

    connectItems.enableAll();
    connectItems.uncheckAll();
    CommandState& commands = session.commands;
    commands.processingMenuVisible = false;
    commands.settingsMenuVisible = false;
    commands.resetEnabled = false;
    commands.runEnabled = false;
    commands.clearAllEnabled = false;
    commands.saveAsEnabled = false;
    commands.resetShutterEnabled = false;
    commands.closePortEnabled = false;
    commands.activity = Activity::None;
    progress.visible = false;
    tickErrorsTold_.clear();
    settingsReader_.prefsState = 0;

    state.portstatus = 2;
    state.Gatherstop = 0;
    state.gatherstart = 0;
    if (state.trouble == 1 && debug.showParsing) {
        debug.list.append(QString::number(ports.inputCount()));
    }
    state.Seeking = 0;
    pages.shown = pageOfCaption(pages.upperCaption);
    dumpState();
}

void Program::dumpState() {
    const SessionState& state = session.state;
    const std::pair<const char*, QString> lines[] = {
        {"Ctrlscrn ", printedNumber(static_cast<int>(state.Ctrlscrn))},
        {"Rtn ", state.Rtn},
        {"Tmr ", printedNumber(state.Tmr)},
        {"csnter ", QString()}, // names no variable; readers of the dump expect the line
        {"Vartemp ", state.Vartemp},
        {"trouble ", printedNumber(state.trouble)},
        {"portstatus ", printedNumber(state.portstatus)},
        {"gatherstart ", printedNumber(state.gatherstart)},
        {"Gatherstop ", printedNumber(state.Gatherstop)},
        {"plc ", printedNumber(state.plc)},
        {"Timeout ", printedNumber(state.Timeout)},
        {"Seeking ", printedNumber(state.Seeking)},
        {"Portused ", printedNumber(state.Portused)},
    };
    for (const auto& [label, value] : lines) {
        ports.debugsay(QLatin1String(label) + value);
    }
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

void Program::takeWhatArrived() {
    const auto collecting = [this] {
        const Operation operation = session.state.Ctrlscrn;
        return operation == Operation::Collecting || operation == Operation::SavingText ||
               operation == Operation::Importing;
    };
    // A line that fails meanwhile resets the program, which comes here again.
    if (takingWhatArrived_ || !collecting() || !ports.isOpen()) {
        return;
    }
    const QScopedValueRollback taking(takingWhatArrived_, true);
    tick();
    for (auto lines = poll.rxbuffer.count('\n'); lines > 0 && collecting() && ports.isOpen(); --lines) {
        tick();
    }
}

void Program::closeRecordFile() {
    takeWhatArrived();
    collection_.closeRecordFile();
    download_.endIncomplete();
}

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
    if (state.Ctrlscrn == Operation::Identified) {
        ports.debugsay(QStringLiteral("Version Detected"));
        state.Ctrlscrn = Operation::Ready;
        // Without a letter the type that is shown stays.
        if (const InstrumentType type = state.type(); type != InstrumentType::Unknown) {
            (type == InstrumentType::Trx ? debug.outputFrameVisible : debug.fluorometerFrameVisible) = true;
            session.status.instrument = type;
        }
    }
    if (ports.isOpen()) {
        tickStep_ = "Reading the port";
        poll.quary();
    }
    if (state.Ctrlscrn == Operation::Ready && !state.Rtn.isEmpty()) {
        tickStep_ = "Reading the settings";
        ++getprefsruns;
        settingsReader_.getprefs();
    }
    if (state.Ctrlscrn == Operation::Idle) {
        getprefsruns = 0;
    }
    if (state.Ctrlscrn == Operation::Collecting) {
        tickStep_ = "Collecting";
        if (!state.Rtn.isEmpty()) {
            collection_.profilemode();
        } else {
            collection_.endIfPrompted();
        }
    }
    if (state.Ctrlscrn == Operation::ClockCheck) {
        tickStep_ = "Reading the clock";
        clockDisplay_.checktime();
    }
    if (state.Ctrlscrn == Operation::SettingsOpen) {
        const QDateTime now = session.clock.now();
        settings.computerTime = clockText(now.time());
        settings.computerDate = shortDate(now.date());
    }
    if (state.Ctrlscrn == Operation::SavingText) {
        tickStep_ = "Downloading";
        download_.savefiletxt();
    }
    if (state.Ctrlscrn == Operation::Importing) {
        tickStep_ = "Downloading";
        download_.importtofg1();
    }
    recordFile_.syncWhenDue();
}

} // namespace orv
