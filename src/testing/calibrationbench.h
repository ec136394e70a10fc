// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calibration/calibration.h"
#include "testing/fakes.h"

namespace orv {

/// For tests: a calibration page's worth of values and actions without a window.
class CalibrationBench {
public:
    void add(const char* name, LightColour colour) {
        shown.instrumentName = QString::fromLatin1(name);
        shown.colour = colour;
        actions.addInstrument();
    }

    /// Puts rows on the sheet; each text holds the values of columns 3, 4 and 5 separated by blanks.
    void fillSheet(const QStringList& rows) {
        for (const QString& row : rows) {
            ++session.state.plc;
            sheet.appendRow(
                QStringList{QString::number(session.state.plc), QStringLiteral("1/5/99"), QStringLiteral("9:05:07")} +
                row.split(u' '));
        }
    }

    /// The boxes of a grid, row by row, separated by blanks and "/".
    template <std::size_t Rows>
    static std::string textOf(const BoxGrid<Rows>& grid) {
        QStringList rows;
        for (int row = 0; row < BoxGrid<Rows>::rowCount; ++row) {
            rows << QStringList{grid.at(row, 0), grid.at(row, 1), grid.at(row, 2)}.join(u' ');
        }
        return rows.join(u'/').toStdString();
    }

    /// Fills a grid from such a text.
    template <std::size_t Rows>
    static void fill(BoxGrid<Rows>& grid, const char* text) {
        const QStringList rows = QString::fromLatin1(text).split(u'/');
        for (int row = 0; row < BoxGrid<Rows>::rowCount; ++row) {
            for (int channel = 0; channel < channelCount; ++channel) {
                grid.at(row, channel) = rows.at(row).split(u' ').at(channel);
            }
        }
    }

    TestClock clock;
    RecordedMessages messages;
    PreparedAnswers answers;
    Session session{clock, messages};
    DataSheet sheet;
    SheetState sheetState;
    CalibrationState shown;
    Calibration actions{
        {.session = session, .sheet = sheet, .sheetState = sheetState, .shown = shown, .questions = answers}};
};

} // namespace orv
