// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/windowrig.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>

#include <chrono>

namespace orv {
namespace {

using namespace std::string_literals;

/// The window over an instrument that answers everything at once, until it falls silent.
class WaitingRig : public WindowRig {
public:
    WaitingRig() {
        com1.written = [this](const QByteArray& item) {
            if (!silent) {
                com1.input += answerTo(item);
            }
        };
        const DataSheet::Type type{.letter = QStringLiteral("V"), .firmware = 512};
        sheet.setHeader(type, headerRow(HeaderPlace::GridOnOpening, type.layout()));
        haveRows(1);
        program.load();
        answers.late = true;
    }

    void connectUntilReady() {
        replies = {"V512\r"};
        item("AutoConnect1").trigger();
        silent = false;
        becomeReady();
    }

    void becomeReady() {
        EXPECT_TRUE(runUntil([this] { return status.status.value() == QLatin1String("Ready"); }, 5.0));
        live(0.1); // the clock's reply
        EXPECT_EQ(state.Ctrlscrn, Operation::SettingsOpen);
    }

    void beginShutterReset() {
        connectUntilReady();
        settings.lamp = Lamp::Off;
        button("ResetShutterButton").click();
    }
    bool shutterIs(const char* step) const { return status.shutterProgress.value() == QLatin1String(step); }
    void waitForStep(const char* step) {
        EXPECT_TRUE(runUntil([this, step] { return shutterIs(step); })) << step;
    }
    void waitForReport() {
        EXPECT_TRUE(runUntil([this] { return settings.lamp.value() == Lamp::Read; }));
    }

    bool silent = false;
    int ended = 0;

private:
    static QByteArray answerTo(const QByteArray& item) {
        if (item == "P") {
            return settingsReport("60000"); // of a block without end none could be sent
        }
        if (item == "C") {
            return "C\r\n11/21/26\t25661\r\n>";
        }
        return item == "r" || item == "O" ? QByteArray() : item + (QByteArray("BTDQI").contains(item) ? '.' : '>');
    }

