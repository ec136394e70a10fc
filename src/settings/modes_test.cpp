// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/modes.h"

#include "testing/sendingtest.h"

#include <QByteArrayList>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace orv {

namespace {

const QByteArray mooredFile = "30\r\n0\r\n60000\r\n3600\r\n 1\r\n 1\r\n 0\r\n 0\r\n 1\r\n 1\r\n";

class ModesTest : public SendingTest {
protected:
    LoggerSettings shown() const { return settings.record.value(); }

    /// What a mode looks like after "Profile" or "Moored", with its samples per point.
    static LoggerSettings profileMode(const char* samples) {
        return {.autoStart = true,
                .wakeUp = true,
                .samplesPerPoint = QString::fromLatin1(samples),
                .hoursBeforeBlock = QStringLiteral("0"),
                .pointsPerBlock = QStringLiteral("0"),
                .secondsBetweenPoints = QStringLiteral("0")};
    }
    static LoggerSettings mooredMode(const char* samples) {
        return {.autoStart = true,
                .logEnabled = true,
                .wakeUp = true,
                .append = true,
                .samplesPerPoint = QString::fromLatin1(samples),
                .hoursBeforeBlock = QStringLiteral("0"),
                .pointsPerBlock = QStringLiteral("60000"),
                .secondsBetweenPoints = QStringLiteral("3600")};
    }

    /// A record whose every value differs from both built-in modes.
    void fillOtherwise() {
        const QString seven = QStringLiteral("7");
        settings.record = {false, true, true, !logged, false, !logged, seven, seven, seven, seven};
    }

    /// The operator's actions, to the end of what they begin.
    void profile() {
        modes.profile();
        finish();
    }
    void moored() {
        modes.moored();
        finish();
    }
    void loadMode() {
        modes.loadMode();
        finish();
    }

    std::string remark() const { return settings.modeRemark.value().toStdString(); }

    void expectNothingHappened(const LoggerSettings& before) {
        EXPECT_EQ(shown(), before);
        EXPECT_TRUE(writes.empty());
        EXPECT_TRUE(settings.modeRemark.value().isEmpty());
    }

