// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/directsend.h"

#include "testing/programrig.h"

#include <gtest/gtest.h>

namespace orv {

namespace {

using DirectSendTest = ProgramTest;

TEST_F(DirectSendTest, AnOpenPortGetsTheTextAsTypedWithoutATerminator) {
    tickDebugOutput();
    ports.open();
    program.directSend.send(QStringLiteral(" R 1,5 \u00b5"));
    ASSERT_EQ(com1.writes.size(), 1U);
    EXPECT_EQ(com1.writes.front(), " R 1,5 \xb5");
    EXPECT_EQ(said(), "Direct Enter\r");
}

TEST_F(DirectSendTest, AClosedPortIsOnlyAnnounced) {
    tickDebugOutput();
    program.directSend.send(QStringLiteral("P"));
    EXPECT_TRUE(com1.writes.empty());
    EXPECT_EQ(said(), "Direct Enter\r");
    EXPECT_TRUE(messages.shown.empty());
}

} // namespace

namespace {

class DebugFramesTest : public ProgramTest {
protected:
    DebugFramesTest() {
        tickDebugOutput();
        for (QProperty<bool>* frame :
             {&debug.debugFrameVisible, &debug.turbidityFrameVisible, &debug.fluorometerFrameVisible,
              &debug.transmissometerFrameVisible, &debug.outputFrameVisible}) {
            *frame = true;
        }
    }

    /// Which frames are visible: debug, turbidity, fluorometer, transmissometer, output.
    std::string visible() const {
        std::string text;
        for (const bool shown : {debug.debugFrameVisible.value(), debug.turbidityFrameVisible.value(),
                                 debug.fluorometerFrameVisible.value(), debug.transmissometerFrameVisible.value(),
                                 debug.outputFrameVisible.value()}) {
            text += shown ? '1' : '0';
        }
        return text;
    }

    DebugFrames& frames = program.debugFrames;
};

TEST_F(DebugFramesTest, TheFluorometerAnnouncesItself) {
    frames.showFluorometer();
    EXPECT_EQ(visible(), "00101");
    EXPECT_EQ(said(), "Hide all but 3\r");
}

TEST_F(DebugFramesTest, TheTransmissometerIsSilent) {
    frames.showTransmissometer();
    EXPECT_EQ(visible(), "00011");
    EXPECT_EQ(said(), "");
}

TEST_F(DebugFramesTest, TheTurbiditySensorIsSilent) {
    frames.showTurbidity();
    EXPECT_EQ(visible(), "01001");
    EXPECT_EQ(said(), "");
}

TEST_F(DebugFramesTest, AHiddenFrameIsShown) {
    debug.turbidityFrameVisible = false;
    debug.outputFrameVisible = false;
    frames.showTurbidity();
    EXPECT_EQ(visible(), "01000");
}

} // namespace

} // namespace orv