    Subscription countingEnds_ = program.ended.subscribe([this] { ++ended; });
};

/// A wait, and how the program comes to it.
struct WaitCase {
    const char* name;
    Activity activity;
    std::function<void(WaitingRig& rig)> begin;
};

void PrintTo(const WaitCase& wait, std::ostream* out) {
    *out << wait.name;
}

const WaitCase waitCases[] = {
    {"WakeUpPulse", Activity::Connecting,
     [](WaitingRig& rig) {
         rig.item("AutoConnect1").trigger();
         rig.live(0.5);
         EXPECT_EQ(rig.com1.dtr, QStringList{QStringLiteral("on")});
     }},
    {"WakeUpAttempt", Activity::Connecting,
     [](WaitingRig& rig) {
         rig.item("AutoConnect1").trigger();
         rig.live(2.0);
         EXPECT_EQ(rig.com1.dtr.size(), 2);
     }},
    {"SettingsReportStalls", Activity::ReadingSettings,
     [](WaitingRig& rig) {
         rig.silent = true;
         rig.replies = {"V512\r"};
         rig.item("AutoConnect1").trigger();
         rig.live(13.0);
         EXPECT_EQ(rig.text("Label20"), "No answer for 10 s. Reset connects again.");
     }},
    {"ItemOfApplySettings", Activity::Sending,
     [](WaitingRig& rig) {
         rig.connectUntilReady();
         rig.silent = true;
         control<QPushButton>(rig.openSettings(), "ApplySettings").click();
         rig.live(0.5);
         EXPECT_EQ(rig.com1.writes.back(), "B");
         EXPECT_TRUE(rig.progress.visible);
     }},
    {"DigitsOfTheClock", Activity::SettingClock,
     [](WaitingRig& rig) {
         rig.connectUntilReady();
         rig.settings.syncTimeDate = true;
         control<QPushButton>(rig.openSettings(), "ApplySettings").click();
         EXPECT_TRUE(rig.runUntil([&rig] { return rig.com1.writes.endsWith("U"); }));
         rig.live(0.3);
         EXPECT_EQ(rig.com1.writes.back(), "1");
     }},
    {"ShutterReadsSettings", Activity::ResettingShutter,
     [](WaitingRig& rig) {
         rig.beginShutterReset();
         rig.com1.discardInput();
         rig.silent = true;
         rig.waitForStep("Getting Settings 4");
     }},
    {"ShutterBeforeSending", Activity::ResettingShutter,
     [](WaitingRig& rig) {
         rig.beginShutterReset();
         rig.waitForReport();
         rig.live(0.2);
     }},
    {"ShutterSends", Activity::Sending,
     [](WaitingRig& rig) {
         rig.beginShutterReset();
         rig.waitForReport();
         rig.silent = true;
         rig.waitForStep("Sending New Settings");
         rig.live(0.1);
     }},
    {"ShutterMoves", Activity::ResettingShutter,
     [](WaitingRig& rig) {
         rig.beginShutterReset();
         EXPECT_TRUE(rig.runUntil([&rig] { return rig.text("ShutterCountdown") == "27 s"; }));
     }},
    {"ShutterPolls", Activity::ResettingShutter,
     [](WaitingRig& rig) {
         rig.beginShutterReset();
         rig.waitForStep("Moving Shutter 1000");
     }},
    {"ShutterRestores", Activity::ResettingShutter,
     [](WaitingRig& rig) {
         rig.beginShutterReset();
         rig.waitForStep("Moving Shutter 1000");
         rig.com1.input = ">";
         rig.waitForStep("Restoring Orignal Settings");
         rig.live(1.0);
     }},
    {"DownloadStalls", Activity::Downloading,
     [](WaitingRig& rig) {
         rig.connectUntilReady();
         rig.item("DownloadView").trigger();
         rig.live(11.0);
         EXPECT_EQ(rig.text("Label20"), "No data for 10 s. Reset stops the download.");
     }},
    {"SaveAsStands", Activity::None,
     [](WaitingRig& rig) {
         rig.connectUntilReady();
         rig.button("Command11").click();
         EXPECT_TRUE(rig.answers.stands());
     }},
    {"DownloadDialogStands", Activity::None,
     [](WaitingRig& rig) {
         rig.connectUntilReady();
         rig.item("DownloadText").trigger();
         EXPECT_TRUE(rig.answers.stands());
     }},
};

class Waiting : public testing::TestWithParam<WaitCase>, public WaitingRig {
protected:
    Waiting() {
        GetParam().begin(*this);
        EXPECT_EQ(commands.activity.value(), GetParam().activity);
        EXPECT_TRUE(com1.isOpen());
        EXPECT_EQ(disturbing(), "") << "what would disturb is disabled";
        for (const char* name : {"ClosePort", "Quit"}) {
            EXPECT_TRUE(item(name).isEnabled()) << name;
        }
        EXPECT_TRUE(button("ResetButton").isEnabled());
    }

    /// Lets the window system deliver what it has, once.
    static void handle() { QCoreApplication::processEvents(); }

    void choose(const char* name) {
        QMetaObject::invokeMethod(&item(name), &QAction::trigger, Qt::QueuedConnection);
        handle();
    }

    /// The buttons and items that can be pressed and would disturb what is under way.
    std::string disturbing() {
        std::string names;
        for (const char* name : {"AutoConnect1", "ManualConnect2", "DownloadText", "DownloadView", "RunShortcut"}) {
            names += item(name).isEnabled() ? name + " "s : "";
        }
        for (const char* name : {"Command2", "ResetShutterButton"}) {
            names += button(name).isEnabled() ? name + " "s : "";
        }
        return names + disturbingSettings();
    }
    std::string disturbingSettings() {
        std::string names;
        if (window->settingsWindow() != nullptr) {
            for (const char* name : {"RetrieveSettings", "ApplySettings", "DisplayLoggerTimeDate", "Profile", "Moored",
                                     "LoadAUserDefinedMode"}) {
                names += control<QPushButton>(*window->settingsWindow(), name).isEnabled() ? name + " "s : "";
            }
        }
        return names;
    }

