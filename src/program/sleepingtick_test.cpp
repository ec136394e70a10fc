// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text.h"
#include "testing/programrig.h"

#include <map>

namespace orv {
namespace {

/// Everything that an operator, an instrument or a file gets of a session: what each thing shown became in turn, what
/// was sent and announced, the sheet, the messages and the files. At which of two ticks 5 ms apart something was met is
/// left out: characters that come in the millisecond of a tick belong to either.
struct Seen {
    std::map<std::string, QStringList> became;
    int ticks = 0;
};

/// A session with a simulated instrument, by the buttons; with `awake` the status timer never sleeps.
class Rehearsal : public ProgramRig {
public:
    Rehearsal(const QString& device, bool awake)
        : ProgramRig([](const QString& text, TestClock& clock) { return simulatedInstrument(text, clock); })
        , awake_(awake) {
        lineMade = [this] {
            line->written = [this](const QByteArray& bytes) { note("sent", QString::fromLatin1(bytes)); };
        };
        ports.setDevice(1, device);
        ports.setDevice(2, QStringLiteral("sim:glow"));
        program.setComm2Output(true);
        show("status", status.status);
        show("notice", status.notice);
        show("date", status.date);
        show("time", status.time);
        show("clock", settings.computerTime);
        show("shutter", status.shutterProgress);
        show("capacity", settings.capacity);
        show("value", progress.valueLabel);
        show("bytes", status.downloadedBytes);
        show("manual", manual.shown.text);
        show("activity", commands.activity);
        show("run", commands.canRun);
        show("progress", progress.visible);
    }

    Seen run() {
        program.load();
        program.autoConnect1();
        live(9.23);
        program.run();
        live(4.15);
        program.saveAs();
        program.reset();
        live(3.0);
        settings.syncTimeDate = true;
        sender.applySettings();
        live(12.0);
        program.run();
        live(2.0);
        program.reset();
        live(4.0);
        answers.fileName = path("dump.txt");
        program.downloadText();
        live(14.0);
        program.reset();
        live(4.0);
        program.vwhp();
        live(6.0);
        sender.displayLoggerTime();
        live(1.0);
        program.closePort();
        for (int row = 0; row < sheet.rowCount(); ++row) {
            for (int column = 0; column < DataSheet::columnCount; ++column) {
                note("sheet", sheet.cell(row, column));
            }
        }
        for (const Message& message : messages.shown) {
            note("told", QString(message.text).remove(path("")));
        }
        for (const char* file : {"dump.txt", "Orvtemp.tmp"}) {
            note(file, QString::fromLatin1(contentsOf(path(file))));
        }
        // Each block that was read ends with CR LF there; where blocks end depends on the ticks.
        note("log", QString::fromLatin1(contentsOf(path("log.ohp")).replace("\r", "").replace("\n", "")));
        return seen_;
    }

private:
    void note(const char* what, const QString& value) {
        QStringList& values = seen_.became[what];
        // Announced at each tick until the reply has come, and how many ticks that is depends on their moments.
        if (value != QLatin1String("Check Orv Sensor Time\r") || values.isEmpty() || values.back() != value) {
            values << value;
        }
    }

    template <typename T>
    void show(const char* what, const QProperty<T>& value) {
        bindings_.bind(value, [this, what](const T& now) {
            if constexpr (std::is_base_of_v<QString, T>) {
                note(what, now);
            } else {
                note(what, QString::number(static_cast<int>(now)));
            }
        });
    }

    bool awake_;
    Seen seen_;
    Subscription ticking_ = timer.tick.subscribe([this] {
        ++seen_.ticks;
        if (awake_) {
            timer.wake();
        }
    });
    Bindings bindings_;
};

class SleepingTick : public testing::TestWithParam<const char*> {};

TEST_P(SleepingTick, bringsTheSameAsATickThatNeverSleeps) {
    const Seen sleeping = Rehearsal(QString::fromLatin1(GetParam()), false).run();
    const Seen awake = Rehearsal(QString::fromLatin1(GetParam()), true).run();
    for (const auto& [what, values] : awake.became) {
        const auto other = sleeping.became.find(what);
        ASSERT_NE(other, sleeping.became.end()) << what;
        ASSERT_EQ(other->second.size(), values.size()) << what;
        for (qsizetype index = 0; index < values.size(); ++index) {
            ASSERT_EQ(other->second.at(index).toStdString(), values.at(index).toStdString()) << what << ' ' << index;
        }
    }
    EXPECT_GT(awake.became.at("status").size(), 5) << "the session was none";
    EXPECT_LT(sleeping.ticks, awake.ticks);
}

INSTANTIATE_TEST_SUITE_P(Instruments, SleepingTick,
                         testing::Values("sim:trx?records=60&rate=5", "sim:glow?records=300&rate=30",
                                         "sim:trx?points=7&rate=20", "sim:glow?baud=0&rate=3", "sim:trx?fault=garbage",
                                         "sim:trx?fault=noise&rate=5", "sim:glow?fault=silent",
                                         "sim:trx?fault=late&delay=0.4", "sim:trx?fault=cut&after=4000ms",
                                         "sim:trx?fault=unplug&after=12000ms", "sim:glow?fault=cut&after=40%",
                                         "sim:glow?fault=nocr"));

TEST(SleepingTickAtRest, ticksOnceASecond) {
    Rehearsal session(QStringLiteral("sim:trx"), false);
    session.program.load();
    session.autoConnect();
    session.live(3.0);
    ASSERT_EQ(session.state.Ctrlscrn, Operation::SettingsOpen);
    int ticks = 0;
    const Subscription counting = session.timer.tick.subscribe([&ticks] { ++ticks; });
    session.live(60.0);
    EXPECT_EQ(ticks, 60);
    EXPECT_EQ(session.settings.computerTime.value(), clockText(session.clock.now().time()));
    session.program.closePort();
    ticks = 0;
    session.live(60.0);
    EXPECT_LE(ticks, 2) << "offline nothing has to be done";
}

} // namespace
} // namespace orv
