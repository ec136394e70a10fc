// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/devicefiles.h"

#include "testing/programrig.h"

#include <QDir>

#include <gtest/gtest.h>

namespace orv {
namespace {

std::string read(const char* bytes) {
    const auto values = readDeviceFile(bytes);
    if (!values) {
        return "(too few)";
    }
    QStringList list;
    for (const QString& value : *values) {
        list << value;
    }
    return list.join(u'|').toStdString();
}

TEST(ReadDeviceFile, CommasAndLineEndsEndAField) {
    EXPECT_EQ(read("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n"), "1|2|3|4|5|6");
    EXPECT_EQ(read("1,2,3,4,5,6"), "1|2|3|4|5|6");
    EXPECT_EQ(read("1\n2,3\r4\r\n5\n6\n"), "1|2|3|4|5|6");
}

TEST(ReadDeviceFile, EmptyFieldsAreValues) {
    EXPECT_EQ(read("\r\n\r\n\r\n\r\n\r\n\r\n"), "|||||");
    EXPECT_EQ(read("1,,3,,5,,"), "1||3||5|");
}

TEST(ReadDeviceFile, QuotesAreTakenOff) {
    EXPECT_EQ(read("\"1,5\"\r\n \"a\r\nb\",3,4,5,\"6"), "1,5|a\r\nb|3|4|5|6");
    EXPECT_EQ(read("\"1\" rest,2,3\"x\",4,5,\"\""), "1|2|3\"x\"|4|5|");
}

TEST(ReadDeviceFile, MoreThanSixAreLeft) {
    EXPECT_EQ(read("1,2,3,4,5,6,7,8"), "1|2|3|4|5|6");
}

TEST(ReadDeviceFile, FewerThanSixAreNone) {
    EXPECT_EQ(read(""), "(too few)");
    EXPECT_EQ(read("1\r\n2\r\n3\r\n4\r\n5\r\n"), "(too few)");
    EXPECT_EQ(read("\"1,2,3,4,5,6"), "(too few)");
}

class DeviceFilesTest : public ProgramTest {
protected:
    DeviceFilesTest() {
        answers.fileName = path("sensor.ODV");
        setBoxes("100 1.5 125 -2 150 3");
    }

    /// Offset and scale of each angle.
    void setBoxes(const char* texts) {
        const QStringList list = QString::fromLatin1(texts).split(u' ');
        for (qsizetype angle = 0; angle < 3; ++angle) {
            CalibrationBoxes& boxes = settings.trxCalibration.at(static_cast<std::size_t>(angle));
            boxes.offset = list.at(2 * angle);
            boxes.scale = list.at(2 * angle + 1);
        }
    }

    std::string boxes() const {
        QStringList list;
        for (const CalibrationBoxes& angle : settings.trxCalibration) {
            list << angle.offset << angle.scale;
        }
        return list.join(u' ').toStdString();
    }

    QByteArray written() const { return contentsOf(answers.fileName); }

    DeviceFiles& files = program.settings.deviceFiles;
};

TEST_F(DeviceFilesTest, TheLinesStandInTheOrderOfTheBoxes) {
    files.saveDeviceFile();
    EXPECT_EQ(written(), "100\r\n125\r\n150\r\n1.5\r\n-2\r\n3\r\n");
}

TEST_F(DeviceFilesTest, SixPlainNumbersComeBack) {
    files.saveDeviceFile();
    setBoxes("0 0 0 0 0 0");
    files.loadDeviceFile();
    EXPECT_EQ(boxes(), "100 1.5 125 -2 150 3");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DeviceFilesTest, TheFluorometersBoxesAreLeftAlone) {
    settings.glowCalibration.offset = QStringLiteral("77");
    files.saveDeviceFile();
    files.loadDeviceFile();
    EXPECT_EQ(settings.glowCalibration.offset.value().toStdString(), "77");
    EXPECT_FALSE(written().contains("77"));
}

TEST_F(DeviceFilesTest, ACommaShiftsTheLaterValues) {
    setBoxes("1,5 2 3 4 5 6");
    files.saveDeviceFile();
    EXPECT_EQ(written(), "1,5\r\n3\r\n5\r\n2\r\n4\r\n6\r\n");
    files.loadDeviceFile();
    EXPECT_EQ(boxes(), "1 5 5 2 3 4") << "offsets 1, 5, 3 and scales 5, 2, 4 by line";
}

TEST_F(DeviceFilesTest, TooFewValuesLeaveTheBoxes) {
    fill(answers.fileName, "9\r\n9\r\n9\r\n9\r\n9\r\n");
    files.loadDeviceFile();
    EXPECT_EQ(boxes(), "100 1.5 125 -2 150 3");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DeviceFilesTest, OnlyTheBeginningOfALongFileIsRead) {
    const QByteArray last = ",2,3,4,5,67";
    fill(answers.fileName, "\"1\"" + QByteArray(65'537 - 3 - last.size(), 'x') + last);
    files.loadDeviceFile();
    EXPECT_EQ(boxes(), "1 4 2 5 3 6") << "up to 65536 characters";
}

TEST_F(DeviceFilesTest, AMissingFileAndACancelledDialogAreSilent) {
    files.loadDeviceFile();
    answers.fileName.clear();
    files.loadDeviceFile();
    files.saveDeviceFile();
    EXPECT_EQ(boxes(), "100 1.5 125 -2 150 3");
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(DeviceFilesTest, AnUnwritablePlaceIsTold) {
    answers.fileName = path("missing/sensor.ODV");
    files.saveDeviceFile();
    EXPECT_EQ(theMessage().title.toStdString(), "Save Device File");
    EXPECT_TRUE(theMessage().text.startsWith(answers.fileName + QStringLiteral(" could not be saved: ")));
}

TEST_F(DeviceFilesTest, TheOpenDialogKeepsWhatSavingHasSet) {
    files.loadDeviceFile();
    files.saveDeviceFile();
    files.loadDeviceFile();
    EXPECT_EQ(answers.asked,
              (QStringList{QStringLiteral("Load Device File||"), QStringLiteral("Save Device File||.ODV|*.ODV"),
                           QStringLiteral("Load Device File|.ODV|*.ODV")}));
}

TEST_F(DeviceFilesTest, TheConnectionGoesOnWhileADialogStands) {
    answers.late = true;
    connect();
    files.saveDeviceFile();
    setBoxes("0 0 0 0 0 0");
    receive(settingsReport());
    live(0.2);
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    answers.answer(answers.fileName);
    EXPECT_EQ(written(), "100\r\n125\r\n150\r\n1.5\r\n-2\r\n3\r\n") << "of the moment at which it was asked for";

    files.loadDeviceFile();
    com1.unplugged = true;
    live(0.02);
    EXPECT_FALSE(ports.isOpen());
    answers.answer(answers.fileName);
    EXPECT_EQ(boxes(), "100 1.5 125 -2 150 3");
}

TEST_F(DeviceFilesTest, ADialogThatIsTakenBackIsCancelled) {
    answers.late = true;
    files.saveDeviceFile();
    files.loadDeviceFile();
    EXPECT_EQ(written(), "(no such file)");
    program.quit();
    EXPECT_FALSE(answers.stands());
    EXPECT_EQ(boxes(), "100 1.5 125 -2 150 3");
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

} // namespace
} // namespace orv