    bool hasDialogOfConnection() const { return progress.visible || (answers.stands() && !savesSheet()); }
    bool savesSheet() const { return answers.asked.back().startsWith(QLatin1String("Save as|Untitled")); }

    void expectNothingUnderWay() {
        EXPECT_TRUE(procedures.isIdle());
        EXPECT_FALSE(hasDialogOfConnection());
        EXPECT_EQ(status.shutterProgress.value().toStdString(), "");
        EXPECT_EQ(status.shutterCountdown.value().toStdString(), "");
    }

    void expectOfflineAndConnectAgain() {
        EXPECT_FALSE(com1.isOpen());
        EXPECT_EQ(text("Label20"), "Offline");
        EXPECT_EQ(commands.activity.value(), Activity::None);
        EXPECT_TRUE(timer.isRunning());
        expectNothingUnderWay();
        for (const char* name : {"AutoConnect1", "AutoConnect2", "ManualConnect1", "ManualConnect2"}) {
            EXPECT_EQ(item(name).isEnabled(), !answers.stands()) << name;
            EXPECT_FALSE(item(name).isChecked()) << name;
        }
        const qsizetype written = com1.writes.size();
        live(1.0);
        EXPECT_EQ(com1.writes.size(), written) << "nothing is sent any more";
        cancelQuestion();
        connectUntilReady();
        expectReady();
    }

    void expectReady() {
        EXPECT_TRUE(com1.isOpen());
        EXPECT_EQ(commands.activity.value(), Activity::None);
        EXPECT_TRUE(timer.isRunning());
        EXPECT_TRUE(item("AutoConnect1").isChecked());
        EXPECT_TRUE(settings.visible);
        EXPECT_EQ(settings.record.value().samplesPerPoint.toStdString(), "30");
        expectNothingUnderWay();
        EXPECT_EQ(disturbing(),
                  "AutoConnect1 DownloadText DownloadView RunShortcut Command2 ResetShutterButton "
                  "RetrieveSettings ApplySettings DisplayLoggerTimeDate Profile Moored LoadAUserDefinedMode ");
    }

    void cancelQuestion() {
        if (answers.stands()) {
            answers.answer({});
        }
    }

    void resetUntilReady() {
        postClick(button("ResetButton"));
        handle();
        EXPECT_TRUE(com1.isOpen()) << "it connects again";
        EXPECT_EQ(com1.dtr.back(), QStringLiteral("on"));
        EXPECT_EQ(text("Label20"), "Connecting...");
        EXPECT_EQ(commands.activity.value(), Activity::Connecting);
        EXPECT_FALSE(hasDialogOfConnection());
        replies = {"V512\r"};
        silent = false;
        cancelQuestion();
        becomeReady();
        expectReady();
    }

    void expectEnded() {
        if (answers.stands()) {
            EXPECT_EQ(answers.asked.back().toStdString(), "Save Data: Data not Saved. Do you wish to save it now ?");
            answers.answer(Question::no());
        }
        EXPECT_EQ(ended, 1);
        EXPECT_FALSE(window->isVisible());
        EXPECT_FALSE(com1.isOpen());
        EXPECT_FALSE(timer.isRunning());
        EXPECT_TRUE(procedures.isIdle());
        EXPECT_FALSE(answers.stands());
    }

