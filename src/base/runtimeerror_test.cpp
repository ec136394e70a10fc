// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/runtimeerror.h"

#include "testing/fakes.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace orv {
namespace {

using Kind = RuntimeError::Kind;

constexpr std::pair<Kind, const char*> everyKind[] = {{Kind::Overflow, "Overflow"},
                                                      {Kind::SubscriptOutOfRange, "Subscript out of range"},
                                                      {Kind::DivisionByZero, "Division by zero"},
                                                      {Kind::InvalidArgument, "Invalid argument"},
                                                      {Kind::TypeMismatch, "Type mismatch"}};

TEST(RuntimeError, hasANameForEveryKind) {
    for (const auto& [kind, name] : everyKind) {
        const RuntimeError error(kind);
        EXPECT_EQ(error.kind(), kind);
        EXPECT_EQ(error.name(), QLatin1String(name));
        EXPECT_STREQ(error.what(), name);
    }
}

TEST(RuntimeError, isToldWithTheNameOfTheErrorAndOfTheOperation) {
    const Message expected{.title = QStringLiteral("ORV Host Program"),
                           .text =
                               QStringLiteral("Compute: the operation ended with the error \"Division by zero\".\n\n"
                                              "The program goes on and all data is kept."),
                           .icon = Message::Icon::Exclamation};
    EXPECT_EQ(runtimeErrorMessage(RuntimeError(Kind::DivisionByZero), QStringLiteral("Compute")), expected);
}

TEST(RuntimeError, keepsAPercentSignInTheOperation) {
    const Message message = runtimeErrorMessage(RuntimeError(Kind::Overflow), QStringLiteral("100 %2 of it"));
    EXPECT_TRUE(
        message.text.startsWith(QStringLiteral("100 %2 of it: the operation ended with the error \"Overflow\".")))
        << message.text.toStdString();
}

TEST(RunOperation, runsTheOperationToItsEndAndTellsNothing) {
    RecordedMessages messages;
    int runs = 0;
    EXPECT_TRUE(runOperation(messages, QStringLiteral("Run"), [&runs] { ++runs; }));
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(messages.shown.empty());
}

TEST(RunOperation, endsAtTheErrorAndTellsItOnce) {
    for (const auto& [kind, name] : everyKind) {
        SCOPED_TRACE(name);
        RecordedMessages messages;
        bool passed = false;
        EXPECT_FALSE(runOperation(messages, QStringLiteral("Run"), [&] {
            if (!passed) {
                throw RuntimeError(kind);
            }
            passed = true;
        }));
        EXPECT_FALSE(passed);
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0], runtimeErrorMessage(RuntimeError(kind), QStringLiteral("Run")));
    }
}

TEST(RunOperation, letsEveryOtherExceptionThrough) {
    RecordedMessages messages;
    EXPECT_THROW(runOperation(messages, QStringLiteral("Run"), [] { throw std::logic_error("defect"); }),
                 std::logic_error);
    EXPECT_TRUE(messages.shown.empty());
}

} // namespace
} // namespace orv
