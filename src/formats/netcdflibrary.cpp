// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/netcdflibrary.h"

#include <QLibrary>

namespace orv {

namespace {

/// Finds each function in turn; false from the first that is not there.
class Functions {
public:
    explicit Functions(QLibrary& library)
        : library_(library) {}

    template <typename Function>
    Functions& find(const char* name, Function& function) {
        function = reinterpret_cast<Function>(library_.resolve(name));
        all_ = all_ && function != nullptr;
        return *this;
    }

    bool all() const { return all_; }

private:
    QLibrary& library_;
    bool all_ = true;
};

} // namespace

Words NetCdfLibrary::load() {
#ifdef Q_OS_LINUX
    // The versions of which all functions below are the same; without the development files only these names are there.
    return load({QStringLiteral("libnetcdf.so.19"), QStringLiteral("libnetcdf.so.22"),
                 QStringLiteral("libnetcdf.so.18"), QStringLiteral("libnetcdf.so")});
#else
    return load({QStringLiteral("netcdf")});
#endif
}

Words NetCdfLibrary::load(const QStringList& names) {
    for (const QString& name : names) {
        QLibrary library(name);
        if (!library.load()) {
            continue;
        }
        const bool all = Functions(library)
                             .find("nc_create", create)
                             .find("nc_redef", redef)
                             .find("nc_enddef", enddef)
                             .find("nc_close", close)
                             .find("nc_def_dim", defDim)
                             .find("nc_def_var", defVar)
                             .find("nc_def_var_chunking", defVarChunking)
                             .find("nc_def_var_deflate", defVarDeflate)
                             .find("nc_def_var_fill", defVarFill)
                             .find("nc_set_var_chunk_cache", setVarChunkCache)
                             .find("nc_put_att_text", putAttText)
                             .find("nc_put_att_double", putAttDouble)
                             .find("nc_put_vara_text", putVaraText)
                             .find("nc_put_vara_double", putVaraDouble)
                             .find("nc_put_vara_int", putVaraInt)
                             .find("nc_strerror", strerror)
                             .all();
        if (all) {
            // At the program's end the library below would crash over a file that could not be closed (full disk).
            if (const auto dontAtExit = reinterpret_cast<int (*)()>(library.resolve("H5dont_atexit"))) {
                dontAtExit();
            }
            return {};
        }
    }
    return Words::tr("the netCDF library is missing. Install it (on Debian: apt install libnetcdf19), or choose a "
                     "name that ends in .csv");
}

} // namespace orv
