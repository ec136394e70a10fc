// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/sheetformat.h"
#include "testing/sheettest.h"

namespace orv {

namespace {

class SheetFilesTest : public SheetTest {
protected:
    void addRow(const std::vector<const char*>& values) {
        DataRow row{.date = QStringLiteral("1/5/99"), .time = QStringLiteral("9:05:07"), .values = {}};
        for (const char* value : values) {
            row.values << QString::fromLatin1(value);
        }
        rows.addRow(row);
    }

    std::string bytes() const { return sheetFileBytes(sheet, QStringLiteral("/some/where/lake.txt")).toStdString(); }

    void expectOneFailure(const QString& name) {
        EXPECT_EQ(theMessage().title.toStdString(), "Save as");
        EXPECT_EQ(theMessage().icon, Message::Icon::Exclamation);
        const QString opening = QStringLiteral("The sheet could not be saved as %1: ").arg(name);
        EXPECT_TRUE(theMessage().text.startsWith(opening)) << qPrintable(theMessage().text);
        EXPECT_GT(theMessage().text.indexOf(u'.', opening.size()), opening.size()) << "a reason is given";
    }
};

TEST_F(SheetFilesTest, EachLayoutIsByteExact) {
    const std::string newer = "\t100\t125\t150\tREF 150\r\n";
    const std::string older = "\t100\tREF 100\t125\tREF 125\t150\tREF 150\r\n";
    const std::string glow = "\tCounts\t\r\n";
    const struct {
        const char* letter;
        const char* firmware;
        std::vector<std::vector<const char*>> values;
        std::string expected; ///< After "Time".
    } cases[] = {
        {"V",
         "512",
         {{"10", "20", "30", "40"}, {"11", "21", "31", "41"}},
         newer + "1\t1/5/99\t9:05:07\t10\t20\t30\t40\t\t\r" // an empty eighth cell
                 "2\t1/5/99\t9:05:07\t11\t21\t31\t41\t\t\r"},
        {"v",
         "412",
         {{"10", "15", "20", "25", "30", "35"}},
         older + "1\t1/5/99\t9:05:07\t10\t15\t20\t25\t30\t\r"}, // without the ninth column
        {"F", "512", {{"700"}, {"0.00001"}}, glow + "1\t1/5/99\t9:05:07\t700\t\r2\t1/5/99\t9:05:07\t0.00001\t\r"},
        {"V", "500", {}, newer},
        {"f", "5.5", {}, glow},
    };
    for (const auto& each : cases) {
        rows.clearSpreadSheet();
        identify(each.letter, each.firmware);
        for (const auto& values : each.values) {
            addRow(values);
        }
        EXPECT_EQ(bytes(), each.letter + ("\t" + std::string(each.firmware)) + " " +
                               std::to_string(each.values.size()) + "\r\nlake.txt\r\n\r\r\r\nData Point\tDate\tTime" +
                               each.expected);
    }
}

TEST_F(SheetFilesTest, TypeWrittenIsTheSheetsOwn) {
    identify("V", "512");
    state.Vartemp = QStringLiteral("F");
    session.setFirmware(QStringLiteral("7"));
    EXPECT_EQ(bytes().substr(0, 9), "V\t512 0\r\n");
}

TEST_F(SheetFilesTest, RowsOfAnotherTypeGetAsManyCellsAsTheLayoutHas) {
    identify("F", "512");
    addRow({"700"});
    identify("V", "512");
    EXPECT_TRUE(QByteArray::fromStdString(bytes()).endsWith("Counts\t\r\n1\t1/5/99\t9:05:07\t700\t\r"))
        << "as long as there are no others";
    addRow({"10", "20", "30", "40"});
    EXPECT_TRUE(QByteArray::fromStdString(bytes()).endsWith("\n1\t1/5/99\t9:05:07\t700\t\t\t\t\t\r"
                                                            "2\t1/5/99\t9:05:07\t10\t20\t30\t40\t\t\r"));
}

TEST_F(SheetFilesTest, SheetOfUnknownTypeHasNothingToSave) {
    debug.comm2Output = true;
    answers.fileName = path("lake.txt");
    EXPECT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Failed);
    EXPECT_EQ(bytes(), "");
    EXPECT_TRUE(folder.files().isEmpty());
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_TRUE(theMessage().text.startsWith(QLatin1String("There is nothing to save")));
    EXPECT_EQ(said(), "Save Spread Sheet\r");
}

TEST_F(SheetFilesTest, OperatorsSaveAsksWithThePresetNameAndWritesUnderTheConfirmedOne) {
    identify("V", "512");
    addRow({"10", "20", "30", "40"});
    sheetState.fileName = QStringLiteral("Untitled");
    sheetState.records = QStringLiteral("3");
    answers.fileName = path("lake.txt");
    debug.comm2Output = true;
    int savedCalls = 0;
    const auto counting = files.saved.subscribe([&savedCalls](bool wholly) { savedCalls += wholly ? 1 : 0; });
    EXPECT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Saved);
    EXPECT_EQ(answers.asked.join(u'\n').toStdString(), "Save as|Untitled.txt|.txt|*.txt");
    EXPECT_EQ(contentsOf(path("lake.txt")).toStdString(), bytes());
    EXPECT_EQ(folder.files().size(), 1) << "no temporary file is left";
    EXPECT_FALSE(sheetState.unsaved);
    EXPECT_EQ(savedCalls, 1);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(said(), "Save Spread Sheet\rSaving TRX(S) Sheet\r");
}

