// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/sendingtest.h"

namespace orv {

namespace {

TEST(ClockDigits, DateHasTwoDigitsForEachPiece) {
    EXPECT_EQ(dateDigits(QStringLiteral("1/5/99")), QStringLiteral("010599"));
    EXPECT_EQ(dateDigits(QStringLiteral("11/21/26")), QStringLiteral("112126"));
    EXPECT_EQ(dateDigits(QStringLiteral("12/1/00")), QStringLiteral("120100"));
}

TEST(ClockDigits, TimeIsHourAndMinutesOfA24HourClock) {
    const std::pair<const char*, const char*> table[] = {
        {"3:07:09 PM", "1507"},  {"3:07:09 pm", "1507"},  {"3:07:59 AM", "0307"},  {"12:00:00 PM", "1200"},
        {"12:59:00 PM", "1259"}, {"12:00:00 AM", "0000"}, {"12:15:00 am", "0015"}, {"11:59:59 PM", "2359"},
        {"1:05:00 AM", "0105"},  {"15:07:09", "1507"},    {"0:05:00", "0005"},     {"12:30:00", "1230"},
        {"3:7:9 PM", "1507"},
    };
    for (const auto& [text, digits] : table) {
        EXPECT_EQ(timeDigits(QString::fromLatin1(text)), QString::fromLatin1(digits)) << text;
    }
}

class SetClockTest : public SendingTest {
protected:
    SetClockTest() { settings.syncTimeDate = true; }

    /// What is written after the settings, and how many milliseconds after what came before.
    std::vector<TimedWrite> clockWrites() const {
        std::vector<TimedWrite> list(writes.begin() + std::min<std::ptrdiff_t>(10, std::ssize(writes)), writes.end());
        for (std::size_t i = list.size(); i-- > 1;) {
            list[i].milliseconds -= list[i - 1].milliseconds;
        }
        return list;
    }

    QByteArrayList clockItems() const { return written().mid(10); }
};

TEST_F(SetClockTest, TypesDateAndTimeDigitByDigit) {
    clock.set(QDateTime(QDate(1999, 1, 5), QTime(15, 7)));
    EXPECT_EQ(setprefs(), Outcome::Sent);
    EXPECT_EQ(clockItems(), (QByteArrayList{"U", "0", "1", "0", "5", "9", "9", "1", "5", "0", "7", "P", "P"}));
    const auto list = clockWrites();
    ASSERT_EQ(list.size(), 13U);
    for (std::size_t digit = 1; digit <= 10; ++digit) {
        // The clock of seconds since midnight has a grain of a few milliseconds in single precision.
        EXPECT_NEAR(static_cast<double>(list[digit].milliseconds), 200.0, 5.0) << digit;
    }
    EXPECT_EQ(list[11].milliseconds, 0);
    EXPECT_EQ(list[12].milliseconds, 0);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SetClockTest, FinishesAsTheSendingDoes) {
    onWrite = [this](const QByteArray& bytes) {
        if (bytes == "U" || bytes == "9") {
            EXPECT_EQ(commands.activity.value(), Activity::SettingClock);
            EXPECT_FALSE(timer.isRunning());
        }
        if (bytes == "P") {
            EXPECT_EQ(timer.interval(), 10);
        }
    };
    setprefs();
    EXPECT_EQ(com1.discards, 2);
    EXPECT_EQ(settings.lamp.value(), Lamp::Sent);
    EXPECT_EQ(progress.value.value(), 0);
    EXPECT_EQ(state.Ctrlscrn, Operation::Ready);
    EXPECT_EQ(commands.activity.value(), Activity::None);
}

TEST_F(SetClockTest, TakesTheComputersDateOfTheMoment) {
    settings.computerDate = QString(); // the screen does not follow it all the time
    clock.set(QDateTime(QDate(2026, 11, 21), QTime(15, 7)));
    apply();
    EXPECT_EQ(clockItems().mid(1, 6).join(), "112126");
    EXPECT_EQ(settings.computerDate.value().toStdString(), "11/21/26");
}

TEST_F(SetClockTest, TakesTheTimeWhenTheDateHasBeenTaken) {
    clock.set(QDateTime(QDate(1999, 1, 5), QTime(9, 30, 59, 500))); // the minute ends while the date is typed
    setprefs();
    EXPECT_EQ(clockItems().mid(7, 4).join(), "0931");
}

TEST_F(SetClockTest, IsLeftOutUnlessAskedFor) {
    settings.syncTimeDate = false;
    setprefs();
    EXPECT_EQ(clockItems(), QByteArrayList{"P"});
}

TEST_F(SetClockTest, SendsNoDateWithoutThePrompt) {
    answered = 10;
    EXPECT_EQ(setprefs(), Outcome::Failed);
    EXPECT_EQ(clockItems(), QByteArrayList{"U"});
    EXPECT_EQ(messages.shown, std::vector{sendingError()});
    EXPECT_EQ(shownAfter, 1U);
    EXPECT_EQ(timer.interval(), 10);
    EXPECT_EQ(status.status.value(), QStringLiteral("Ready"));
    EXPECT_EQ(commands.activity.value(), Activity::None);
}

TEST_F(SetClockTest, SendsNoTimeWithoutThePromptForTheDate) {
    answered = 16;
    state.trouble = 1;
    debug.rawBuffer = true;
    EXPECT_EQ(setprefs(), Outcome::Failed);
    EXPECT_EQ(clockItems().join(), "U010599");
    EXPECT_EQ(messages.shown, std::vector{sendingError()});
    EXPECT_EQ(transcript().last(), QStringLiteral("Timeout"));
}

TEST_F(SetClockTest, TheBarStaysWithinItsMaximum) {
    QStringList labels;
    const auto watch = progress.valueLabel.addNotifier([this, &labels] { labels << progress.valueLabel; });
    onWrite = [this](const QByteArray& bytes) {
        if (writes.size() > 10 && bytes != "P") {
            EXPECT_EQ(progress.value.value(), 100);
            EXPECT_EQ(progress.valueLabel.value().toStdString(), "100");
        }
    };
    setprefs();
    EXPECT_EQ(labels, QStringLiteral("10 20 30 40 50 60 70 80 90 100 0").split(QLatin1Char(' ')));
}

TEST_F(SetClockTest, ListsDigitsInTheServiceModeOnly) {
    setprefs();
    EXPECT_EQ(transcript().filter(QStringLiteral("9")), QStringList{QStringLiteral("010599.")});
    state.trouble = 1;
    setprefs();
    const QStringList list = transcript();
    EXPECT_EQ(list.count(QStringLiteral("9")), 3); // two of the date, one of the time 09:30
    EXPECT_EQ(list.count(QStringLiteral("U")), 0);
}

/// The clock is set as a minute begins.
class FullMinuteTest : public SendingTest {
protected:
    FullMinuteTest() {
        settings.atFullMinute = true;
        onWrite = [this](const QByteArray& /*bytes*/) { lastWrite = clock.now(); };
    }

