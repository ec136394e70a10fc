// SPDX-License-Identifier: GPL-3.0-or-later
#include "testing/keptrows.h"

#include "sheet/recordfile.h"
#include "sheet/sheetformat.h"
#include "testing/folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

namespace orv {

void TakenRows::add(const DataRow& row, qint64 at) {
    const QStringList cells = QStringList{row.date, row.time} + row.values;
    add(cells.join(u'\t').toLatin1(), at);
}

void TakenRows::add(const QByteArray& cells, qint64 at) {
    if (count == static_cast<int>(std::size(rows))) {
        ADD_FAILURE() << "there is no room for so many rows";
        return;
    }
    Row& next = rows[count++];
    next.size = static_cast<qint16>(std::min<qsizetype>(cells.size(), sizeof next.cells));
    std::memcpy(next.cells, cells.constData(), static_cast<std::size_t>(next.size));
    next.at = at;
}

KeptRows::KeptRows(const QString& folder, Flaw flaw) {
    const bool died = flaw == Flaw::CutOff;
    for (const QFileInfo& file : folder.isEmpty() ? QFileInfoList() : QDir(folder).entryInfoList(QDir::Files)) {
        const QString name = file.fileName();
        const QByteArray bytes = contentsOf(file.filePath());
        if (name.startsWith(QLatin1String("Orvtemp")) && name.endsWith(QLatin1String(".tmp"))) {
            records_ += bytes;
            const RecordedRows read = readRecordedRows(file.filePath(), {});
            EXPECT_TRUE(flaw == Flaw::Noise || read.unreadableLines == 0) << qPrintable(name) << ":\n"
                                                                          << bytes.toStdString();
            EXPECT_TRUE(died || !read.cutOff) << qPrintable(name) << ":\n" << bytes.toStdString();
        } else if (name == QLatin1String("memory.txt")) {
            records_ += bytes;
            EXPECT_TRUE(died || bytes.isEmpty() || bytes.endsWith("\r\n")) << bytes.toStdString();
        } else if (name.endsWith(QLatin1String(".csv"))) {
            tables_ += QByteArray(bytes).replace("\r\n", "\n");
            EXPECT_TRUE(died || bytes.isEmpty() || bytes.endsWith('\n')) << bytes.toStdString();
        } else if (name.endsWith(QLatin1String(".txt"))) {
            sheets_ += bytes;
            EXPECT_EQ(readSheetFile(file.filePath()).error.toStdString(), "") << qPrintable(name);
        }
    }
}

void KeptRows::add(const DataSheet& sheet) {
    for (int row = 0; row < sheet.rowCount(); ++row) {
        sheet.writeCells(row, sheetcolumn::firstCount, sheets_);
    }
}

bool KeptRows::has(const QByteArray& cells) const {
    const QByteArrayList fields = cells.split('\t');
    QByteArrayList numbers; // tables have them without the zeros in front
    for (const QByteArray& field : fields.mid(2)) {
        bool isNumber = false;
        const qlonglong number = field.toLongLong(&isNumber);
        numbers << (isNumber ? QByteArray::number(number) : field);
    }
    QByteArrayList recorded = fields;
    constexpr qsizetype newerTrx = 6;
    if (fields.size() == newerTrx) {
        recorded.insert(3, QByteArray());
        recorded.insert(5, QByteArray());
    }
    return sheets_.contains('\t' + cells + '\t') || records_.contains('\t' + recorded.join('\t') + "\r\n") ||
           tables_.contains(',' + numbers.join(',') + '\n');
}

} // namespace orv
