// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formats/table.h"

namespace orv {

/// The name of the metadata of a CSV file, by which programs find it: "lake.csv-metadata.json".
QString csvMetadataName(const QString& csvName);

/// The metadata (CSV on the Web) of the CSV file of that name: its columns with types and units, what is known of the
/// instrument, and what happened while rows came. With a report the file is complete.
QByteArray csvMetadata(const QString& csvName, const TableDescription& table, const QStringList& history,
                       const std::optional<TableReport>& report);

/// An ISO 8601 text of a moment of the computer's clock, to the millisecond, with its zone.
QString isoWithZone(const QDateTime& moment);

/// "2026-11-21T09:30:15.000+01:00: sentence", as histories are written.
QString historyLine(const QDateTime& moment, const QString& sentence);

/// The line with which the history of a file begins: what wrote it, and of what.
QString firstHistoryLine(const TableDescription& table);

} // namespace orv
