// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/programrig.h"

namespace orv {
namespace {

/// The announcement of a reset and the 13 lines behind it, for what a fresh program has.
const char* const freshReset = "Reset Everything AKA FIXIT\r"
                               "Ctrlscrn  0\rRtn wakeup!!!\rTmr  1\rcsnter \rVartemp \rtrouble  0\rportstatus  2\r"
                               "gatherstart  0\rGatherstop  0\rplc  0\rTimeout  0\rSeeking  0\rPortused  0\r";

TEST_F(ProgramTest, AResetAnnouncesItselfAndDumpsTheStateOnTheDebugPort) {
    tickDebugOutput();
    state.Ctrlscrn = Operation::Collecting;
    state.Rtn = QStringLiteral("a line");
    state.Vartemp = QStringLiteral("V");
    state.trouble = 1;
    state.portstatus = 1;
    state.gatherstart = 1;
    state.Gatherstop = 3;
    state.plc = 17;
    state.Timeout = -5;
    state.Seeking = 1;
    state.Portused = 2;
    fixit();
    EXPECT_EQ(com2.writes.size(), 14) << "each line is one write";
    EXPECT_EQ(said(), "Reset Everything AKA FIXIT\r"
                      "Ctrlscrn  0\rRtn wakeup!!!\rTmr  1\rcsnter \rVartemp V\rtrouble  1\rportstatus  2\r"
                      "gatherstart  0\rGatherstop  0\rplc  17\rTimeout -5\rSeeking  0\rPortused  2\r");
}

TEST_F(ProgramTest, AResetWritesNothingWhenTheBoxIsCleared) {
    tickDebugOutput();
    program.setComm2Output(false);
    fixit();
    EXPECT_FALSE(com2.isOpen()) << "COM 2 is free for the instrument again";
    EXPECT_EQ(said(), "");
}

TEST_F(ProgramTest, AResetWithTheBoxTickedAndTheDebugPortClosedIsSilent) {
    debug.comm2Output = true;
    fixit();
    EXPECT_EQ(said(), "");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ProgramTest, AResetGoesStepByStep) {
    connectAndRead();
    tickDebugOutput();
    bool portOpenAtAnnouncement = false;
    std::string statusAtDump;
    Page pageAtDump = Page::None;
    com2.written = [&](const QByteArray& line) {
        if (line.startsWith("Reset Everything")) {
            portOpenAtAnnouncement = com1.isOpen();
        } else if (line.startsWith("Ctrlscrn ")) {
            EXPECT_FALSE(com1.isOpen());
            statusAtDump = status.status.value().toStdString();
            pageAtDump = program.pages.shown;
        }
    };
    program.selectLowerTab(QStringLiteral("Testing"));
    fixit();
    EXPECT_TRUE(portOpenAtAnnouncement);
    EXPECT_EQ(statusAtDump, "Offline");
    EXPECT_EQ(pageAtDump, Page::Status);
    expectOffline();
}

TEST_F(ProgramTest, AResetWithNoPortOpenTouchesNoPort) {
    com1.input = "left over";
    fixit();
    expectOffline();
    EXPECT_TRUE(com1.dtr.isEmpty());
    EXPECT_TRUE(com1.writes.empty());
    EXPECT_EQ(com1.discards, 0);
    EXPECT_EQ(com1.input->toStdString(), "left over");
}

TEST_F(ProgramTest, AResetHidesEveryFrameOfTheDebugScreen) {
    QProperty<bool>* const frames[] = {&debug.debugFrameVisible, &debug.turbidityFrameVisible,
                                       &debug.fluorometerFrameVisible, &debug.transmissometerFrameVisible,
                                       &debug.outputFrameVisible};
    for (QProperty<bool>* frame : frames) {
        *frame = true;
    }
    fixit();
    for (const QProperty<bool>* frame : frames) {
        EXPECT_FALSE(frame->value());
    }
}

TEST_F(ProgramTest, AResetKeepsWhatBelongsToTheSessionAndTheRows) {
    runWithRows(2);
    state.trouble = 1;
    const qint16 calls = state.Timeout;
    ASSERT_GT(calls, 0);
    fixit();
    EXPECT_EQ(state.Vartemp.toStdString(), "V");
    EXPECT_EQ(state.plc, 2);
    EXPECT_EQ(state.Timeout, calls);
    EXPECT_EQ(state.trouble, 1);
    EXPECT_EQ(state.Portused, 1);
    EXPECT_EQ(sheet.rowCount(), 2);
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_EQ(status.firmware.value().toStdString(), "512");
}

TEST_F(ProgramTest, AResetEndsARunWithItsFileClosedWhole) {
    runWithRows(2);
    ASSERT_TRUE(folder.isOpen("Orvtemp.tmp"));
    fixit();
    expectOffline();
    EXPECT_FALSE(folder.isOpen("Orvtemp.tmp"));
    EXPECT_TRUE(contentsOf(folder.path("Orvtemp.tmp")).endsWith("2\t11/21/26\t1:00:00\t2\t\t20\t\t30\t40\r\n"));
}

TEST_F(ProgramTest, AResetLetsTheNextPollForgetWhatWasReceived) {
    connect();
    receive("half a li");
    ASSERT_EQ(rxbuffer.toStdString(), "half a li");
    fixit();
    connect();
    receive("S1\r\n");
    EXPECT_EQ(state.Rtn.toStdString(), "S1");
}

TEST_F(ProgramTest, AResetListsTheInputCountOnlyWhenAskedTo) {
    const auto listedByReset = [this](quint8 trouble, bool showParsing) {
        state.trouble = trouble;
        debug.showParsing = showParsing;
        const std::size_t before = debug.list.entries().size();
        fixit();
        return debug.list.entries().size() - before;
    };
    EXPECT_EQ(listedByReset(0, true), 0U);
    EXPECT_EQ(listedByReset(1, false), 0U);
    ASSERT_EQ(listedByReset(1, true), 1U);
    EXPECT_EQ(debug.list.entries().back().toStdString(), "0");
}

TEST_F(ProgramTest, AResetShowsThePageOfTheUpperStrip) {
    const std::pair<const char*, Page> tabs[] = {{"Status and Controls", Page::Status},
                                                 {"Output: Spread Sheet", Page::Sheet},
                                                 {"Output: Graphical", Page::Graphical},
                                                 {"Something else", Page::None}};
    for (const auto& [caption, page] : tabs) {
        program.selectUpperTab(QString::fromLatin1(caption));
        program.selectLowerTab(QStringLiteral("Calibration"));
        ASSERT_EQ(program.pages.shown.value(), Page::Calibration);
        fixit();
        EXPECT_EQ(program.pages.shown.value(), page) << caption;
    }
}

TEST_F(ProgramTest, StartUpOpensTheDebugPortBeforeItSaysAnything) {
    debug.comm2Output = true;
    program.load();
    EXPECT_TRUE(com2.isOpen());
    EXPECT_EQ(said(), std::string("Form Loading\r") + freshReset);
    expectOffline();
    EXPECT_TRUE(timer.isRunning());
    EXPECT_EQ(timer.interval(), 5);
}

TEST_F(ProgramTest, StartUpWithoutDebugOutputLeavesCom2Alone) {
    program.load();
    EXPECT_FALSE(com2.isOpen());
    EXPECT_EQ(said(), "");
}

TEST_F(ProgramTest, StartUpGoesOnWithoutADebugPortThatCannotBeOpened) {
    com2.openReason = QStringLiteral("There is no such device.");
    debug.comm2Output = true;
    program.load();
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("COM 2 (ttyB)")));
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("There is no such device.")));
    EXPECT_FALSE(debug.comm2Output);
    expectOffline();
    EXPECT_TRUE(timer.isRunning());
}

