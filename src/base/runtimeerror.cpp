// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/runtimeerror.h"

namespace orv {

namespace {

const char* nameOf(RuntimeError::Kind kind) {
    switch (kind) {
    case RuntimeError::Kind::Overflow:
        return QT_TRANSLATE_NOOP("orv", "Overflow");
    case RuntimeError::Kind::SubscriptOutOfRange:
        return QT_TRANSLATE_NOOP("orv", "Subscript out of range");
    case RuntimeError::Kind::DivisionByZero:
        return QT_TRANSLATE_NOOP("orv", "Division by zero");
    case RuntimeError::Kind::InvalidArgument:
        return QT_TRANSLATE_NOOP("orv", "Invalid argument");
    case RuntimeError::Kind::TypeMismatch:
        return QT_TRANSLATE_NOOP("orv", "Type mismatch");
    }
    return QT_TRANSLATE_NOOP("orv", "Unknown error");
}

} // namespace

Words RuntimeError::name() const {
    return Words::tr(nameOf(kind_));
}

const char* RuntimeError::what() const noexcept {
    return nameOf(kind_);
}

Message runtimeErrorMessage(const RuntimeError& error, const Words& operation) {
    const auto ended = Words::tr("%1: the operation ended with the error \"%2\".\n\n"
                                 "The program goes on and all data is kept.")
                           .arg(operation, error.name());
    return operatorWarning(error.advice().isEmpty() ? ended : ended + QStringLiteral("\n\n") + error.advice());
}

bool runOperation(OperatorMessages& messages, const Words& operation, const std::function<void()>& body) {
    try {
        body();
        return true;
    } catch (const RuntimeError& error) {
        messages.show(runtimeErrorMessage(error, operation));
        return false;
    }
}

} // namespace orv