    bool logged = false; ///< What the mode under test does.
    Modes& modes = program.settings.modes;
};

TEST_F(ModesTest, ProfileGoesByTheTypeLabel) {
    const std::pair<InstrumentType, const char*> table[] = {
        {InstrumentType::Glow, "200"}, {InstrumentType::Trx, "30"}, {InstrumentType::Unknown, "7"}};
    fixit(); // so that nothing is sent
    state.Vartemp = QStringLiteral("F");
    for (const auto& [type, samples] : table) {
        fillOtherwise();
        status.instrument = type;
        profile();
        EXPECT_EQ(shown(), profileMode(samples)) << samples;
    }
}

TEST_F(ModesTest, MooredGoesByTheTypeLetter) {
    const std::pair<const char*, const char*> table[] = {{"F", "200"}, {"f", "200"}, {"V", "30"},
                                                         {"v", "30"},  {"", "7"},    {"X", "7"}};
    fixit(); // so that nothing is sent
    status.instrument = InstrumentType::Glow;
    logged = true;
    for (const auto& [letter, samples] : table) {
        fillOtherwise();
        state.Vartemp = QString::fromLatin1(letter);
        moored();
        EXPECT_EQ(shown(), mooredMode(samples)) << letter;
    }
}

TEST_F(ModesTest, APresetIsSentAtOnceWhenConnected) {
    profile();
    EXPECT_EQ(written(), (QByteArrayList{"B", "100010", "T", "30\r", "D", "0\r", "Q", "0\r", "I", "0\r", "P"}));
    readReport();
    writes.clear();
    moored();
    EXPECT_EQ(written(), (QByteArrayList{"B", "100111", "T", "30\r", "D", "0\r", "Q", "60000\r", "I", "3600\r", "P"}));
}

TEST_F(ModesTest, APresetOnlyFillsTheScreenWhenNotConnected) {
    fixit();
    profile();
    EXPECT_EQ(shown(), profileMode("30"));
    moored();
    EXPECT_EQ(shown(), mooredMode("30"));
    EXPECT_TRUE(writes.empty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ModesTest, NothingHappensWhileAnotherOperationIsUnderWay) {
    program.run();
    writes.clear();
    answers.fileName = path("moored.OCM");
    fill(answers.fileName, mooredFile);
    const LoggerSettings before = shown();
    profile();
    moored();
    loadMode();
    expectNothingHappened(before);
    EXPECT_TRUE(answers.asked.isEmpty());
}

TEST_F(ModesTest, SaveWritesTheTenLines) {
    settings.record = mooredMode("30");
    answers.fileName = path("deep sea.OCM");
    modes.saveMode();
    EXPECT_EQ(contentsOf(answers.fileName), mooredFile);
    EXPECT_EQ(answers.asked, QStringList{QStringLiteral("Save A User Defined Mode||.OCM|*.OCM")});
    EXPECT_EQ(settings.modeRemark.value(), QStringLiteral("Saved as deep sea.OCM."));
    EXPECT_TRUE(writes.empty());
}

TEST_F(ModesTest, SaveReplacesAnOlderLongerFile) {
    answers.fileName = path("old.OCM");
    fill(answers.fileName, QByteArray(5000, 'x'));
    settings.record = mooredMode("30");
    modes.saveMode();
    EXPECT_EQ(contentsOf(answers.fileName), mooredFile);
}

TEST_F(ModesTest, ACancelledSaveDoesNothing) {
    const LoggerSettings before = shown();
    modes.saveMode();
    expectNothingHappened(before);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(ModesTest, ASaveThatFailsIsQuiet) {
    answers.fileName = path("no such folder/mode.OCM");
    modes.saveMode();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(settings.modeRemark.value(), QStringLiteral("mode.OCM could not be written; nothing was saved."));
    answers.fileName = folder.path(); // a folder stands in the way
    modes.saveMode();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(settings.modeRemark.value().endsWith(QStringLiteral("nothing was saved.")));
}

TEST_F(ModesTest, LoadFillsTheScreenAndSends) {
    answers.fileName = path("moored.OCM");
    fill(answers.fileName, mooredFile);
    loadMode();
    EXPECT_EQ(shown(), mooredMode("30"));
    EXPECT_EQ(writes.size(), 11U);
    EXPECT_EQ(writes.at(1).bytes, "100111");
    EXPECT_EQ(answers.asked, QStringList{QStringLiteral("Load A User Defined Mode|.OCM|*.OCM")});
    EXPECT_EQ(remark(), "moored.OCM was sent.");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ModesTest, LoadOnlyFillsTheScreenWhenNotConnected) {
    fixit();
    answers.fileName = path("moored.OCM");
    fill(answers.fileName, mooredFile);
    loadMode();
    EXPECT_EQ(shown(), mooredMode("30"));
    EXPECT_TRUE(writes.empty());
    EXPECT_EQ(remark(), "Loaded moored.OCM.");
}

TEST_F(ModesTest, TheSuffixIsAppendedUnlessTheNameEndsSoLetterForLetter) {
    fill(path("plain.OCM"), mooredFile);
    fill(path("lower.ocm.OCM"), mooredFile);
    fill(path("lower.ocm"), "not this one");
    for (const char* name : {"plain", "lower.ocm", "plain.OCM"}) {
        fillOtherwise();
        answers.fileName = path(name);
        loadMode();
        EXPECT_EQ(shown(), mooredMode("30")) << name;
        readReport();
    }
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ModesTest, ACancelledLoadDoesNothing) {
    const LoggerSettings before = shown();
    loadMode();
    expectNothingHappened(before);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ModesTest, AFileThatCannotBeReadIsToldAndChangesNothing) {
    const LoggerSettings before = shown();
    fill(path("short.OCM"), "30\r\n0\r\n60000\r\n3600\r\n 1\r\n 1\r\n 0\r\n 0\r\n 1\r\n");
    fill(path("empty.OCM"), "");
    fill(path("letter.OCM"), QByteArray("alpha beta\r\n").repeated(10));
    fill(path("picture.OCM"), QByteArray("b.c>d\n\0\xff\n", 9).repeated(10));
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("folder.OCM")));
    for (const char* name : {"short.OCM", "empty.OCM", "letter.OCM", "picture.OCM", "missing.OCM", "folder.OCM"}) {
        messages.shown.clear();
        answers.fileName = path(name);
        loadMode();
        expectNothingHappened(before);
        ASSERT_EQ(messages.shown.size(), 1U) << name;
        EXPECT_EQ(messages.shown.front().icon, Message::Icon::Exclamation);
        EXPECT_TRUE(messages.shown.front().text.contains(QString::fromLatin1(name)));
        EXPECT_TRUE(messages.shown.front().text.endsWith(QStringLiteral("Nothing was changed and nothing was sent.")));
    }
}

TEST_F(ModesTest, SavingAndLoadingRestoresAllTenValues) {
    fillOtherwise();
    change(settings.record, [](LoggerSettings& record) { record.hoursBeforeBlock = QString(); });
    const LoggerSettings before = shown();
    answers.fileName = path("own.OCM");
    modes.saveMode();
    moored();
    readReport();
    loadMode();
    EXPECT_EQ(shown(), before);
}

/// A mode that is sent: from the built-in ones or from "own.OCM".
struct SentMode {
    const char* name;
    void (*choose)(Modes& modes);
    const char* shown; ///< What the remark calls it.
};

void PrintTo(const SentMode& mode, std::ostream* out) {
    *out << mode.name;
}

const SentMode sentModes[] = {{"Profile", [](Modes& modes) { modes.profile(); }, "Profile"},
                              {"Moored", [](Modes& modes) { modes.moored(); }, "Moored"},
                              {"Load", [](Modes& modes) { modes.loadMode(); }, "own.OCM"}};

class ModeIsSent : public ModesTest, public testing::WithParamInterface<SentMode> {
protected:
    ModeIsSent() {
        answers.fileName = path("own.OCM");
        fill(answers.fileName, mooredFile);
    }

    /// Begins to send the mode to an instrument that answers so many items.
    void begin(std::size_t items) {
        answered = items;
        GetParam().choose(modes);
        live(0.1);
    }

