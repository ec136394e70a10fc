// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/rowoutput.h"
#include "testing/consolerig.h"

#include <QRegularExpression>

#include <ctime>

namespace orv {
namespace {

/// The commands that fetch rows, on an instrument whose lines are counted on their way to the program.
class OrvCollect : public ConsoleTest {
protected:
    OrvCollect() {
        lineMade = [this] { line->read = [this](const QByteArray& block) { received += block; }; };
    }

    /// Data lines that have come whole, of a TRX of the newer generation unless told.
    int linesReceived(int tabs = 5) const {
        int lines = 0;
        for (const QByteArray& text : received.split('\n')) {
            lines += text.endsWith('\r') && text.count('\t') == tabs ? 1 : 0;
        }
        return lines;
    }

    /// Rows of a CSV file, without the header row.
    static QList<QByteArray> rowsOf(const QString& name) {
        QList<QByteArray> rows = contentsOf(name).split('\n');
        rows.removeFirst();
        rows.removeLast();
        return rows;
    }

    /// The record numbers in these files, which must be 1, 2, 3 ... through all of them.
    static int rowsThrough(const QStringList& names) {
        int last = 0;
        for (const QString& name : names) {
            for (const QByteArray& row : rowsOf(name)) {
                EXPECT_EQ(row.left(row.indexOf(',')).toInt(), last + 1) << qPrintable(name);
                ++last;
            }
        }
        return last;
    }

    QString told() const {
        QStringList texts;
        for (const Message& message : messages.shown) {
            texts << message.text;
        }
        return texts.join(u'|');
    }

