// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formats/rowwriter.h"

namespace orv {

/// What a conversion is to make beyond what the files tell.
struct ConvertOptions {
    /// The operator says that the files hold raw counts.
    bool holdCounts = false;
    /// With these the counts become calculated values, in columns of their own; implies holdCounts.
    std::optional<Conversion> calibration = {};
    QString program = {}; ///< "ORV Host 1.0.0"
    QDateTime now = {};
};

struct Converted {
    QString error;      ///< Empty, or why there is no new file, in a sentence.
    TableReport report; ///< Of all files together.
};

/// Reads the files one after another and writes their rows, in that order, into one. Files of different columns cannot
/// be joined: that is an error. The files' names stand in the table's source. Memory does not grow with their number.
Converted convertFiles(const QStringList& names, RowWriter& writer, const ConvertOptions& options);

} // namespace orv
