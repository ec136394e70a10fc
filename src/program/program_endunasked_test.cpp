// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/programrig.h"

#include <QRegularExpression>

namespace orv {
namespace {

/// The program as it is started next in the same folder, whose operator says Yes.
struct Successor {
    Successor() {
        answers.yes = true;
        program.load();
        program.offerUnendedRun();
        for (int row = 0; row < program.sheet.data.rowCount(); ++row) {
            QByteArray cells;
            program.sheet.data.writeCells(row, sheetcolumn::firstCount, cells);
            rows << cells.trimmed();
        }
    }

    TestClock clock{QDateTime(QDate(2026, 11, 22), QTime(8, 0, 0))};
    RecordedMessages messages;
    PreparedAnswers answers;
    TestPort port;
    Program program{
        {.clock = clock, .messages = messages, .questions = answers, .makePort = [this](const QString& /*device*/) {
             return std::make_unique<TestPort>(&port);
         }}};
    QByteArrayList rows;
};

/// The session ends without anybody being asked. Nothing of it waits: the test's clock stands still meanwhile.
class UnaskedEnd : public testing::Test {
protected:
    /// The program on which the session ends; it goes with its lock before the next one is started.
    ProgramRig& rig() { return *rig_; }

    void end() {
        const qint64 before = rig().clock.monotonicMilliseconds();
        rig().program.endUnasked();
        EXPECT_EQ(rig().clock.monotonicMilliseconds(), before);
        EXPECT_FALSE(rig().ports.isOpen());
        EXPECT_TRUE(rig().procedures.isIdle());
        EXPECT_FALSE(rig().answers.stands());
        EXPECT_FALSE(rig().timer.isRunning());
        rig().program.end(); // as the windows' way out does
        messages = rig().messages.shown;
        sheet.clear();
        for (int row = 0; row < rig().sheet.rowCount(); ++row) {
            QByteArray cells;
            rig().sheet.writeCells(row, sheetcolumn::firstCount, cells);
            sheet << cells.trimmed();
        }
        rig_.reset();
        QDir::setCurrent(folder_.path());
    }

    QStringList files() { return QDir(folder_.path()).entryList(QDir::Files, QDir::Name); }

    void start() {
        rig_ = std::make_unique<ProgramRig>();
        QDir::setCurrent(folder_.path());
        rig().program.load();
    }

