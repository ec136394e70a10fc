// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/runtimeerror.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

namespace orv {

/// Compares what `function` makes of the first of each pair in a table with the second.
template <typename Table, typename Function>
void expectEach(const Table& table, const Function& function) {
    for (const auto& [given, result] : table) {
        EXPECT_EQ(function(given), result) << testing::PrintToString(given);
    }
}

/// The kind of the error that `call` throws; nothing if it throws none.
inline std::optional<RuntimeError::Kind> errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return error.kind();
    }
    return std::nullopt;
}

/// One data line of the instrument, read by the test's own hand.
struct DecodedLine {
    QByteArray date;
    QByteArray time;
    QByteArrayList values;
};

/// Reads "MM/DD/YY" TAB count TAB values. 64800 counts are a day; each part of the time is cut. What is no date or no
/// count stays as it is.
DecodedLine decodeLine(const QByteArray& line);

/// The dump as it came in these blocks: the lines from ">O" to the end, without the two characters of their ends, and
/// what was left unfinished. The prompt of before may have been read ahead of the echo.
QByteArrayList dumpLines(const QByteArrayList& blocks);

/// How many values a record of the simulated instrument has.
qsizetype valuesOf(const std::string& device);

/// What a download must make of an instrument's lines, worked out from the lines alone.
struct ExpectedDump {
    QByteArray textRows;  ///< Rows of the text file.
    QByteArray sheetRows; ///< Rows as the sheet file has them.
    int records = 0;
    int unreadable = 0;
    qint64 bytes = 0; ///< Characters without line ends, the end included.
    bool ended = false;

    ExpectedDump(const QByteArrayList& lines, qsizetype values);
};

} // namespace orv