TEST_F(ProgramTest, StartUpEmptiesTheLogAndKeepsItOpen) {
    fill(folder.path("log.ohp"), "of the run before");
    program.load();
    EXPECT_EQ(contentsOf(folder.path("log.ohp")), "");
    connect();
    receive("P\r\nS1");
    receive("\r\n");
    program.closePort();
    EXPECT_EQ(contentsOf(folder.path("log.ohp")), "P\r\nS1\r\n\r\n\r\n");
    EXPECT_TRUE(folder.isOpen("log.ohp"));
}

TEST_F(ProgramTest, StartUpTellsOfALogThatCannotBeWrittenAndGoesOn) {
    ASSERT_TRUE(QDir().mkdir(QStringLiteral("log.ohp")));
    program.load();
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("log.ohp")));
    connectAndRead();
    EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(ProgramTest, ServiceModeTogglesTroubleAndTheLowerStrip) {
    constexpr quint32 lightGrey = 13684686;
    program.toggleServiceMode();
    EXPECT_EQ(state.trouble, 1);
    EXPECT_TRUE(program.pages.serviceMode);
    EXPECT_NE(program.pages.markerColour.value(), lightGrey);
    EXPECT_EQ(program.pages.shown.value(), Page::Status);
    program.toggleServiceMode();
    EXPECT_EQ(state.trouble, 0);
    EXPECT_FALSE(program.pages.serviceMode);
    EXPECT_EQ(program.pages.markerColour.value(), lightGrey);
    program.toggleServiceMode();
    EXPECT_EQ(state.trouble, 1);
    EXPECT_TRUE(program.pages.serviceMode);
}