    std::string named(const char* remark) const { return GetParam().shown + std::string(remark); }
};

TEST_P(ModeIsSent, WithTheProgressDialogUntilTheReportHasBeenRead) {
    onWrite = [this](const QByteArray& /*bytes*/) {
        EXPECT_TRUE(progress.visible);
        if (writes.size() < 11) {
            EXPECT_EQ(remark(), "Sending " + named("..."));
        }
    };
    begin(1000);
    EXPECT_EQ(writes.size(), 11U);
    EXPECT_EQ(remark(), named(" was sent."));
    EXPECT_TRUE(progress.visible);
    onWrite = nullptr;
    readReport();
    EXPECT_FALSE(progress.visible);
    EXPECT_EQ(remark(), named(" was sent."));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_P(ModeIsSent, ToAnInstrumentThatDoesNotAnswer) {
    begin(3);
    finish();
    EXPECT_EQ(writes.size(), 4U);
    EXPECT_EQ(remark(), named(" was not sent whole: the instrument did not answer. Try again."));
    EXPECT_FALSE(progress.visible);
    EXPECT_EQ(messages.shown, std::vector{sendingError()});
    EXPECT_TRUE(commands.canCommand);
}

TEST_P(ModeIsSent, UntilTheConnectionEnds) {
    begin(3);
    EXPECT_TRUE(progress.visible);
    program.closePort();
    EXPECT_EQ(writes.size(), 4U);
    EXPECT_EQ(remark(), named(" was not sent whole: the connection ended."));
    EXPECT_FALSE(progress.visible);
    EXPECT_TRUE(messages.shown.empty());
}

INSTANTIATE_TEST_SUITE_P(EachMode, ModeIsSent, testing::ValuesIn(sentModes), testing::PrintToStringParamName());

/// The dialogs stand until the operator answers.
class ModeDialogs : public ModesTest {
protected:
    ModeDialogs() {
        answers.late = true;
        fill(path("moored.OCM"), mooredFile);
    }
};

TEST_F(ModeDialogs, TheConnectionGoesOnWhileOneStands) {
    sender.retrieveSettings();
    modes.saveMode();
    ASSERT_TRUE(answers.stands());
    EXPECT_FALSE(commands.canCommand);
    readReport();
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    EXPECT_EQ(shown().hoursBeforeBlock.toStdString(), "24");
    EXPECT_TRUE(shown().autoStart);
    EXPECT_TRUE(answers.stands());
    answers.answer(path("saved.OCM"));
    EXPECT_TRUE(commands.canCommand);
    EXPECT_EQ(remark(), "Saved as saved.OCM.");
    EXPECT_EQ(contentsOf(path("saved.OCM")), "30\r\n24\r\n60000\r\n3600\r\n 0\r\n 0\r\n 0\r\n 0\r\n 0\r\n 0\r\n")
        << "the settings of the moment at which it was asked for";
}

TEST_F(ModeDialogs, NothingIsSentWhileOneStands) {
    modes.loadMode();
    ASSERT_TRUE(answers.stands());
    apply();
    profile();
    moored();
    loadMode();
    sender.retrieveSettings();
    sender.displayLoggerTime();
    expectNothingHappened(shown());
    EXPECT_EQ(answers.asked.size(), 1);
    answers.answer(path("moored.OCM"));
    finish();
    EXPECT_EQ(shown(), mooredMode("30"));
    EXPECT_EQ(writes.size(), 11U);
}

TEST_F(ModeDialogs, AFileChosenWhileAnOperationIsUnderWayIsNotLoaded) {
    const LoggerSettings before = shown();
    modes.loadMode();
    program.run();
    ASSERT_EQ(commands.activity.value(), Activity::Collecting);
    writes.clear();
    answers.answer(path("moored.OCM"));
    finish();
    EXPECT_EQ(settings.modeRemark.value().toStdString(),
              "moored.OCM was not loaded: the instrument is busy. Try again.");
    settings.modeRemark = QString();
    expectNothingHappened(before);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ModeDialogs, AFileChosenAfterTheConnectionHasEndedIsLoaded) {
    modes.loadMode();
    com1.unplugged = true;
    live(0.02);
    expectOffline();
    ASSERT_TRUE(answers.stands());
    answers.answer(path("moored.OCM"));
    EXPECT_EQ(shown(), mooredMode("30"));
    EXPECT_TRUE(writes.empty());
    EXPECT_EQ(remark(), "Loaded moored.OCM.");
}

TEST_F(ModeDialogs, OneThatIsTakenBackIsCancelled) {
    const LoggerSettings before = shown();
    modes.saveMode();
    modes.loadMode();
    EXPECT_EQ(answers.asked.size(), 1) << "not while another stands";
    program.saveAs();
    EXPECT_EQ(answers.asked.size(), 2);
    answers.answer(QString());
    modes.loadMode();
    ASSERT_EQ(answers.asked.size(), 3);
    program.quit();
    EXPECT_FALSE(answers.stands());
    expectNothingHappened(before);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("moored.OCM")});
}

} // namespace

} // namespace orv
