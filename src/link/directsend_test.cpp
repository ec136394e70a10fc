// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/directsend.h"

#include "testing/linkbench.h"

#include <gtest/gtest.h>

namespace orv {

namespace {

TEST(DirectSend, AnOpenPortGetsTheTextAsTypedWithoutATerminator) {
    LinkBench bench;
    bench.ports.open();
    DirectSend(bench.ports).send(QStringLiteral(" R 1,5 \u00b5"));
    ASSERT_EQ(bench.instrument->writes.size(), 1U);
    EXPECT_EQ(bench.instrument->writes.front(), " R 1,5 \xb5");
    EXPECT_EQ(bench.debugOutput->allWritten(), "Direct Enter\r");
}

TEST(DirectSend, AClosedPortIsOnlyAnnounced) {
    LinkBench bench;
    DirectSend(bench.ports).send(QStringLiteral("P"));
    EXPECT_TRUE(bench.instrument->writes.empty());
    EXPECT_EQ(bench.debugOutput->allWritten(), "Direct Enter\r");
    EXPECT_TRUE(bench.messages.shown.empty());
}

} // namespace

namespace {

class DebugFramesTest : public testing::Test {
protected:
    DebugFramesTest() {
        for (QProperty<bool>* frame :
             {&bench.debug.debugFrameVisible, &bench.debug.turbidityFrameVisible, &bench.debug.fluorometerFrameVisible,
              &bench.debug.transmissometerFrameVisible, &bench.debug.outputFrameVisible}) {
            *frame = true;
        }
    }

    /// Which frames are visible: debug, turbidity, fluorometer, transmissometer, output.
    std::string visible() const {
        std::string text;
        for (const bool shown :
             {bench.debug.debugFrameVisible.value(), bench.debug.turbidityFrameVisible.value(),
              bench.debug.fluorometerFrameVisible.value(), bench.debug.transmissometerFrameVisible.value(),
              bench.debug.outputFrameVisible.value()}) {
            text += shown ? '1' : '0';
        }
        return text;
    }

    LinkBench bench;
    DebugFrames frames{bench.ports, bench.debug};
};

TEST_F(DebugFramesTest, TheFluorometerAnnouncesItself) {
    frames.showFluorometer();
    EXPECT_EQ(visible(), "00101");
    EXPECT_EQ(bench.debugOutput->allWritten(), "Hide all but 3\r");
}

TEST_F(DebugFramesTest, TheTransmissometerIsSilent) {
    frames.showTransmissometer();
    EXPECT_EQ(visible(), "00011");
    EXPECT_EQ(bench.debugOutput->allWritten(), "");
}

TEST_F(DebugFramesTest, TheTurbiditySensorIsSilent) {
    frames.showTurbidity();
    EXPECT_EQ(visible(), "01001");
    EXPECT_EQ(bench.debugOutput->allWritten(), "");
}

TEST_F(DebugFramesTest, AHiddenFrameIsShown) {
    bench.debug.turbidityFrameVisible = false;
    bench.debug.outputFrameVisible = false;
    frames.showTurbidity();
    EXPECT_EQ(visible(), "01000");
}

} // namespace

} // namespace orv
