// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/ptyrig.h"
#include "testing/shutterbench.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

class ShutterPtyTest : public testing::TestWithParam<ShutterMoment> {
protected:
    ShutterPtyTest() {
        bench = std::make_unique<ShutterBench>([this](const QString& device, TestClock& clock) {
            auto port = std::make_unique<ServedPort>(device, clock);
            line = port.get();
            return port;
        });
        EXPECT_TRUE(bench->ports.isOpen());
    }

    std::unique_ptr<ShutterBench> bench;
    ServedPort* line = nullptr; ///< The bench's port, while it lives.
};

TEST_F(ShutterPtyTest, AnInstrumentThatAnswersEndsWithItsOwnSettings) {
    bench->resetShutter();
    EXPECT_EQ(bench->steps.join(u'|').toStdString(),
              "Getting Settings|Sending New Settings|Moving Shutter|Restoring Orignal Settings|");
    EXPECT_EQ(bench->written(), "PB000000T1\rD0\rQ1\rI0\rPrB000111T30\rD2\rQ100\rI5\rP");
    bench->live(1.0);
    EXPECT_TRUE(bench->commands.canResetShutter);
    EXPECT_EQ(bench->shown(), ShutterBench::original());
    EXPECT_TRUE(bench->report().contains("S0\r\nG0\r\nA0\r\nL1\r\nW1\r\nM1\r\nT30\r\nD2\r\nQ100\r\nI5\r\n"));
    EXPECT_TRUE(bench->messages.shown.empty());
}

TEST_F(ShutterPtyTest, ASilentInstrumentGoesThroughEveryStep) {
    bench->line->silent = true;
    const qint64 began = bench->clock.monotonicMilliseconds();
    bench->resetShutter();
    EXPECT_EQ(bench->steps.join(u'|').toStdString(),
              "Getting Settings|Sending New Settings|Moving Shutter|Restoring Orignal Settings|");
    EXPECT_EQ(bench->written(), "PBrB");
    const qint64 passed = bench->clock.monotonicMilliseconds() - began;
    EXPECT_GE(passed, 75'580);
    EXPECT_LT(passed, 76'100);
    EXPECT_TRUE(bench->commands.canRun);
}

TEST_P(ShutterPtyTest, UnpluggedInEachWait) {
    qsizetype writes = -1;
    bench->eachMillisecond = [this, &writes] {
        // An answer that came before the cable was pulled is still taken, and the next character sent.
        if (writes < 0 && bench->at(GetParam().step, GetParam().milliseconds) && line->inputCount() == 0) {
            line->pullCable();
            writes = bench->line->writes.size();
        }
    };
    bench->resetShutter();
    EXPECT_EQ(bench->line->writes.size(), writes) << "something was sent into the void";
    EXPECT_EQ(bench->resets, 1);
    bench->expectOffline();
    EXPECT_TRUE(bench->timer.isRunning());
    if (GetParam().temporarySent) {
        EXPECT_EQ(bench->shown(), ShutterBench::original());
    }
    ASSERT_EQ(bench->messages.shown.size(), 2U) << "the shutter's and the port's";
    EXPECT_EQ(bench->messages.shown[0].text.contains(QStringLiteral("may still hold the temporary settings")),
              GetParam().temporarySent);
    EXPECT_TRUE(bench->messages.shown[1].text.contains(QStringLiteral("The device is gone")));
}

INSTANTIATE_TEST_SUITE_P(Moments, ShutterPtyTest, testing::ValuesIn(shutterMoments),
                         [](const auto& moment) { return std::string(moment.param.name); });

} // namespace
} // namespace orv
