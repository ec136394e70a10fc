// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibration/calibration.h"

#include "base/files.h"
#include "base/runtimeerror.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>

namespace orv {

Calibration::Calibration(Link& link, const DataSheet& sheet, SheetState& sheetState)
    : link_(link)
    , sheet_(sheet)
    , sheetState_(sheetState)
    , store_(table, shown) {}

void Calibration::addInstrument() {
    const LightColour colour = shown.colour;
    if (colour == LightColour::None) {
        shown.message = Words::tr("SELECT A COLOR");
        return;
    }
    shown.message = QString();
    shown.instruments = shown.instruments.value() + QStringList{shown.instrumentName.value()};
    shown.totalEntered = QString::number(count());
    act(Words::tr("Add Instrument"), [this, colour] { store_.setcalcolour(colour); });
}

void Calibration::next() {
    const int following = shown.current + 1;
    show(Words::tr("Next"), following == count() ? 0 : following);
}

void Calibration::previous() {
    const int preceding = shown.current - 1;
    show(Words::tr("Previous"), preceding < 0 ? count() - 1 : preceding);
}

void Calibration::select(int position) {
    if (position >= 0 && position < count()) {
        show(Words::tr("Show Instrument"), position);
    }
}

void Calibration::show(const Words& operation, int position) {
    if (count() == 0) {
        return;
    }
    act(operation, [this, position] {
        // An eighth instrument has no worksheet: its boxes still show that of another.
        if (shown.current < CalibrationTable::instrumentCount) {
            store_.storecal();
        }
        shown.current = static_cast<qint16>(position);
        shown.highlighted = position;
        shown.worksheetCaption = shown.currentEntry();
        store_.showcal();
    });
}

/// Says which columns are averaged if they are not the angles; else takes back what it has said.
void Calibration::tellColumns() {
    constexpr QLatin1String begin("The first three values of this sheet are ");
    QList<Words> columns;
    for (int column = sheetcolumn::firstValue; column < sheetcolumn::firstValue + channelCount; ++column) {
        const QString name = sheet_.columnNames().value(column);
        columns << (name.isEmpty() ? Words::tr("empty") : columnName(name));
    }
    const bool angles = std::equal(columns.begin(), columns.end(), channelAngles.begin(),
                                   [](const QString& name, const char* angle) { return name == QLatin1String(angle); });
    if (!angles && sheet_.rowCount() > 0) {
        shown.message =
            Words::tr("The first three values of this sheet are %1.").arg(join(columns, QStringLiteral(", ")));
    } else if (shown.message.value().startsWith(begin)) {
        shown.message = QString();
    }
}

void Calibration::compute() {
    tellColumns();
    const int row = shown.selectedRow;
    for (int channel = 0; channel < channelCount; ++channel) {
        const double channelMean = mean(sheetcolumn::firstValue + channel);
        if (row == CalibrationState::noRow) {
            continue;
        }
        shown.worksheet.at(row, channel) = plainNumber(channelMean);
        if (row > cleanRow) {
            shown.results.at(static_cast<std::size_t>(channel)) = plainNumber(derivedPoint(row, channel));
        }
    }
    store_.storecal();
}

double Calibration::mean(int sheetColumn) {
    const int rows = sheet_.rowCount();
    double sum = 0.0;
    sheetState_.currentColumn = sheetColumn;
    for (int row = 0; row < rows; ++row) {
        sum += leadingNumber(sheet_.cell(row, sheetColumn));
    }
    if (rows == 0) {
        throw RuntimeError(RuntimeError::Kind::DivisionByZero,
                           Words::tr("The sheet holds no rows. Collect or open those of this point first."));
    }
    sheetState_.currentRow = rows;
    // The half added never matters: the mean is the whole quotient, cut and not rounded, on purpose.
    return std::floor(integerDivide(sum, rows) + 0.5);
}

double Calibration::derivedPoint(int row, int channel) const {
    const int point = row - cleanRow; // 1..4, also the reference row
    const auto reference = [this, channel](int referenceRow) {
        return leadingNumber(shown.reference.at(referenceRow, channel).value());
    };
    const double previous = leadingNumber(shown.worksheet.at(row - 1, channel).value());
    double quotient = 0.0;
    try {
        quotient = integerDivide(previous, reference(point - 1));
    } catch (const RuntimeError& error) {
        if (error.kind() != RuntimeError::Kind::DivisionByZero) {
            throw;
        }
        const char* caption = referenceRows.at(static_cast<std::size_t>(point - 1)).caption;
        throw RuntimeError(error.kind(),
                           Words::tr("In the frame \"KP 7\" the value of \"%1\" in column %2 is empty or 0. "
                                     "Fill it in, then press \"Calc DP\" again.")
                               .arg(Words::tr(caption), QString::number(channel + 1)));
    }
    const double derived = std::floor(reference(point) * quotient);
    if (!std::isfinite(derived)) {
        throw RuntimeError(RuntimeError::Kind::Overflow);
    }
    return derived;
}

namespace {

const Light* lightOf(LightColour colour) {
    for (const Light& light : lights) {
        if (light.colour == colour) {
            return &light;
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
    const Light* light = lightOf(shown.colour);
    QString text = QLatin1String("Date ") + shortDate(moment.date()) + QLatin1String("\r\n");
    text += QLatin1String("Time ") + clockText(moment.time()) + QLatin1String("\r\r\n");
    text += QLatin1String("KP 7 Data\r\n");
    if (light != nullptr) {
        text += u'\t' + QLatin1String(light->wavelength) + QLatin1String("\r\n");
        for (int row = 0; row < static_cast<int>(referenceRows.size()); ++row) {
            text += QLatin1String(referenceRows.at(static_cast<std::size_t>(row)).caption) + QLatin1String(" \t") +
                    shown.reference.at(row, light->referenceColumn).value() + QLatin1String("\r\n");
        }
    }
    text += QLatin1String("\r\r\n");
    text += QLatin1String("Sensor # ") + shown.currentEntry() + u' ' +
            QLatin1String(light != nullptr ? light->name : "") + QLatin1String("\r\n");
    text += QLatin1String("\t100\t125\t150\r\n");
    text += tableLine("Stdev", shown, 0);
    for (int row = 0; row < static_cast<int>(worksheetRows.size()); ++row) {
        text += tableLine(worksheetRows.at(static_cast<std::size_t>(row)).caption, shown, row);
    }
    return text.toUtf8();
}

void Calibration::act(const Words& operation, const std::function<void()>& body) {
    runOperation(link_.session.messages, operation, body);
}

void Calibration::calcdp() {
    act(Words::tr("Calc DP"), [this] { compute(); });
}

void Calibration::saveCalInfo() {
    link_.procedures.startBeside(Words::tr("Save Cal Info"), [this] { return askAndSave(); });
}

Task<> Calibration::askAndSave() {
    const Words title = Words::tr("Save Cal Info");
    const Question question = saveQuestion(title, QString(), QStringLiteral(".Txt"), QStringLiteral("*.Txt"));
    const QString name = co_await link_.waits.answer(question);
    if (name.isEmpty()) {
        co_return;
    }
    const Words reason = writeWholeFile(name, reportBytes(shown, link_.session.clock.now()));
    if (!reason.isEmpty()) {
        link_.session.messages.show(fileNotSaved(title, name, reason));
    }
}

} // namespace orv
