// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/sheetformat.h"
#include "testing/sheettest.h"

#include <cerrno>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace orv {

namespace {

constexpr const char* savePreset = "\nSave as|Untitled.txt|.txt|*.txt";
constexpr const char* askText = "Save Data: Data not Saved. Do you wish to save it now ?";

class SheetLoadingTest : public SheetTest {
protected:
    SheetLoadingTest() {
        sheetState.fileName = QStringLiteral("Untitled");
        identify("F", "310");
        for (int row = 0; row < 3; ++row) {
            rows.addRow({.date = QStringLiteral("1/5/99"),
                         .time = QStringLiteral("9:05:07"),
                         .values = {QString::number(700 + row)}});
        }
        state.Rtn = QStringLiteral("kept");
        fill(path("newer.txt"), newerFile(2));
        answers.openName = path("newer.txt");
    }

    static QByteArray newerFile(int count) {
        QByteArray file = "V\t512 " + QByteArray::number(count) +
                          "\r\nnewer.txt\r\n\r\r\r\nData Point\tDate\tTime\t100\t125\t150\tREF 150\r\n";
        for (int row = 1; row <= count; ++row) {
            file += QByteArray::number(row) + "\t1/6/99\t10:00:00\t10\t20\t30\t" + QByteArray::number(row) + "\t\t\r";
        }
        return file;
    }

    void load(const QString& name) {
        answers.openName = name;
        files.loadit();
    }

    void expectSheetAsItWas() {
        EXPECT_EQ(sheet.rowCount(), 3);
        EXPECT_EQ(cells(2).join(u'|').toStdString(), "3|1/5/99|9:05:07|702|||||");
        EXPECT_EQ(sheet.type(), (DataSheet::Type{.letter = QStringLiteral("F"), .firmware = 310.0}));
        EXPECT_EQ(sheet.header().join(u'|').toStdString(), "Data #|Date|Time|Output");
        EXPECT_EQ(state.plc, 3);
        EXPECT_EQ(sheetState.counter.value(), QStringLiteral("3"));
        EXPECT_TRUE(sheetState.unsaved);
    }

    void expectLoaded() {
        EXPECT_EQ(sheet.rowCount(), 2);
        EXPECT_EQ(cells(1).join(u'|').toStdString(), "2|1/6/99|10:00:00|10|20|30|2||");
        EXPECT_EQ(sheet.type(), (DataSheet::Type{.letter = QStringLiteral("V"), .firmware = 512.0}));
        EXPECT_EQ(sheet.header().join(u'|').toStdString(), "Data #|Date|Time|100|125|150|Ref");
        EXPECT_EQ(state.plc, 2);
        EXPECT_EQ(sheetState.counter.value(), QStringLiteral("2"));
        EXPECT_FALSE(sheetState.unsaved);
    }

    /// Loads the file in vain; returns what the operator was told of it.
    std::string refusal(const QString& name) {
        messages.shown.clear();
        load(name);
        expectSheetAsItWas();
        EXPECT_EQ(messages.shown.size(), 1U);
        if (messages.shown.empty()) {
            return {};
        }
        const Message& told = messages.shown.front();
        EXPECT_EQ(told.title, QStringLiteral("Open"));
        EXPECT_EQ(told.icon, Message::Icon::Exclamation);
        const QString opening = name + QLatin1String(" could not be opened.\n\n");
        const QString closing = QStringLiteral("\n\nThe sheet is as it was.");
        EXPECT_TRUE(told.text.startsWith(opening)) << told.text.toStdString();
        EXPECT_TRUE(told.text.endsWith(closing)) << told.text.toStdString();
        return told.text.mid(opening.size()).chopped(closing.size()).toStdString();
    }

