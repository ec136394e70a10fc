// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/testingpage.h"

#include "testing/fakes.h"
#include "testing/screenchecks.h"

#include <QPushButton>

namespace orv {
namespace {

class TestingPageTest : public testing::Test {
protected:
    TestingPageTest() {
        page.resize(960, 560);
        page.show();
    }

    QPushButton& button() { return control<QPushButton>(page, "ResetShutter"); }

    void connectInstrument() {
        session.commands.portOpen = true;
        session.commands.resetShutterEnabled = true;
    }

    TestClock clock;
    RecordedMessages messages;
    Session session{clock, messages};
    int resets = 0;
    TestingPage page{session, [this] { ++resets; }};
};

TEST_F(TestingPageTest, IsOperableByKeyboardAndFits) {
    expectOperable(page);
    expectFits(page);
}

TEST_F(TestingPageTest, TheShutterNeedsAConnectionAndRest) {
    EXPECT_FALSE(button().isEnabled());
    connectInstrument();
    EXPECT_TRUE(button().isEnabled());
    button().click();
    EXPECT_EQ(resets, 1);
    session.commands.activity = Activity::Collecting;
    EXPECT_FALSE(button().isEnabled());
}

TEST_F(TestingPageTest, TheButtonGoesWithTheClosedPort) {
    connectInstrument();
    session.commands.resetShutterVisible = false;
    EXPECT_FALSE(button().isVisible());
    session.commands.resetShutterVisible = true;
    EXPECT_TRUE(button().isVisible());
}

TEST_F(TestingPageTest, ShowsStatusStepAndCountdown) {
    session.status.status = QStringLiteral("Resetting Shutter");
    session.status.shutterProgress = QStringLiteral("Moving Shutter");
    session.status.shutterCountdown = QStringLiteral("29 s");
    EXPECT_EQ(control<QLabel>(page, "TestingStatus").text().toStdString(), "Resetting Shutter");
    EXPECT_EQ(control<QLineEdit>(page, "TestingProgress").text().toStdString(), "Moving Shutter");
    EXPECT_TRUE(control<QLineEdit>(page, "TestingProgress").isReadOnly());
    EXPECT_EQ(control<QLabel>(page, "TestingCountdown").text().toStdString(), "29 s");
}

} // namespace
} // namespace orv
