// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "settings/settings.h"
#include "sheet/datasheet.h"

namespace orv {

class RowWriter;
struct TableDescription;
struct TableReport;

/// "Export" on the sheet page: the sheet's rows as a file for other programs, with what is known of the instrument.
class SheetExport {
public:
    SheetExport(Link& link, const DataSheet& sheet, SheetState& shown, const Settings& settings);

    /// Exports these rows, or all rows that there are when the name has been given. Asks for the name, whose suffix
    /// says the format: .csv or .nc; the one that was given last is offered again. What is unsaved stays so: the
    /// program cannot open such files again. The operator is told what could not be read, or why there is no file.
    Task<> exportSheet(std::vector<RowRange> chosen);

    /// What is known of the sheet's rows now.
    TableDescription table() const;

private:
    QString offeredName() const;
    Words write(RowWriter& writer, TableReport& report, const std::vector<RowRange>& chosen) const;
    bool wasMadeWith(const Conversion& conversion) const;
    bool hasCounts() const;
    bool isOfConnectedInstrument() const;

    Link& link_;
    const DataSheet& sheet_;
    SheetState& shown_;
    const Settings& settings_;
    QString presetName_; ///< In the place of which `givenName_` was given.
    QString givenName_;
};

} // namespace orv
