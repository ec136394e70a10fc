// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "testing/windowrig.h"

#include <QApplication>
#include <QCheckBox>
#include <QToolTip>

namespace orv {
namespace {

/// Whether the settings screen can be believed: what it says of what was sent, and of what was not.
class SettingsExchangeTest : public SettingsWindowTest {
protected:
    SettingsExchangeTest() { settings.record = asReported(); }

    /// What settingsReport() tells.
    static LoggerSettings asReported() {
        return {.autoStart = true,
                .logEnabled = true,
                .wakeUp = true,
                .samplesPerPoint = QStringLiteral("30"),
                .hoursBeforeBlock = QStringLiteral("24"),
                .pointsPerBlock = QStringLiteral("60"),
                .secondsBetweenPoints = QStringLiteral("5")};
    }

    void report(const QByteArray& lines = settingsReport("60")) {
        state.Ctrlscrn = Operation::Ready;
        receive(lines);
        ticks(12);
    }

    void apply() {
        click("ApplySettings");
        finish();
    }

    std::string exchange() { return text("SettingsExchange"); }

    /// What stands over the settings in plain English when they are opened now; empty if nothing does.
    std::string asPlainEnglishNotes() {
        click("ViewCurrentSettingsTranscribedAsText");
        const auto& label = find<QLabel>("PlainEnglishNote");
        return label.isVisible() ? label.text().toStdString() : std::string();
    }

