// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/sheettest.h"

namespace orv {
namespace {

/// "Clear All" and its taking back, with what stands in the folder for the next program.
class ClearAllTest : public SheetTest {
protected:
    void run(std::initializer_list<const char*> values) {
        identify("V", "512");
        program.run();
        receive("R\r\n");
        for (const char* value : values) {
            receive(QByteArray("11/21/26\t2700\t") + value + "\t8\t9\t10\r\n");
        }
        receive(">");
        ticks(2);
        expectEnded();
    }

    void save(const char* name) {
        answers.fileName = path(name);
        ASSERT_EQ(resultOf(files.saveas()), SheetFiles::Outcome::Saved);
    }

    std::string values(int column = sheetcolumn::firstValue) const {
        QStringList texts;
        for (int row = 0; row < sheet.rowCount(); ++row) {
            texts << sheet.cell(row, column);
        }
        return texts.join(u'|').toStdString();
    }

    /// Each file of the folder with its bytes.
    std::map<std::string, QByteArray> everyFile() const {
        std::map<std::string, QByteArray> all;
        for (const QString& name : folder.files()) {
            all[name.toStdString()] = contentsOf(folder.path(qPrintable(name)));
        }
        return all;
    }

    /// What a program that is started after this one has died offers: the values of the rows.
    std::string offeredNext() {
        RecordFile later(clock, path("Orvtemp.tmp"));
        if (!later.isUnended() || later.isSaved()) {
            return "";
        }
        RecordedRows found = readRecordedRows(later.path(), later.unendedType());
        if (found.sheet.rows.empty() && !later.unendedEarlierFile().isEmpty()) {
            found = readRecordedRows(later.unendedEarlierFile(), later.unendedType());
        }
        std::string all;
        for (const QByteArray& row : found.sheet.rows) {
            all += (all.empty() ? "" : "|") + row.split('\t').value(sheetcolumn::firstValue).toStdString();
        }
        return all;
    }
};

TEST_F(ClearAllTest, UnsavedRowsComeBackWholeAndAreOfferedAfterACrash) {
    run({"1", "2"});
    const DataSheet::Type type = sheet.type();
    const QStringList header = sheet.header();
    const auto before = everyFile();
    program.clearAll();
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_EQ(sheetState.clearedRows, 2);
    EXPECT_EQ(offeredNext(), "") << "as ever";
    state.Vartemp = QStringLiteral("F");
    rows.layOutOnOpening(); // another instrument is connected meanwhile
    program.bringBack();
    EXPECT_EQ(values(), "1|2");
    EXPECT_EQ(sheet.type(), type);
    EXPECT_EQ(sheet.header(), header);
    EXPECT_EQ(state.plc, 2);
    EXPECT_EQ(sheetState.counter.value(), QStringLiteral("2"));
    EXPECT_TRUE(commands.sheetHoldsRows);
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_EQ(sheetState.clearedRows, 0);
    EXPECT_EQ(everyFile(), before);
    EXPECT_EQ(offeredNext(), "1|2");
    program.bringBack();
    EXPECT_EQ(values(), "1|2") << "once";
}

TEST_F(ClearAllTest, SavingTheEmptySheetMeanwhileSavesNothing) {
    run({"1", "2"});
    program.clearAll();
    save("empty.txt");
    program.bringBack();
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_EQ(offeredNext(), "1|2");
    run({"3"});
    EXPECT_EQ(values(), "1|2|3");
    EXPECT_EQ(offeredNext(), "3");
    const RecordFile later(clock, path("Orvtemp.tmp"));
    ASSERT_NE(later.unendedEarlierFile(), QString()) << "the run has kept the file with the others";
    EXPECT_EQ(readRecordedRows(later.unendedEarlierFile(), sheet.type()).sheet.rows.size(), 2U);
}

TEST_F(ClearAllTest, SavedRowsComeBackSaved) {
    run({"1", "2"});
    save("bay.txt");
    const auto before = everyFile();
    program.clearAll();
    EXPECT_EQ(sheetState.file.value(), QString());
    EXPECT_EQ(sheetState.saved.value(), SavedRows());
    program.bringBack();
    EXPECT_EQ(values(), "1|2");
    EXPECT_FALSE(sheetState.unsaved);
    EXPECT_EQ(sheetState.file.value(), path("bay.txt"));
    EXPECT_EQ(sheetState.saved.value().count, 2);
    EXPECT_EQ(everyFile(), before);
    EXPECT_EQ(offeredNext(), "");
    run({"3"});
    EXPECT_EQ(folder.files().join(u'|').toStdString(), "Orvtemp.tmp|Orvtemp.tmp.lock|bay.txt|orvhost.lock")
        << "the file of the saved rows need not be kept";
}

TEST_F(ClearAllTest, TheNextRowEndsIt) {
    run({"1", "2"});
    program.clearAll();
    run({"3"});
    EXPECT_EQ(sheetState.clearedRows, 0);
    program.bringBack();
    EXPECT_EQ(values(), "3");
    EXPECT_EQ(offeredNext(), "3");
}

TEST_F(ClearAllTest, ARunWithoutARowDoesNotEndIt) {
    run({"1", "2"});
    program.clearAll();
    for (int run = 0; run < 2; ++run) {
        program.run();
        collection.closeRecordFile();
    }
    EXPECT_EQ(sheetState.clearedRows, 2);
    program.bringBack();
    EXPECT_EQ(values(), "1|2");
    EXPECT_TRUE(sheetState.unsaved);
    EXPECT_EQ(offeredNext(), "1|2") << "from the file that the run has kept";
    run({"3"});
    EXPECT_EQ(values(), "1|2|3");
    save("bay.txt");
    EXPECT_EQ(offeredNext(), "");
}

TEST_F(ClearAllTest, ClearingTheEmptySheetChangesNothing) {
    program.clearAll();
    EXPECT_EQ(sheetState.clearedRows, 0);
    run({"1", "2"});
    program.clearAll();
    program.clearAll();
    EXPECT_EQ(sheetState.clearedRows, 2);
    program.bringBack();
    EXPECT_EQ(values(), "1|2");
    EXPECT_EQ(offeredNext(), "1|2");
}

TEST_F(ClearAllTest, AnOpenedSheetEndsIt) {
    run({"1", "2"});
    save("bay.txt");
    program.clearAll();
    answers.fileName = path("bay.txt");
    program.openSheet();
    EXPECT_EQ(sheetState.clearedRows, 0);
    EXPECT_EQ(sheetState.file.value(), path("bay.txt"));
    EXPECT_EQ(sheetState.saved.value(), SavedRows());
    program.bringBack();
    EXPECT_EQ(sheet.rowCount(), 2);
}

TEST_F(ClearAllTest, RowsThatASaveHasClearedAreNotBroughtBack) {
    identify("V", "512");
    haveRows(SheetFiles::rowLimit - 1);
    program.run();
    receive("R\r\n");
    receive("11/21/26\t2700\t7\t8\t9\t10\r\n");
    EXPECT_EQ(sheet.rowCount(), 0);
    EXPECT_EQ(sheetState.clearedRows, 0);
    EXPECT_EQ(sheetState.saved.value(), (SavedRows{.count = 20000, .file = path("Untitled0.txt")}));
    EXPECT_EQ(sheetState.file.value(), QString()) << "what comes now is not in that file";
    receive("11/21/26\t2700\t7\t8\t9\t10\r\n");
    EXPECT_EQ(sheet.rowCount(), 1);
    EXPECT_EQ(sheetState.saved.value().count, 20000) << "it tells where the rows before are";
}

TEST_F(ClearAllTest, TheRowsOfEachRunAndDownloadAreASeries) {
    const auto starts = [this] {
        std::string rows;
        for (int row = 0; row < sheet.rowCount(); ++row) {
            rows += sheet.beginsSeries(row) ? 'x' : '-';
        }
        return rows;
    };
    run({"1", "2"});
    EXPECT_EQ(starts(), "--");
    program.run();
    collection.closeRecordFile();
    run({"3"});
    EXPECT_EQ(starts(), "--x") << "a run without a row is none";
    program.vwhp();
    for (const char* line : {">O", "11/21/26\t2700\t7\t8\t9\t10", "11/21/26\t2700\t7\t8\t9\t10", "EOF"}) {
        receive(QByteArray(line) + "\r\n");
    }
    EXPECT_EQ(starts(), "--xx-");
    EXPECT_EQ(sheet.seriesOf(1), 0);
    EXPECT_EQ(sheet.seriesOf(2), 1);
    EXPECT_EQ(sheet.seriesOf(4), 2);
    save("bay.txt");
    EXPECT_EQ(contentsOf(path("bay.txt")).count('\r'), 11) << "the file knows nothing of it";
    program.clearAll();
    program.bringBack();
    EXPECT_EQ(starts(), "--xx-");
    program.clearAll();
    run({"1", "2"});
    EXPECT_EQ(starts(), "--");
}

} // namespace
} // namespace orv
