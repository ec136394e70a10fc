// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/runtimeerror.h"

#include <functional>
#include <optional>

#include <gtest/gtest.h>

namespace orv {

/// For tests: compares what `function` makes of the first of each pair in a table with the second.
template <typename Table, typename Function>
void expectEach(const Table& table, const Function& function) {
    for (const auto& [given, result] : table) {
        EXPECT_EQ(function(given), result) << testing::PrintToString(given);
    }
}

/// For tests: the kind of the error that `call` throws; nothing if it throws none.
inline std::optional<RuntimeError::Kind> errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return error.kind();
    }
    return std::nullopt;
}

} // namespace orv
