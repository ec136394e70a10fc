// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/programrig.h"

namespace orv {
namespace {

#ifdef Q_OS_UNIX

/// Why rows cannot be saved aside.
enum class Cause { FullDisk, ReadOnlyFolder, FolderGone };

/// Unsaved rows of one instrument, which cannot be saved aside when one of another type is connected.
class SavingAsideFails : public ProgramTest, public testing::WithParamInterface<Cause> {
protected:
    void connectAndFail(const QByteArray& greeting) {
        program.closePort();
        messages.shown.clear();
        hinder();
        connectAndRead(greeting);
        EXPECT_TRUE(theMessage().text.startsWith(QLatin1String("The sheet could not be saved as ")));
        messages.shown.clear();
    }

    void hinder() {
        switch (GetParam()) {
        case Cause::FullDisk:
            full.emplace(10);
            return;
        case Cause::ReadOnlyFolder:
            allowEveryone(path("Orvtemp.tmp"));
            allowEveryone(path("Orvtemp.tmp.lock"));
            readOnly.emplace(folder.path());
            return;
        case Cause::FolderGone:
            sheetState.fileName = path("nowhere/lake");
        }
    }

    void mend() {
        full.reset();
        readOnly.reset();
        sheetState.fileName = path("lake");
    }

    /// Refused with the rows as they were, and nothing sent.
    void expectRefused(const std::function<void()>& begin, const char* type = "TRX") {
        com1.writes.clear();
        begin();
        EXPECT_EQ(theMessage().text.toStdString(),
                  std::string("The sheet still holds unsaved rows of the ") + type + ". Save or clear them first.");
        EXPECT_EQ(com1.allWritten().toStdString(), "");
        EXPECT_EQ(commands.activity.value(), Activity::None);
        EXPECT_FALSE(progress.visible);
        EXPECT_TRUE(commands.canRun);
        messages.shown.clear();
    }
    void expectRunAndViewRefused(const char* type = "TRX") {
        expectRefused([this] { program.run(); }, type);
        expectRefused([this] { program.vwhp(); }, type);
        EXPECT_TRUE(sheetState.unsaved);
    }

    void save(const char* name) {
        answers.fileName = path(name);
        program.saveAs();
    }

    std::string header() const { return sheet.header().join(u'|').toStdString(); }

