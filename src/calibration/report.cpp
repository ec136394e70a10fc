// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/report.h"

#include "calibration/textfile.h"
#include "session/datetimetext.h"

namespace orv {

namespace {

/// What the report says of a light colour.
struct ColourBlock {
    LightColour colour;
    const char* word;
    const char* wavelength; ///< Nanometres.
    int referenceColumn;
};

constexpr std::array<ColourBlock, 3> colourBlocks{{
    {LightColour::Red, "Red", "650", 1},
    {LightColour::Blue, "Blue", "440", 0},
    {LightColour::Green, "Green", "532", 2},
}};

const ColourBlock* blockOf(LightColour colour) {
    for (const ColourBlock& block : colourBlocks) {
        if (block.colour == colour) {
            return &block;
        }
    }
    return nullptr;
}

QString tableLine(const char* caption, const CalibrationPanel& panel, int row) {
    constexpr int labelWidth = 7;
    QString line = QString::fromLatin1(caption).leftJustified(labelWidth);
    for (int channel = 0; channel < channelCount; ++channel) {
        line += u'\t' + panel.worksheet.at(row, channel).value();
    }
    return line + QLatin1String("\r\r\n");
}

} // namespace

QByteArray reportBytes(const CalibrationPanel& panel, const QDateTime& moment) {
    const ColourBlock* block = blockOf(panel.colour);
    QString text = QLatin1String("Date ") + shortDate(moment.date()) + QLatin1String("\r\n");
    text += QLatin1String("Time ") + clockText(moment.time()) + QLatin1String("\r\r\n");
    text += QLatin1String("KP 7 Data\r\n");
    if (block != nullptr) {
        text += u'\t' + QLatin1String(block->wavelength) + QLatin1String("\r\n");
        for (int row = 0; row < static_cast<int>(referenceRows.size()); ++row) {
            text += QLatin1String(referenceRows.at(static_cast<std::size_t>(row)).caption) + QLatin1String(" \t") +
                    panel.reference.at(row, block->referenceColumn).value() + QLatin1String("\r\n");
        }
    }
    text += QLatin1String("\r\r\n");
    text += QLatin1String("Sensor # ") + panel.currentEntry() + u' ' +
            QLatin1String(block != nullptr ? block->word : "") + QLatin1String("\r\n");
    text += QLatin1String("\t100\t125\t150\r\n");
    text += tableLine("Stdev", panel, 0);
    for (int row = 0; row < static_cast<int>(worksheetRows.size()); ++row) {
        text += tableLine(worksheetRows.at(static_cast<std::size_t>(row)).caption, panel, row);
    }
    return text.toUtf8();
}

Report::Report(Session& session, CalibrationPanel& panel, OperatorQuestions& questions)
    : session_(session)
    , panel_(panel)
    , questions_(questions) {}

void Report::save() {
    const QString title = QStringLiteral("Save Cal Info");
    const QString name = questions_.saveFileName(title, QString(), QStringLiteral(".Txt"), QStringLiteral("*.Txt"));
    if (name.isEmpty()) {
        return;
    }
    const QString reason = writeWholeFile(name, reportBytes(panel_, session_.clock.now()));
    if (!reason.isEmpty()) {
        session_.messages.show(fileNotSaved(title, name, reason));
    }
}

} // namespace orv
