// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formats/rowwriter.h"

namespace orv {

/// A writer of NetCDF-4 (classic model) by the conventions CF-1.10 and ACDD-1.3: an unlimited dimension "time", one
/// variable a column along it, and global attributes for what is known. Rows are written in blocks, so that memory does
/// not grow with their number. begin() fails if the netCDF library is not installed.
std::unique_ptr<RowWriter> makeNetCdfWriter(const OutputFile& file);

} // namespace orv
