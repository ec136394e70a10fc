// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/calibration.h"

#include "testing/calibrationbench.h"

#include <QDir>
#include <QFile>
#include <QLocale>

#include <gtest/gtest.h>

#include <tuple>

namespace orv {
namespace {

constexpr const char* head = "Date 11/21/26\r\n"
                             "Time 9:30:15 AM\r\r\n"
                             "KP 7 Data\r\n";

constexpr const char* table = "\t100\t125\t150\r\n"
                              "Stdev  \t1\t2\t3\r\r\n"
                              "Air    \t1\t2\t3\r\r\n"
                              "Clean  \t4\t5\t6\r\r\n"
                              "Point 1\t7\t8\t9\r\r\n"
                              "Point 2\t10\t11\t12\r\r\n"
                              "Point 3\t13\t14\t15\r\r\n"
                              "Point 4\t16\t17\t18.5\r\r\n";

class ReportTest : public testing::Test, protected CalibrationBench {
protected:
    ReportTest() {
        fill(shown.worksheet, "1 2 3/4 5 6/7 8 9/10 11 12/13 14 15/16 17 18.5");
        fill(shown.reference, "b0 r0 g0/b1 r1 g1/b2 r2 g2/b3 r3 g3/b4 r4 ");
        answers.fileName = path("report.Txt");
    }

    QByteArray written() const {
        QFile file(answers.fileName);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }
};

TEST_F(ReportTest, HasTheReferencesOfTheColour) {
    const std::tuple<LightColour, const char*, const char*> cases[] = {
        {LightColour::Red, "\t650\r\nClean \tr0\r\nPoint 1 \tr1\r\nPoint 2 \tr2\r\nPoint 3 \tr3\r\nPoint 4 \tr4\r\n",
         "Red"},
        {LightColour::Blue, "\t440\r\nClean \tb0\r\nPoint 1 \tb1\r\nPoint 2 \tb2\r\nPoint 3 \tb3\r\nPoint 4 \tb4\r\n",
         "Blue"},
        {LightColour::Green, "\t532\r\nClean \tg0\r\nPoint 1 \tg1\r\nPoint 2 \tg2\r\nPoint 3 \tg3\r\nPoint 4 \t\r\n",
         "Green"},
    };
    add("SN 1", LightColour::Red);
    add("SN 2", LightColour::Blue);
    actions.select(1);
    fill(shown.worksheet, "1 2 3/4 5 6/7 8 9/10 11 12/13 14 15/16 17 18.5");
    for (const auto& [colour, references, name] : cases) {
        shown.colour = colour;
        actions.saveCalInfo();
        EXPECT_EQ(written(), QByteArray(head) + references + "\r\r\nSensor # SN 2 " + name + "\r\n" + table);
        EXPECT_TRUE(messages.shown.empty());
    }
}

TEST_F(ReportTest, NoColourLeavesTheReferenceOutAndEndsTheSensorLineWithABlank) {
    add("SN 1", LightColour::Red);
    shown.colour = LightColour::None;
    actions.saveCalInfo();
    EXPECT_EQ(written(), QByteArray(head) + "\r\r\nSensor # SN 1 \r\n" + table);
}

TEST_F(ReportTest, AnEmptyListHasNoEntry) {
    actions.saveCalInfo();
    EXPECT_EQ(written(), QByteArray(head) + "\r\r\nSensor #  \r\n" + table);
}

TEST_F(ReportTest, TheWorksheetOnTheScreenCountsNotTheTable) {
    add("SN 1", LightColour::Red);
    actions.select(0);
    shown.worksheet.at(0, 0) = QStringLiteral("unsaved");
    actions.saveCalInfo();
    EXPECT_TRUE(written().contains("Stdev  \tunsaved\t2\t3\r\r\nAir    \tunsaved\t2\t3\r\r\n"));
}

TEST_F(ReportTest, TheBytesAreTheSameUnderEveryLocale) {
    add("SN 1", LightColour::Red);
    const QByteArray expected = reportBytes(shown, clock.now());
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(reportBytes(shown, clock.now()), expected);
    QLocale::setDefault(QLocale::c());
}

TEST_F(ReportTest, TheDialogOffersTextFilesAndAFileIsReplaced) {
    QFile old(answers.fileName);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write(QByteArray(10000, 'x'));
    old.close();
    actions.saveCalInfo();
    EXPECT_EQ(answers.asked, QStringList{QStringLiteral("Save Cal Info||.Txt|*.Txt")});
    EXPECT_TRUE(written().startsWith(head));
    EXPECT_TRUE(written().endsWith("18.5\r\r\n"));
}

TEST_F(ReportTest, ACancelledDialogWritesNothing) {
    answers.fileName.clear();
    actions.saveCalInfo();
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ReportTest, TheConnectionGoesOnWhileTheDialogStands) {
    answers.late = true;
    connect();
    actions.saveCalInfo();
    receive(settingsReport());
    live(0.2);
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    EXPECT_FALSE(commands.canCommand);
    program.closePort();
    ASSERT_TRUE(answers.stands());
    answers.answer(answers.fileName);
    EXPECT_TRUE(written().startsWith("Date 11/21/26\r\n"));
    EXPECT_TRUE(written().endsWith("18.5\r\r\n"));
}

TEST_F(ReportTest, ADialogThatIsTakenBackWritesNothing) {
    answers.late = true;
    actions.saveCalInfo();
    program.quit();
    EXPECT_FALSE(answers.stands());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(ReportTest, AFileThatCannotBeWrittenIsTold) {
    answers.fileName = path("missing/report.Txt");
    actions.saveCalInfo();
    const Message& told = theMessage();
    EXPECT_EQ(told.title.toStdString(), "Save Cal Info");
    EXPECT_TRUE(told.text.startsWith(answers.fileName + QStringLiteral(" could not be saved: ")));
    EXPECT_FALSE(told.text.contains(QStringLiteral("saved: .")));
}

} // namespace
} // namespace orv