    std::optional<FileSizeLimit> full;
    std::optional<UnwritableFolder> readOnly;
    const QByteArray rowsOfRecord{"1\t11/21/26\t1:00:00\t1\t\t20\t\t30\t40\r\n"
                                  "2\t11/21/26\t1:00:00\t2\t\t20\t\t30\t40\r\n"};
    const QByteArray savedRows{"REF 150\r\n1\t11/21/26\t1:00:00\t1\t20\t30\t40\t\t\r"
                               "2\t11/21/26\t1:00:00\t2\t20\t30\t40\t\t\r"};
};

TEST_P(SavingAsideFails, TheRowsStayAsTheyAreUntilTheyAreSaved) {
    runWithRows(2);
    connectAndFail("F310\r");
    EXPECT_EQ(header(), "Data #|Date|Time|100|125|150|Ref");
    EXPECT_EQ(status.instrument.value(), InstrumentType::Glow);
    expectRunAndViewRefused();
    expectRunAndViewRefused();
    mend();
    save("sheet.txt");
    EXPECT_TRUE(contentsOf(path("sheet.txt")).startsWith("V\t512 2\r\n"));
    EXPECT_TRUE(contentsOf(path("sheet.txt")).endsWith(savedRows)) << contentsOf(path("sheet.txt")).toStdString();
    program.run();
    EXPECT_EQ(state.Ctrlscrn, Operation::Collecting);
    EXPECT_EQ(header(), "Data #|Date|Time|Output");
    receive("R\r\n");
    receive("11/21/26\t2700\t700\r\n");
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(sheet.type().letter.toStdString(), "F");
    EXPECT_TRUE(folder.files().filter(QStringLiteral("Orvtemp-")).isEmpty()) << "the rows are saved";
}

TEST_P(SavingAsideFails, ClearAllGivesTheSheetToTheNewInstrumentAndKeepsTheRecordFile) {
    runWithRows(2);
    connectAndFail("F310\r");
    mend();
    program.clearAll();
    EXPECT_EQ(header(), "Data #|Date|Time|Output");
    program.run();
    EXPECT_EQ(state.Ctrlscrn, Operation::Collecting);
    EXPECT_TRUE(messages.shown.empty());
    const QStringList kept = folder.files().filter(QStringLiteral("Orvtemp-"));
    ASSERT_EQ(kept.size(), 1);
    EXPECT_TRUE(contentsOf(folder.path(qPrintable(kept[0]))).endsWith(rowsOfRecord));
}

TEST_P(SavingAsideFails, WithRoomAgainRunSavesThemAside) {
    runWithRows(2);
    connectAndFail("F310\r");
    expectRunAndViewRefused();
    mend();
    program.run();
    EXPECT_TRUE(theMessage().text.startsWith(QLatin1String("The sheet held unsaved rows of another type")))
        << qPrintable(theMessage().text);
    EXPECT_EQ(state.Ctrlscrn, Operation::Collecting);
    const QStringList aside = folder.files().filter(QStringLiteral("lake-"));
    ASSERT_EQ(aside.size(), 1);
    EXPECT_TRUE(contentsOf(folder.path(qPrintable(aside[0]))).endsWith(savedRows));
    EXPECT_FALSE(sheetState.unsaved);
}

TEST_P(SavingAsideFails, TheOldInstrumentGoesOnWhereItWas) {
    runWithRows(2);
    connectAndFail("F310\r");
    mend();
    program.closePort();
    connectAndRead();
    EXPECT_TRUE(messages.shown.empty());
    program.run();
    receive("R\r\n");
    receive("11/21/26\t2700\t3\t20\t30\t40\r\n");
    EXPECT_EQ(sheet.rowCount(), 3);
    save("sheet.txt");
    EXPECT_TRUE(contentsOf(path("sheet.txt")).startsWith("V\t512 3\r\n"));
    EXPECT_TRUE(contentsOf(path("sheet.txt")).endsWith(savedRows + "3\t11/21/26\t1:00:00\t3\t20\t30\t40\t\t\r"));
}

TEST_P(SavingAsideFails, AResetTellsItAgainAndQuitStillOffersTheRows) {
    runWithRows(2);
    connectAndFail("F310\r");
    replies = {"F310\r"};
    program.reset();
    finish();
    EXPECT_TRUE(theMessage().text.startsWith(QLatin1String("The sheet could not be saved as ")));
    EXPECT_EQ(header(), "Data #|Date|Time|100|125|150|Ref");
    mend();
    answers.yes = true;
    answers.fileName = path("sheet.txt");
    EXPECT_TRUE(quit());
    EXPECT_EQ(answers.asked.join(u'\n').toStdString(),
              "Save Data: Data not Saved. Do you wish to save it now ?\nSave as|" + path("lake.txt").toStdString() +
                  "|.txt|*.txt");
    EXPECT_TRUE(contentsOf(path("sheet.txt")).endsWith(savedRows));
}

TEST_P(SavingAsideFails, BetweenGenerationsToo) {
    runWithRows(2);
    connectAndFail("V412\r");
    EXPECT_EQ(header(), "Data #|Date|Time|100|125|150|Ref");
    expectRunAndViewRefused();
    mend();
    save("sheet.txt");
    EXPECT_TRUE(contentsOf(path("sheet.txt")).endsWith(savedRows));
    program.run();
    EXPECT_EQ(header(), "Data #|Date|Time|100|Ref 100|125|Ref 125|150|Ref");
}

TEST_P(SavingAsideFails, RowsOfAGlowToo) {
    connectAndRead("F310\r");
    program.run();
    receive("R\r\n");
    receive("11/21/26\t2700\t700\r\n");
    connectAndFail("V512\r");
    EXPECT_EQ(header(), "Data #|Date|Time|Output");
    expectRunAndViewRefused("GLOW");
    mend();
    save("sheet.txt");
    EXPECT_TRUE(contentsOf(path("sheet.txt")).endsWith("Counts\t\r\n1\t11/21/26\t1:00:00\t700\t\r"));
}

TEST_P(SavingAsideFails, ALongSheetThatCouldNotBeSavedStaysWhole) {
    runWithRows(2);
    haveRows(19999);
    hinder();
    receive("11/21/26\t2700\t9\t20\t30\t40\r\n");
    ASSERT_EQ(messages.shown.size(), GetParam() == Cause::FullDisk ? 2U : 1U) << "the record file is hindered, too";
    EXPECT_TRUE(messages.shown.back().text.startsWith(QLatin1String("The sheet could not be saved as ")));
    messages.shown.clear();
    ASSERT_EQ(sheet.rowCount(), 20000);
    program.closePort();
    connectAndRead("F310\r");
    EXPECT_TRUE(theMessage().text.startsWith(QLatin1String("The sheet could not be saved as ")));
    messages.shown.clear();
    expectRunAndViewRefused();
    mend();
    save("sheet.txt");
    EXPECT_TRUE(contentsOf(path("sheet.txt")).startsWith("V\t512 20000\r\n"));
    EXPECT_TRUE(contentsOf(path("sheet.txt")).endsWith("\r20000\t11/21/26\t1:00:00\t9\t20\t30\t40\t\t\r"));
}

INSTANTIATE_TEST_SUITE_P(ForEachCause, SavingAsideFails,
                         testing::Values(Cause::FullDisk, Cause::ReadOnlyFolder, Cause::FolderGone));

#endif

TEST_F(ProgramTest, RowsLoadedByARecoveryAreSavedAsideOrRefusedToo) {
    connectAndRead("F310\r");
    fill(path("Orvtemp.tmp"), "Orvtemp.tmp\t11/21/26\t9:30:15 AM\r\nDevice File\r\n\r\r\r\nData point\t\r\n"
                              "Date\tTime\tLED1\tREF1\tLED2\tREF2\tLED3\tREF3\r\n"
                              "1\t11/21/26\t9:05:07\t100\t\t125\t\t150\t40\r\n");
    fill(path("Orvtemp.tmp.lock"), "V\t512\r\n");
    answers.yes = true;
    program.offerUnendedRun();
    ASSERT_EQ(sheet.rowCount(), 1);
    sheetState.fileName = path("nowhere/lake");
    program.run();
    ASSERT_EQ(messages.shown.size(), 2U) << "why, and what to do";
    EXPECT_TRUE(messages.shown[0].text.startsWith(QLatin1String("The sheet could not be saved as ")));
    EXPECT_TRUE(messages.shown[1].text.startsWith(QLatin1String("The sheet still holds unsaved rows of the TRX.")));
    program.run();
    EXPECT_EQ(messages.shown.size(), 3U);
    EXPECT_EQ(sheet.type().letter.toStdString(), "V");
}

} // namespace
} // namespace orv