    std::string asked() const { return answers.asked.join(u'\n').toStdString(); }
};

TEST_F(SheetLoadingTest, CancelledDialogLoadsNothing) {
    debug.comm2Output = true;
    load(QString());
    EXPECT_EQ(asked(), "Open|.txt|*.txt") << "nor is anything asked about the rows";
    expectSheetAsItWas();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(said(), "Loading Spread Sheet\r");
}

TEST_F(SheetLoadingTest, SavedRowsAreReplacedWithoutAQuestion) {
    sheetState.unsaved = false;
    debug.comm2Output = true;
    load(path("newer.txt"));
    EXPECT_EQ(asked(), "Open|.txt|*.txt");
    expectLoaded();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(com2.allWritten().startsWith("Loading Spread Sheet\rLoading TRX(S) Sheet\r"));
}

TEST_F(SheetLoadingTest, GlowSheetAnnouncesItsOwnLoading) {
    sheetState.unsaved = false;
    fill(path("glow.txt"), "f\t310 1\r\nglow.txt\r\n\r\r\r\nData Point\tDate\tTime\tCounts\t\r\n1\td\tt\t5\t\r");
    debug.comm2Output = true;
    load(path("glow.txt"));
    EXPECT_EQ(cells(0).join(u'|').toStdString(), "1|d|t|5|||||");
    EXPECT_EQ(sheet.header().join(u'|').toStdString(), "Data #|Date|Time|Output");
    EXPECT_TRUE(com2.allWritten().startsWith("Loading Spread Sheet\rLoading Flour Sheet\r"));
}

TEST_F(SheetLoadingTest, UnsavedRowsGoAfterANo) {
    load(path("newer.txt"));
    EXPECT_EQ(asked(), std::string("Open|.txt|*.txt\n") + askText);
    expectLoaded();
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "newer.txt");
}

TEST_F(SheetLoadingTest, UnsavedRowsAreSavedFirstAfterAYes) {
    answers.yes = true;
    answers.fileName = path("mine.txt");
    const QByteArray mine = sheetFileBytes(sheet, answers.fileName);
    load(path("newer.txt"));
    EXPECT_EQ(asked(), std::string("Open|.txt|*.txt\n") + askText + savePreset);
    EXPECT_EQ(contentsOf(path("mine.txt")).toStdString(), mine.toStdString());
    expectLoaded();
}

TEST_F(SheetLoadingTest, SavingOverTheFileThatIsOpenedLoadsWhatItHoldsNow) {
    answers.yes = true;
    answers.fileName = path("newer.txt");
    load(path("newer.txt"));
    EXPECT_EQ(sheet.type().letter, QStringLiteral("F"));
    EXPECT_EQ(sheet.rowCount(), 3);
    EXPECT_FALSE(sheetState.unsaved);
    EXPECT_TRUE(contentsOf(path("newer.txt")).startsWith("F\t310 3\r\n"));
}

TEST_F(SheetLoadingTest, CancelledSaveKeepsTheRows) {
    answers.yes = true;
    load(path("newer.txt"));
    EXPECT_EQ(asked(), std::string("Open|.txt|*.txt\n") + askText + savePreset);
    expectSheetAsItWas();
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SheetLoadingTest, FailedSaveKeepsTheRows) {
    answers.yes = true;
    answers.fileName = path("nowhere/mine.txt");
    load(path("newer.txt"));
    expectSheetAsItWas();
    EXPECT_EQ(theMessage().title, QStringLiteral("Save as"));
}

TEST_F(SheetLoadingTest, BadFileIsToldBeforeAnythingIsAskedAboutTheRows) {
    fill(path("bad.txt"), "no sheet\r\n");
    EXPECT_TRUE(refusal(path("bad.txt")).starts_with("It is not a sheet: "));
    EXPECT_EQ(asked(), "Open|.txt|*.txt");
}

TEST_F(SheetLoadingTest, FilesThatCannotBeLoadedLeaveTheSheet) {
    const std::pair<QByteArray, const char*> bad[] = {
        {"", "It is not a sheet: "},
        {QByteArray(70000, '\0'), "It is not a sheet: "},
        {"X" + newerFile(2).mid(1), "It is not a sheet: "},
        {"V\t512\r\n", "It is not a sheet: "},
        {"V\t512 -2" + newerFile(2).mid(7), "It is not a sheet: "},
        {newerFile(32768), "It has 32768 rows; the sheet holds at most 32767."},
        {newerFile(2).chopped(1), "It is cut short: its last line has no end."},
        {newerFile(3).replace("512 3", "512 4"), "It is cut short. Its first line promises 4 rows, but there are 3."},
        {newerFile(3).replace("512 3", "512 2"), "It holds more than it says. Its first line promises 2 rows, but "},
    };
    for (const auto& [bytes, reason] : bad) {
        fill(path("bad.txt"), bytes);
        const std::string told = refusal(path("bad.txt"));
        EXPECT_TRUE(told.starts_with(reason)) << told << "\n" << reason;
    }
}

TEST_F(SheetLoadingTest, FileThatIsGoneOrAFolderIsTold) {
    EXPECT_EQ(refusal(path("gone.txt")),
              "It cannot be read: " + wordsOfOpening(path("gone.txt"), QIODevice::ReadOnly).toStdString() + ".");
    EXPECT_EQ(refusal(folder.path()), "It is a folder or a device, not a file.");
}