TEST_F(SheetFilesTest, GlowAnnouncesItsOwnSaving) {
    identify("f", "512");
    answers.fileName = path("lake.txt");
    debug.comm2Output = true;
    EXPECT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Saved);
    EXPECT_EQ(said(), "Save Spread Sheet\rSaving Flour Sheet\r");
}

TEST_F(SheetFilesTest, PresetNameHasTheRecordsFrom20000RowsOn) {
    identify("V", "512");
    sheetState.fileName = QStringLiteral("lake");
    sheetState.records = QStringLiteral("3");
    haveRows(19999);
    files.saveas();
    haveRows(20000);
    files.saveas();
    haveRows(20500);
    files.saveas();
    EXPECT_EQ(answers.asked.join(u'\n').toStdString(), "Save as|lake.txt|.txt|*.txt\n"
                                                       "Save as|lake3.txt|.txt|*.txt\n"
                                                       "Save as|lake3.txt|.txt|*.txt");
}

TEST_F(SheetFilesTest, ConfirmedNameReplacesTheFile) {
    identify("F", "512");
    fill(path("lake.txt"), QByteArray(5000, 'x'));
    answers.fileName = path("lake.txt");
    EXPECT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Saved);
    EXPECT_EQ(contentsOf(path("lake.txt")).toStdString(), bytes());
    EXPECT_EQ(folder.files().size(), 1);
}

TEST_F(SheetFilesTest, CancelledSaveWritesNothingAndLeavesTheState) {
    identify("V", "512");
    addRow({"10", "20", "30", "40"});
    debug.comm2Output = true;
    const auto never = files.saved.subscribe([](bool /*wholly*/) { FAIL() << "nothing was saved"; });
    EXPECT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Cancelled);
    EXPECT_TRUE(folder.files().isEmpty());
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_EQ(sheet.rowCount(), 1);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(said(), "Save Spread Sheet\r");
}

TEST_F(SheetFilesTest, AutomaticSaveAsksNothingAndKeepsAFileFromBefore) {
    identify("V", "512");
    sheetState.fileName = path("lake");
    fill(path("lake.txt"), "older");
    EXPECT_EQ(files.autosave(), SheetFiles::Outcome::Saved);
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_EQ(contentsOf(path("lake-20261121-093015.txt")), QByteArray("older"));
    EXPECT_TRUE(contentsOf(path("lake.txt")).startsWith("V\t512 0\r\nlake.txt\r\n"));
    EXPECT_EQ(folder.files().size(), 2);
}

TEST_F(SheetFilesTest, FolderThatDoesNotExistIsToldAndTheRowsStayUnsaved) {
    identify("V", "512");
    addRow({"10", "20", "30", "40"});
    answers.fileName = path("nowhere/lake.txt");
    const auto never = files.saved.subscribe([](bool /*wholly*/) { FAIL() << "nothing was saved"; });
    EXPECT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Failed);
    expectOneFailure(answers.fileName);
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_EQ(sheet.rowCount(), 1);
}

#ifdef Q_OS_UNIX
TEST_F(SheetFilesTest, UnwritableFolderLeavesTheOldFileAndTellsWhy) {
    identify("V", "512");
    addRow({"10", "20", "30", "40"});
    fill(path("lake.txt"), "older");
    allowEveryone(path("lake.txt"));
    answers.fileName = path("lake.txt");
    {
        const UnwritableFolder unwritable(folder.path());
        EXPECT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Failed);
    }
    expectOneFailure(answers.fileName);
    EXPECT_EQ(contentsOf(path("lake.txt")), QByteArray("older"));
    EXPECT_TRUE(sheetState.unsaved);
}

