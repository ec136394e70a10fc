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
    program.link.directSend.send(QStringLiteral(" R 1,5 \u00b5"));
    ASSERT_EQ(com1.writes.size(), 1U);
    EXPECT_EQ(com1.writes.front(), " R 1,5 \xb5");
    EXPECT_EQ(said(), "Direct Enter\r");
}

TEST_F(DirectSendTest, AClosedPortIsOnlyAnnounced) {
    tickDebugOutput();
    program.link.directSend.send(QStringLiteral("P"));
    EXPECT_TRUE(com1.writes.empty());
    EXPECT_EQ(said(), "Direct Enter\r");
    EXPECT_TRUE(messages.shown.empty());
}

} // namespace

} // namespace orv
