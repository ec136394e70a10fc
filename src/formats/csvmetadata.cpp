// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/csvmetadata.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace orv {

QString csvMetadataName(const QString& csvName) {
    return csvName + QLatin1String("-metadata.json");
}

QString isoWithZone(const QDateTime& moment) {
    return moment.toOffsetFromUtc(moment.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

QString historyLine(const QDateTime& moment, const QString& sentence) {
    return QStringLiteral("%1: %2").arg(isoWithZone(moment), sentence);
}

QString firstHistoryLine(const TableDescription& table) {
    QString sentence = QStringLiteral("written");
    if (!table.program.isEmpty()) {
        sentence += QStringLiteral(" by %1").arg(table.program);
    }
    if (!table.source.isEmpty()) {
        sentence += QStringLiteral(" from %1").arg(table.source);
    }
    return table.made.isValid() ? historyLine(table.made, sentence) : sentence;
}

namespace {

QJsonValue datatype(const Column& column) {
    switch (column.kind) {
    case Column::Kind::Record:
        return QStringLiteral("integer");
    case Column::Kind::Time:
        return QJsonObject{{QStringLiteral("base"), QStringLiteral("dateTime")},
                           {QStringLiteral("format"), QStringLiteral("yyyy-MM-ddTHH:mm:ss")}};
    case Column::Kind::Stamp:
        return QStringLiteral("dateTimeStamp");
    case Column::Kind::Value:
    case Column::Kind::Calculated:
        break;
    }
    return QStringLiteral("number");
}

QJsonObject described(const Column& column) {
    QJsonObject object{{QStringLiteral("name"), column.name},
                       {QStringLiteral("titles"), column.name},
                       {QStringLiteral("datatype"), datatype(column)},
                       {QStringLiteral("dc:title"), column.longName}};
    if (!column.comment.isEmpty()) {
        object.insert(QStringLiteral("dc:description"), column.comment);
    }
    if (!column.units.isEmpty()) {
        object.insert(QStringLiteral("schema:unitText"), column.units);
    }
    return object;
}

/// The facts by their groups.
QJsonObject known(const TableDescription& table) {
    QJsonObject groups;
    for (const Fact& fact : factsOf(table)) {
        QJsonObject group = groups.value(fact.group).toObject();
        group.insert(fact.name, fact.value);
        groups.insert(fact.group, group);
    }
    return groups;
}

QJsonObject reported(const TableReport& report) {
    return {{QStringLiteral("rows"), report.rows},
            {QStringLiteral("unreadableTimes"), report.unreadableTimes},
            {QStringLiteral("unreadableNumbers"), report.unreadableValues},
            {QStringLiteral("absentValues"), report.absentValues},
            {QStringLiteral("unreadableLines"), report.unreadableLines},
            {QStringLiteral("missingRecords"), report.missingRecords},
            {QStringLiteral("rowsLeftOut"), report.rowsLeftOut},
            {QStringLiteral("cutOffLines"), report.cutOffLines},
            {QStringLiteral("remarks"), QJsonArray::fromStringList(report.sentences())}};
}

} // namespace

QByteArray csvMetadata(const QString& csvName, const TableDescription& table, const QStringList& history,
                       const std::optional<TableReport>& report) {
    QJsonArray columns;
    for (const Column& column : columnsOf(table)) {
        columns.append(described(column));
    }
    QJsonArray notes{known(table), QJsonObject{{QStringLiteral("history"), QJsonArray::fromStringList(history)}}};
    if (report) {
        notes.append(QJsonObject{{QStringLiteral("report"), reported(*report)}});
    }
    QJsonObject all{{QStringLiteral("@context"), QStringLiteral("http://www.w3.org/ns/csvw")},
                    {QStringLiteral("url"), QFileInfo(csvName).fileName()},
                    {QStringLiteral("dc:title"), titleOf(table)},
                    {QStringLiteral("tableSchema"), QJsonObject{{QStringLiteral("columns"), columns}}},
                    {QStringLiteral("notes"), notes}};
    if (!table.source.isEmpty()) {
        all.insert(QStringLiteral("dc:source"), table.source);
    }
    if (table.made.isValid()) {
        all.insert(QStringLiteral("dc:created"), isoWithZone(table.made));
    }
    return QJsonDocument(all).toJson(QJsonDocument::Indented);
}

} // namespace orv
