// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/operator.h"
#include "base/words.h"

#include <QString>

#include <exception>
#include <functional>
#include <utility>

namespace orv {

/// A run-time error that the procedure which meets it does not handle: it ends the operation under way.
class RuntimeError final : public std::exception {
public:
    enum class Kind { Overflow, SubscriptOutOfRange, DivisionByZero, InvalidArgument, TypeMismatch };

    /// `advice`: what the operator can do about it, in sentences; may be empty.
    explicit RuntimeError(Kind kind, Words advice = {})
        : kind_(kind)
        , advice_(std::move(advice)) {} // NOLINT(bugprone-throw-keyword-missing): an advice is no exception

    Kind kind() const { return kind_; }
    const Words& advice() const { return advice_; }

    /// The error's name as the operator reads it, e.g. "Overflow".
    Words name() const;

    const char* what() const noexcept override;

private:
    Kind kind_;
    Words advice_;
};

/// What the operator is told when `error` has ended `operation`.
Message runtimeErrorMessage(const RuntimeError& error, const Words& operation);

/// Runs one operation of the operator's. A RuntimeError ends it and is told in one message that names
/// the error and `operation`; the program goes on. Returns whether the operation ran to its end.
bool runOperation(OperatorMessages& messages, const Words& operation, const std::function<void()>& body);

} // namespace orv
