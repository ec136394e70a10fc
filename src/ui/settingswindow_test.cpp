// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/settingswindowtest.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QShortcut>
#include <QToolButton>

namespace orv {

namespace {

constexpr const char* tabNames[] = {"Modes", "Time and Date", "Control Bits", "Sampling", "Calibration"};

TEST_F(SettingsWindowTest, IsAWindowOfItsOwnThatFollowsTheState) {
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Logger Settings"));
    EXPECT_TRUE(window.isWindow());
    EXPECT_EQ(window.windowModality(), Qt::NonModal);
    open();
    EXPECT_TRUE(window.isVisible());
    settings.visible = false;
    EXPECT_FALSE(window.isVisible());
}

TEST_F(SettingsWindowTest, OpensWithTheTabsAndNoFrame) {
    open();
    auto& tabs = find<QTabBar>("SettingsTabs");
    ASSERT_EQ(tabs.count(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(tabs.tabText(i), QString::fromLatin1(tabNames[i]));
    }
    EXPECT_TRUE(shownFrames().isEmpty());
    EXPECT_TRUE(find<QLabel>("NoTabHint").isVisible());
}

TEST_F(SettingsWindowTest, AClickOnATabShowsItsFrameAlone) {
    const std::pair<const char*, const char*> frames[] = {
        {"ModesFrame", "Modes"},
        {"TimeAndDateFrame", "Time and Date"},
        {"ControlBitsFrame", "Control Bits"},
        {"SamplesFrame", "Samples and Intervals"},
        {"TrxCalibrationFrame", "TRX Calibration: Offsets and B calculations"}};
    open();
    int tab = 0;
    for (const auto& [name, caption] : frames) {
        clickTab(find<QTabBar>("SettingsTabs"), tab);
        EXPECT_EQ(shownFrames(), QStringList{QString::fromLatin1(name)});
        EXPECT_EQ(find<QGroupBox>(name).title(), QString::fromLatin1(caption));
        EXPECT_FALSE(find<QLabel>("NoTabHint").isVisible());
        ++tab;
    }
    clickTab(find<QTabBar>("SettingsTabs"), 0);
    EXPECT_EQ(shownFrames(), QStringList{QStringLiteral("ModesFrame")});
}

TEST_F(SettingsWindowTest, KeysChooseTabsFromTheFirst) {
    open();
    auto& tabs = find<QTabBar>("SettingsTabs");
    press(tabs, Qt::Key_Right);
    EXPECT_EQ(shownFrames(), QStringList{QStringLiteral("ModesFrame")});
    press(tabs, Qt::Key_Right);
    EXPECT_EQ(shownFrames(), QStringList{QStringLiteral("TimeAndDateFrame")});
}

TEST_F(SettingsWindowTest, PageKeysGoRoundTheTabs) {
    open();
    QHash<QString, QShortcut*> shortcuts;
    for (QShortcut* shortcut : window.findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly)) {
        shortcuts[shortcut->key().toString()] = shortcut;
    }
    ASSERT_TRUE(shortcuts.contains(QStringLiteral("Ctrl+PgDown")) && shortcuts.contains(QStringLiteral("Ctrl+PgUp")));
    Q_EMIT shortcuts[QStringLiteral("Ctrl+PgDown")]->activated();
    EXPECT_EQ(shownFrames(), QStringList{QStringLiteral("ModesFrame")});
    Q_EMIT shortcuts[QStringLiteral("Ctrl+PgUp")]->activated();
    EXPECT_EQ(shownFrames(), QStringList{QStringLiteral("TrxCalibrationFrame")});
    Q_EMIT shortcuts[QStringLiteral("Ctrl+PgDown")]->activated();
    EXPECT_EQ(shownFrames(), QStringList{QStringLiteral("ModesFrame")});
}

TEST_F(SettingsWindowTest, CalibrationShowsTheFrameOfTheTypeLabel) {
    session.status.instrument = InstrumentType::Glow;
    session.state.Vartemp = QStringLiteral("V"); // the letter has no say here
    openAt("Calibration");
    EXPECT_EQ(shownFrames(), QStringList{QStringLiteral("GlowCalibrationFrame")});
    EXPECT_EQ(find<QGroupBox>("GlowCalibrationFrame").title(),
              QStringLiteral("GLW Calibration: Offsets and B calculations"));
    session.status.instrument = InstrumentType::Trx;
    EXPECT_EQ(shownFrames(), QStringList{QStringLiteral("TrxCalibrationFrame")});
    session.status.instrument = InstrumentType::Unknown;
    EXPECT_EQ(shownFrames(), QStringList{QStringLiteral("TrxCalibrationFrame")});
    window.chooseTab(QStringLiteral("Modes"));
    window.chooseTab(QStringLiteral("Calibration"));
    EXPECT_TRUE(shownFrames().isEmpty());
    EXPECT_TRUE(find<QLabel>("NoTypeHint").isVisible());
}

TEST_F(SettingsWindowTest, ClearformsHidesEveryFrame) {
    for (const char* tab : tabNames) {
        openAt(tab);
        window.clearforms();
        EXPECT_TRUE(shownFrames().isEmpty()) << tab;
    }
}

TEST_F(SettingsWindowTest, KeepsItsTabAndTextsBetweenOpenings) {
    openAt("Sampling");
    type(find<QLineEdit>("Text1"), "0");
    window.close();
    EXPECT_FALSE(settings.visible.value());
    EXPECT_EQ(mainWindowShown, 0);
    open();
    EXPECT_EQ(shownFrames(), QStringList{QStringLiteral("SamplesFrame")});
    EXPECT_EQ(find<QLineEdit>("Text1").text(), QStringLiteral("240"));
}

TEST_F(SettingsWindowTest, CloseShowsTheMainWindow) {
    open();
    click("Close");
    EXPECT_EQ(mainWindowShown, 1);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(settings.visible.value());
}

TEST_F(SettingsWindowTest, PresentShowsIt) {
    window.present();
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(settings.visible.value());
}

TEST_F(SettingsWindowTest, ButtonsDoTheirWork) {
    open();
    click("RetrieveSettings");
    EXPECT_EQ(written(), std::vector<QByteArray>{"P"});
    click("DisplayLoggerTimeDate");
    EXPECT_EQ(written(), std::vector<QByteArray>{"C"});
    click("ApplySettings");
    EXPECT_EQ(written().size(), 11U);
    click("Profile");
    EXPECT_EQ(written().at(1), "100010");
    click("Moored");
    EXPECT_EQ(written().at(1), "100111");
    click("SaveAUserDefinedMode");
    click("LoadAUserDefinedMode");
    EXPECT_EQ(answers.asked.size(), 2);
}

TEST_F(SettingsWindowTest, NoButtonSendsAnythingWhenNotConnected) {
    ports.close();
    open();
    int buttons = 0;
    for (QPushButton* button : window.findChildren<QPushButton*>()) {
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
        QStringList names;
        for (const char* name :
             {"RetrieveSettings", "ApplySettings", "DisplayLoggerTimeDate", "Profile", "Moored", "LoadAUserDefinedMode",
              "SaveAUserDefinedMode", "ViewCurrentSettingsTranscribedAsText", "Close"}) {
            if (find<QPushButton>(name).isEnabled()) {
                names << QString::fromLatin1(name);
            }
        }
        return names;
    };
    const QStringList harmless{QStringLiteral("SaveAUserDefinedMode"),
                               QStringLiteral("ViewCurrentSettingsTranscribedAsText"), QStringLiteral("Close")};
    EXPECT_EQ(enabled().size(), 9);
    session.commands.activity = Activity::Sending;
    EXPECT_EQ(enabled(), harmless);
    session.commands.activity = Activity::None;
    ports.close();
    EXPECT_EQ(enabled(), (QStringList{QStringLiteral("Profile"), QStringLiteral("Moored"),
                                      QStringLiteral("LoadAUserDefinedMode")} +
                          harmless));
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
    for (const auto& [name, text] : table) {
        EXPECT_EQ(find<QWidget>(name).toolTip(), QString::fromLatin1(text)) << name;
    }
}

TEST_F(SettingsWindowTest, EveryControlCanBeReachedByKeyAndHasAName) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        const bool box = qobject_cast<QLineEdit*>(widget) != nullptr;
        // Tool buttons are only decoration: the arrows of a narrow tab strip, the warning in a box.
        if ((button == nullptr || qobject_cast<QToolButton*>(widget) != nullptr) && !box) {
            continue;
        }
        const bool option = qobject_cast<QRadioButton*>(widget) != nullptr; // reached by the arrow keys too
        EXPECT_TRUE(option || (widget->focusPolicy() & Qt::TabFocus) != 0) << widget->objectName().toStdString();
        EXPECT_FALSE(box ? widget->accessibleName().isEmpty() : button->text().isEmpty())
            << widget->objectName().toStdString();
    }
}