    /// The settings beside whose boxes stands that they are not sent.
    std::string marked() const {
        std::string all;
        for (const Setting& setting : allSettings) {
            const auto& mark = find<QLabel>((QByteArray(setting.control) + "Unsent").constData());
            all += mark.isVisibleTo(mark.parentWidget()) ? std::string(1, static_cast<char>(setting.letter)) : "";
        }
        return all;
    }
};

TEST_F(SettingsExchangeTest, WithoutAPortTheLineSaysWhyNothingCanBeSent) {
    report();
    const std::string before = exchange();
    program.closePort();
    EXPECT_EQ(exchange(), before + ". Connect to read and to send settings.");
    find<QCheckBox>("Gain").click();
    EXPECT_EQ(exchange(), "Changed and not sent yet: Gain. Connect to read and to send settings.");
}

TEST_F(SettingsExchangeTest, SentAndReadBackIsSaidOnlyWhenItWas) {
    click("ApplySettings");
    EXPECT_EQ(exchange(), "Sending ...");
    finish();
    EXPECT_EQ(exchange(), "Sent, and not read back yet");
    const QByteArray whole = settingsReport("60");
    report(whole.left(whole.indexOf("MP")));
    EXPECT_EQ(exchange(), "Sent, and not read back yet");
    report(whole.mid(whole.indexOf("MP")));
    const std::string now = clockText(clock.now().time()).toStdString();
    EXPECT_EQ(exchange(), "Sent and read back at " + now);
    for (const char* tab : {"Modes", "Time and Date", "Control Bits", "Sampling", "Calibration"}) {
        openSettings(tab);
        EXPECT_TRUE(find<QLabel>("SettingsExchange").isVisible()) << tab;
    }
    report();
    EXPECT_EQ(exchange(), "Read from the instrument at " + now) << "not what was sent";
}

TEST_F(SettingsExchangeTest, WhatTheInstrumentHasOtherwiseIsNamed) {
    change(settings.record, [](LoggerSettings& record) {
        record.samplesPerPoint = QStringLiteral("031");
        record.append = true;
        record.pointsPerBlock = QStringLiteral("99999");
    });
    apply();
    report(settingsReport("34463").replace("T30", "T31"));
    const std::string now = clockText(clock.now().time()).toStdString();
    EXPECT_EQ(exchange(), "Sent at " + now +
                              ", but the instrument has not all of it: Append is off there, not on; Number of Data "
                              "Points per Data Block is 34463 there, not 99999. Correct it or press \"Apply "
                              "Settings\" again.");
    apply();
    report(settingsReport("34463").replace("T30", "Tx").replace("W1\r\n", ""));
    EXPECT_EQ(exchange().substr(("Sent at " + now).size()),
              ", but the instrument has not all of it: Wake Up could not be read back; Samples Per Second could not be "
              "read back. Correct it or press \"Apply Settings\" again.");
    report(settingsReport("60").replace("G0", "G?"));
    EXPECT_EQ(exchange(), "Read at " + now + ", but not all: Gain could not be read. Press \"Retrieve Settings\".");
}

TEST_F(SettingsExchangeTest, ASendingThatIsCutOffIsSaid) {
    com1.written = nullptr;
    apply();
    EXPECT_TRUE(exchange().starts_with("Not sent whole: the instrument did not answer.")) << exchange();
    click("ApplySettings");
    program.closePort();
    EXPECT_TRUE(exchange().starts_with("Not sent whole: the connection ended.")) << exchange();
}

TEST_F(SettingsExchangeTest, OfAChangedBoxTooItIsSaidHowItsSendingWent) {
    report();
    find<QCheckBox>("Append").click();
    EXPECT_EQ(exchange(), "Changed and not sent yet: Append");
    click("ApplySettings");
    EXPECT_EQ(exchange(), "Sending ...");
    EXPECT_EQ(marked(), "");
    finish();
    EXPECT_EQ(exchange(), "Sent, and not read back yet");
    program.closePort();
    EXPECT_EQ(exchange(), "Sent, and not read back yet. Connect to read and to send settings.");
    ports.open();
    report();
    find<QCheckBox>("Append").click();
    com1.written = nullptr;
    apply();
    EXPECT_TRUE(exchange().starts_with("Not sent whole: the instrument did not answer.")) << exchange();
}

TEST_F(SettingsExchangeTest, AnotherConnectionsReportReadsNothingBack) {
    apply();
    program.closePort();
    EXPECT_EQ(exchange(), "Sent, and not read back yet. Connect to read and to send settings.");
    ports.open();
    report();
    EXPECT_TRUE(exchange().starts_with("Read from the instrument at ")) << exchange();
}

TEST_F(SettingsExchangeTest, ChangedBoxesAreMarkedUntilTheyAreSent) {
    find<QCheckBox>("Append").click();
    EXPECT_EQ(marked(), "") << "nothing is known of the instrument";
    report();
    EXPECT_EQ(marked(), "");
    openSettings("Control Bits");
    find<QCheckBox>("Append").click();
    retype(find<QLineEdit>("Text2"), "31");
    EXPECT_EQ(marked(), "MT");
    EXPECT_EQ(exchange(), "Changed and not sent yet: Append, Samples Per Second");
    EXPECT_TRUE(find<QLabel>("AppendUnsent").isVisible());
    find<QCheckBox>("Append").click();
    retype(find<QLineEdit>("Text1"), "024");
    EXPECT_EQ(marked(), "T") << "the same number";
    EXPECT_EQ(exchange(), "Changed and not sent yet: Samples Per Second");
    apply();
    report(settingsReport("60").replace("T30", "T31"));
    EXPECT_EQ(marked(), "");
    EXPECT_TRUE(exchange().starts_with("Sent and read back at ")) << exchange();
}

TEST_F(SettingsExchangeTest, WhatIsNotSentIsNamedInTheOrderOfTheScreenAndManyAreCounted) {
    report();
    for (const char* box : {"Gain", "AuxAdc", "WakeUp", "Append"}) {
        find<QCheckBox>(box).click();
    }
    EXPECT_EQ(exchange(), "Changed and not sent yet: Append, Wake Up, Aux ADC, Gain");
    find<QCheckBox>("AutoStart").click();
    EXPECT_EQ(exchange(), "Changed and not sent yet: Auto Start, Append, Wake Up and 2 others");
}

TEST_F(SettingsExchangeTest, TheMarksOfTheControlBitsStandInOneColumn) {
    openSettings("Control Bits");
    QApplication::processEvents();
    for (const char* mark : {"AppendUnsent", "LogEnabledUnsent", "GainUnsent"}) {
        EXPECT_EQ(find<QLabel>(mark).x(), find<QLabel>("AutoStartUnsent").x()) << mark;
    }
}

TEST_F(SettingsExchangeTest, AClockThatIsToBeSetIsMarkedUntilItWasAndThenSaidToBeSetAgain) {
    const auto isMarked = [this] {
        const auto& mark = find<QLabel>("SyncTimeDateUnsent");
        return mark.isVisibleTo(mark.parentWidget());
    };
    report();
    EXPECT_FALSE(isMarked());
    openSettings("Time and Date");
    find<QCheckBox>("AtFullMinute").click();
    EXPECT_TRUE(isMarked());
    EXPECT_EQ(exchange(), "Changed and not sent yet: Sync Time/Date");
    find<QCheckBox>("Append").click();
    EXPECT_EQ(exchange(), "Changed and not sent yet: Append, Sync Time/Date");
    find<QCheckBox>("Append").click();
    com1.written = [this](const QByteArray& item) {
        com1.input += item == "P" || item == "C" ? QByteArray() : item + '.';
    };
    clock.set(QDateTime(QDate(2026, 11, 21), QTime(9, 30, 10)));
    click("ApplySettings");
    live(4.0);
    EXPECT_EQ(exchange(), "Waiting for the full minute: 46 s. Reset on the page Status and Controls stops it.");
    EXPECT_FALSE(progress.visible.value());
    EXPECT_EQ(asPlainEnglishNotes(), "Sent, and not read back yet.");
    for (const Setting& setting : allSettings) {
        EXPECT_FALSE(find<QWidget>(setting.control).isEnabled())
            << setting.control << ": what is changed now would be gone with the report";
    }
    EXPECT_FALSE(find<QRadioButton>("SamplingOption1").isEnabled());
    live(56.0);
    finish();
    report();
    for (const Setting& setting : allSettings) {
        EXPECT_TRUE(find<QWidget>(setting.control).isEnabled()) << setting.control;
    }
    EXPECT_FALSE(isMarked());
    EXPECT_TRUE(exchange().starts_with("Sent and read back at ")) << exchange();
    EXPECT_TRUE(exchange().ends_with("Sync Time/Date is still ticked: \"Apply Settings\" sets the clock again."))
        << exchange();
    find<QCheckBox>("SyncTimeDate").click();
    EXPECT_FALSE(QString::fromStdString(exchange()).contains(QLatin1String("Sync"))) << exchange();
    find<QCheckBox>("SyncTimeDate").click();
    EXPECT_TRUE(isMarked());
}

TEST_F(SettingsExchangeTest, WhatIsTypedWhileTheReportComesIsNotTheInstruments) {
    const QByteArray whole = settingsReport("60");
    report(whole.left(whole.indexOf("D24")));
    retype(find<QLineEdit>("Text2"), "99");
    report(whole.mid(whole.indexOf("D24")));
    EXPECT_EQ(marked(), "T");
}

TEST_F(SettingsExchangeTest, ThePlainEnglishSaysWhenItDescribesUnsentSettings) {
    openSettings("Modes");
    const auto note = [this] { return asPlainEnglishNotes(); };
    EXPECT_EQ(note(), "No instrument has reported these settings.");
    report();
    EXPECT_EQ(note(), "");
    find<QCheckBox>("Append").click();
    EXPECT_EQ(note(), "These settings have not been sent to the instrument: Append.");
    click("ApplySettings");
    EXPECT_EQ(note(), "Sending ...");
    finish();
    EXPECT_EQ(note(), "Sent, and not read back yet.");
    report();
    const QByteArray whole = settingsReport("60");
    report(whole.left(whole.indexOf("D24")));
    EXPECT_EQ(note(), "No instrument has reported these settings.") << "the report has broken off";
    EXPECT_EQ(exchange(), "");
    program.link.session.commands.activity = Activity::ResettingShutter;
    EXPECT_EQ(note(), "The shutter is being reset: until that is done, these may be temporary settings.");
    EXPECT_EQ(exchange(), note());
    EXPECT_FALSE(find<QPushButton>("SaveAUserDefinedMode").isEnabled());
    EXPECT_FALSE(find<QCheckBox>("Append").isEnabled());
    program.link.session.commands.activity = Activity::None;
    EXPECT_TRUE(find<QPushButton>("SaveAUserDefinedMode").isEnabled());
}

TEST_F(SettingsExchangeTest, BeforeATabIsChosenTheSettingsStandInPlainEnglish) {
    openSettings();
    EXPECT_EQ(text("SettingsInEnglish"), "");
    report();
    EXPECT_TRUE(find<QLabel>("NoTabHint").isVisible());
    const std::string english = text("SettingsInEnglish");
    EXPECT_TRUE(english.starts_with("The Orv Sensor will start to collect data 24 hours after power up\n"
                                    "It will bin for 30 sample(s) to create 1 data point.\n"))
        << english;
    EXPECT_TRUE(english.ends_with("data in memory will be erased.")) << english;
    openSettings("Modes");
    EXPECT_FALSE(find<QLabel>("SettingsInEnglish").isVisible());
}

TEST_F(SettingsExchangeTest, ARefusedKeyHasAHint) {
    openSettings("Sampling");
    auto& box = find<QLineEdit>("Text2");
    const auto hintAfter = [&box](const char* characters) {
        QToolTip::hideText();
        waitFor([] { return !QToolTip::isVisible(); }, 2000);
        type(box, characters);
        return QToolTip::isVisible() ? QToolTip::text().toStdString() : std::string();
    };
    box.clear();
    EXPECT_EQ(hintAfter("12"), "");
    EXPECT_EQ(hintAfter("x"), "Only digits, at most 3.");
    EXPECT_EQ(hintAfter(" "), "Only digits, at most 3.");
    EXPECT_EQ(hintAfter("3"), "");
    EXPECT_EQ(hintAfter("4"), "Only digits, at most 3.");
    EXPECT_EQ(box.text().toStdString(), "123");
    box.selectAll();
    EXPECT_EQ(hintAfter("1"), "") << "it takes the place of what was selected";
}

TEST_F(SettingsExchangeTest, NoSamplesAreToldWhenTheBoxIsLeftYetSent) {
    openSettings("Sampling");
    auto& box = find<QLineEdit>("Text2");
    retype(box, "0");
    tellFocus(box, QEvent::FocusOut);
    EXPECT_EQ(text("Text2Remark"), "Samples Per Second: 0 is less than the minimum of 1.");
    EXPECT_TRUE(find<QLabel>("Text2Remark").isVisible());
    apply();
    EXPECT_EQ(written().at(3), "0\r");
    retype(box, "1");
    EXPECT_FALSE(find<QLabel>("Text2Remark").isVisible());
}

} // namespace
} // namespace orv