    std::vector<Message> messages;
    QByteArrayList sheet; ///< What was on it.

private:
    OwnFolder restored_; ///< The working directory is as before in the end.
    QTemporaryDir folder_;
    std::unique_ptr<ProgramRig> rig_;

public:
    UnaskedEnd() { start(); }
};

const char* const offered =
    "ORV Host Program: The last run in this folder did not end. Load its %1 rows into the sheet?";

QString offer(int rows) {
    return QString::fromLatin1(offered).arg(rows);
}

TEST_F(UnaskedEnd, ARunIsClosedWholeAndItsRowsAreOfferedAtTheNextStart) {
    rig().runWithRows(3);
    rig().com1.input = "11/21/26\t2700\t4\t20\t30\t40\r\n11/21/26\t2700\t5\t20\t30\t40\r\n11/21/26\t27";
    end();
    EXPECT_EQ(sheet.size(), 5) << "lines that waited are rows";
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(files().join(u' ').toStdString(), "Orvtemp.tmp Orvtemp.tmp.lock log.ohp");
    Successor next;
    EXPECT_EQ(next.answers.asked, QStringList(offer(5)));
    EXPECT_EQ(next.rows, sheet);
}

TEST_F(UnaskedEnd, RowsThatAreSavedAreNotOffered) {
    rig().runWithRows(3);
    rig().answers.fileName = QDir::current().filePath(QStringLiteral("sheet.txt"));
    rig().program.saveAs();
    end();
    EXPECT_EQ(files().join(u' ').toStdString(), "Orvtemp.tmp Orvtemp.tmp.saved log.ohp sheet.txt");
    EXPECT_TRUE(Successor().answers.asked.isEmpty());
}

TEST_F(UnaskedEnd, AfterAnAnswerTheOperatorsWordHolds) {
    rig().runWithRows(3);
    EXPECT_TRUE(rig().quit()) << "and the rows are not to be saved";
    rig().program.endUnasked();
    end();
    EXPECT_TRUE(Successor().answers.asked.isEmpty());
}

/// Where the program may be when the session ends, with four rows that are not saved.
struct Place {
    const char* name;
    std::function<void(ProgramRig& rig)> go;
    std::size_t messages;
};

void PrintTo(const Place& place, std::ostream* out) {
    *out << place.name;
}

class UnaskedEndAnywhere : public UnaskedEnd, public testing::WithParamInterface<Place> {};

TEST_P(UnaskedEndAnywhere, KeepsTheRows) {
    rig().runWithRows(4);
    rig().answers.late = true;
    GetParam().go(rig());
    end();
    EXPECT_EQ(messages.size(), GetParam().messages) << (messages.empty() ? "" : messages.front().text.toStdString());
    Successor next;
    EXPECT_EQ(next.answers.asked, QStringList(offer(4)));
    EXPECT_EQ(next.rows, sheet);
}

void stopRun(ProgramRig& rig) {
    rig.program.closePort();
    rig.connectAndRead();
}

INSTANTIATE_TEST_SUITE_P(Places, UnaskedEndAnywhere,
                         testing::Values(Place{"Running", [](ProgramRig&) {}, 0}, Place{"Ready", stopRun, 0},
                                         Place{"Asked", [](ProgramRig& rig) { EXPECT_FALSE(rig.quit()); }, 0},
                                         Place{"SaveDialog", [](ProgramRig& rig) { rig.program.saveAs(); }, 0},
                                         Place{"AskedAndSaveDialog",
                                               [](ProgramRig& rig) {
                                                   EXPECT_FALSE(rig.quit());
                                                   rig.answers.answer(Question::yes());
                                                   EXPECT_TRUE(rig.answers.stands());
                                               },
                                               0},
                                         Place{"OpenDialog",
                                               [](ProgramRig& rig) {
                                                   stopRun(rig);
                                                   rig.program.openSheet();
                                                   EXPECT_TRUE(rig.answers.stands());
                                               },
                                               0},
                                         Place{"DownloadDialog",
                                               [](ProgramRig& rig) {
                                                   stopRun(rig);
                                                   rig.program.downloadText();
                                                   EXPECT_TRUE(rig.answers.stands());
                                               },
                                               0},
                                         Place{"WakeUp",
                                               [](ProgramRig& rig) {
                                                   rig.program.closePort();
                                                   rig.program.autoConnect1();
                                                   rig.live(1.5);
                                                   EXPECT_FALSE(rig.procedures.isIdle());
                                               },
                                               0},
                                         Place{"ManualConnection",
                                               [](ProgramRig& rig) {
                                                   rig.program.closePort();
                                                   rig.program.manualConnect(1);
                                                   rig.manual.proceed();
                                                   rig.manual.start();
                                                   EXPECT_FALSE(rig.procedures.isIdle());
                                               },
                                               0},
                                         Place{"Sending",
                                               [](ProgramRig& rig) {
                                                   stopRun(rig);
                                                   LoggerSettings settings = rig.settings.record;
                                                   settings.logEnabled = false;
                                                   rig.settings.record = settings;
                                                   rig.sender.applySettings();
                                                   EXPECT_FALSE(rig.procedures.isIdle());
                                               },
                                               0},
                                         Place{"ShutterReset",
                                               [](ProgramRig& rig) {
                                                   stopRun(rig);
                                                   rig.program.resetShutter();
                                                   EXPECT_FALSE(rig.procedures.isIdle());
                                               },
                                               1},
                                         Place{"DownloadToTheSheet",
                                               [](ProgramRig& rig) {
                                                   stopRun(rig);
                                                   rig.program.vwhp();
                                               },
                                               1}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(UnaskedEnd, RowsOfADownloadAreOfferedAndTheOperatorIsToldThatItIsIncomplete) {
    rig().connectAndRead();
    rig().program.vwhp();
    rig().receive("O\r\n");
    rig().receive("11/21/26\t2700\t1\t2\t3\t4\r\n");
    rig().receive("11/21/26\t2701\t5\t6\t7\t8\r\n");
    end();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages.front().text.toStdString(),
              "The download is incomplete: it was ended before the instrument had sent everything. The next start "
              "offers what is on the sheet.\n\nThe instrument still holds its data; download it again.");
    Successor next;
    EXPECT_EQ(next.answers.asked, QStringList(offer(2)));
    EXPECT_EQ(next.rows, QByteArrayList({"1\t11/21/26\t1:00:00\t1\t2\t3\t4", "2\t11/21/26\t1:00:01\t5\t6\t7\t8"}));
    EXPECT_EQ(next.rows, sheet);
}

TEST_F(UnaskedEnd, RowsOfTwoRunsAreOfferedTogether) {
    rig().runWithRows(2);
    rig().program.closePort();
    rig().connectAndRead();
    rig().program.run();
    rig().receive("R\r\n");
    rig().receive("11/21/26\t2700\t3\t20\t30\t40\r\n");
    end();
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(files().filter(QStringLiteral("Orvtemp-")).size(), 2) << "what the two runs recorded is kept";
    Successor next;
    EXPECT_EQ(next.answers.asked, QStringList(offer(3)));
    EXPECT_EQ(next.rows, sheet);
}

TEST_F(UnaskedEnd, RowsAreOfferedOfEveryType) {
    struct Type {
        const char* greeting;
        QByteArray values;
    };
    for (const auto& [greeting, values] : {Type{"F310\r", "7"}, Type{"V412\r", "1\t2\t3\t4\t5\t6"}}) {
        rig().connectAndRead(greeting);
        rig().program.vwhp();
        rig().receive("O\r\n");
        rig().receive("11/21/26\t2700\t" + values + "\r\n");
        rig().receive("EOF\r\n");
        end();
        EXPECT_TRUE(messages.empty());
        {
            Successor next;
            EXPECT_EQ(next.answers.asked.size(), 1) << greeting;
            EXPECT_EQ(next.rows, QByteArrayList({"1\t11/21/26\t1:00:00\t" + values})) << greeting;
        }
        start();
    }
}

TEST_F(UnaskedEnd, RecoveredRowsAreOfferedAgain) {
    rig().runWithRows(3);
    end();
    const QByteArrayList rows = sheet;
    start();
    rig().answers.yes = true;
    rig().program.offerUnendedRun();
    const QStringList before = files();
    end();
    EXPECT_EQ(sheet, rows);
    EXPECT_EQ(files(), before.filter(QRegularExpression(QStringLiteral("^(?!orvhost)")))) << "nothing is written twice";
    start();
    rig().answers.late = true;
    rig().program.offerUnendedRun();
    end();
    EXPECT_EQ(Successor().rows, rows) << "a question without an answer, too";
}

TEST_F(UnaskedEnd, RowsThatFoundNoRoomAreKeptOnceThereIs) {
    rig().runWithRows(2);
    {
        const FileSizeLimit full(static_cast<rlim_t>(QFileInfo(QStringLiteral("Orvtemp.tmp")).size()));
        rig().receive("11/21/26\t2700\t3\t20\t30\t40\r\n");
    }
    end();
    EXPECT_EQ(messages.size(), 1U) << "the record file could not be written";
    Successor next;
    EXPECT_EQ(next.answers.asked, QStringList(offer(3)));
    EXPECT_EQ(next.rows, sheet);
}

TEST_F(UnaskedEnd, WhatCannotBeKeptIsToldAndWhatWasThereStays) {
    rig().runWithRows(2);
    {
        const FileSizeLimit full(static_cast<rlim_t>(QFileInfo(QStringLiteral("Orvtemp.tmp")).size()));
        rig().receive("11/21/26\t2700\t3\t20\t30\t40\r\n");
        end();
    }
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages.back().text.toStdString(),
              "The rows on the sheet are not saved, and could not be kept for the next start either: " +
                  systemWords(EFBIG).toStdString() + ".");
    EXPECT_EQ(Successor().rows, sheet.mid(0, 2));
}

TEST_F(UnaskedEnd, WhatAFullDiskDidNotTakeIsKeptOnceThereIsRoom) {
    rig().runWithRows(2);
    const auto lines = [] { return contentsOf(QStringLiteral("Orvtemp.tmp")).count("\r\n"); };
    const qsizetype before = lines();
    {
        const FileSizeLimit full(static_cast<rlim_t>(QFileInfo(QStringLiteral("Orvtemp.tmp")).size()));
        rig().receive("11/21/26\t2700\t3\t20\t30\t40\r\n");
        EXPECT_EQ(rig().messages.shown.size(), 1U);
        EXPECT_FALSE(rig().program.keepForNextStart()) << "the file lacks a row";
        EXPECT_EQ(rig().messages.shown.size(), 2U);
        EXPECT_EQ(lines(), before);
    }
    EXPECT_TRUE(rig().program.keepForNextStart());
    EXPECT_EQ(lines(), before + 1);
    rig().receive("11/21/26\t2700\t4\t20\t30\t40\r\n");
    EXPECT_EQ(lines(), before + 2) << "the run goes on";
    EXPECT_TRUE(rig().program.keepForNextStart());
    EXPECT_EQ(rig().messages.shown.size(), 2U);
    end();
    EXPECT_EQ(sheet.size(), 4);
    Successor next;
    EXPECT_EQ(next.answers.asked, QStringList(offer(4)));
    EXPECT_EQ(next.rows, sheet);
}

TEST_F(UnaskedEnd, WhileTheSessionMayYetGoOnEverythingIsOnTheDiskAndGoesOn) {
    rig().connectAndRead();
    rig().program.vwhp();
    rig().receive("O\r\n");
    rig().receive("11/21/26\t2700\t1\t2\t3\t4\r\n");
    EXPECT_TRUE(rig().program.keepForNextStart());
    const QByteArray kept = contentsOf(QStringLiteral("Orvtemp.tmp"));
    EXPECT_TRUE(kept.endsWith("1\t11/21/26\t1:00:00\t1\t\t2\t\t3\t4\r\n")) << kept.toStdString();
    EXPECT_TRUE(QFile::exists(QStringLiteral("Orvtemp.tmp.lock")));
    rig().receive("11/21/26\t2701\t5\t6\t7\t8\r\n");
    rig().receive("EOF\r\n");
    rig().answers.fileName = QDir::current().filePath(QStringLiteral("sheet.txt"));
    rig().program.saveAs();
    EXPECT_FALSE(QFile::exists(QStringLiteral("Orvtemp.tmp.lock"))) << "saved: there is nothing to offer";
    end();
    EXPECT_TRUE(messages.empty());
    EXPECT_TRUE(Successor().answers.asked.isEmpty());
}

} // namespace
} // namespace orv
