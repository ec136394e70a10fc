// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calibration/calibration.h"
#include "testing/programrig.h"

namespace orv {

/// What tests of the calibration page share.
class CalibrationBench : public ProgramRig {
public:
    void add(const char* name, LightColour colour) {
        shown.instrumentName = QString::fromLatin1(name);
        shown.colour = colour;
        actions.addInstrument();
    }

    /// Puts rows on the sheet; each text holds the values of columns 3, 4 and 5 separated by blanks.
    void fillSheet(const QStringList& texts) {
        for (const QString& text : texts) {
            rows.addRow(
                {.date = QStringLiteral("1/5/99"), .time = QStringLiteral("9:05:07"), .values = text.split(u' ')});
        }
    }

    /// The boxes of a grid, row by row, separated by blanks and "/".
    template <std::size_t Rows>
    static std::string textOf(const BoxGrid<Rows>& grid) {
        QStringList texts;
        for (int row = 0; row < BoxGrid<Rows>::rowCount; ++row) {
            texts << QStringList{grid.at(row, 0), grid.at(row, 1), grid.at(row, 2)}.join(u' ');
        }
        return texts.join(u'/').toStdString();
    }

    /// Fills a grid from such a text.
    template <std::size_t Rows>
    static void fill(BoxGrid<Rows>& grid, const char* text) {
        const QStringList texts = QString::fromLatin1(text).split(u'/');
        for (int row = 0; row < BoxGrid<Rows>::rowCount; ++row) {
            for (int channel = 0; channel < channelCount; ++channel) {
                grid.at(row, channel) = texts.at(row).split(u' ').at(channel);
            }
        }
    }

    CalibrationState& shown = program.calibration.shown;
    Calibration& actions = program.calibration;
};

} // namespace orv
