// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProperty>
#include <QString>

namespace orv {

/// What the data sheet page shows beside the grid.
struct SheetPanel {
    QProperty<QString> counter{QStringLiteral("0")};         ///< Rows on the sheet.
    QProperty<QString> records{QStringLiteral("0")};         ///< "Records :", automatic saves of this run.
    QProperty<QString> fileName{QStringLiteral("Untitled")}; ///< `Text37`.
    QProperty<int> topRow{0};                                ///< Grid row to bring to the top; the header is row 0.
    QProperty<int> currentRow{0};                            ///< Grid cell that a procedure visited last.
    QProperty<int> currentColumn{0};
    QProperty<bool> unsaved{false}; ///< The sheet holds rows that no file has.
};

} // namespace orv