    /// Until the procedure has run into the silence of its instrument.
    void letItRun() {
        constexpr double longest = 100.0;
        constexpr double aWhile = 2.0;
        runUntil([this] { return procedures.isIdle(); }, longest);
        live(aWhile);
        EXPECT_TRUE(com1.isOpen());
    }
};

TEST_P(Waiting, ResetActsAtOnceAndConnectsAgain) {
    resetUntilReady();
}

TEST_P(Waiting, ClosePortActsAtOnce) {
    choose("ClosePort");
    expectOfflineAndConnectAgain();
}

TEST_P(Waiting, QuitActsAtOnce) {
    choose("Quit");
    expectEnded();
}

TEST_P(Waiting, ClosingTheWindowActsAtOnce) {
    QMetaObject::invokeMethod(window.get(), &QWidget::close, Qt::QueuedConnection);
    handle();
    expectEnded();
}

TEST_P(Waiting, APulledCableIsNoticed) {
    com1.unplugged = true;
    live(0.5);
    ASSERT_FALSE(com1.isOpen());
    const bool told = std::ranges::any_of(messages.shown, [](const Message& message) {
        return message.text.startsWith(QStringLiteral("The connection on COM 1 (ttyA) was lost."));
    });
    EXPECT_TRUE(told);
    com1.unplugged = false;
    expectOfflineAndConnectAgain();
}

TEST_P(Waiting, ASilentInstrumentLeavesTheWindowInOrder) {
    silent = true;
    letItRun();
    manual.hide(); // after an attempt
    resetUntilReady();
}

TEST_P(Waiting, ADialogLeftStandingHoldsNothing) {
    const bool stood = answers.stands();
    choose("SaveAsShortcut");
    EXPECT_TRUE(answers.stands());
    EXPECT_EQ(answers.asked.size(), 1);
    EXPECT_EQ(stood, GetParam().activity == Activity::None);
    EXPECT_FALSE(item("OpenShortcut").isEnabled()) << "one question at a time";
    letItRun();
    EXPECT_TRUE(answers.stands());
    resetUntilReady();
}

class WaitingRigTest : public testing::Test, public WaitingRig {};

TEST_F(WaitingRigTest, FourClicksOnApplySettingsMakeOneSending) {
    connectUntilReady();
    auto& apply = control<QPushButton>(openSettings(), "ApplySettings");
    for (const bool mute : {true, false}) {
        silent = mute;
        com1.writes.clear();
        for (int click = 0; click < 4; ++click) {
            postClick(apply);
        }
        QCoreApplication::processEvents();
        EXPECT_FALSE(apply.isEnabled());
        postClick(apply);
        EXPECT_TRUE(runUntil([&apply] { return apply.isEnabled(); }));
        live(1.0);
        EXPECT_EQ(com1.writes.count("B"), 1) << "a click on a disabled button has no effect later";
        EXPECT_EQ(messages.shown.size(), 1U) << "the instrument did not answer once";
    }
}

/// Counts what wakes the windows by the computer's time.
class TimerEvents final : public QObject {
public:
    TimerEvents() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        count += event->type() == QEvent::Timer ? 1 : 0;
        return false;
    }

    int count = 0;
};

TEST_F(WaitingRigTest, AtRestOnlyTheLookForPortsWakesTheWindows) {
    connectUntilReady();
    openSettings("Time and Date");
    constexpr int untilAllIsDrawn = 500;
    constexpr int seconds = 1;
    pass(untilAllIsDrawn);
    // On a busy computer something may still be drawn; what wakes them for good does so each time.
    constexpr int most = 1 + seconds / 2 + 1; // that of the test, and one in two seconds
    int fewest = most + 1;
    for (int tries = 0; tries < 3 && fewest > most; ++tries) {
        QEventLoop resting;
        QTimer::singleShot(std::chrono::seconds(seconds), &resting, &QEventLoop::quit);
        TimerEvents events;
        resting.exec();
        fewest = std::min(fewest, events.count);
    }
    EXPECT_LE(fewest, most);
}

INSTANTIATE_TEST_SUITE_P(Waits, Waiting, testing::ValuesIn(waitCases),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace orv
