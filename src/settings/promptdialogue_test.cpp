// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/sendingtest.h"

namespace orv {

namespace {

class WaitPromptTest : public SendingTest {
protected:
    /// What the instrument sends, a piece for each pass that would find nothing.
    void arrive(const QByteArrayList& pieces) {
        pieces_ = pieces;
        instrument->waited = [this](int milliseconds) {
            ++passes;
            clock.advance(milliseconds);
            if (!pieces_.isEmpty()) {
                instrument->input = pieces_.takeFirst();
            }
        };
    }

    QString reply() const { return session.state.Rtn; }

    PromptDialogue dialogue{parts};

private:
    QByteArrayList pieces_;
};

TEST_F(WaitPromptTest, JoinsAReplyOverSeveralPasses) {
    arrive({"0", "", "0001", "1", ">"});
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::Came);
    EXPECT_EQ(reply(), QStringLiteral("000011"));
    EXPECT_EQ(passes, 5);
}

TEST_F(WaitPromptTest, TakesAPointForThePrompt) {
    arrive({"B."});
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::Came);
    EXPECT_EQ(reply(), QStringLiteral("B"));
}

TEST_F(WaitPromptTest, TakesTheFirstOfTwoPrompts) {
    arrive({"ab.cd>"});
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::Came);
    EXPECT_EQ(reply(), QStringLiteral("ab"));
}

TEST_F(WaitPromptTest, APromptWithNothingBeforeItIsNone) {
    for (const char* prompt : {">", "."}) {
        arrive({prompt});
        EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::TimedOut);
        EXPECT_EQ(reply(), QString());
    }
}

TEST_F(WaitPromptTest, APromptLeftOverFromBeforeDoesNotEndTheWait) {
    arrive({">", "B", "."});
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::Came);
    EXPECT_EQ(reply(), QStringLiteral(">B"));
    EXPECT_EQ(passes, 3);
}

TEST_F(WaitPromptTest, AnOldReplyIsNotTakenForANewOne) {
    session.state.Rtn = QStringLiteral("old");
    poll.rxbuffer = "old>";
    session.status.bufferCount = 4;
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::TimedOut);
    EXPECT_EQ(reply(), QString());
    EXPECT_TRUE(poll.rxbuffer.isEmpty());
    EXPECT_EQ(session.status.bufferCount.value(), 0);
}

TEST_F(WaitPromptTest, TheLastOfFiveThousandPassesStillCounts) {
    QByteArrayList pieces(4999, QByteArray());
    arrive(pieces << "B>");
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::Came);
    EXPECT_EQ(passes, 5000);
    passes = 0;
    pieces = QByteArrayList(5000, QByteArray());
    arrive(pieces << "B>");
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::TimedOut);
    EXPECT_EQ(passes, 5000);
}

TEST_F(WaitPromptTest, WaitsUpToAMillisecondInEachPass) {
    std::vector<int> waits;
    instrument->waited = [&waits](int milliseconds) { waits.push_back(milliseconds); };
    dialogue.waitprompt();
    EXPECT_EQ(waits, std::vector<int>(5000, 1));
}

TEST_F(WaitPromptTest, TheBarStaysWithinItsMaximum) {
    progress.value = 95;
    arrive({"x>"});
    dialogue.waitprompt();
    EXPECT_EQ(progress.value.value(), 100);
    EXPECT_EQ(progress.valueLabel.value(), QStringLiteral("100"));
}

TEST_F(WaitPromptTest, ListsWhatEachPassRead) {
    arrive({"00", "0>"});
    dialogue.waitprompt();
    EXPECT_EQ(transcript(), (QStringList{QStringLiteral("00"), QStringLiteral("0>")}));
}

TEST_F(WaitPromptTest, WhatCameBeforeThePlugWasPulledStillCounts) {
    instrument->failureReason = QStringLiteral("gone");
    instrument->input = "B>";
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::Came);
    EXPECT_EQ(dialogue.waitprompt(), PromptOutcome::ConnectionLost);
    EXPECT_EQ(passes, 1);
}

} // namespace

} // namespace orv
