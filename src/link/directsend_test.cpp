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
} // namespace orv
