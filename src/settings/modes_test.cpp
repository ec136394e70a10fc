// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/modes.h"

#include "testing/sendingtest.h"

#include <QByteArrayList>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace orv {

namespace {

const LoggerSettings exampleMode{.autoStart = true,
                                 .auxAdc = true,
                                 .logEnabled = true,
                                 .samplesPerPoint = QStringLiteral("30"),
                                 .pointsPerBlock = QStringLiteral("00600"),
                                 .secondsBetweenPoints = QStringLiteral("3600")};

const QByteArray exampleContent = "30\r\n\r\n00600\r\n3600\r\n 1\r\n 0\r\n 1\r\n 0\r\n 0\r\n 1\r\n";

TEST(ModeFile, WritesTenLinesTextsAsTypedFlagsInPrintForm) {
    EXPECT_EQ(modeFileContent(exampleMode), exampleContent);
}

TEST(ModeFile, EachFlagHasItsOwnLine) {
    const LoggerSettings inOrder[] = {{.logEnabled = true}, {.wakeUp = true}, {.auxAdc = true},
                                      {.gain = true},       {.append = true}, {.autoStart = true}};
    qsizetype line = 4;
    for (const LoggerSettings& mode : inOrder) {
        EXPECT_EQ(modeFileContent(mode).split('\n').indexOf(" 1\r"), line++);
    }
}

TEST(ModeFile, ReadsBackWhatItWrote) {
    EXPECT_EQ(readModeFile(exampleContent), exampleMode);
}

TEST(ModeFile, FewerThanTenLinesAreNoMode) {
    EXPECT_FALSE(readModeFile(""));
    EXPECT_FALSE(readModeFile("30\r\n0\r\n0\r\n0\r\n 1\r\n 1\r\n 0\r\n 0\r\n 1\r\n"));
    EXPECT_FALSE(readModeFile("30\r\n0\r\n0\r\n0\r\n 1\r\n 1\r\n 0\r\n 0\r\n 1"));
}

TEST(ModeFile, AcceptsAMissingLastLineEndBareLineFeedsAndMoreLines) {
    EXPECT_EQ(readModeFile(exampleContent.chopped(2)), exampleMode);
    EXPECT_EQ(readModeFile(QByteArray(exampleContent).replace("\r", "")), exampleMode);
    EXPECT_EQ(readModeFile(exampleContent + "more\r\n"), exampleMode);
    EXPECT_EQ(readModeFile(" 30 \n\n00600\n\t3600\n1\n0\n1\n0\n0\n1\n"), exampleMode);
}

TEST(ModeFile, AFlagIsClearForZeroAndSetForAnythingElse) {
    const std::optional<LoggerSettings> mode = readModeFile("\n\n\n\n 2\n-1\n 0.5\n 0.0\n\nabc\n");
    ASSERT_TRUE(mode);
    EXPECT_TRUE(mode->logEnabled);
    EXPECT_TRUE(mode->wakeUp);
    EXPECT_TRUE(mode->auxAdc);
    EXPECT_FALSE(mode->gain);
    EXPECT_FALSE(mode->append);
    EXPECT_FALSE(mode->autoStart);
}

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
    state.Vartemp = QStringLiteral("F");
    for (const auto& [type, samples] : table) {
        fillOtherwise();
        status.instrument = type;
        modes.profile();
        EXPECT_EQ(shown(), profileMode(samples)) << samples;
    }
}

TEST_F(ModesTest, MooredGoesByTheTypeLetter) {
    const std::pair<const char*, const char*> table[] = {{"F", "200"}, {"f", "200"}, {"V", "30"},
                                                         {"v", "30"},  {"", "7"},    {"X", "7"}};
    status.instrument = InstrumentType::Glow;
    logged = true;
    for (const auto& [letter, samples] : table) {
        fillOtherwise();
        state.Vartemp = QString::fromLatin1(letter);
        modes.moored();
        EXPECT_EQ(shown(), mooredMode(samples)) << letter;
    }
}

TEST_F(ModesTest, APresetIsSentAtOnceWhenConnected) {
    modes.profile();
    EXPECT_EQ(written(), (QByteArrayList{"B", "100010", "T", "30\r", "D", "0\r", "Q", "0\r", "I", "0\r", "P"}));
    EXPECT_FALSE(progress.visible.value());
    writes.clear();
    modes.moored();
    EXPECT_EQ(written(), (QByteArrayList{"B", "100111", "T", "30\r", "D", "0\r", "Q", "60000\r", "I", "3600\r", "P"}));
}

TEST_F(ModesTest, APresetOnlyFillsTheScreenWhenNotConnected) {
    ports.close();
    modes.profile();
    EXPECT_EQ(shown(), profileMode("30"));
    modes.moored();
    EXPECT_EQ(shown(), mooredMode("30"));
    EXPECT_TRUE(writes.empty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ModesTest, NothingHappensWhileAnotherOperationIsUnderWay) {
    commands.activity = Activity::Collecting;
    answers.fileName = path("moored.OCM");
    fill(answers.fileName, mooredFile);
    const LoggerSettings before = shown();
    modes.profile();
    modes.moored();
    modes.loadMode();
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
    modes.loadMode();
    EXPECT_EQ(shown(), mooredMode("30"));
    EXPECT_EQ(writes.size(), 11U);
    EXPECT_EQ(writes.at(1).bytes, "100111");
    EXPECT_EQ(answers.asked, QStringList{QStringLiteral("Load A User Defined Mode|.OCM|*.OCM")});
    EXPECT_EQ(settings.modeRemark.value(), QStringLiteral("Loaded moored.OCM."));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ModesTest, LoadOnlyFillsTheScreenWhenNotConnected) {
    ports.close();
    answers.fileName = path("moored.OCM");
    fill(answers.fileName, mooredFile);
    modes.loadMode();
    EXPECT_EQ(shown(), mooredMode("30"));
    EXPECT_TRUE(writes.empty());
}

TEST_F(ModesTest, TheSuffixIsAppendedUnlessTheNameEndsSoLetterForLetter) {
    fill(path("plain.OCM"), mooredFile);
    fill(path("lower.ocm.OCM"), mooredFile);
    fill(path("lower.ocm"), "not this one");
    for (const char* name : {"plain", "lower.ocm", "plain.OCM"}) {
        fillOtherwise();
        answers.fileName = path(name);
        modes.loadMode();
        EXPECT_EQ(shown(), mooredMode("30")) << name;
    }
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ModesTest, ACancelledLoadDoesNothing) {
    const LoggerSettings before = shown();
    modes.loadMode();
    expectNothingHappened(before);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ModesTest, AFileThatCannotBeReadIsToldAndChangesNothing) {
    const LoggerSettings before = shown();
    fill(path("short.OCM"), "30\r\n0\r\n60000\r\n3600\r\n 1\r\n 1\r\n 0\r\n 0\r\n 1\r\n");
    fill(path("empty.OCM"), "");
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("folder.OCM")));
    for (const char* name : {"short.OCM", "empty.OCM", "missing.OCM", "folder.OCM"}) {
        messages.shown.clear();
        answers.fileName = path(name);
        modes.loadMode();
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
    modes.moored();
    modes.loadMode();
    EXPECT_EQ(shown(), before);
}

} // namespace

} // namespace orv
