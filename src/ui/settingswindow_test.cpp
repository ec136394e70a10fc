// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/expected.h"
#include "testing/windowrig.h"

#include <QApplication>
#include <QGroupBox>
#include <QRadioButton>
#include <QSet>
#include <QShortcut>
#include <QToolButton>

namespace orv {
namespace {

constexpr const char* tabNames[] = {"Modes", "Time and Date", "Control Bits", "Sampling", "Calibration"};

class SettingsTabsTest : public SettingsWindowTest {
protected:
    /// Calls `look` at each tab for each type of instrument.
    void onEachTab(const std::function<void()>& look) {
        for (const InstrumentType type : {InstrumentType::Trx, InstrumentType::Glow}) {
            status.instrument = type;
            for (const char* tab : tabNames) {
                SCOPED_TRACE(tab);
                openSettings(tab);
                look();
            }
        }
    }

    int mainWindowShown = 0;
    Subscription mainWindowWanted = screen.mainWindowWanted.subscribe([this] { ++mainWindowShown; });
};

TEST_F(SettingsWindowTest, IsAWindowOfItsOwnThatFollowsTheState) {
    EXPECT_FALSE(screen.isVisible());
    EXPECT_EQ(screen.windowTitle(), QStringLiteral("Logger Settings"));
    EXPECT_TRUE(screen.isWindow());
    EXPECT_EQ(screen.windowModality(), Qt::NonModal);
    openSettings();
    EXPECT_TRUE(screen.isVisible());
    settings.visible = false;
    EXPECT_FALSE(screen.isVisible());
}

TEST_F(SettingsWindowTest, ComesBackInTheSizeInWhichItWent) {
    openSettings();
    QApplication::processEvents();
    const QSize size = screen.size();
    settings.visible = false;
    settings.reported = settings.record.value();
    settings.exchange = QStringLiteral("A sentence of some thirty letters. ").repeated(8); // three lines
    openSettings();
    QApplication::processEvents();
    EXPECT_EQ(screen.size(), size);
}

TEST_F(SettingsWindowTest, OpensWithTheTabsAndNoFrame) {
    openSettings();
    auto& tabs = find<QTabBar>("SettingsTabs");
    ASSERT_EQ(tabs.count(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(tabs.tabText(i), QString::fromLatin1(tabNames[i]));
    }
    EXPECT_TRUE(shownFrames().empty());
    EXPECT_TRUE(find<QLabel>("NoTabHint").isVisible());
}

TEST_F(SettingsWindowTest, AClickOnATabShowsItsFrameAlone) {
    const std::pair<const char*, const char*> frames[] = {
        {"ModesFrame", "Modes"},
        {"TimeAndDateFrame", "Time and Date"},
        {"ControlBitsFrame", "Control Bits"},
        {"SamplesFrame", "Samples and Intervals"},
        {"TrxCalibrationFrame", "TRX Calibration: Offsets and B calculations"}};
    openSettings();
    int tab = 0;
    for (const auto& [name, caption] : frames) {
        clickTab(find<QTabBar>("SettingsTabs"), tab++);
        EXPECT_EQ(shownFrames(), name);
        EXPECT_EQ(find<QGroupBox>(name).title().toStdString(), caption);
        EXPECT_FALSE(find<QLabel>("NoTabHint").isVisible());
    }
    clickTab(find<QTabBar>("SettingsTabs"), 0);
    EXPECT_EQ(shownFrames(), "ModesFrame");
}

TEST_F(SettingsWindowTest, KeysChooseTabsFromTheFirst) {
    openSettings();
    auto& tabs = find<QTabBar>("SettingsTabs");
    press(tabs, Qt::Key_Right);
    EXPECT_EQ(shownFrames(), "ModesFrame");
    press(tabs, Qt::Key_Right);
    EXPECT_EQ(shownFrames(), "TimeAndDateFrame");
}

TEST_F(SettingsWindowTest, PageKeysGoRoundTheTabsAndNumbersChooseThem) {
    openSettings();
    const std::pair<const char*, const char*> table[] = {{"Ctrl+PgDown", "ModesFrame"},
                                                         {"Ctrl+PgUp", "TrxCalibrationFrame"},
                                                         {"Ctrl+PgDown", "ModesFrame"},
                                                         {"Ctrl+3", "ControlBitsFrame"},
                                                         {"Ctrl+1", "ModesFrame"}};
    expectEach(table, [this](const char* key) {
        for (QShortcut* shortcut : screen.findChildren<QShortcut*>()) {
            if (shortcut->key() == QKeySequence(QString::fromLatin1(key))) {
                Q_EMIT shortcut->activated();
            }
        }
        return shownFrames();
    });
}

TEST_F(SettingsWindowTest, CalibrationShowsTheFrameOfTheTypeLabel) {
    status.instrument = InstrumentType::Glow;
    state.Vartemp = QStringLiteral("V"); // the letter has no say here
    openSettings("Calibration");
    EXPECT_EQ(shownFrames(), "GlowCalibrationFrame");
    EXPECT_EQ(find<QGroupBox>("GlowCalibrationFrame").title(),
              QStringLiteral("GLW Calibration: Offsets and B calculations"));
    status.instrument = InstrumentType::Trx;
    EXPECT_EQ(shownFrames(), "TrxCalibrationFrame");
    status.instrument = InstrumentType::Unknown;
    EXPECT_EQ(shownFrames(), "TrxCalibrationFrame");
    screen.chooseTab(QStringLiteral("Modes"));
    screen.chooseTab(QStringLiteral("Calibration"));
    EXPECT_TRUE(shownFrames().empty());
    EXPECT_TRUE(find<QLabel>("NoTypeHint").isVisible());
}

TEST_F(SettingsWindowTest, ABoxIsLeftWhenItsTabIsChosenAgain) {
    openSettings("Sampling");
    screen.activateWindow();
    QApplication::processEvents();
    auto& box = find<QLineEdit>("Text4");
    box.setFocus();
    ASSERT_TRUE(box.hasFocus());
    retype(box, "99999");
    EXPECT_FALSE(find<QLabel>("Text4Remark").isVisible());
    screen.chooseTab(QStringLiteral("Sampling"));
    EXPECT_TRUE(find<QLabel>("Text4Remark").isVisible());
}

TEST_F(SettingsWindowTest, ClearformsHidesEveryFrame) {
    for (const char* tab : tabNames) {
        openSettings(tab);
        screen.clearforms();
        EXPECT_TRUE(shownFrames().empty()) << tab;
    }
}

TEST_F(SettingsTabsTest, KeepsItsTabAndTextsBetweenOpenings) {
    openSettings("Sampling");
    type(find<QLineEdit>("Text1"), "0");
    screen.close();
    EXPECT_FALSE(settings.visible.value());
    EXPECT_EQ(mainWindowShown, 0);
    openSettings();
    EXPECT_EQ(shownFrames(), "SamplesFrame");
    EXPECT_EQ(find<QLineEdit>("Text1").text(), QStringLiteral("240"));
}

TEST_F(SettingsTabsTest, CloseShowsTheMainWindow) {
    openSettings();
    click("Close");
    EXPECT_EQ(mainWindowShown, 1);
    EXPECT_FALSE(screen.isVisible());
    EXPECT_FALSE(settings.visible.value());
}

TEST_F(SettingsWindowTest, PresentShowsIt) {
    screen.present();
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(settings.visible.value());
}

TEST_F(SettingsWindowTest, ButtonsDoTheirWork) {
    openSettings();
    const auto takeReport = [this] {
        constexpr int linesOfReport = 12;
        receive(settingsReport("60000"));
        ticks(linesOfReport);
        EXPECT_EQ(written(), QByteArrayList{"C"});
    };
    click("RetrieveSettings");
    EXPECT_EQ(written(), QByteArrayList{"P"});
    takeReport();
    click("DisplayLoggerTimeDate");
    EXPECT_EQ(written(), QByteArrayList{"C"});
    click("ApplySettings");
    finish();
    EXPECT_EQ(written().size(), 11U);
    takeReport();
    click("Profile");
    finish();
    EXPECT_EQ(written().at(1), "100010");
    takeReport();
    click("Moored");
    finish();
    EXPECT_EQ(written().at(1), "100111");
    takeReport();
    click("SaveAUserDefinedMode");
    click("LoadAUserDefinedMode");
    EXPECT_EQ(answers.asked.size(), 2);
}

TEST_F(SettingsWindowTest, NoButtonSendsAnythingWhenNotConnected) {
    ports.close();
    openSettings();
    int buttons = 0;
    for (QPushButton* button : screen.findChildren<QPushButton*>()) {
        button->click();
        ++buttons;
    }
    EXPECT_EQ(buttons, 14);
    EXPECT_TRUE(written().empty());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_FALSE(progress.visible.value());
    EXPECT_EQ(settings.record.value().pointsPerBlock, QStringLiteral("60000"))
        << "the modes fill the screen all the same";
}

TEST_F(SettingsWindowTest, WhatWouldDisturbIsDisabledMeanwhile) {
    const auto enabled = [this] {
        std::string names;
        for (const char* name :
             {"RetrieveSettings", "ApplySettings", "DisplayLoggerTimeDate", "Profile", "Moored", "LoadAUserDefinedMode",
              "SaveAUserDefinedMode", "ViewCurrentSettingsTranscribedAsText", "Close"}) {
            names += find<QPushButton>(name).isEnabled() ? std::string(name) + ' ' : "";
        }
        return names;
    };
    const std::string modes = "Profile Moored LoadAUserDefinedMode ";
    const std::string harmless = "ViewCurrentSettingsTranscribedAsText Close ";
    const std::string all = "RetrieveSettings ApplySettings DisplayLoggerTimeDate " + modes + "SaveAUserDefinedMode ";
    EXPECT_EQ(enabled(), all + harmless);
    commands.activity = Activity::ReadingSettings;
    EXPECT_EQ(enabled(), "SaveAUserDefinedMode " + harmless);
    // Not of the settings that a shutter reset sends for a while.
    for (const Activity activity : {Activity::Sending, Activity::ResettingShutter}) {
        commands.activity = activity;
        EXPECT_EQ(enabled(), harmless);
    }
    commands.activity = Activity::None;
    answers.late = true;
    click("SaveAUserDefinedMode");
    EXPECT_EQ(enabled(), harmless) << "one question at a time";
    answers.answer({});
    EXPECT_EQ(enabled(), all + harmless);
    ports.close();
    EXPECT_EQ(enabled(), modes + "SaveAUserDefinedMode " + harmless);
}

TEST_F(SettingsWindowTest, ToolTipsTellWhatAControlDoes) {
    const std::pair<const char*, const char*> table[] = {
        {"RetrieveSettings", "Retrieve settings from the logger"},
        {"ApplySettings", "Send Settings to the logger"},
        {"Close", "Verify that settings are correct before closing this window"},
        {"ComputerTimeDate", "This is the computers Time and Date."},
        {"LoggerTimeDate", "This is the Loggers Time and Date at last display."},
        {"SyncTimeDate", "This tells the Host to set the Loggers Time and Date to that of the Computer. (Updated after "
                         "send settings)"},
        {"AutoStart", "Auto Start: This tells the logger to start collecting data at power up."},
        {"Append", "Append: This tells the logger to add new data blocks to the end of memory. If this is not set, all "
                   "pervious data blocks will be erased."},
        {"LogEnabled", "Log Enabled: This tells the logger to record data in memory"},
        {"WakeUp", "Wake Up: This tells the logger to sleep after gathering a data block or stay ready to accept a "
                   "command."},
        {"AuxAdc", "Function not available"},
        {"Gain", "Function not available"},
        {"Text2", "This tells the logger to grab X number of samples and average then to determine one data point."},
        {"Text1", "This is the amount of time in hours that the logger will wait before collecting a data block. For "
                  "example: A value of 24 is 1 data block per 24 hours."},
        {"LoggerCapacity", "This is the % of data memory used in the logger."},
    };
    expectEach(table, [this](const char* name) { return find<QWidget>(name).toolTip().toStdString(); });
}

TEST_F(SettingsWindowTest, EveryControlCanBeReachedByKeyAndHasAName) {
    for (QWidget* widget : screen.findChildren<QWidget*>()) {
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        const bool box = qobject_cast<QLineEdit*>(widget) != nullptr;
        // Tool buttons are only decoration: the arrows of a narrow tab strip, the warning in a box.
        if ((button == nullptr || qobject_cast<QToolButton*>(widget) != nullptr) && !box) {
            continue;
        }
        const bool option = qobject_cast<QRadioButton*>(widget) != nullptr; // reached by the arrow keys too
        const std::string name = widget->objectName().toStdString();
        EXPECT_TRUE(option || (widget->focusPolicy() & Qt::TabFocus) != 0) << name;
        EXPECT_FALSE(box ? widget->accessibleName().isEmpty() : button->text().isEmpty()) << name;
    }
}

TEST_F(SettingsWindowTest, TheTabKeyGoesFromTopToBottom) {
    const std::pair<const char*, const char*> table[] = {
        {"Modes", "SettingsTabs Profile Moored SaveAUserDefinedMode LoadAUserDefinedMode "
                  "ViewCurrentSettingsTranscribedAsText RetrieveSettings ApplySettings Close"},
        {"Time and Date",
         "SettingsTabs DisplayLoggerTimeDate SyncTimeDate AtFullMinute RetrieveSettings ApplySettings Close"},
        {"Control Bits",
         "SettingsTabs AutoStart Append LogEnabled WakeUp AuxAdc Gain RetrieveSettings ApplySettings Close"},
        {"Sampling", "SettingsTabs Text2 SamplingOption2 Text1 Text4 Text3 RetrieveSettings ApplySettings Close"},
        {"Calibration", "SettingsTabs Text10 Text13 Text8 Text11 Text9 Text12 TrxProvideRawCounts Command6 Command11 "
                        "RetrieveSettings ApplySettings Close"},
    };
    settings.samplingOption = 2;
    for (const auto& [tab, order] : table) {
        openSettings(tab);
        find<QTabBar>("SettingsTabs").setFocus();
        QStringList visited;
        while (QApplication::focusWidget() != nullptr && !visited.contains(QApplication::focusWidget()->objectName())) {
            visited << QApplication::focusWidget()->objectName();
            press(*QApplication::focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(visited.join(QLatin1Char(' ')).toStdString(), order);
    }
}

TEST_F(SettingsTabsTest, MnemonicsAreUniqueOnEachTab) {
    onEachTab([this] {
        QSet<QString> letters;
        const auto take = [&letters](const QString& text) {
            const QString letter = QKeySequence::mnemonic(text).toString();
            EXPECT_FALSE(letters.contains(letter)) << text.toStdString();
            if (!letter.isEmpty()) {
                letters << letter;
            }
        };
        for (const QWidget* widget : screen.findChildren<QWidget*>()) {
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            const auto* label = qobject_cast<const QLabel*>(widget);
            if (widget->isVisible() && (button != nullptr || (label != nullptr && label->buddy() != nullptr))) {
                take(button != nullptr ? button->text() : label->text());
            }
        }
        EXPECT_GE(letters.size(), 4);
    });
}

TEST_F(SettingsTabsTest, NothingIsCutOff) {
    change(settings.record, [](LoggerSettings& record) { record.secondsBetweenPoints = QStringLiteral("99999"); });
    onEachTab([this] {
        screen.resize(screen.minimumSizeHint());
        QApplication::processEvents();
        for (const QWidget* widget : screen.findChildren<QWidget*>()) {
            const auto* label = qobject_cast<const QLabel*>(widget);
            const bool button = qobject_cast<const QAbstractButton*>(widget) != nullptr;
            if (!widget->isVisible() || widget->objectName().isEmpty() || (label == nullptr && !button)) {
                continue;
            }
            if (label != nullptr && label->wordWrap()) {
                EXPECT_GE(label->height(), label->heightForWidth(label->width())) << qPrintable(label->objectName());
            } else {
                EXPECT_GE(widget->width(), widget->sizeHint().width()) << qPrintable(widget->objectName());
            }
        }
    });
}

TEST_F(SettingsWindowTest, PlainEnglishShowsTheSettingsAsTheyAreNow) {
    openSettings();
    click("ViewCurrentSettingsTranscribedAsText");
    auto& english = find<QWidget>("PlainEnglish");
    EXPECT_TRUE(english.isVisible());
    EXPECT_EQ(control<QLabel>(english, "BinningLine").text(),
              QStringLiteral("It will bin for 30 sample(s) to create 1 data point."));
}

} // namespace
} // namespace orv
