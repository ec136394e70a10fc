// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/calibration.h"

#include "base/files.h"
#include "base/runtimeerror.h"
#include "base/text.h"

#include <cmath>

namespace orv {

namespace {

constexpr int firstSheetColumn = 3;

} // namespace

Computation::Computation(const Parts& parts)
    : p_(parts) {}

void Computation::calcdp() {
    const int row = p_.shown.selectedRow;
    for (int channel = 0; channel < channelCount; ++channel) {
        const double channelMean = mean(firstSheetColumn + channel);
        if (row == CalibrationState::noRow) {
            continue;
        }
        p_.shown.worksheet.at(row, channel) = plainNumber(channelMean);
        if (row > cleanRow) {
            p_.shown.results.at(static_cast<std::size_t>(channel)) = plainNumber(derivedPoint(row, channel));
        }
    }
    p_.store.storecal();
}

double Computation::mean(int sheetColumn) {
    const int rows = p_.state.plc;
    double sum = 0.0;
    p_.sheetState.currentColumn = sheetColumn;
    for (int row = 0; row < rows; ++row) {
        sum += leadingNumber(p_.sheet.cell(row, sheetColumn));
    }
    if (rows > 0) {
        p_.sheetState.currentRow = rows;
    }
    // The half added never matters: the mean is the whole quotient, cut and not rounded, on purpose.
    return std::floor(integerDivide(sum, rows) + 0.5);
}

double Computation::derivedPoint(int row, int channel) const {
    const int point = row - cleanRow; // 1..4, also the reference row
    const auto reference = [this, channel](int referenceRow) {
        return leadingNumber(p_.shown.reference.at(referenceRow, channel).value());
    };
    const double previous = leadingNumber(p_.shown.worksheet.at(row - 1, channel).value());
    return std::floor(reference(point) * integerDivide(previous, reference(point - 1)));
}

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

QString tableLine(const char* caption, const CalibrationState& shown, int row) {
    constexpr int labelWidth = 7;
    QString line = QString::fromLatin1(caption).leftJustified(labelWidth);
    for (int channel = 0; channel < channelCount; ++channel) {
        line += u'\t' + shown.worksheet.at(row, channel).value();
    }
    return line + QLatin1String("\r\r\n");
}

} // namespace

QByteArray reportBytes(const CalibrationState& shown, const QDateTime& moment) {
    const ColourBlock* block = blockOf(shown.colour);
    QString text = QLatin1String("Date ") + shortDate(moment.date()) + QLatin1String("\r\n");
    text += QLatin1String("Time ") + clockText(moment.time()) + QLatin1String("\r\r\n");
    text += QLatin1String("KP 7 Data\r\n");
    if (block != nullptr) {
        text += u'\t' + QLatin1String(block->wavelength) + QLatin1String("\r\n");
        for (int row = 0; row < static_cast<int>(referenceRows.size()); ++row) {
            text += QLatin1String(referenceRows.at(static_cast<std::size_t>(row)).caption) + QLatin1String(" \t") +
                    shown.reference.at(row, block->referenceColumn).value() + QLatin1String("\r\n");
        }
    }
    text += QLatin1String("\r\r\n");
    text += QLatin1String("Sensor # ") + shown.currentEntry() + u' ' +
            QLatin1String(block != nullptr ? block->word : "") + QLatin1String("\r\n");
    text += QLatin1String("\t100\t125\t150\r\n");
    text += tableLine("Stdev", shown, 0);
    for (int row = 0; row < static_cast<int>(worksheetRows.size()); ++row) {
        text += tableLine(worksheetRows.at(static_cast<std::size_t>(row)).caption, shown, row);
    }
    return text.toUtf8();
}

Report::Report(Session& session, CalibrationState& shown, OperatorQuestions& questions)
    : session_(session)
    , shown_(shown)
    , questions_(questions) {}

void Report::save() {
    const QString title = QStringLiteral("Save Cal Info");
    const QString name = questions_.saveFileName(title, QString(), QStringLiteral(".Txt"), QStringLiteral("*.Txt"));
    if (name.isEmpty()) {
        return;
    }
    const QString reason = writeWholeFile(name, reportBytes(shown_, session_.clock.now()));
    if (!reason.isEmpty()) {
        session_.messages.show(fileNotSaved(title, name, reason));
    }
}

Calibration::Calibration(const Parts& parts)
    : messages_(parts.session.messages)
    , store_(table, parts.shown)
    , list_(parts.shown, store_)
    , computation_({.state = parts.session.state,
                    .sheet = parts.sheet,
                    .sheetState = parts.sheetState,
                    .shown = parts.shown,
                    .store = store_})
    , report_(parts.session, parts.shown, parts.questions) {}

void Calibration::addInstrument() {
    runOperation(messages_, QStringLiteral("Add Instrument"), [this] { list_.addInstrument(); });
}

void Calibration::next() {
    runOperation(messages_, QStringLiteral("Next"), [this] { list_.next(); });
}

void Calibration::previous() {
    runOperation(messages_, QStringLiteral("Previous"), [this] { list_.previous(); });
}

void Calibration::select(int position) {
    runOperation(messages_, QStringLiteral("Show Instrument"), [this, position] { list_.select(position); });
}

void Calibration::calcdp() {
    runOperation(messages_, QStringLiteral("Calc DP"), [this] { computation_.calcdp(); });
}

void Calibration::saveCalInfo() {
    report_.save();
}

} // namespace orv
