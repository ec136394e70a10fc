// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/sendingtest.h"

namespace orv {

namespace {

/// A way to request the settings report.
struct ReportRequest {
    const char* name;
    void (*request)(ProgramRig& rig);
};

void PrintTo(const ReportRequest& request, std::ostream* out) {
    *out << request.name;
}

const ReportRequest reportRequests[] = {
    {"Connecting",
     [](ProgramRig& rig) {
         rig.program.reset();
         rig.replies = {"V512\r"};
     }},
    {"RetrieveSettings", [](ProgramRig& rig) { rig.sender.retrieveSettings(); }},
    {"ApplySettings", [](ProgramRig& rig) { rig.sender.applySettings(); }},
    {"Profile", [](ProgramRig& rig) { rig.program.settings.modes.profile(); }},
    {"Moored", [](ProgramRig& rig) { rig.program.settings.modes.moored(); }},
    {"LoadMode", [](ProgramRig& rig) { rig.program.settings.modes.loadMode(); }},
};

class ReadingSettings : public SendingTest, public testing::WithParamInterface<ReportRequest> {
protected:
    ReadingSettings() {
        answers.fileName = path("own.OCM");
        fill(answers.fileName, modeFileContent(settings.record));
        GetParam().request(*this);
        finish();
        answers.asked.clear();
        writesBefore = writes.size();
    }

    /// What the operator finds as long as the report has not ended.
    void expectReading() {
        EXPECT_EQ(commands.activity.value(), Activity::ReadingSettings);
        EXPECT_FALSE(commands.canCommand);
        EXPECT_FALSE(commands.canRun);
        EXPECT_FALSE(commands.canResetShutter);
        const LoggerSettings before = settings.record;
        sender.retrieveSettings();
        sender.applySettings();
        sender.displayLoggerTime();
        program.settings.modes.profile();
        program.settings.modes.moored();
        program.settings.modes.loadMode();
        finish();
        EXPECT_EQ(settings.record.value(), before);
        EXPECT_EQ(writes.size(), writesBefore);
        EXPECT_EQ(state.Ctrlscrn, Operation::Ready);
        EXPECT_TRUE(answers.asked.isEmpty());
        EXPECT_TRUE(messages.shown.empty());
    }

    void expectNoAnswer() {
        EXPECT_EQ(status.status.value().toStdString(), "No answer for 10 s. Reset connects again.");
    }

    std::size_t writesBefore = 0;
};

TEST_P(ReadingSettings, LastsUntilTheMemoryPointerAndIsNotDisturbed) {
    EXPECT_EQ(writes.back().bytes, "P");
    live(0.01);
    expectReading();
    for (const char* line : {"P", "S1", "G0", "A0", "L1", "W1", "M0", "T30", "D24", "Q100", "I5"}) {
        com1.input += line + QByteArray("\r\n");
        live(0.1);
        SCOPED_TRACE(line);
        expectReading();
        EXPECT_EQ(status.status.value().toStdString(), "Loading Properties");
    }
    com1.input += "MP100\r\n>";
    live(0.1);
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_TRUE(commands.canCommand);
    EXPECT_TRUE(commands.canRun);
    EXPECT_TRUE(commands.canResetShutter);
    EXPECT_FALSE(progress.visible);
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    live(20.0);
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
}

TEST_P(ReadingSettings, SaysWhenTheReportStopsComing) {
    com1.input += "P\r\nS1\r\nG0";
    live(0.1);
    EXPECT_EQ(status.status.value().toStdString(), "Loading Properties");
    live(9.8);
    EXPECT_EQ(status.status.value().toStdString(), "Loading Properties");
    live(0.2);
    expectNoAnswer();
    expectReading();

    com1.input += "\r\n";
    live(0.02);
    EXPECT_EQ(status.status.value().toStdString(), "Loading Properties");
    live(9.9);
    EXPECT_EQ(status.status.value().toStdString(), "Loading Properties");
    live(0.2);
    expectNoAnswer();

    com1.input += "MP100\r\n>";
    live(0.1);
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
}

TEST_P(ReadingSettings, SaysWhenNoReportComes) {
    live(9.9);
    EXPECT_NE(status.status.value().toStdString(), "No answer for 10 s. Reset connects again.");
    live(0.2);
    expectNoAnswer();

    program.reset();
    EXPECT_EQ(status.status.value().toStdString(), "Connecting...");
    EXPECT_EQ(commands.activity.value(), Activity::Connecting);
    EXPECT_FALSE(progress.visible);
    replies = {"V512\r"};
    finish();
    readReport();
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    EXPECT_TRUE(commands.canRun);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_P(ReadingSettings, EndsWithTheConnection) {
    void (*const ways[])(ProgramRig&) = {[](ProgramRig& rig) { rig.program.closePort(); },
                                         [](ProgramRig& rig) { rig.com1.unplugged = true; }};
    for (const auto way : ways) {
        way(*this);
        live(0.02);
        EXPECT_EQ(commands.activity.value(), Activity::None);
        EXPECT_FALSE(progress.visible);
        live(20.0);
        EXPECT_EQ(status.status.value().toStdString(), "Offline");
        com1.unplugged = false;
        connect();
        EXPECT_EQ(commands.activity.value(), Activity::ReadingSettings);
    }
}

INSTANTIATE_TEST_SUITE_P(AfterEachRequest, ReadingSettings, testing::ValuesIn(reportRequests),
                         testing::PrintToStringParamName());

} // namespace

} // namespace orv
