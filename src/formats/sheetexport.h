// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formats/rowwriter.h"
#include "settings/settings.h"
#include "sheet/datasheet.h"

namespace orv {

/// "Export" on the sheet page: the sheet's rows as a file for other programs, with what is known of the instrument.
class SheetExport {
public:
    SheetExport(Link& link, const DataSheet& sheet, const SheetState& shown, const SettingsState& settings);

    /// Asks for a name, whose suffix says the format: .csv or .nc. What is unsaved stays so: other programs' files
    /// cannot be opened here again. The operator is told what could not be read, or why there is no file.
    Task<> exportSheet();

private:
    Link& link_;
    const DataSheet& sheet_;
    const SheetState& shown_;
    const SettingsState& settings_;
};

} // namespace orv
