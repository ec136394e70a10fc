// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/expected.h"
#include "testing/windowrig.h"
#include "ui/widgets.h"

#include <QCheckBox>
#include <QRadioButton>

namespace orv {
namespace {

class SettingsPagesTest : public SettingsWindowTest {
protected:
    QRadioButton& option(int number) const {
        return find<QRadioButton>(QByteArray("SamplingOption" + QByteArray::number(number)).constData());
    }
};

TEST_F(SettingsPagesTest, ModesAreDescribed) {
    EXPECT_EQ(
        find<QLabel>("ProfileDescription").text(),
        QStringLiteral("This mode Autostarts, takes 1 data point per second, and repeats this indefinatly. Data is "
                       "NOT logged."));
    EXPECT_EQ(find<QLabel>("MooredDescription").text(),
              QStringLiteral("This Mode Autostarts, takes 1 data point per second. It repeats once an hour. It logs up "
                             "to 60000 data points."));
    settings.modeRemark = QStringLiteral("Saved as a.OCM.");
    EXPECT_EQ(text("ModeRemark"), "Saved as a.OCM.");
}

TEST_F(SettingsPagesTest, CaptionsAreTheOnesOfTheControls) {
    const std::pair<const char*, const char*> table[] = {
        {"Profile", "Profile"},
        {"Moored", "Moored"},
        {"SaveAUserDefinedMode", "Save A User Defined Mode"},
        {"LoadAUserDefinedMode", "Load A User Defined Mode"},
        {"ViewCurrentSettingsTranscribedAsText", "View Current Settings Transcribed as Text"},
        {"DisplayLoggerTimeDate", "Display Logger Time/Date"},
        {"SyncTimeDate", "Sync Time/Date"},
        {"AtFullMinute", "At the full minute"},
        {"AutoStart", "Auto Start"},
        {"Append", "Append"},
        {"LogEnabled", "Log Enabled"},
        {"WakeUp", "Wake Up"},
        {"AuxAdc", "Aux ADC"},
        {"Gain", "Gain"},
        {"CalcBValues", "Calc B Values"},
        {"TrxProvideRawCounts", "Provide Raw Counts"},
        {"CalcConsentrationInUgL", "Calc Consentration in ug/L"},
        {"GlowProvideRawCounts", "Provide Raw Counts"},
        {"Command6", "Load Device File"},
        {"Command11", "Save Device File"},
        {"Command13", "Load Device File"},
        {"Command12", "Save Device File"},
        {"RetrieveSettings", "Retrieve Settings"},
        {"ApplySettings", "Apply Settings"},
        {"Close", "Close"}};
    expectEach(table, [this](const char* name) {
        return find<QAbstractButton>(name).text().remove(QLatin1Char('&')).toStdString();
    });
    QStringList labels;
    for (const QLabel* label : screen.findChildren<QLabel*>()) {
        labels << label->text().remove(QLatin1Char('&'));
    }
    for (const char* caption :
         {"Samples Per Second", "Delay Before Data Blocks (hours)", "Number of Data Points per Data Block",
          "Delay Between Data Points (Seconds)", "Max Values", "Logger Capacity (% full)", "Angle 100 (l1)",
          "Angle 125 (l2)", "Angle 150 (l3)", "1/mC", "Fchl =", "Counts -", "ug/IC"}) {
        EXPECT_EQ(labels.count(QString::fromLatin1(caption)), 1) << caption;
    }
    EXPECT_EQ(labels.count(QStringLiteral("65535")), 2);
    EXPECT_EQ(labels.count(QStringLiteral("Clean Water Offset")), 2);
}

TEST_F(SettingsPagesTest, ClocksAreShown) {
    settings.computerDate = QStringLiteral("11/21/26");
    settings.computerTime = QStringLiteral("9:30:15 AM");
    settings.loggerDate = QStringLiteral("1/5/99");
    settings.loggerTime = QStringLiteral("0:15:07 PM");
    EXPECT_EQ(text("ComputerDate"), "11/21/26");
    EXPECT_EQ(text("ComputerTime"), "9:30:15 AM");
    EXPECT_EQ(text("LoggerDate"), "1/5/99");
    EXPECT_EQ(text("LoggerTime"), "0:15:07 PM");
}

TEST_F(SettingsPagesTest, HowFarTheLoggersClockWasOffWhenItWasReadStandsBelowIt) {
    EXPECT_EQ(text("LoggerClockOffset"), "");
    status.clockOffset = -43;
    EXPECT_EQ(text("LoggerClockOffset"), "When read: 43 s behind this computer's");
    program.closePort();
    EXPECT_EQ(text("LoggerClockOffset"), "");
}

TEST_F(SettingsPagesTest, WhatTheNumberOfSamplesMeansStandsBelowTheBoxes) {
    EXPECT_EQ(text("SamplesInEnglish"), "It will bin for 30 sample(s) to create 1 data point.");
    retype(find<QLineEdit>("Text2"), "20");
    EXPECT_EQ(text("SamplesInEnglish"), "It will bin for 20 sample(s) to create 1 data point.");
    settings.record = LoggerSettings();
    EXPECT_EQ(text("SamplesInEnglish"), "");
}

TEST_F(SettingsPagesTest, AModeThatWaitsForTheFullMinuteDoesNotSayThatItIsBeingSent) {
    settings.sendingMode = true;
    settings.modeRemark = QStringLiteral("Sending Profile...");
    settings.secondsToFullMinute = 35;
    EXPECT_EQ(text("ModeRemark"), "Waiting for the full minute: 35 s.");
    settings.secondsToFullMinute = 0;
    EXPECT_EQ(text("ModeRemark"), "Sending Profile...");
    settings.sendingMode = false;
    settings.modeRemark = QStringLiteral("Profile was sent.");
    settings.secondsToFullMinute = 35;
    EXPECT_EQ(text("ModeRemark"), "Profile was sent.") << "the wait is of \"Apply Settings\"";
}

TEST_F(SettingsPagesTest, WhatIsWrongWithACalibrationStandsBelowTheBoxes) {
    retype(find<QLineEdit>("Text8"), "1,5");
    EXPECT_EQ(text("Text8Remark"),
              "Angle 125 (l2), Clean Water Offset: Only a number such as -0.5, with a point and no comma.");
    EXPECT_FALSE(find<QLabel>("Text8Remark").isHidden());
    retype(find<QLineEdit>("Text8"), "1.5");
    EXPECT_TRUE(find<QLabel>("Text8Remark").isHidden());
}

TEST_F(SettingsPagesTest, TheCalibrationsSayThatTheyAreNotSent) {
    for (const char* name : {"TrxCalibrationUse", "GlowCalibrationUse"}) {
        EXPECT_EQ(text(name), "Nothing of this page is sent: it acts on the rows that come from now on.");
    }
}

TEST_F(SettingsPagesTest, CheckBoxesAreTheRecord) {
    const std::pair<const char*, bool LoggerSettings::*> table[] = {
        {"AutoStart", &LoggerSettings::autoStart},   {"Append", &LoggerSettings::append},
        {"LogEnabled", &LoggerSettings::logEnabled}, {"WakeUp", &LoggerSettings::wakeUp},
        {"AuxAdc", &LoggerSettings::auxAdc},         {"Gain", &LoggerSettings::gain},
    };
    const LoggerSettings before = settings.record;
    for (const auto& [name, flag] : table) {
        LoggerSettings ticked = before;
        ticked.*flag = true;
        auto& box = find<QCheckBox>(name);
        settings.record = ticked;
        EXPECT_TRUE(box.isChecked()) << name;
        box.click();
        EXPECT_EQ(settings.record.value(), before) << name;
        box.click();
        EXPECT_EQ(settings.record.value(), ticked) << name;
        settings.record = before;
        EXPECT_FALSE(box.isChecked()) << name;
    }
    auto& sync = find<QCheckBox>("SyncTimeDate");
    settings.syncTimeDate = true;
    EXPECT_TRUE(sync.isChecked());
    sync.click();
    EXPECT_FALSE(settings.syncTimeDate.value());
}

TEST_F(SettingsPagesTest, TheFullMinuteCanBeWaitedForWhereTheClockIsSet) {
    auto& box = find<QCheckBox>("AtFullMinute");
    EXPECT_FALSE(box.isChecked());
    box.click();
    EXPECT_TRUE(settings.atFullMinute.value());
    EXPECT_TRUE(settings.syncTimeDate.value()) << "it is a way to set the clock";
    find<QCheckBox>("SyncTimeDate").click();
    EXPECT_FALSE(box.isChecked()) << "nothing is set";
    box.click();
    const auto& countdown = find<QLabel>("FullMinuteCountdown");
    const std::string explanation = countdown.text().toStdString();
    EXPECT_TRUE(explanation.starts_with("\"Sync Time/Date\" alone leaves the clock ")) << explanation;
    settings.fullMinute = QStringLiteral("9:31:00 AM");
    settings.secondsToFullMinute = 45;
    EXPECT_EQ(countdown.text().toStdString(), "The clock will be set at 9:31:00 AM, in 45 s.");
    settings.secondsToFullMinute = 0;
    settings.clockSet = SettingsState::ClockSet::ToTheMinute;
    settings.clockSetting = QStringLiteral("It was set.");
    EXPECT_EQ(countdown.text().toStdString(), "It was set. \"At the full minute\" sets it right.");
    settings.clockUnread = true;
    settings.clockSetting = QStringLiteral("It could not be read back.");
    EXPECT_EQ(countdown.text().toStdString(), "It could not be read back.");
    settings.clockUnread = false;
    settings.clockSet = SettingsState::ClockSet::AtFullMinute;
    settings.clockSetting = QStringLiteral("It was set right.");
    EXPECT_EQ(countdown.text().toStdString(), "It was set right.");
}

TEST_F(SettingsPagesTest, NumberBoxesAreTheRecord) {
    const std::pair<const char*, QString LoggerSettings::*> table[] = {
        {"Text1", &LoggerSettings::hoursBeforeBlock},
        {"Text2", &LoggerSettings::samplesPerPoint},
        {"Text3", &LoggerSettings::secondsBetweenPoints},
        {"Text4", &LoggerSettings::pointsPerBlock},
    };
    for (const auto& [name, number] : table) {
        LoggerSettings expected = settings.record;
        expected.*number = QStringLiteral("12");
        settings.record = expected;
        auto& box = find<QLineEdit>(name);
        EXPECT_EQ(box.text(), QStringLiteral("12")) << name;
        press(box, Qt::Key_Backspace);
        type(box, "7");
        expected.*number = QStringLiteral("17");
        EXPECT_EQ(settings.record.value(), expected) << name;
    }
}

TEST_F(SettingsPagesTest, ABoxKeepsItsSelectionWhenAnotherSettingChanges) {
    auto& box = find<QLineEdit>("Text4");
    box.setSelection(0, 2);
    find<QCheckBox>("Gain").click();
    type(find<QLineEdit>("Text1"), "1");
    EXPECT_EQ(box.selectedText().toStdString(), "60");
}

TEST_F(SettingsPagesTest, CalibrationBoxesAreTheCalibration) {
    const std::pair<const char*, QProperty<QString>*> table[] = {
        {"Text10", &settings.trxCalibration[0].offset},   {"Text8", &settings.trxCalibration[1].offset},
        {"Text9", &settings.trxCalibration[2].offset},    {"Text13", &settings.trxCalibration[0].scale},
        {"Text11", &settings.trxCalibration[1].scale},    {"Text12", &settings.trxCalibration[2].scale},
        {"GlowOffset", &settings.glowCalibration.offset}, {"GlowScale", &settings.glowCalibration.scale},
    };
    for (const auto& [name, text] : table) {
        auto& box = find<QLineEdit>(name);
        *text = QStringLiteral("12");
        EXPECT_EQ(box.text(), QStringLiteral("12")) << name;
        press(box, Qt::Key_Backspace);
        type(box, "7");
        EXPECT_EQ(text->value(), QStringLiteral("17")) << name;
    }
}

TEST_F(SettingsPagesTest, CalibrationBoxesStandInTheirColumns) {
    openSettings("Calibration");
    const auto at = [this](const char* name) { return find<QLineEdit>(name).mapTo(&screen, QPoint(0, 0)); };
    const char* const offsets[] = {"Text10", "Text8", "Text9"};
    const char* const scales[] = {"Text13", "Text11", "Text12"};
    for (std::size_t row = 0; row < 3; ++row) {
        EXPECT_EQ(at(offsets[row]).x(), at("Text10").x());
        EXPECT_EQ(at(scales[row]).x(), at("Text13").x());
        EXPECT_EQ(at(offsets[row]).y(), at(scales[row]).y());
        EXPECT_LT(at(offsets[row]).x(), at(scales[row]).x());
    }
    EXPECT_LT(at("Text10").y(), at("Text8").y());
    EXPECT_LT(at("Text8").y(), at("Text9").y());
}

TEST_F(SettingsPagesTest, CalibrationStartsAtNothingChanged) {
    const std::pair<const char*, const char*> table[] = {{"Text10", "0"},     {"Text8", "0"},    {"Text9", "0"},
                                                         {"GlowOffset", "0"}, {"Text13", "1"},   {"Text11", "1"},
                                                         {"Text12", "1"},     {"GlowScale", "1"}};
    expectEach(table, [this](const char* name) { return find<QLineEdit>(name).text().toStdString(); });
    EXPECT_TRUE(find<QRadioButton>("TrxProvideRawCounts").isChecked());
    EXPECT_TRUE(find<QRadioButton>("GlowProvideRawCounts").isChecked());
}

TEST_F(SettingsPagesTest, EachFrameHasItsOwnChoiceOfCalculation) {
    click("CalcBValues");
    EXPECT_FALSE(settings.trxProvideRawCounts.value());
    EXPECT_TRUE(settings.glowProvideRawCounts.value());
    click("CalcConsentrationInUgL");
    EXPECT_FALSE(settings.glowProvideRawCounts.value());
    click("TrxProvideRawCounts");
    EXPECT_TRUE(settings.trxProvideRawCounts.value());
    EXPECT_FALSE(find<QRadioButton>("CalcBValues").isChecked());
    settings.glowProvideRawCounts = true;
    EXPECT_TRUE(find<QRadioButton>("GlowProvideRawCounts").isChecked());
    EXPECT_FALSE(find<QRadioButton>("CalcConsentrationInUgL").isChecked());
}

TEST_F(SettingsPagesTest, DeviceFilesAreForTheScatteringMeterOnly) {
    for (const char* name : {"Command13", "Command12"}) {
        const auto& button = find<QPushButton>(name);
        EXPECT_TRUE(button.isEnabled());
        EXPECT_EQ(button.toolTip(), QStringLiteral("Device files are for the TRX only."));
        click(name);
    }
    EXPECT_TRUE(answers.asked.isEmpty());
    click("Command6");
    EXPECT_EQ(answers.asked, QStringList{QStringLiteral("Load Device File||")});
    click("Command11");
    EXPECT_EQ(answers.asked.back(), QStringLiteral("Save Device File||.ODV|*.ODV"));
    EXPECT_EQ(answers.asked.size(), 2);
}

TEST_F(SettingsPagesTest, AChosenSamplingOptionWritesItsPreset) {
    openSettings("Sampling");
    status.instrument = InstrumentType::Glow;
    option(3).click();
    EXPECT_EQ(settings.record.value().samplesPerPoint, QStringLiteral("90"));
    EXPECT_EQ(find<QLineEdit>("Text2").text(), QStringLiteral("90"));
    status.instrument = InstrumentType::Trx;
    option(4).click();
    EXPECT_EQ(settings.record.value().samplesPerPoint, QStringLiteral("210"));
    option(4).setFocus();
    press(option(4), Qt::Key_Left);
    EXPECT_TRUE(option(3).isChecked());
    EXPECT_EQ(settings.record.value().samplesPerPoint, QStringLiteral("100")) << "the arrow keys choose too";
}

TEST_F(SettingsPagesTest, TheOptionOfATypedNumberIsMarked) {
    openSettings("Sampling");
    auto& box = find<QLineEdit>("Text2");
    const auto marked = [this] {
        int found = 0;
        for (int number = 1; number <= 4; ++number) {
            found = option(number).isChecked() ? 10 * found + number : found;
        }
        return found;
    };
    const std::pair<const char*, int> table[] = {{"10", 1}, {"700", 0}, {"100", 3}, {"0", 0}, {"210", 4}, {"1", 0}};
    for (const auto& [typed, expected] : table) {
        retype(box, typed);
        EXPECT_EQ(marked(), expected) << typed;
    }
    for (const int chosen : {1, 4, 1}) {
        retype(box, "700");
        clickAt(option(chosen), QPointF(8, option(chosen).height() / 2.0));
        EXPECT_EQ(marked(), chosen);
        EXPECT_EQ(box.text().toStdString(), chosen == 1 ? "10" : "210");
        clickAt(option(chosen), QPointF(8, option(chosen).height() / 2.0));
        EXPECT_EQ(marked(), chosen) << "a click on the marked one";
    }
}

TEST_F(SettingsPagesTest, AnOptionThatAReportSelectsLeavesTheText) {
    change(settings.record, [](LoggerSettings& record) { record.samplesPerPoint = QStringLiteral("77"); });
    for (const int selected : {2, 4, 0, 1}) {
        settings.samplingOption = selected;
        for (int number = 1; number <= 4; ++number) {
            EXPECT_EQ(option(number).isChecked(), number == selected) << selected;
        }
    }
    EXPECT_EQ(settings.record.value().samplesPerPoint, QStringLiteral("77"));
}

TEST_F(SettingsPagesTest, OptionsAreCaptionedByTheTypeLabel) {
    const std::pair<InstrumentType, QStringList> table[] = {
        {InstrumentType::Trx, QStringLiteral("2 1 1/2 1/4").split(QLatin1Char(' '))},
        {InstrumentType::Glow, QStringLiteral("5 3 2 1").split(QLatin1Char(' '))},
        {InstrumentType::Unknown, QStringLiteral("2 1 1/2 1/4").split(QLatin1Char(' '))},
    };
    for (const auto& [type, captions] : table) {
        status.instrument = type;
        QStringList shown;
        for (int number = 1; number <= 4; ++number) {
            shown << option(number).text().remove(u'&');
        }
        EXPECT_EQ(shown, captions);
    }
}

TEST_F(SettingsPagesTest, CapacityIsShown) {
    settings.capacity = QStringLiteral("12.3");
    settings.memoryPointer = QStringLiteral("8123");
    EXPECT_EQ(text("LoggerCapacity"), "12.3");
    EXPECT_EQ(text("MemoryPointer"), "8123");
}

TEST_F(SettingsPagesTest, ANumberTooLargeIsToldWhenTheBoxIsLeftYetSent) {
    openSettings("Sampling");
    for (const char* name : {"Text3", "Text4"}) {
        auto& box = find<QLineEdit>(name);
        auto& remark = find<QLabel>((QByteArray(name) + "Remark").constData());
        box.setFocus();
        box.selectAll();
        type(box, "65536");
        EXPECT_FALSE(remark.isVisible()) << name;
        tellFocus(box, QEvent::FocusOut);
        EXPECT_TRUE(remark.isVisible()) << name;
        EXPECT_TRUE(remark.text().endsWith(QStringLiteral("65536 is more than the maximum of 65535."))) << name;
    }
    click("ApplySettings");
    finish();
    EXPECT_EQ(written().at(7), "65536\r");
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SettingsPagesTest, TheLampTellsWhatGoesOn) {
    const std::pair<Lamp, QColor> table[] = {{Lamp::Reading, QColor(255, 0, 0)},
                                             {Lamp::Sending, QColor(255, 255, 0)},
                                             {Lamp::Sent, QColor(0, 255, 0)},
                                             {Lamp::Read, QColor(0, 0, 255)},
                                             {Lamp::Failed, QColor(255, 255, 0)}};
    openSettings("Control Bits");
    auto& lamp = find<QWidget>("Lamp");
    for (const auto& [shown, colour] : table) {
        settings.lamp = shown;
        const QImage image = lamp.grab().toImage();
        EXPECT_EQ(image.pixelColor(image.rect().center()), colour);
        EXPECT_EQ(find<QLabel>("LampText").text(), lampText(shown));
        EXPECT_EQ(lamp.accessibleDescription(), lampText(shown));
    }
    EXPECT_EQ(lampText(Lamp::Failed), QStringLiteral("Sending failed"));
}

} // namespace
} // namespace orv