TEST_F(SettingsWindowTest, TheTabKeyGoesFromTopToBottom) {
    const std::pair<const char*, const char*> table[] = {
        {"Modes", "SettingsTabs Profile Moored SaveAUserDefinedMode LoadAUserDefinedMode "
                  "ViewCurrentSettingsTranscribedAsText RetrieveSettings ApplySettings Close"},
        {"Time and Date", "SettingsTabs DisplayLoggerTimeDate SyncTimeDate RetrieveSettings ApplySettings Close"},
        {"Control Bits",
         "SettingsTabs AutoStart Append LogEnabled WakeUp AuxAdc Gain RetrieveSettings ApplySettings Close"},
        {"Sampling", "SettingsTabs Text2 SamplingOption2 Text1 Text4 Text3 RetrieveSettings ApplySettings Close"},
        {"Calibration", "SettingsTabs Text10 Text13 Text8 Text11 Text9 Text12 TrxProvideRawCounts Command6 Command11 "
                        "RetrieveSettings ApplySettings Close"},
    };
    settings.samplingOption = 2;
    for (const auto& [tab, order] : table) {
        openAt(tab);
        find<QTabBar>("SettingsTabs").setFocus();
        QStringList visited;
        while (QApplication::focusWidget() != nullptr && !visited.contains(QApplication::focusWidget()->objectName())) {
            visited << QApplication::focusWidget()->objectName();
            press(*QApplication::focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(visited.join(QLatin1Char(' ')).toStdString(), order);
    }
}

TEST_F(SettingsWindowTest, MnemonicsAreUniqueOnEachTab) {
    for (const InstrumentType type : {InstrumentType::Trx, InstrumentType::Glow}) {
        session.status.instrument = type;
        for (const char* tab : tabNames) {
            openAt(tab);
            QSet<QString> letters;
            const auto take = [&letters, tab](const QString& text) {
                const QString letter = QKeySequence::mnemonic(text).toString();
                EXPECT_FALSE(letters.contains(letter)) << tab << ": " << text.toStdString();
                if (!letter.isEmpty()) {
                    letters << letter;
                }
            };
            for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
                if (button->isVisible()) {
                    take(button->text());
                }
            }
            for (const QLabel* label : window.findChildren<QLabel*>()) {
                if (label->isVisible() && label->buddy() != nullptr) {
                    take(label->text());
                }
            }
            EXPECT_GE(letters.size(), 4) << tab;
        }
    }
}

TEST_F(SettingsWindowTest, NothingIsCutOff) {
    change(settings.record, [](LoggerSettings& record) { record.secondsBetweenPoints = QStringLiteral("99999"); });
    for (const InstrumentType type : {InstrumentType::Trx, InstrumentType::Glow}) {
        session.status.instrument = type;
        for (const char* tab : tabNames) {
            openAt(tab);
            window.resize(window.minimumSizeHint());
            QApplication::processEvents();
            for (const QWidget* widget : window.findChildren<QWidget*>()) {
                const auto* label = qobject_cast<const QLabel*>(widget);
                const bool button = qobject_cast<const QAbstractButton*>(widget) != nullptr;
                if (!widget->isVisible() || widget->objectName().isEmpty() || (label == nullptr && !button)) {
                    continue;
                }
                if (label != nullptr && label->wordWrap()) {
                    EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                        << widget->objectName().toStdString();
                } else {
                    EXPECT_GE(widget->width(), widget->sizeHint().width()) << widget->objectName().toStdString();
                }
            }
        }
    }
}

TEST_F(SettingsWindowTest, PlainEnglishShowsTheSettingsAsTheyAreNow) {
    open();
    click("ViewCurrentSettingsTranscribedAsText");
    auto& english = find<QWidget>("PlainEnglish");
    EXPECT_TRUE(english.isVisible());
    EXPECT_EQ(control<QLabel>(english, "BinningLine").text(),
              QStringLiteral("It will bin for 30 sample(s) to create 1 data point."));
}

TEST_F(SettingsWindowTest, TabsAreChosenByTheirNumber) {
    open();
    const auto choose = [this](int key) {
        for (QShortcut* shortcut : window.findChildren<QShortcut*>()) {
            if (shortcut->key() == QKeySequence(Qt::CTRL | static_cast<Qt::Key>(key))) {
                Q_EMIT shortcut->activated();
            }
        }
    };
    choose(Qt::Key_3);
    EXPECT_EQ(shownFrames(), QStringList{QStringLiteral("ControlBitsFrame")});
    choose(Qt::Key_1);
    EXPECT_EQ(shownFrames(), QStringList{QStringLiteral("ModesFrame")});
    EXPECT_EQ(find<QTabBar>("SettingsTabs").tabToolTip(1), QStringLiteral("Time and Date (Ctrl+2)"));
}

} // namespace

} // namespace orv
