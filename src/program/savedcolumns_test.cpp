// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/programrig.h"

namespace orv {
namespace {

/// Rows of the older TRX, whose last reference no sheet file holds.
class SavedColumns : public ProgramTest {
protected:
    void run(int rows) {
        program.run();
        receive("R\r\n");
        for (int row = 1; row <= rows; ++row) {
            receive("11/21/26\t2700\t10\t15\t20\t25\t30\t35\r\n");
        }
    }
    void endRun() {
        receive(">");
        ASSERT_EQ(state.Ctrlscrn, Operation::CollectionSetUp);
    }
    void saveAs(const char* name) {
        answers.fileName = path(name);
        program.saveAs();
    }
    void expectTold(const std::string& end) {
        EXPECT_EQ(theMessage().title.toStdString(), "Save as");
        EXPECT_EQ(theMessage().icon, Message::Icon::Information);
        EXPECT_EQ(theMessage().text.toStdString(),
                  "A sheet file has no column for the last reference of the older TRX.\n\n" + end);
        messages.shown.clear();
    }
    void expectToldOfTheRecordFile() {
        expectTold("The record file " + path("Orvtemp.tmp").toStdString() +
                   " has it; the next run keeps that file under a name with date and time.");
    }
    QStringList keptRecords() const { return folder.files().filter(QStringLiteral("Orvtemp-")); }
    QByteArray kept() const {
        const QStringList names = keptRecords();
        EXPECT_EQ(names.size(), 1) << names.join(u'|').toStdString();
        return names.isEmpty() ? QByteArray() : contentsOf(folder.path(qPrintable(names[0])));
    }

    const QByteArray row{"1\t11/21/26\t1:00:00\t10\t15\t20\t25\t30\t35\r\n"};
    const QByteArray savedRow{"REF 150\r\n1\t11/21/26\t1:00:00\t10\t15\t20\t25\t30\t\r"};
};

TEST_F(SavedColumns, TheRecordFileIsKeptAndTheFirstSaveOfARunSaysSo) {
    connectAndRead("V412\r");
    run(1);
    endRun();
    saveAs("sheet.txt");
    EXPECT_TRUE(contentsOf(path("sheet.txt")).endsWith(savedRow)) << "the file is as it was";
    expectToldOfTheRecordFile();
    EXPECT_FALSE(sheetState.unsaved) << "nothing is asked";
    EXPECT_FALSE(QFile::exists(path("Orvtemp.tmp.lock"))) << "nor offered";
    saveAs("again.txt");
    EXPECT_TRUE(messages.shown.empty()) << "told once";
    program.clearAll();
    run(1);
    EXPECT_TRUE(kept().endsWith(row));
    saveAs("sheet.txt");
    expectToldOfTheRecordFile();
    endRun();
    saveAs("sheet.txt");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SavedColumns, AProgramThatStartsLaterKeepsItToo) {
    connectAndRead("V412\r");
    run(1);
    saveAs("sheet.txt");
    EXPECT_TRUE(quit());
    EXPECT_TRUE(answers.asked.filter(QStringLiteral("not Saved")).isEmpty());
    RecordFile later(clock, path("Orvtemp.tmp"));
    EXPECT_FALSE(later.isUnended());
    EXPECT_EQ(later.start({.letter = QStringLiteral("V"), .firmware = 412.0}), QString());
    EXPECT_TRUE(kept().endsWith(row));
}

TEST_F(SavedColumns, ALongRunIsToldOnceAndKeptWhole) {
    connectAndRead("V412\r");
    sheetState.fileName = path("lake");
    run(1);
    for (const char* file : {"lake0.txt", "lake1.txt"}) {
        while (sheet.rowCount() < 19999) {
            rows.addRow({.date = {}, .time = {}, .values = QStringLiteral("1 2 3 4 5 6").split(u' ')});
        }
        receive("11/21/26\t2700\t10\t15\t20\t25\t30\t35\r\n");
        EXPECT_EQ(sheet.rowCount(), 0);
        EXPECT_TRUE(contentsOf(path(file)).endsWith("\r20000\t11/21/26\t1:00:00\t10\t15\t20\t25\t30\t\r"));
    }
    expectToldOfTheRecordFile();
    endRun();
    program.run();
    EXPECT_EQ(kept().count("\t30\t35\r\n"), 3);
}

TEST_F(SavedColumns, RowsThatAreSavedAsideAreKeptToo) {
    connectAndRead("V412\r");
    sheetState.fileName = path("lake");
    run(1);
    program.closePort();
    connectAndRead("F310\r");
    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(messages.shown[0].title.toStdString(), "Save as");
    EXPECT_TRUE(messages.shown[1].text.startsWith(QLatin1String("The sheet held unsaved rows of another type")));
    program.run();
    EXPECT_TRUE(kept().endsWith(row));
}

TEST_F(SavedColumns, OfStoredDataTheTextFileIsNamed) {
    connectAndRead("V412\r");
    program.vwhp();
    receive(">O\r\n");
    receive("11/21/26\t2700\t10\t15\t20\t25\t30\t35\r\n");
    receive("EOF\r\n");
    ASSERT_EQ(sheet.rowCount(), 1);
    saveAs("sheet.txt");
    expectTold("Of stored data, \"Download Stored Data: Save as Text\" writes it.");
    saveAs("sheet.txt");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SavedColumns, WhereNothingIsLeftOutNothingIsTold) {
    for (const QByteArray& greeting : {QByteArray("V512\r"), QByteArray("F310\r"), QByteArray("V412\r")}) {
        connectAndRead(greeting);
        program.clearAll();
        if (greeting != "V412\r") { // of that one the header row alone
            program.run();
            receive("R\r\n");
            receive(greeting == "V512\r" ? "11/21/26\t2700\t10\t20\t30\t40\r\n" : "11/21/26\t2700\t700\r\n");
            receive(">");
            ASSERT_EQ(sheet.rowCount(), 1);
        }
        saveAs("sheet.txt");
        EXPECT_TRUE(messages.shown.empty()) << greeting.toStdString();
        program.closePort();
    }
    EXPECT_EQ(keptRecords().join(u'|').toStdString(), "");
}

TEST_F(SavedColumns, ALoadedSheetHasNoSuchColumn) {
    connectAndRead("V412\r");
    run(1);
    endRun();
    saveAs("sheet.txt");
    messages.shown.clear();
    program.openSheet();
    ASSERT_EQ(sheet.rowCount(), 1);
    saveAs("copy.txt");
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(contentsOf(path("copy.txt")).size() + 1, contentsOf(path("sheet.txt")).size()) << "but for its own name";
}

} // namespace
} // namespace orv
