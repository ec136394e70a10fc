// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"

#include <QString>
#include <QStringList>

#include <netcdf.h>

namespace orv {

/// The functions of the netCDF C library that we use. The library is not linked: it brings a dozen others with it,
/// which no start of a program should pay for.
struct NetCdfLibrary {
    decltype(&nc_create) create = nullptr;
    decltype(&nc_redef) redef = nullptr;
    decltype(&nc_enddef) enddef = nullptr;
    decltype(&nc_close) close = nullptr;
    decltype(&nc_def_dim) defDim = nullptr;
    decltype(&nc_def_var) defVar = nullptr;
    decltype(&nc_def_var_chunking) defVarChunking = nullptr;
    decltype(&nc_def_var_deflate) defVarDeflate = nullptr;
    decltype(&nc_def_var_fill) defVarFill = nullptr;
    decltype(&nc_set_var_chunk_cache) setVarChunkCache = nullptr;
    decltype(&nc_put_att_text) putAttText = nullptr;
    decltype(&nc_put_att_double) putAttDouble = nullptr;
    decltype(&nc_put_vara_text) putVaraText = nullptr;
    decltype(&nc_put_vara_double) putVaraDouble = nullptr;
    decltype(&nc_put_vara_int) putVaraInt = nullptr;
    decltype(&nc_strerror) strerror = nullptr;

    /// Loads the library, once a program; it stays loaded. Returns the empty text, or what to install.
    Words load();

    /// The same, looking for it under these names of files.
    Words load(const QStringList& names);
};

} // namespace orv
