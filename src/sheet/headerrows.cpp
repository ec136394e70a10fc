// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/headerrows.h"

namespace orv {

namespace {

QStringList columns(std::initializer_list<const char*> names) {
    QStringList row;
    for (const char* name : names) {
        row.append(QString::fromLatin1(name));
    }
    return row;
}

QStringList glowRow(HeaderPlace place) {
    switch (place) {
    case HeaderPlace::GridOnOpening:
    case HeaderPlace::GridOnClearing:
        return columns({"Data #", "Date", "Time", "Output"});
    case HeaderPlace::SheetFile:
        return columns({"Data Point", "Date", "Time", "Counts"});
    case HeaderPlace::DownloadFile:
        return columns({"Data Point", "Date", "Time", "Output"});
    }
    return {};
}

QStringList trxOlderRow(HeaderPlace place) {
    switch (place) {
    case HeaderPlace::GridOnOpening:
        return columns({"Data #", "Date", "Time", "100", "Ref 100", "125", "Ref 125", "150", "Ref"});
    case HeaderPlace::GridOnClearing:
        return columns({"Data #", "Date", "Time", "100", "Ref1", "125", "Ref2", "150", "Ref3"});
    case HeaderPlace::SheetFile:
        return columns({"Data Point", "Date", "Time", "100", "REF 100", "125", "REF 125", "150", "REF 150"});
    case HeaderPlace::DownloadFile:
        return columns({"Data Point", "Date", "Time", "100", "100 REF", "125", "125 REF", "150", "150 REF"});
    }
    return {};
}

QStringList trxNewerRow(HeaderPlace place) {
    switch (place) {
    case HeaderPlace::GridOnOpening:
    case HeaderPlace::GridOnClearing:
        return columns({"Data #", "Date", "Time", "100", "125", "150", "Ref"});
    case HeaderPlace::SheetFile:
        return columns({"Data Point", "Date", "Time", "100", "125", "150", "REF 150"});
    case HeaderPlace::DownloadFile:
        return columns({"Data Point", "Date", "Time", "100", "125", "150", "150 REF"});
    }
    return {};
}

} // namespace

RowLayout rowLayout(const QString& typeLetter, double firmware) {
    if (typeLetter == QLatin1String("F") || typeLetter == QLatin1String("f")) {
        return RowLayout::Glow;
    }
    if (typeLetter == QLatin1String("V") || typeLetter == QLatin1String("v")) {
        return firmware < 500.0 ? RowLayout::TrxOlder : RowLayout::TrxNewer;
    }
    return RowLayout::Unknown;
}

int valueCount(RowLayout layout) {
    switch (layout) {
    case RowLayout::Glow:
        return 1;
    case RowLayout::TrxNewer:
        return 4;
    case RowLayout::TrxOlder:
    case RowLayout::Unknown:
        break;
    }
    return 6;
}

QStringList headerRow(HeaderPlace place, RowLayout layout) {
    switch (layout) {
    case RowLayout::Glow:
        return glowRow(place);
    case RowLayout::TrxOlder:
        return trxOlderRow(place);
    case RowLayout::TrxNewer:
        return trxNewerRow(place);
    case RowLayout::Unknown:
        break;
    }
    return {};
}

QStringList recordFileHeader(double firmware) {
    if (firmware >= 500.0) {
        return columns({"Date", "Time", "LED1", "REF1", "LED2", "REF2", "LED3", "REF3"});
    }
    return columns({"Date", "Time", "LED1", "LED2", "LED3", "REF3"});
}

} // namespace orv