TEST_F(SheetFilesTest, FullDiskLeavesTheOldFileAndTellsWhy) {
    identify("V", "512");
    for (int row = 0; row < 1000; ++row) {
        addRow({"10", "20", "30", "40"});
    }
    fill(path("lake.txt"), "older");
    answers.fileName = path("lake.txt");
    for (const rlim_t space : {rlim_t{0}, rlim_t{10}, rlim_t{20000}}) {
        messages.shown.clear();
        {
            const FileSizeLimit limit(space);
            EXPECT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Failed);
        }
        expectOneFailure(answers.fileName);
        EXPECT_EQ(contentsOf(path("lake.txt")), QByteArray("older"));
        EXPECT_EQ(folder.files().size(), 1) << "no half-written file is left";
        EXPECT_TRUE(sheetState.unsaved);
    }
}

TEST_F(SheetFilesTest, AutomaticSaveThatFailsLeavesTheOldFileUnderItsName) {
    identify("V", "512");
    addRow({"10", "20", "30", "40"});
    sheetState.fileName = path("lake");
    fill(path("lake.txt"), "older");
    {
        const FileSizeLimit limit(10);
        EXPECT_EQ(files.autosave(), SheetFiles::Outcome::Failed);
    }
    expectOneFailure(path("lake.txt"));
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "lake.txt");
    EXPECT_EQ(contentsOf(path("lake.txt")), QByteArray("older"));
}
#endif

TEST_F(SheetFilesTest, RowsOfAnotherTypeAreSavedUnderADatedNameAndTold) {
    identify("V", "512");
    addRow({"10", "20", "30", "40"});
    sheetState.fileName = QDir(folder.path()).filePath(QStringLiteral("lake"));
    const QString name = QDir(folder.path()).filePath(QStringLiteral("lake-20261121-093015.txt"));
    files.saveAside();
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), sheetFileBytes(sheet, name));
    EXPECT_FALSE(sheetState.unsaved);
    EXPECT_TRUE(theMessage().text.contains(name)) << qPrintable(theMessage().text);
    EXPECT_EQ(sheet.rowCount(), 1) << "the rows stay on the sheet";
    files.saveAside();
    EXPECT_EQ(messages.shown.size(), 1U) << "saved rows are not saved aside again";
}

} // namespace

namespace {

class AutomaticSaveTest : public SheetTest {
protected:
    AutomaticSaveTest() {
        identify("F", "310");
        sheetState.fileName = path("lake");
    }
};

TEST_F(AutomaticSaveTest, BelowTheLimitNothingHappens) {
    haveRows(19999);
    files.saveLongSheet();
    EXPECT_EQ(sheet.rowCount(), 19999);
    EXPECT_TRUE(folder.files().isEmpty());
    EXPECT_EQ(sheetState.records.value(), QStringLiteral("0"));
}

TEST_F(AutomaticSaveTest, AtTheLimitItSavesUnderTheCountedNameAndClears) {
    sheetState.records = QStringLiteral("6");
    debug.comm2Output = true;
    haveRows(20000);
    files.saveLongSheet();
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "lake6.txt");
    EXPECT_TRUE(contentsOf(path("lake6.txt")).startsWith("F\t310 20000\r\nlake6.txt\r\n"));
    EXPECT_EQ(sheetState.records.value(), QStringLiteral("7"));
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_EQ(state.plc, 0);
    EXPECT_EQ(sheetState.counter.value(), QStringLiteral("0"));
    EXPECT_FALSE(sheetState.unsaved);
    EXPECT_TRUE(answers.asked.isEmpty());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(said(), "Save Spread Sheet\rSaving Flour Sheet\rClear Spread Sheet\r");
    haveRows(20000);
    files.saveLongSheet();
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "lake6.txt|lake7.txt");
}

TEST_F(AutomaticSaveTest, LabelThatIsNoNumberCountsFromZero) {
    sheetState.records = QStringLiteral("x");
    haveRows(20000);
    files.saveLongSheet();
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "lakex.txt");
    EXPECT_EQ(sheetState.records.value(), QStringLiteral("1"));
}

TEST_F(AutomaticSaveTest, FailureKeepsTheRowsAndIsTriedAgainAfter500) {
    sheetState.fileName = path("nowhere/lake");
    haveRows(20000);
    files.saveLongSheet();
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(sheet.rowCount(), 20000);
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_EQ(sheetState.records.value(), QStringLiteral("0"));
    sheetState.fileName = path("lake");
    haveRows(20499);
    files.saveLongSheet();
    EXPECT_EQ(sheet.rowCount(), 20499) << "not tried at every row";
    haveRows(20500);
    files.saveLongSheet();
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_TRUE(contentsOf(path("lake0.txt")).startsWith("F\t310 20500\r\n"));
}

} // namespace

} // namespace orv