    /// Begins at this time of 5 January 1999, and lets this happen after so many seconds.
    void set(const char* time, double seconds = 0, const std::function<void()>& happening = {}) {
        clock.set(
            QDateTime(QDate(1999, 1, 5), QTime::fromString(QString::fromLatin1(time), QStringLiteral("H:mm:ss"))));
        began = clock.monotonicMilliseconds();
        sender.synchronizeClock();
        live(seconds);
        if (happening) {
            happening();
        }
        for (int second = 0; second < 70 && !procedures.isIdle(); ++second) {
            live(1);
        }
        EXPECT_TRUE(procedures.isIdle()) << "it hangs";
        EXPECT_EQ(settings.secondsToFullMinute.value(), 0);
        EXPECT_EQ(settings.fullMinute.value(), QString());
    }

    /// How many seconds nothing was written.
    double waited() const { return static_cast<double>(writes.front().milliseconds - began) / 1000.0; }
    std::string digits() const { return written().join().toStdString(); }

    QDateTime lastWrite;
    qint64 began = 0;
};

TEST_F(FullMinuteTest, TheLastDigitIsWrittenAsTheMinuteBegins) {
    QDateTime lastDigit;
    onWrite = [this, &lastDigit](const QByteArray& bytes) { lastDigit = bytes == "P" ? lastDigit : clock.now(); };
    std::vector<int> left;
    const auto counted = settings.secondsToFullMinute.addNotifier([this, &left] {
        left.push_back(settings.secondsToFullMinute);
        EXPECT_EQ(settings.fullMinute.value().toStdString(), "9:31:00 AM");
    });
    set("9:30:15", 1, [this] {
        EXPECT_EQ(commands.activity.value(), Activity::SettingClock);
        com1.input += ">"; // answers nothing
    });
    EXPECT_EQ(digits(), "U0105990931P");
    EXPECT_EQ(lastDigit, QDateTime(QDate(1999, 1, 5), QTime(9, 31)));
    EXPECT_EQ(status.notice.value().toStdString(),
              "The instrument's clock was set at the full minute and is within 2 s of this computer's.");
    ASSERT_EQ(left.size(), 42U);
    EXPECT_EQ(left[0], 45);
    EXPECT_EQ(left[1], 44);
    EXPECT_EQ(left.back(), 0);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FullMinuteTest, IsReachedFromEverySecondWithinAMinute) {
    constexpr std::tuple<const char*, const char*, double> table[] = {
        {"9:30:00", "U0105990931P", 56},  {"9:30:55", "U0105990931P", 1},   {"9:30:56", "U0105990931P", 0},
        {"9:30:57", "U0105990932P", 59},  {"9:30:59", "U0105990932P", 57},  {"23:59:20", "U0106990000P", 36},
        {"23:59:58", "U0106990001P", 58}, {"11:59:30", "U0105991200P", 26},
    };
    for (const auto& [time, text, seconds] : table) {
        writes.clear();
        set(time);
        EXPECT_EQ(digits(), text) << time;
        EXPECT_NEAR(waited(), seconds, 0.01) << time;
        readReport();
    }
}

TEST_F(FullMinuteTest, AClockThatIsSetMeanwhileHoldsNothingUp) {
    const auto by = [this](qint64 seconds) { return [this, seconds] { clock.set(clock.now().addSecs(seconds)); }; };
    constexpr qint64 manyDays = 86'400 * 400;
    struct Jump {
        qint64 seconds;
        const char* text;
        double waited;
    };
    // After 20 s of 46, at 9:30:30.
    for (const Jump& jump :
         {Jump{20, "U0105990931P", 26}, Jump{-10, "U0105990931P", 56}, Jump{3600, "U0105991031P", 46},
          Jump{-3600, "U0105990831P", 46}, Jump{manyDays, "U0209000931P", 46},
          // The full minute would come after more than a minute of waiting: the clock is set at once.
          Jump{-25, "U0105990930P", 21}, Jump{35, "U0105990931P", 21}, Jump{manyDays + 35, "U0209000931P", 21}}) {
        writes.clear();
        set("9:30:10", 20, by(jump.seconds));
        EXPECT_EQ(digits(), jump.text) << jump.seconds;
        EXPECT_NEAR(waited(), jump.waited, 1.0) << jump.seconds;
        readReport();
    }
}

TEST_F(FullMinuteTest, ALateInstrumentIsSetAsSoonAsItAnswers) {
    Subscription late;
    com1.written = [this, &late](const QByteArray& bytes) {
        if (bytes == "U") {
            late = clock.callAfter(4500, [this] { takeWrite("U"); });
        } else {
            takeWrite(bytes);
        }
    };
    set("9:30:40");
    EXPECT_EQ(digits(), "U0105990931P");
    EXPECT_EQ(lastWrite, QDateTime(QDate(1999, 1, 5), QTime(9, 31, 2, 500)));
    EXPECT_EQ(status.notice.value().toStdString(),
              "The instrument's clock was set to the minute and is within 2 s of this computer's.");
}

TEST_F(FullMinuteTest, NothingIsSetWhenTheConnectionEndsBefore) {
    set("9:30:10", 20, [this] { program.closePort(); });
    EXPECT_TRUE(writes.empty());
    EXPECT_EQ(commands.activity.value(), Activity::None);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FullMinuteTest, SettingsAreSentBeforeTheWait) {
    settings.syncTimeDate = true;
    clock.set(QDateTime(QDate(1999, 1, 5), QTime(9, 30, 15)));
    sender.applySettings();
    live(10);
    EXPECT_EQ(writes.size(), 10U);
    EXPECT_EQ(settings.secondsToFullMinute.value(), 35);
    EXPECT_FALSE(progress.visible.value()) << "nothing goes on that it could show";
    EXPECT_EQ(status.status.value().toStdString(), "Waiting");
    EXPECT_EQ(settings.fullMinuteWait().toStdString(), "Waiting for the full minute: 35 s.");
    EXPECT_EQ(program.nextStep.text.value().toStdString(), "Waiting for the full minute: 35 s. Reset stops it.");
    EXPECT_EQ(settings.computerTime.value().toStdString(), "9:30:25 AM");
    live(1);
    EXPECT_EQ(settings.computerTime.value().toStdString(), "9:30:26 AM") << "no tick shows it";
    live(39);
    EXPECT_EQ(status.status.value().toStdString(), "Ready");
    EXPECT_EQ(written().mid(10).join(), "U0105990931PP");
}

TEST_F(FullMinuteTest, HowTheClockStandsIsSaidAsItWasReadLast) {
    const auto read = [this](int secondsBehind) {
        const QDateTime then = clock.now().addSecs(-secondsBehind);
        const int count = then.time().msecsSinceStartOfDay() / 1000 * 3 / 4; // 64800 are a day
        program.settings.clock.checktime(then.date().toString(QStringLiteral("MM/dd/yy")) + u'\t' +
                                         QString::number(count));
    };
    const auto said = [this] { return settings.clockSetting.value().toStdString(); };
    read(100);
    EXPECT_EQ(said(), "") << "it was not set";
    settings.atFullMinute = false;
    set("9:30:40");
    EXPECT_EQ(said(), "The instrument's clock was set to the minute and is 41 s behind: the command carries no "
                      "seconds.");
    read(44);
    EXPECT_EQ(said(), "The instrument's clock was set to the minute and is 45 s behind: the command carries no "
                      "seconds.");
    EXPECT_EQ(status.notice.value().toStdString(), said());
    EXPECT_EQ(clockOffsetInWords(*status.clockOffset.value()).toStdString(), "45 s behind this computer's");
    read(1);
    EXPECT_EQ(said(), "The instrument's clock was set to the minute and is within 2 s of this computer's.");
    status.notice = QStringLiteral("Another remark.");
    read(44);
    EXPECT_EQ(status.notice.value().toStdString(), "Another remark.");
    status.notice = settings.clockSetting.value();
    program.closePort();
    EXPECT_EQ(said(), "");
    EXPECT_EQ(status.notice.value(), QString());
}

TEST_F(FullMinuteTest, AClockThatIsNotReadBackIsToldOnceAfter10s) {
    const std::string unread =
        "The clock was sent, but could not be read back. Press \"Display Logger Time/Date\" to see "
        "how it stands.";
    const auto said = [this] { return settings.clockSetting.value().toStdString(); };
    const auto noticed = [this] { return status.notice.value().toStdString(); };
    settings.atFullMinute = false;
    set("9:30:00");
    readReport();
    ASSERT_EQ(state.Ctrlscrn, Operation::ClockCheck);
    com1.input += "01/05/\r\n"; // the end of the reply is lost
    live(9.5);
    EXPECT_EQ(said(), "The instrument's clock was set to the minute and is within 2 s of this computer's.");
    live(0.6);
    EXPECT_EQ(said(), unread);
    EXPECT_EQ(noticed(), unread);
    status.notice = QStringLiteral("Another remark.");
    live(20);
    EXPECT_EQ(noticed(), "Another remark.");
    status.notice = settings.clockSetting.value();
    sender.displayLoggerTime();
    com1.input += "01/05/99\t25650\r\n";
    live(0.2);
    EXPECT_NE(said(), unread);
    EXPECT_EQ(noticed(), said());
    EXPECT_FALSE(settings.clockUnread);
}

TEST_F(FullMinuteTest, AClockThatWasNotSetIsNotToldAsUnread) {
    sender.displayLoggerTime();
    live(20);
    EXPECT_EQ(settings.clockSetting.value(), QString());
    EXPECT_EQ(status.notice.value(), QString());
    set("9:30:00", 0, [this] { program.closePort(); });
    live(20);
    EXPECT_EQ(settings.clockSetting.value(), QString());
}

class SettingsCommandsTest : public SendingTest {};

TEST_F(SettingsCommandsTest, RetrieveRequestsTheReportWithTheProgressDialog) {
    progress.maximum = 5;
    onWrite = [this](const QByteArray& bytes) {
        EXPECT_EQ(bytes, "P");
        EXPECT_EQ(com1.discards, 1);
        EXPECT_EQ(state.Ctrlscrn, Operation::Ready);
    };
    sender.retrieveSettings();
    EXPECT_EQ(writes.size(), 1U);
    EXPECT_EQ(progress.maximum.value(), 100);
    EXPECT_TRUE(progress.visible.value());
    EXPECT_EQ(progress.label.value(), QStringLiteral("%"));
}

TEST_F(SettingsCommandsTest, ApplySendsWithTheProgressDialog) {
    bool visible = false;
    onWrite = [this, &visible](const QByteArray& /*bytes*/) { visible = progress.visible; };
    apply();
    EXPECT_EQ(writes.size(), 11U);
    EXPECT_TRUE(visible);
    EXPECT_TRUE(progress.visible.value()) << "it stays for the report that follows";
    readReport();
    EXPECT_FALSE(progress.visible.value());
}

TEST_F(SettingsCommandsTest, FourPressesOfApplyMakeOneSending) {
    for (const bool silent : {true, false}) {
        answered = silent ? 0 : 1000;
        writes.clear();
        messages.shown.clear();
        for (int press = 0; press < 4; ++press) {
            sender.applySettings();
            live(0.01);
        }
        finish();
        live(30.0);
        EXPECT_EQ(writes.size(), silent ? 1U : 11U);
        EXPECT_EQ(messages.shown.size(), silent ? 1U : 0U);
    }
}

TEST_F(SettingsCommandsTest, LoggingABlockWithoutEndIsRefused) {
    change(settings.record, [](LoggerSettings& record) { record.logEnabled = true; });
    for (const char* points : {"0", "", "000", "x5", "0.0"}) {
        messages.shown.clear();
        change(settings.record, [&](LoggerSettings& record) { record.pointsPerBlock = QString::fromLatin1(points); });
        apply();
        EXPECT_TRUE(writes.empty()) << points;
        EXPECT_FALSE(progress.visible.value());
        EXPECT_EQ(messages.shown,
                  (std::vector{Message{.title = QStringLiteral("Invalid Setup"),
                                       .text = QStringLiteral("Logging and Continues Sampling invalid."),
                                       .icon = Message::Icon::Exclamation,
                                       .withoutWindow = QStringLiteral(
                                           "Nothing was sent: a block without end cannot be logged. Set pointsPerBlock "
                                           "as well, or logEnabled=false.")}}));
    }
}

TEST_F(SettingsCommandsTest, ABlockWithoutEndIsSentWhenNothingIsLogged) {
    change(settings.record, [](LoggerSettings& record) { record.pointsPerBlock = QStringLiteral("0"); });
    apply();
    EXPECT_EQ(writes.size(), 11U);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SettingsCommandsTest, NoOtherValueIsChecked) {
    change(settings.record, [](LoggerSettings& record) {
        record.logEnabled = true;
        record.pointsPerBlock = QStringLiteral("99999");
        record.secondsBetweenPoints = QStringLiteral("99999");
    });
    apply();
    EXPECT_EQ(writes.size(), 11U);
}

TEST_F(SettingsCommandsTest, DisplayLoggerTimeAsksForTheClock) {
    sender.displayLoggerTime();
    EXPECT_EQ(written(), QByteArrayList{"C"});
    EXPECT_EQ(state.Ctrlscrn, Operation::ClockCheck);
    EXPECT_EQ(com1.discards, 0);
}

TEST_F(SettingsCommandsTest, NothingHappensWithoutAConnection) {
    fixit();
    com1.discards = 0;
    change(settings.record, [](LoggerSettings& record) {
        record.logEnabled = true;
        record.pointsPerBlock = QStringLiteral("0");
    });
    sender.retrieveSettings();
    apply();
    sender.displayLoggerTime();
    EXPECT_TRUE(writes.empty());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_FALSE(progress.visible.value());
    EXPECT_EQ(state.Ctrlscrn, Operation::Idle);
    EXPECT_EQ(com1.discards, 0);
}

TEST_F(SettingsCommandsTest, NothingDisturbsAnOperationUnderWay) {
    for (const Activity activity :
         {Activity::Connecting, Activity::ReadingSettings, Activity::Collecting, Activity::Downloading,
          Activity::Sending, Activity::SettingClock, Activity::ResettingShutter}) {
        commands.activity = activity;
        sender.retrieveSettings();
        apply();
        sender.displayLoggerTime();
    }
    EXPECT_TRUE(writes.empty());
    EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
}

TEST_F(SettingsCommandsTest, EachSamplingOptionWritesThePresetOfTheTypeLabel) {
    const std::pair<InstrumentType, std::array<const char*, 4>> table[] = {
        {InstrumentType::Trx, {"10", "30", "100", "210"}},
        {InstrumentType::Glow, {"25", "55", "90", "200"}},
        {InstrumentType::Unknown, {"10", "30", "100", "210"}},
    };
    state.Vartemp = QStringLiteral("F"); // the letter has no say here
    for (const auto& [type, presets] : table) {
        status.instrument = type;
        for (int option = 1; option <= 4; ++option) {
            sender.chooseSamplingOption(option);
            EXPECT_EQ(settings.record.value().samplesPerPoint,
                      QString::fromLatin1(presets.at(static_cast<std::size_t>(option - 1))));
            EXPECT_EQ(settings.samplingOption.value(), option);
        }
    }
}

} // namespace

} // namespace orv
