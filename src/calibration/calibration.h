// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/words.h"
#include "calibration/worksheet.h"
#include "link/link.h"
#include "sheet/datasheet.h"

#include <QByteArray>
#include <QDateTime>

namespace orv {

/// The calibration report of the instrument shown, from the worksheet as it stands on the screen: date and time, the
/// reference values of the selected colour, the instrument, the table of the worksheet. Lines end CR LF; some have a
/// CR more. The "Stdev" line repeats the "Air" row: there are no separate standard deviations.
QByteArray reportBytes(const CalibrationState& shown, const QDateTime& moment);

/// The operator's actions on the page "Calibration TRX(S)". A run-time error ends the action it happens in; the
/// operator is told once.
class Calibration {
public:
    Calibration(Link& link, const DataSheet& sheet, SheetState& sheetState);

    /// `Command4`. Adds the named instrument at the end and keeps its colour; the instrument shown stays. Without a
    /// colour it only says so. Ends with SubscriptOutOfRange for an eighth instrument, which stays in the list without
    /// a colour.
    void addInstrument();

    /// `Command5`, `Command8`, a click on an entry of `List2`. Keep the worksheet for the instrument shown, then show
    /// the next or the previous one, round at the ends, or the one at a position of the list. Nothing happens while
    /// the list is empty. End with Overflow if the worksheet cannot be kept: the instrument shown stays. End with
    /// SubscriptOutOfRange for an eighth instrument: it is then the current one, by caption and index, but the boxes
    /// still show the instrument before.
    void next();
    void previous();
    void select(int position);

    /// `Command12`, "Calc DP". Writes the mean of the sheet's columns 3, 4 and 5 over its rows into the selected
    /// row of the worksheet; for Point k also the derived point Int(Rk * (P \ Rk-1)), P being the box above and R the
    /// reference values of the same channel. Then keeps the worksheet for the current instrument. With no row selected
    /// nothing is written, only kept. If those columns are not the three scattering channels, the message box says what
    /// they are.
    ///
    /// Ends with DivisionByZero (no rows; a reference of 0) or Overflow (a result that is no number, too): what was
    /// written before stays and the worksheet is not kept, or not wholly if a value of it does not fit.
    void calcdp();

    /// `Command14`, "Save Cal Info". Writes the report to the file that the operator names. A cancelled dialog writes
    /// nothing; if the file cannot be written, what was there stays and the operator is told why.
    void saveCalInfo();

    CalibrationState shown;
    CalibrationTable table;

private:
    int count() const { return static_cast<int>(shown.instruments.value().size()); }
    void show(const Words& operation, int position);
    void compute();
    void tellColumns();
    double mean(int sheetColumn);
    double derivedPoint(int row, int channel) const;
    Task<> askAndSave();
    void act(const Words& operation, const std::function<void()>& body);

    Link& link_;
    const DataSheet& sheet_;
    SheetState& sheetState_;
    WorksheetStore store_;
};

} // namespace orv