TEST_F(SheetLoadingTest, FileFarTooLargeIsNotRead) {
    QFile huge(path("huge.txt"));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly));
    ASSERT_TRUE(huge.resize(qint64{1} << 36)); // a hole, no space
    EXPECT_EQ(refusal(huge.fileName()), "It is far too large to be a sheet.");
}

#ifdef Q_OS_UNIX
TEST_F(SheetLoadingTest, PipeWithoutAWriterIsNotWaitedFor) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    EXPECT_EQ(refusal(path("pipe")), "It is a folder or a device, not a file.");
}

TEST_F(SheetLoadingTest, UnreadableFileIsTold) {
    QFile::setPermissions(path("newer.txt"), QFile::Permissions());
    const UnwritableFolder asNobody(folder.path());
    EXPECT_EQ(refusal(path("newer.txt")), "It cannot be read: " + systemWords(EACCES).toStdString() + ".");
}
#endif

TEST_F(SheetLoadingTest, LoadedSheetCanBeSavedWithoutAnInstrument) {
    ports.close();
    state.Vartemp.clear();
    session.setFirmware(StatusState::unknownShort());
    commands.sheetHoldsRows = false;
    load(path("newer.txt"));
    EXPECT_TRUE(commands.canSaveAs);
    answers.fileName = path("newer.txt");
    EXPECT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Saved);
    EXPECT_EQ(contentsOf(path("newer.txt")).toStdString(), newerFile(2).toStdString());
    fill(path("empty.txt"), newerFile(0));
    load(path("empty.txt"));
    EXPECT_FALSE(commands.canSaveAs);
    EXPECT_EQ(sheetState.counter.value(), QStringLiteral("0"));
}

TEST_F(SheetLoadingTest, ViewShowsTheLastTenRowsOfALongSheet) {
    sheetState.topRow = 2;
    fill(path("long.txt"), newerFile(11));
    load(path("long.txt"));
    EXPECT_EQ(sheetState.topRow, 0);
    fill(path("long.txt"), newerFile(12));
    load(path("long.txt"));
    EXPECT_EQ(sheetState.topRow, 2);
    fill(path("long.txt"), newerFile(20000));
    load(path("long.txt"));
    EXPECT_EQ(sheetState.topRow, 19990);
    EXPECT_EQ(state.plc, 20000);
    EXPECT_EQ(sheet.rowCount(), 20000);
}

TEST_F(SheetLoadingTest, RowsAddedAfterLoadingAreCountedOnAndUnsaved) {
    load(path("newer.txt"));
    rows.addRow({.date = QStringLiteral("d"), .time = QStringLiteral("t"), .values = {QStringLiteral("5")}});
    EXPECT_EQ(cells(2).join(u'|').toStdString(), "3|d|t|5|||||");
    EXPECT_TRUE(sheetState.unsaved);
}

TEST_F(SheetLoadingTest, QuittingAsksOnlyAboutUnsavedRows) {
    sheetState.unsaved = false;
    EXPECT_TRUE(resultOf(files.ask()));
    EXPECT_TRUE(answers.asked.isEmpty());
    sheetState.unsaved = true;
    EXPECT_TRUE(resultOf(files.ask())) << "No ends the program";
    EXPECT_EQ(asked(), askText);
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_EQ(folder.files().size(), 1);
}

TEST_F(SheetLoadingTest, QuittingSavesAfterAYesAndStaysIfThatFails) {
    answers.yes = true;
    EXPECT_FALSE(resultOf(files.ask())) << "the save was cancelled";
    expectSheetAsItWas();
    answers.fileName = path("nowhere/mine.txt");
    EXPECT_FALSE(resultOf(files.ask())) << "the save failed";
    expectSheetAsItWas();
    answers.fileName = path("mine.txt");
    EXPECT_TRUE(resultOf(files.ask()));
    EXPECT_FALSE(sheetState.unsaved);
    EXPECT_TRUE(contentsOf(path("mine.txt")).startsWith("F\t310 3\r\nmine.txt\r\n"));
}

TEST_F(SheetLoadingTest, ClearingTheSheetLeavesNothingUnsaved) {
    rows.clearSpreadSheet();
    EXPECT_TRUE(resultOf(files.ask()));
    EXPECT_TRUE(answers.asked.isEmpty());
}

} // namespace

} // namespace orv
