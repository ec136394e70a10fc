// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/ptyrig.h"

#include <optional>

namespace orv {

namespace {

/// Sending to the simulated instrument over a pseudo-terminal, early in 1999.
class SendingPtyTest : public ProgramTest {
protected:
    SendingPtyTest()
        : ProgramTest(
              [](const QString& device, TestClock& time) { return std::make_unique<ServedPort>(device, time); }) {
        clock.set(QDateTime(QDate(1999, 1, 5), QTime(9, 30, 15)));
        ports.setDevice(1, QStringLiteral("sim:trx"));
        connectAndRead();
        line->writes.clear();
        line->written = [this](const QByteArray& /*bytes*/) { moments.push_back(clock.monotonicMilliseconds()); };
    }

    SettingsSender::Outcome setprefs() {
        procedures.start(QStringLiteral("Sending"), [this] { return send(); });
        finish();
        return outcome_.value();
    }

    std::vector<qint64> moments; ///< Of each write.

private:
    Task<> send() { outcome_ = co_await sender.setprefs(); }

    std::optional<SettingsSender::Outcome> outcome_;
};

const LoggerSettings sentMode{.autoStart = true,
                              .auxAdc = true,
                              .logEnabled = true,
                              .samplesPerPoint = QStringLiteral("100"),
                              .hoursBeforeBlock = QStringLiteral("12"),
                              .pointsPerBlock = QStringLiteral("500"),
                              .secondsBetweenPoints = QStringLiteral("60")};

TEST_F(SendingPtyTest, TheInstrumentReportsWhatItWasSent) {
    settings.record = sentMode;
    ASSERT_EQ(setprefs(), SettingsSender::Outcome::Sent);
    EXPECT_EQ(line->writes.join(), "B101100T100\rD12\rQ500\rI60\rP");
    settings.record = LoggerSettings();
    live(0.5);
    EXPECT_EQ(settings.record.value(), sentMode);
    EXPECT_EQ(settings.samplingOption.value(), 3);
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SendingPtyTest, TheClockIsSetAndTheSecondReportDoesNoHarm) {
    settings.record = sentMode;
    settings.syncTimeDate = true;
    ASSERT_EQ(setprefs(), SettingsSender::Outcome::Sent);
    EXPECT_EQ(line->writes.join(), "B101100T100\rD12\rQ500\rI60\rU0105990930PP");
    // Each digit is written 0.2 s after what came before it.
    const std::size_t first = 11;
    for (std::size_t digit = first; digit < first + 10; ++digit) {
        const qint64 gap = moments.at(digit) - moments.at(digit - 1);
        EXPECT_GE(gap, 195) << digit;
        EXPECT_LE(gap, digit == first || digit == first + 6 ? 300 : 205) << digit; // a prompt comes before two of them
    }
    settings.record = LoggerSettings();
    live(1.0);
    EXPECT_EQ(settings.record.value(), sentMode);
    EXPECT_EQ(settings.loggerDate.value(), QStringLiteral("1/5/99"));
    EXPECT_TRUE(settings.loggerTime.value().startsWith(QStringLiteral("9:30:")));
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    EXPECT_EQ(status.status.value(), QStringLiteral("Ready"));
    EXPECT_EQ(settings.lamp.value(), Lamp::Read);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SendingPtyTest, AnInstrumentThatGoesDeadIsGivenUp) {
    line->written = [this](const QByteArray& bytes) { line->silent = bytes == "T"; };
    change(settings.record, [](LoggerSettings& record) { record.samplesPerPoint = QStringLiteral("100"); });
    EXPECT_EQ(setprefs(), SettingsSender::Outcome::Failed);
    EXPECT_FALSE(line->writes.join().contains('P'));
    EXPECT_EQ(theMessage().text, QStringLiteral("Error Sending Prefs. Error Code 1"));
}

} // namespace

} // namespace orv
