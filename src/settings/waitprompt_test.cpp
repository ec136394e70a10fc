// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/sendingtest.h"

namespace orv {

namespace {

class WaitPromptTest : public SendingTest {
protected:
    /// The reply to "B" when these pieces arrive, one a millisecond, the first a millisecond after it; "(none)" if no
    /// prompt comes in time.
    std::string replyTo(QByteArrayList pieces) {
        answered = 0;
        writes.clear();
        messages.shown.clear();
        QString reply;
        pieces_ = std::move(pieces);
        onWrite = [this, &reply](const QByteArray& /*bytes*/) {
            if (writes.size() == 1) {
                awaitNextPiece();
            } else if (writes.size() == 2) {
                reply = state.Rtn;
                passed = writes[1].milliseconds - writes[0].milliseconds;
            }
        };
        std::optional<qint64> failedAfter;
        const auto watch = sender.mainWindowWanted.subscribe([&] {
            if (writes.size() == 1) {
                failedAfter = sinceLastWrite();
            }
        });
        apply();
        arrival_.reset();
        onWrite = nullptr;
        if (failedAfter) {
            EXPECT_EQ(state.Rtn.toStdString(), "");
            passed = *failedAfter;
        }
        return failedAfter ? "(none)" : reply.toStdString();
    }

    qint64 passed = 0; ///< Milliseconds from "B" to the prompt or to the giving up.

private:
    void awaitNextPiece() {
        int milliseconds = 0;
        QByteArray piece;
        while (piece.isEmpty() && !pieces_.isEmpty()) {
            ++milliseconds;
            piece = pieces_.takeFirst();
        }
        if (!piece.isEmpty()) {
            arrival_ = clock.callAfter(milliseconds, [this, piece] {
                awaitNextPiece();
                com1.input += piece;
            });
        }
    }

    QByteArrayList pieces_;
    Subscription arrival_;
};

TEST_F(WaitPromptTest, TakesWhatStandsBeforeTheFirstPrompt) {
    const struct {
        QByteArrayList pieces;
        const char* reply;
        int milliseconds;
    } cases[] = {
        {{"0", "", "0001", "1", ">"}, "000011", 5},
        {{"B."}, "B", 1},
        {{"ab.cd>"}, "ab", 1},
        // A prompt with nothing before it is left over from an earlier command.
        {{">"}, "(none)", 5000},
        {{"."}, "(none)", 5000},
        {{">", "B", "."}, ">B", 3},
        {{}, "(none)", 5000},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.pieces.join('|').toStdString());
        EXPECT_EQ(replyTo(each.pieces), each.reply);
        EXPECT_EQ(passed, each.milliseconds);
    }
}

TEST_F(WaitPromptTest, TheLastOfFiveThousandPassesStillCounts) {
    const struct {
        QByteArrayList pieces;
        const char* reply;
    } cases[] = {
        {QByteArrayList(4999, "") << "B>", "B"},
        {QByteArrayList(5000, "") << "B>", "(none)"},
        {QByteArrayList(4998, "") << "B"
                                  << ">",
         "B"},
        {QByteArrayList(2500, "") << QByteArrayList(2500, "B") << ">", "(none)"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.pieces.size());
        EXPECT_EQ(replyTo(each.pieces), each.reply);
        EXPECT_EQ(passed, 5000);
    }
    EXPECT_EQ(replyTo(QByteArrayList(4999, "B") << ">"), QByteArray(4999, 'B').toStdString());
}

TEST_F(WaitPromptTest, EachBlockIsAPassHoweverSoonItComes) {
    for (const int blocksBefore : {4998, 4999}) {
        SCOPED_TRACE(blocksBefore);
        int blocks = 0;
        com1.read = [&](const QByteArray& /*block*/) {
            if (writes.size() == 1 && blocks <= blocksBefore) {
                com1.input += ++blocks <= blocksBefore ? "B" : ">";
            }
        };
        EXPECT_EQ(replyTo({"B"}), blocksBefore == 4998 ? QByteArray(4999, 'B').toStdString() : "(none)");
        EXPECT_EQ(passed, 1);
        com1.read = nullptr;
        com1.input.take();
    }
}

TEST_F(WaitPromptTest, AnOldReplyIsNotTakenForANewOne) {
    state.Rtn = QStringLiteral("old");
    rxbuffer = "old>";
    status.bufferCount = 4;
    answered = 0;
    sender.applySettings();
    EXPECT_EQ(state.Rtn.toStdString(), "");
    EXPECT_TRUE(rxbuffer.isEmpty());
    EXPECT_EQ(status.bufferCount.value(), 0);
    finish();
    EXPECT_EQ(written(), QByteArrayList{"B"});
    EXPECT_EQ(state.Rtn.toStdString(), "");
}

TEST_F(WaitPromptTest, ListsWhatEachPassRead) {
    replyTo({"00", "0>"});
    EXPECT_EQ(transcript(),
              (QStringList{QStringLiteral("B"), QStringLiteral("00"), QStringLiteral("0>"), QStringLiteral("000000")}));
}

TEST_F(WaitPromptTest, WhatCameBeforeThePlugWasPulledStillCounts) {
    answered = 1;
    sender.applySettings();
    com1.failureReason = QStringLiteral("gone");
    EXPECT_TRUE(ports.isOpen()) << "the reply is still to be read";
    finish();
    EXPECT_EQ(written(), (QByteArrayList{"B", "000000"}));
    EXPECT_EQ(resets, 1);
    EXPECT_TRUE(theMessage().text.contains(QStringLiteral("gone")));
}

} // namespace

} // namespace orv
