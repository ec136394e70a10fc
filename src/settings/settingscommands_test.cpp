// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/sendingtest.h"

namespace orv {

namespace {

class SettingsCommandsTest : public SendingTest {
protected:
    SettingsCommands commands{session, ports, settings, progress, sender};
};

TEST_F(SettingsCommandsTest, RetrieveRequestsTheReportBehindTheProgressDialog) {
    progress.maximum = 5;
    onWrite = [this](const QByteArray& bytes) {
        EXPECT_EQ(bytes, "P");
        EXPECT_EQ(instrument->discards, 1);
        EXPECT_EQ(session.state.Ctrlscrn, opstate::ready);
    };
    commands.retrieveSettings();
    EXPECT_EQ(writes.size(), 1U);
    EXPECT_EQ(progress.maximum.value(), 100);
    EXPECT_TRUE(progress.visible.value());
    EXPECT_EQ(progress.label.value(), QStringLiteral("%"));
}

TEST_F(SettingsCommandsTest, ApplySendsBehindTheProgressDialog) {
    bool visible = false;
    onWrite = [this, &visible](const QByteArray& /*bytes*/) { visible = progress.visible; };
    commands.applySettings();
    EXPECT_EQ(writes.size(), 11U);
    EXPECT_TRUE(visible);
    EXPECT_TRUE(progress.visible.value()) << "the report that follows is read behind it";
}

TEST_F(SettingsCommandsTest, LoggingABlockWithoutEndIsRefused) {
    settings.record.logEnabled = true;
    for (const char* points : {"0", "", "000", "x5", "0.0"}) {
        messages.shown.clear();
        settings.record.pointsPerBlock = QString::fromLatin1(points);
        commands.applySettings();
        EXPECT_TRUE(writes.empty()) << points;
        EXPECT_FALSE(progress.visible.value());
        EXPECT_EQ(messages.shown,
                  (std::vector{Message{.title = QStringLiteral("Invalid Setup"),
                                       .text = QStringLiteral("Logging and Continues Sampling invalid."),
                                       .icon = Message::Icon::Exclamation}}));
    }
}

TEST_F(SettingsCommandsTest, ABlockWithoutEndIsSentWhenNothingIsLogged) {
    settings.record.pointsPerBlock = QStringLiteral("0");
    commands.applySettings();
    EXPECT_EQ(writes.size(), 11U);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SettingsCommandsTest, NoOtherValueIsChecked) {
    settings.record.logEnabled = true;
    settings.record.pointsPerBlock = QStringLiteral("99999");
    settings.record.secondsBetweenPoints = QStringLiteral("99999");
    commands.applySettings();
    EXPECT_EQ(writes.size(), 11U);
}

TEST_F(SettingsCommandsTest, DisplayLoggerTimeAsksForTheClock) {
    commands.displayLoggerTime();
    EXPECT_EQ(written(), QByteArrayList{"C"});
    EXPECT_EQ(session.state.Ctrlscrn, opstate::clockCheck);
    EXPECT_EQ(instrument->discards, 0);
}

TEST_F(SettingsCommandsTest, NothingHappensWithoutAConnection) {
    ports.close();
    settings.record.logEnabled = true;
    settings.record.pointsPerBlock = QStringLiteral("0");
    commands.retrieveSettings();
    commands.applySettings();
    commands.displayLoggerTime();
    EXPECT_TRUE(writes.empty());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_FALSE(progress.visible.value());
    EXPECT_EQ(session.state.Ctrlscrn, opstate::settingsOpen);
    EXPECT_EQ(instrument->discards, 0);
}

TEST_F(SettingsCommandsTest, NothingDisturbsAnOperationUnderWay) {
    for (const Activity activity : {Activity::Connecting, Activity::Collecting, Activity::Downloading,
                                    Activity::Sending, Activity::SettingClock, Activity::ResettingShutter}) {
        session.commands.activity = activity;
        commands.retrieveSettings();
        commands.applySettings();
        commands.displayLoggerTime();
    }
    EXPECT_TRUE(writes.empty());
    EXPECT_EQ(session.state.Ctrlscrn, opstate::settingsOpen);
}

TEST_F(SettingsCommandsTest, EachSamplingOptionWritesThePresetOfTheTypeLabel) {
    const std::pair<const char*, std::array<const char*, 4>> table[] = {
        {"TRX", {"10", "30", "100", "210"}},
        {"GLOW", {"25", "55", "90", "200"}},
        {"________", {"10", "30", "100", "210"}},
    };
    session.state.Vartemp = QStringLiteral("F"); // the letter has no say here
    for (const auto& [type, presets] : table) {
        session.status.instrument = QString::fromLatin1(type);
        for (int option = 1; option <= 4; ++option) {
            commands.chooseSamplingOption(option);
            EXPECT_EQ(settings.record.samplesPerPoint.value(),
                      QString::fromLatin1(presets.at(static_cast<std::size_t>(option - 1))));
            EXPECT_EQ(settings.samplingOption.value(), option);
        }
    }
}

} // namespace

} // namespace orv
