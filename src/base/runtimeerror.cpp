// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/runtimeerror.h"

namespace orv {

namespace {

const char* nameOf(RuntimeError::Kind kind) {
    switch (kind) {
    case RuntimeError::Kind::Overflow:
        return "Overflow";
    case RuntimeError::Kind::SubscriptOutOfRange:
        return "Subscript out of range";
    case RuntimeError::Kind::DivisionByZero:
        return "Division by zero";
    case RuntimeError::Kind::InvalidArgument:
        return "Invalid argument";
    case RuntimeError::Kind::TypeMismatch:
        return "Type mismatch";
    }
    return "Unknown error";
}

} // namespace

QString RuntimeError::name() const {
    return QString::fromLatin1(nameOf(kind_));
}

const char* RuntimeError::what() const noexcept {
    return nameOf(kind_);
}

Message runtimeErrorMessage(const RuntimeError& error, const QString& operation) {
    return operatorWarning(QStringLiteral("%1: the operation ended with the error \"%2\".\n\n"
                                          "The program goes on and all data is kept.")
                               .arg(operation, error.name()));
}

bool runOperation(OperatorMessages& messages, const QString& operation, const std::function<void()>& body) {
    try {
        body();
        return true;
    } catch (const RuntimeError& error) {
        messages.show(runtimeErrorMessage(error, operation));
        return false;
    }
}

} // namespace orv