TEST_F(ProgramTest, LeavingServiceModeLeavesItsPages) {
    for (const QString& caption : lowerCaptions()) {
        program.selectUpperTab(QStringLiteral("Output: Spread Sheet"));
        program.toggleServiceMode();
        program.selectLowerTab(caption);
        program.toggleServiceMode();
        EXPECT_EQ(program.pages.shown.value(), Page::Sheet) << qPrintable(caption);
        EXPECT_FALSE(debug.debugFrameVisible) << qPrintable(caption);
    }
}

TEST_F(ProgramTest, OnlyTheUpperStripAnnouncesItsTabs) {
    tickDebugOutput();
    program.selectUpperTab(QStringLiteral("Output: Graphical"));
    EXPECT_EQ(program.pages.shown.value(), Page::Graphical);
    EXPECT_EQ(said(), "Tabstrip changing\r");
    program.selectLowerTab(QStringLiteral("Debug Screen"));
    EXPECT_EQ(program.pages.shown.value(), Page::Debug);
    EXPECT_TRUE(debug.debugFrameVisible);
    EXPECT_EQ(said(), "");
    program.selectUpperTab(QStringLiteral("Output: Graphical"));
    EXPECT_EQ(program.pages.shown.value(), Page::Graphical);
    EXPECT_FALSE(debug.debugFrameVisible);
}

TEST_F(ProgramTest, ATabOfNoKnownCaptionHidesEveryPage) {
    program.selectUpperTab(QStringLiteral("Output: spread sheet"));
    EXPECT_EQ(program.pages.shown.value(), Page::None);
    program.selectUpperTab(QStringLiteral("Output: Spread Sheet"));
    program.selectLowerTab(QStringLiteral("Debug"));
    EXPECT_EQ(program.pages.shown.value(), Page::None);
}

TEST_F(ProgramTest, DebugOutputTickedLaterOpensThePortAndSpeaks) {
    program.load();
    program.setComm2Output(true);
    EXPECT_TRUE(com2.isOpen());
    program.showSettingsForm();
    EXPECT_EQ(said(), "Show Settings Form\r");
    EXPECT_TRUE(settings.visible);
    program.setComm2Output(false);
    program.showSettingsForm();
    EXPECT_EQ(said(), "");
    program.setComm2Output(true);
    program.showSettingsForm();
    EXPECT_EQ(said(), "Show Settings Form\r");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ProgramTest, DebugOutputThatCannotBeOpenedIsToldAndCleared) {
    com2.openReason = QStringLiteral("It is used by another program.");
    program.setComm2Output(true);
    EXPECT_FALSE(debug.comm2Output);
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("It is used by another program.")));
}

TEST_F(ProgramTest, TheInstrumentAndTheDebugOutputDoNotShareCom2) {
    replies = {"F310\r"};
    autoConnect(2);
    ASSERT_TRUE(com2.isOpen());
    program.setComm2Output(true);
    EXPECT_FALSE(debug.comm2Output);
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("Close Port")));
    EXPECT_TRUE(com2.isOpen());
    program.closePort();
    program.setComm2Output(true);
    EXPECT_TRUE(debug.comm2Output);
    messages.shown.clear();
    autoConnect(2);
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("Comm 2 Debug Output")));
    expectOffline();
}

TEST_F(ProgramTest, ClosingThePortOnTheDebugScreenShowsThePageOfTheUpperStrip) {
    program.selectUpperTab(QStringLiteral("Output: Spread Sheet"));
    program.selectLowerTab(QStringLiteral("Debug Screen"));
    program.closePort();
    EXPECT_FALSE(debug.debugFrameVisible.value());
    EXPECT_EQ(program.pages.shown.value(), Page::Sheet);
}

TEST_F(ProgramTest, AReportCutShortByClosePortDoesNotRunOnIntoTheNext) {
    connect();
    receive("P\r\nS1\r\nG0\r\nA0\r\nL1\r\nW1\r\nM0\r\nT30\r\n");
    ticks(8);
    ASSERT_EQ(settings.record.value().samplesPerPoint.toStdString(), "30");
    program.closePort();
    settings.lamp = Lamp::Off;
    connect();
    receive("P\r\n");
    ticks(1);
    EXPECT_EQ(settings.record.value().samplesPerPoint.toStdString(), "30") << "the echo is no setting";
    EXPECT_EQ(settings.lamp.value(), Lamp::Reading);
}

} // namespace
} // namespace orv
