// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/expected.h"

#include <cmath>

namespace orv {

DecodedLine decodeLine(const QByteArray& line) {
    const QByteArrayList fields = line.split('\t');
    const auto unpadded = [](const QByteArray& digits) { return QByteArray::number(digits.toInt()); };
    const auto padded = [](double value) { return QByteArray::number(static_cast<int>(value)).rightJustified(2, '0'); };
    DecodedLine decoded{fields.value(0), fields.value(1), fields.mid(2)};
    const QByteArrayList pieces = decoded.date.split('/');
    if (pieces.size() == 3 && decoded.date.size() == 8) {
        decoded.date = unpadded(pieces[0]) + '/' + unpadded(pieces[1]) + '/' + pieces[2];
    }
    bool isCount = false;
    const int count = decoded.time.toInt(&isCount);
    if (isCount) {
        const double hours = count / 64800.0 * 24.0;
        const double minutes = (hours - std::floor(hours)) * 60.0;
        const double seconds = (minutes - std::floor(minutes)) * 60.0;
        decoded.time = QByteArray::number(static_cast<int>(hours)) + ':' + padded(minutes) + ':' + padded(seconds);
    }
    return decoded;
}

QByteArrayList dumpLines(const QByteArrayList& blocks) {
    QByteArray all = blocks.join();
    if (all.startsWith('O')) {
        all.prepend('>');
    }
    QByteArrayList found = all.split('\n');
    for (QByteArray& line : found) {
        line.chop(1);
    }
    return found;
}

qsizetype valuesOf(const std::string& device) {
    constexpr qsizetype newerTrx = 4;
    constexpr qsizetype olderTrx = 6;
    if (device.find("glow") != std::string::npos) {
        return 1;
    }
    return device.find("firmware=412") != std::string::npos ? olderTrx : newerTrx;
}

ExpectedDump::ExpectedDump(const QByteArrayList& lines, qsizetype values) {
    for (qsizetype index = 0; index + 1 < lines.size() && !ended; ++index) {
        const QByteArray& line = lines.at(index);
        bytes += line.size();
        ended = line == "EOF" || line == "0";
        if (line.isEmpty() || line == ">O" || line == "65535" || ended) {
            continue;
        }
        const DecodedLine decoded = decodeLine(line.split('\r').front());
        if (decoded.values.size() < values) {
            ++unreadable;
            continue;
        }
        ++records;
        const QByteArray head = QByteArray::number(records) + '\t' + decoded.date + '\t' + decoded.time;
        const QByteArrayList cells = decoded.values.mid(0, values);
        if (values == 4) {
            textRows += head + '\t' + cells[0] + "\t\t" + cells[1] + "\t\t" + cells[2] + '\t' + cells[3] + "\r\n";
        } else {
            textRows += head + '\t' + cells.join('\t') + "\r\n";
        }
        QByteArrayList saved = cells.mid(0, 5); // the sheet file drops the last reference of the older TRX
        if (values == 4) {
            saved << QByteArray();
        }
        sheetRows += head + '\t' + saved.join('\t') + "\t\r";
    }
}

} // namespace orv