    QByteArray received;
};

TEST_F(OrvCollect, SettingsThatWereNotReadAreNotInTheFile) {
    reportInstead({"S1", "G0", "A#", "L0", "W1", "M1", "T3x0", "D24", "Q7", "I5", "MP200"});
    EXPECT_EQ(orv("collect sim:trx?baud=0&rate=2 -o lake.csv --points 2").status, 0);
    const QByteArray metadata = contentsOf(path("lake.csv-metadata.json"));
    EXPECT_TRUE(metadata.contains("\"pointsPerBlock\": 7")) << metadata.toStdString();
    EXPECT_FALSE(metadata.contains("\"samplesPerPoint\"")) << metadata.toStdString();
    EXPECT_FALSE(metadata.contains("\"auxAdc\"")) << metadata.toStdString();
}

TEST_F(OrvCollect, NoRunBeginsByItselfUntilItIsKnownThatNothingIsErased) {
    for (const char* unread : {"L#", "M#"}) {
        QByteArrayList report{"S1", "G0", "A0", "L0", "W1", "M1", "T30", "D24", "Q7", "I5", "MP200"};
        report[unread[0] == 'L' ? 3 : 5] = unread;
        reportInstead(report);
        begin(QStringLiteral("collect sim:trx?baud=0 -o %1.csv --keep-trying").arg(QLatin1Char(unread[0])));
        live(60);
        EXPECT_GE(line->dtr.count(QStringLiteral("on")), 3) << "it is tried again";
        EXPECT_FALSE(line->allWritten().contains('R')) << unread;
        visit->interrupt(2);
        live(10);
        EXPECT_EQ(answered.status, 130);
        EXPECT_NE(result().error.find("The settings could not be read whole; no run was begun."), std::string::npos);
    }
}

TEST_F(OrvCollect, ADownloadOfAnUnknownNumberOfRecordsIsWholeAtItsEnd) {
    reportInstead({"S1", "G0", "A0", "L0", "W1", "M1", "T30", "D24", "Q7", "I5", "MP9#99"});
    const Answered download = orv("download sim:trx?baud=0&records=20 -o lake.csv --json");
    EXPECT_EQ(download.status, 0) << download.error;
    EXPECT_EQ(download.output, "{\"complete\":true,\"expected\":null,\"file\":\"lake.csv\",\"records\":20,"
                               "\"unreadable\":0}\n");
}

TEST_F(OrvCollect, ABlockIsWrittenRowByRowAndEndsTheRun) {
    begin(QStringLiteral("collect sim:trx?points=20&rate=2 -o block.csv"));
    live(8);
    const auto soFar = static_cast<int>(contentsOf(path("block.csv")).count('\n')) - 1;
    EXPECT_GE(soFar, 5);
    EXPECT_EQ(soFar, linesReceived());
    live(20);
    EXPECT_EQ(answered.status, 0) << result().error;
    EXPECT_EQ(rowsThrough({path("block.csv")}), 20);
    EXPECT_TRUE(contentsOf(path("block.csv")).startsWith("record,time,scattering_100,"));
    EXPECT_EQ(result().error, "orv: 20 rows were collected.\n");
    EXPECT_TRUE(messages.shown.empty()) << qPrintable(told());
    EXPECT_EQ(folder.files().filter(QStringLiteral("Orvtemp")).join(u' ').toStdString(),
              "Orvtemp.tmp Orvtemp.tmp.saved");
    EXPECT_TRUE(folder.files().contains(QStringLiteral("block.csv-metadata.json")));
}

TEST_F(OrvCollect, EndsAfterSoManyRowsOrSoMuchTimeWithTheInstrumentAtItsPrompt) {
    const Answered points = orv("collect sim:trx?rate=5 -o - --points 7");
    EXPECT_EQ(points.status, 0) << points.error;
    EXPECT_EQ(std::count(points.output.begin(), points.output.end(), '\n'), 8) << points.output;
    EXPECT_TRUE(received.endsWith('>') || received.contains("P\r\n")) << "it was woken again";
    const qint64 began = clock.monotonicMilliseconds();
    const Answered time = orv("collect sim:glow?rate=5 -o glow.jsonl --for 30s --stamp --json");
    EXPECT_EQ(time.status, 0) << time.error;
    EXPECT_NEAR(static_cast<double>(clock.monotonicMilliseconds() - began), 33'000, 600);
    const QJsonObject summary = QJsonDocument::fromJson(QByteArray::fromStdString(time.output)).object();
    EXPECT_NEAR(summary[u"rows"].toInt(), 148, 3);
    EXPECT_EQ(contentsOf(path("glow.jsonl")).count('\n'), summary[u"rows"].toInt());
    EXPECT_TRUE(contentsOf(path("glow.jsonl")).contains("2026-11-21T09:3"));
}

TEST_F(OrvCollect, OldInstrumentsLoseNoColumn) {
    const Answered old = orv("collect sim:trx?firmware=412&rate=5 -o old.csv --points 3");
    EXPECT_EQ(old.status, 0) << old.error;
    EXPECT_EQ(contentsOf(path("old.csv")).split('\n').front().count(','), 7);
    EXPECT_EQ(rowsOf(path("old.csv")).front().count(','), 7);
    EXPECT_TRUE(recordFile.isSaved());
}

TEST_F(OrvCollect, TheColumnThatASheetFileHasNotIsToldAndKept) {
    struct Kind {
        const char* device;
        const char* file;
        bool isWhole;
    };
    int kept = 0;
    for (const Kind& kind :
         {Kind{"sim:trx?firmware=412&rate=5", "a.csv", true}, Kind{"sim:trx?firmware=412&rate=5", "b.txt", false},
          Kind{"sim:trx?firmware=512&rate=5", "c.txt", true}, Kind{"sim:glow?rate=5", "d.txt", true}}) {
        SCOPED_TRACE(kind.file);
        const Answered ended = orv(
            QStringLiteral("collect %1 -o %2 --points 3").arg(QLatin1String(kind.device), QLatin1String(kind.file)));
        EXPECT_EQ(ended.status, 0) << ended.error;
        const std::string column = "orv: A sheet file has no column for the last reference of the older TRX. The "
                                   "record file " +
                                   path("Orvtemp.tmp").toStdString() + " has it;";
        EXPECT_EQ(ended.error.find(column) == std::string::npos, kind.isWhole) << ended.error;
        EXPECT_EQ(recordFile.isSaved(), kind.isWhole);
        EXPECT_EQ(folder.files().filter(QStringLiteral("Orvtemp-2026")).size(), kept);
        kept += kind.isWhole ? 0 : 1;
    }
    EXPECT_EQ(kept, 1);
    const QString record = folder.files().filter(QStringLiteral("Orvtemp-2026")).value(0);
    EXPECT_EQ(orv(QStringLiteral("convert %1 -o e.csv").arg(record)).status, 0) << result().error;
    EXPECT_EQ(rowsOf(path("e.csv")).size(), 3);
    EXPECT_EQ(rowsOf(path("e.csv")).front().count(','), 7);
}

TEST_F(OrvCollect, AnInterruptionEndsTheRunWhole) {
    begin(QStringLiteral("collect sim:trx?rate=5 -o half.csv"));
    live(10);
    visit->interrupt(2);
    live(5);
    EXPECT_EQ(answered.status, 130);
    EXPECT_EQ(rowsThrough({path("half.csv")}), linesReceived());
    EXPECT_FALSE(folder.files().contains(QStringLiteral("Orvtemp.tmp.lock")));
    begin(QStringLiteral("collect sim:trx?rate=5&fault=cut -o half2.csv"));
    live(10);
    visit->interrupt(15);
    live(0.1);
    EXPECT_EQ(answered.status, -1) << "the instrument is stopped";
    visit->interrupt(15);
    live(0.1);
    EXPECT_EQ(answered.status, 143) << "the second time it ends at once";
    EXPECT_FALSE(ports.isOpen());
}

TEST_F(OrvCollect, ALineThatIsLostKeepsAndCountsWhatCame) {
    const Answered lost = orv("collect sim:trx?rate=5&fault=unplug&after=20% -o lost.csv");
    EXPECT_EQ(lost.status, 3);
    EXPECT_EQ(rowsThrough({path("lost.csv")}), 20);
    EXPECT_NE(lost.error.find("The line was lost. 20 rows were collected and are kept."), std::string::npos)
        << lost.error;
    received.clear();
    const Answered silent = orv("collect sim:trx?rate=5&fault=cut&after=20% -o silent.csv");
    EXPECT_EQ(silent.status, 3);
    EXPECT_NE(silent.error.find("The instrument fell silent. 20 rows"), std::string::npos) << silent.error;
}

/// However a command ends, its file is whole and says what is in it.
TEST_F(OrvCollect, EveryEndingMakesTheFileAndCountsItsRows) {
    struct Ending {
        const char* command;
        std::function<void()> happens; ///< When some rows have come.
        int status;
        const char* error; ///< Its last line.
    };
    const auto interrupt = [this] {
        visit->interrupt(2);
        live(20);
    };
    const std::vector<Ending> endings{
        {"collect sim:trx?rate=5 --for 12s --keep-trying",
         [this] {
             line->unplugged = true;
             clock.advance(120'000);
         },
         3, "orv: The time is over, and the instrument is not connected.\n"},
        {"collect sim:trx?rate=5 --keep-trying",
         [this] {
             line->unplugged = true;
             live(2);
             options.port = QStringLiteral("sim:glow?rate=5");
             clock.advance(120'000);
         },
         3, "orv: Another type of instrument is connected now. Its rows need another file.\n"},
        {"collect sim:trx?rate=5",
         [this, interrupt] {
             line->silent = true;
             visit->interrupt(15);
             live(0.1);
             interrupt();
         },
         130, " rows were collected.\n"},
        {"download sim:trx", interrupt, 130, " of 200 records are in "}};
    int number = 0;
    for (const Ending& ending : endings) {
        for (const char* suffix : {"csv", "txt", "nc"}) {
            const QString name = QStringLiteral("end%1.%2").arg(++number).arg(QLatin1String(suffix));
            SCOPED_TRACE(std::string(ending.command) + ' ' + name.toStdString());
            received.clear();
            if (line != nullptr) {
                line->unplugged = false;
                line->silent = false;
            }
            begin(QString::fromLatin1(ending.command) + QStringLiteral(" -o ") + name);
            const auto came = [this] { return linesReceived() >= 7; };
            for (int waited = 0; waited < 20'000 && !came(); ++waited) {
                live(0.001);
            }
            ending.happens();
            EXPECT_EQ(answered.status, ending.status);
            const std::string rows = std::to_string(linesReceived());
            const bool isDownload = std::string(ending.command).starts_with("download");
            const std::string counted = isDownload ? rows + " of 200 records are in " + name.toStdString() + ".\n"
                                                   : rows + " rows were collected.\n";
            EXPECT_NE(result().error.find("orv: " + counted), std::string::npos) << result().error;
            EXPECT_NE(result().error.find(ending.error), std::string::npos) << result().error;
            ASSERT_TRUE(folder.files().contains(name));
            EXPECT_EQ(folder.files().contains(name + QStringLiteral("-metadata.json")), name.endsWith(u"csv"));
            if (name.endsWith(u"csv")) {
                EXPECT_EQ(rowsThrough({path(qPrintable(name))}), linesReceived());
            } else if (name.endsWith(u"txt")) {
                EXPECT_EQ(orv(QStringLiteral("convert %1 -o %1.jsonl").arg(name)).status, 0) << result().error;
                EXPECT_EQ(contentsOf(path(qPrintable(name + QStringLiteral(".jsonl")))).count('\n'), linesReceived());
            }
        }
    }
}

TEST_F(OrvCollect, ARunThatWentOnAfterAReconnectionIsComplete) {
    begin(QStringLiteral("collect sim:trx?rate=5 -o lake.csv --keep-trying --json"));
    live(8);
    line->unplugged = true;
    live(2);
    line->unplugged = false;
    live(20);
    visit->interrupt(2);
    live(5);
    EXPECT_EQ(answered.status, 130);
    const QJsonObject summary = QJsonDocument::fromJson(QByteArray::fromStdString(result().output)).object();
    EXPECT_TRUE(summary[u"complete"].toBool());
    EXPECT_EQ(summary[u"reconnections"].toInt(), 1);
    EXPECT_EQ(summary[u"rows"].toInt(), rowsThrough({path("lake.csv")}));
}

TEST_F(OrvCollect, AnOutputThatFailsSaysWhereTheRowsAre) {
    begin(QStringLiteral("collect sim:trx?rate=5 -o - --points 20"));
    live(4);
    output.close(); // whoever read it has gone
    live(20);
    EXPECT_EQ(answered.status, 1);
    const std::string record = path("Orvtemp.tmp").toStdString();
    EXPECT_NE(result().error.find(" rows were collected.\n"), std::string::npos) << result().error;
    EXPECT_NE(result().error.find("The rows of this run are in the record file " + record + "; \"orv convert " +
                                  record + " -o NAME.csv\" writes them"),
              std::string::npos)
        << result().error;
    EXPECT_FALSE(recordFile.isSaved());
    const int came = linesReceived();
    EXPECT_EQ(orv("convert Orvtemp.tmp -o rows.csv").status, 0) << result().error;
    EXPECT_EQ(rowsThrough({path("rows.csv")}), came);
}

TEST_F(OrvCollect, AnExistingFileIsKept) {
    fill(path("a.csv"), "old");
    fill(path("a.csv-metadata.json"), "of the old");
    const Answered refused = orv("collect sim:trx -o a.csv");
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(contentsOf(path("a.csv")).toStdString(), "old");
    EXPECT_EQ(line, nullptr);
    EXPECT_EQ(orv("collect sim:trx?rate=5 -o a.csv --force --points 2").status, 0);
    const QStringList kept = folder.files().filter(QRegularExpression(QStringLiteral("^a-2026.*csv$")));
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(contentsOf(kept[0]).toStdString(), "old");
    EXPECT_EQ(contentsOf(kept[0] + QStringLiteral("-metadata.json")).toStdString(), "of the old");
    EXPECT_EQ(rowsThrough({path("a.csv")}), 2);
}

TEST_F(OrvCollect, AnInstrumentThatDoesNotAnswerWritesNothing) {
    EXPECT_EQ(orv("collect sim:trx?fault=silent -o none.csv").status, 1);
    EXPECT_FALSE(folder.files().contains(QStringLiteral("none.csv")));
}

TEST_F(OrvCollect, WhatARunLeftThatDiedIsKeptAndTold) {
    fill(path("Orvtemp.tmp"), recordHeader(clock.now(), 512) + "1\t11/21/26\t9:05:07\t1\t\t2\t\t3\t4\r\n");
    fill(path("Orvtemp.tmp.lock"), "V\t512\r\n");
    const Answered collected = orv("collect sim:trx?rate=5 -o a.csv --points 2");
    EXPECT_EQ(collected.status, 0);
    EXPECT_TRUE(answers.asked.join(u'|').contains(QStringLiteral("did not end. Load its 1 row into the sheet?")));
    EXPECT_TRUE(told().contains(QStringLiteral("The record file of the last run is kept as"))) << qPrintable(told());
    const QStringList kept = folder.files().filter(QStringLiteral("Orvtemp-2026"));
    ASSERT_EQ(kept.size(), 1);
    const std::string path = QFileInfo(kept[0]).absoluteFilePath().toStdString();
    EXPECT_NE(collected.error.find("orv: The record file of the last run is kept as " + path + ". \"orv convert " +
                                   path + " -o NAME.csv\" makes a file of its rows.\n"),
              std::string::npos)
        << collected.error;
}

TEST_F(OrvCollect, ALongRunKeepsTheSheetShortAndMakesNoFilesOfItsOwn) {
    begin(QStringLiteral("collect sim:trx?rate=100&baud=0 -o long.csv"));
    int longest = 0;
    eachMillisecond = [this, &longest] { longest = std::max(longest, sheet.rowCount()); };
    live(230);
    visit->interrupt(2);
    live(5);
    EXPECT_EQ(answered.status, 130);
    EXPECT_LE(longest, 501);
    EXPECT_GT(linesReceived(), 22'000) << "more than a sheet holds";
    EXPECT_EQ(rowsThrough({path("long.csv")}), linesReceived());
    EXPECT_EQ(folder.files().filter(QStringLiteral("Untitled")).size(), 0);
    EXPECT_TRUE(program.sheet.recordFile.isSaved()) << "every row is in the file";
    EXPECT_TRUE(messages.shown.empty()) << qPrintable(told());
}

TEST_F(OrvCollect, ALongRunIsNotSavedByItselfWhenNoTickComes) {
    begin(QStringLiteral("collect sim:trx?rate=200&baud=0 -o long.txt"));
    live(5);
    const StatusTimer::Hold hold(timer);
    int longest = 0;
    eachMillisecond = [this, &longest] {
        program.tick(); // a row, and nobody else hears of it
        longest = std::max(longest, sheet.rowCount());
    };
    live(110);
    visit->interrupt(2);
    live(5);
    EXPECT_EQ(answered.status, 130);
    EXPECT_GT(linesReceived(), 20'500) << "more than a sheet holds";
    EXPECT_LE(longest, 15'001);
    EXPECT_NE(result().error.find(std::to_string(linesReceived()) + " rows were collected."), std::string::npos)
        << result().error;
    EXPECT_EQ(folder.files().filter(QStringLiteral("Untitled")).size(), 0);
}

TEST_F(OrvCollect, AFullSheetIsWrittenAndWhatFollowedIsToldAndKept) {
    begin(QStringLiteral("collect sim:trx?rate=200&baud=0 -o long.txt --json"));
    live(5);
    const StatusTimer::Hold hold(timer);
    eachMillisecond = [this] { program.tick(); };
    live(190);
    EXPECT_EQ(answered.status, 3) << result().error;
    EXPECT_NE(result().error.find("long.txt is full: a sheet file holds at most 32767 rows."), std::string::npos)
        << result().error;
    const QJsonObject summary = QJsonDocument::fromJson(QByteArray::fromStdString(result().output)).object();
    EXPECT_EQ(summary[u"rows"].toInt(), 32767);
    EXPECT_FALSE(summary[u"complete"].toBool());
    EXPECT_TRUE(contentsOf(path("long.txt")).startsWith("V\t512 32767\r\n")) << "the file is whole";
    EXPECT_FALSE(recordFile.isSaved()) << "it has rows that are nowhere else";
    EXPECT_EQ(folder.files().filter(QStringLiteral("part")).size(), 0);
}

TEST_F(OrvCollect, ALongDownloadKeepsTheSheetShortWhenNoTickComes) {
    begin(QStringLiteral("download sim:trx?records=20000&baud=0 -o long.csv"));
    live(1.5);
    ASSERT_EQ(commands.activity.value(), Activity::Downloading);
    const StatusTimer::Hold hold(timer);
    int longest = 0;
    eachMillisecond = [this, &longest] {
        program.tick();
        longest = std::max(longest, sheet.rowCount());
    };
    live(21);
    EXPECT_EQ(answered.status, 0) << result().error;
    EXPECT_LE(longest, 501);
    EXPECT_EQ(rowsThrough({path("long.csv")}), 20'000);
    EXPECT_EQ(folder.files().filter(QStringLiteral("Untitled")).size(), 0);
}

TEST_F(OrvCollect, ARecordFileThatBecomesASheetIsToldToLoseAColumn) {
    ASSERT_EQ(orv("collect sim:trx?firmware=412&rate=5 -o lake.csv --points 3").status, 0);
    const Answered converted = orv("convert Orvtemp.tmp -o lake.txt");
    EXPECT_EQ(converted.status, 3);
    EXPECT_EQ(converted.error, "orv: 3 last references of the older TRX have no column in a sheet file and are left "
                               "out; .csv, .nc and .jsonl have one.\norv: 3 rows are in lake.txt.\n");
    EXPECT_EQ(orv("convert Orvtemp.tmp -o again.csv").status, 0);
}

TEST_F(OrvCollect, AnInstrumentThatErasesItsMemoryIsNotRunByItself) {
    ASSERT_EQ(orv("settings sim:trx --set logEnabled=true --set append=false --set pointsPerBlock=600").status, 0);
    const Answered refused = orv("collect sim:trx -o once.csv --keep-trying");
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.error.find("each run erases its memory"), std::string::npos) << refused.error;
    EXPECT_FALSE(line->allWritten().contains('R'));
    EXPECT_EQ(orv("collect sim:trx -o once.csv --points 1").status, 0) << "without --keep-trying it is asked for";
}

/// A day with power cuts and a cable that is pulled: the clock is the test's.
TEST_F(OrvCollect, ADayOfPowerCutsLosesNoRowThatCame) {
    ASSERT_EQ(orv("settings sim:trx?baud=0 --set secondsBetweenPoints=60").status, 0);
    received.clear();
    begin(QStringLiteral("collect sim:trx?baud=0 -o day.csv --every 1h --keep-trying"));
    constexpr int hours = 24;
    constexpr qint64 minute = 60'000;
    int cuts = 0;
    for (int hour = 0; hour < hours; ++hour) {
        clock.advance(20 * minute);
        if (hour % 2 == 1 && cuts < 10) {
            ++cuts;
            if (cuts % 2 == 0) {
                line->unplugged = true; // the adapter is gone
                clock.advance(7 * minute);
                line->unplugged = false;
            } else {
                line->silent = true; // the instrument has no power
                clock.advance(7 * minute);
                line->silent = false;
            }
            clock.advance(33 * minute);
        } else {
            clock.advance(40 * minute);
        }
        ASSERT_EQ(answered.status, -1) << result().error;
    }
    visit->interrupt(15);
    clock.advance(minute);
    EXPECT_EQ(answered.status, 143);
    EXPECT_EQ(cuts, 10);
    const QStringList files = folder.files().filter(QRegularExpression(QStringLiteral("^day-.*\\.csv$")));
    EXPECT_EQ(files.size(), hours + 1) << qPrintable(files.join(u' '));
    EXPECT_EQ(rowsThrough(files), linesReceived());
    EXPECT_GT(linesReceived(), 1300);
    QByteArray notes;
    for (const QString& metadata : folder.files().filter(QStringLiteral(".csv-metadata.json"))) {
        notes += contentsOf(metadata);
    }
    EXPECT_EQ(notes.count("The line was lost."), 5);
    EXPECT_EQ(notes.count("The instrument fell silent."), 5);
    EXPECT_EQ(notes.count("Connected again; the run goes on."), 10);
    EXPECT_EQ(folder.files().filter(QStringLiteral("Untitled")).size(), 0);
}

TEST_F(OrvCollect, OnlyTheFileOfTheConnectionTellsTheClockOffset) {
    begin(QStringLiteral("collect sim:trx?rate=2 -o day.csv --every 1m"));
    live(100);
    visit->interrupt(2);
    live(5);
    const QStringList files = folder.files().filter(QStringLiteral(".csv-metadata.json"));
    ASSERT_EQ(files.size(), 2) << result().error;
    EXPECT_TRUE(contentsOf(files[0]).contains("secondsAheadOfComputer")) << contentsOf(files[0]).toStdString();
    EXPECT_FALSE(contentsOf(files[1]).contains("secondsAheadOfComputer")) << contentsOf(files[1]).toStdString();
}

TEST_F(OrvCollect, LinesThatCouldNotBeReadAreCountedInTheirFile) {
    begin(QStringLiteral("collect sim:trx?rate=2 -o day.csv --every 1m --keep-trying"));
    live(20);
    line->input += "11/21/26\tgar\tbage\r\n";
    live(40); // the first file has ended
    line->unplugged = true;
    live(2);
    line->unplugged = false;
    live(10);
    line->input += "11/21/26\tgar\tbage\r\n11/21/26\tgar\tbage\r\n";
    live(10);
    visit->interrupt(2);
    live(5);
    const QStringList files = folder.files().filter(QStringLiteral(".csv-metadata.json"));
    ASSERT_EQ(files.size(), 2) << result().error;
    EXPECT_TRUE(contentsOf(files[0]).contains("\"unreadableLines\": 1,")) << contentsOf(files[0]).toStdString();
    EXPECT_TRUE(contentsOf(files[1]).contains("\"unreadableLines\": 2,")) << contentsOf(files[1]).toStdString();
}

TEST_F(OrvCollect, AClockThatIsSetBackTakesTheNextFreeNameAndLosesNoRow) {
    begin(QStringLiteral("collect sim:trx?rate=2 -o day.csv --every 1m"));
    live(100);
    const QStringList before = folder.files().filter(QRegularExpression(QStringLiteral("^day-.*csv$")));
    ASSERT_EQ(before.size(), 2) << qPrintable(before.join(u' '));
    clock.set(clock.now().addSecs(-3600)); // into the hour before, and then once more over the same minutes
    live(60);
    clock.set(QDateTime(QDate(2026, 11, 21), QTime(9, 30, 55)));
    live(120);
    EXPECT_EQ(answered.status, -1) << result().error;
    visit->interrupt(2);
    live(5);
    EXPECT_EQ(answered.status, 130) << result().error;
    QStringList after = folder.files().filter(QRegularExpression(QStringLiteral("^day-.*csv$")));
    EXPECT_EQ(after.filter(QStringLiteral("-093100-2.csv")).size(), 1) << qPrintable(after.join(u' '));
    EXPECT_EQ(after.size(), 6);
    std::ranges::sort(after, {}, [this](const QString& name) {
        const QByteArray first = rowsOf(path(qPrintable(name))).value(0);
        return first.left(first.indexOf(',')).toInt();
    });
    EXPECT_EQ(rowsThrough(after), linesReceived());
}

TEST_F(OrvCollect, ADownloadHoldsTheWholeMemory) {
    struct Kind {
        const char* device;
        int tabs;
    };
    for (const Kind& kind : {Kind{"sim:trx", 5}, Kind{"sim:trx?firmware=412", 7}, Kind{"sim:glow", 2}}) {
        received.clear();
        const QString device = QString::fromLatin1(kind.device);
        const Answered whole = orv(QStringLiteral("download %1 -o memory.csv --verify --json --force").arg(device));
        EXPECT_EQ(whole.status, 0) << whole.error;
        EXPECT_EQ(whole.output, "{\"complete\":true,\"differences\":0,\"expected\":200,\"file\":\"memory.csv\","
                                "\"notReadAgain\":0,\"records\":200,\"unreadable\":0}\n");
        EXPECT_EQ(rowsThrough({path("memory.csv")}), 200) << kind.device;
        const Answered text = orv(QStringLiteral("download %1 -o memory.txt --verify --force").arg(device));
        EXPECT_EQ(text.status, 0) << text.error;
        EXPECT_EQ(linesReceived(kind.tabs), 800) << kind.device;
        EXPECT_EQ(contentsOf(path("memory.txt")).count('\n'), 204) << kind.device;
        const Answered converted = orv("convert memory.txt -o converted.jsonl --force");
        EXPECT_EQ(converted.status, 0) << converted.error;
        EXPECT_EQ(contentsOf(path("converted.jsonl")).count('\n'), 200);
    }
}

TEST_F(OrvCollect, ADownloadThatIsCutKeepsAndCountsWhatCame) {
    const Answered cut = orv("download sim:trx?fault=cut -o cut.csv");
    EXPECT_EQ(cut.status, 3);
    EXPECT_EQ(rowsThrough({path("cut.csv")}), 100);
    EXPECT_NE(cut.error.find("The download is incomplete: 100 of 200 records came"), std::string::npos) << cut.error;
    const Answered pulled = orv("download sim:trx?fault=unplug -o pulled.csv");
    EXPECT_EQ(pulled.status, 3);
    EXPECT_EQ(rowsThrough({path("pulled.csv")}), 100);
}

TEST_F(OrvCollect, AMemoryThatReadsOtherwiseTheSecondTimeIsTold) {
    int dumps = 0;
    lineMade = [this, &dumps] { line->written = [&dumps](const QByteArray& bytes) { dumps += bytes == "O" ? 1 : 0; }; };
    begin(QStringLiteral("download sim:trx -o memory.csv --verify"));
    while (dumps < 2 && answered.status < 0) {
        live(0.001);
    }
    live(1);
    line->silent = true; // some lines do not come
    live(0.3);
    line->silent = false;
    live(60);
    EXPECT_EQ(answered.status, 3);
    EXPECT_NE(result().error.find("Read a second time, 1 records were not as before, and "), std::string::npos)
        << "of a beginning and an end\n"
        << result().error;
    EXPECT_EQ(result().error.find(" and 0 did not come again"), std::string::npos) << result().error;
}

TEST_F(OrvCollect, ARecordThatReadsOtherwiseTheSecondTimeIsOneDifference) {
    int dumps = 0;
    int changed = 0;
    lineMade = [this, &dumps, &changed] {
        line->written = [&dumps](const QByteArray& bytes) { dumps += bytes == "O" ? 1 : 0; };
        line->read = [&dumps, &changed](QByteArray& block) {
            const qsizetype last = block.lastIndexOf("\r\n") - 1;
            if (dumps == 2 && changed == 0 && last > block.indexOf('\t') && block.contains('\t')) {
                block[last] = block[last] == '5' ? '6' : '5';
                ++changed;
            }
        };
    };
    const Answered ended = orv("download sim:trx -o memory.csv --verify --json");
    EXPECT_EQ(changed, 1);
    EXPECT_EQ(ended.status, 3);
    const QJsonObject answer = QJsonDocument::fromJson(QByteArray::fromStdString(ended.output)).object();
    EXPECT_EQ(answer[u"differences"].toInt(), 1) << ended.output;
    EXPECT_EQ(answer[u"notReadAgain"].toInt(), 0) << ended.output;
}

TEST(EndOfFile, ComesAlsoWhereTheClockIsPutForwardAndBack) {
    const bool hadZone = qEnvironmentVariableIsSet("TZ");
    const QByteArray zone = qgetenv("TZ");
    qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    ::tzset();
    constexpr qint64 minute = 60'000;
    for (const QDate changed : {QDate(2026, 3, 29), QDate(2026, 10, 25)}) {
        const QDateTime midnight = changed.startOfDay();
        for (const qint64 every : {15 * minute, 30 * minute, 60 * minute, 90 * minute, 1440 * minute}) {
            for (qint64 passed = 0; passed < 300 * minute; passed += 5 * minute) {
                const QDateTime begun = midnight.addMSecs(passed);
                const QDateTime end = endOfFile(begun, every);
                EXPECT_TRUE(end.isValid() && end > begun && begun.msecsTo(end) <= every + 60 * minute)
                    << begun.toString(Qt::ISODate).toStdString() << " every " << every / minute
                    << " min: " << end.toString(Qt::ISODate).toStdString();
            }
        }
    }
    hadZone ? qputenv("TZ", zone) : qunsetenv("TZ");
    ::tzset();
}

TEST(EndOfFile, IsCountedFromMidnight) {
    const auto at = [](int hour, int minute, qint64 every) {
        return endOfFile(QDateTime(QDate(2026, 11, 21), QTime(hour, minute)), every)
            .toString(QStringLiteral("dd HH:mm"))
            .toStdString();
    };
    constexpr qint64 hour = 3'600'000;
    EXPECT_EQ(at(9, 30, hour), "21 10:00");
    EXPECT_EQ(at(10, 0, hour), "21 11:00");
    EXPECT_EQ(at(23, 30, hour), "22 00:00");
    EXPECT_EQ(at(9, 30, 24 * hour), "22 00:00");
    EXPECT_EQ(at(9, 30, 48 * hour), "23 00:00");
    EXPECT_EQ(at(23, 0, 5 * hour), "22 00:00");
}

} // namespace
} // namespace orv
