// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet/headerrows.h"

#include <gtest/gtest.h>

namespace orv {

namespace {

TEST(RowLayout, TypeLetterInEitherCaseAndFirmwareGenerationDecide) {
    const struct {
        const char* letter;
        double firmware;
        RowLayout layout;
    } cases[] = {
        {"V", 499.0, RowLayout::TrxOlder}, {"V", 499.9, RowLayout::TrxOlder}, {"V", 500.0, RowLayout::TrxNewer},
        {"V", 512.0, RowLayout::TrxNewer}, {"V", 0.0, RowLayout::TrxOlder},   {"v", 412.0, RowLayout::TrxOlder},
        {"v", 500.0, RowLayout::TrxNewer}, {"F", 412.0, RowLayout::Glow},     {"F", 512.0, RowLayout::Glow},
        {"f", 0.0, RowLayout::Glow},       {"", 512.0, RowLayout::Unknown},   {"X", 512.0, RowLayout::Unknown},
        {"VF", 512.0, RowLayout::Unknown},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(rowLayout(QString::fromLatin1(each.letter), each.firmware), each.layout)
            << each.letter << ' ' << each.firmware;
    }
}

TEST(RowLayout, ValuesAfterDateAndTimeCount) {
    EXPECT_EQ(valueCount(RowLayout::Glow), 1);
    EXPECT_EQ(valueCount(RowLayout::TrxOlder), 6);
    EXPECT_EQ(valueCount(RowLayout::TrxNewer), 4);
    EXPECT_EQ(valueCount(RowLayout::Unknown), 6);
}

TEST(HeaderRows, EachPlaceNamesTheColumnsItsOwnWay) {
    const struct {
        HeaderPlace place;
        RowLayout layout;
        const char* header;
    } cases[] = {
        {HeaderPlace::GridOnOpening, RowLayout::TrxOlder, "Data #|Date|Time|100|Ref 100|125|Ref 125|150|Ref"},
        {HeaderPlace::GridOnOpening, RowLayout::TrxNewer, "Data #|Date|Time|100|125|150|Ref"},
        {HeaderPlace::GridOnOpening, RowLayout::Glow, "Data #|Date|Time|Output"},
        {HeaderPlace::GridOnClearing, RowLayout::TrxOlder, "Data #|Date|Time|100|Ref1|125|Ref2|150|Ref3"},
        {HeaderPlace::GridOnClearing, RowLayout::TrxNewer, "Data #|Date|Time|100|125|150|Ref"},
        {HeaderPlace::GridOnClearing, RowLayout::Glow, "Data #|Date|Time|Output"},
        {HeaderPlace::SheetFile, RowLayout::TrxOlder, "Data Point|Date|Time|100|REF 100|125|REF 125|150|REF 150"},
        {HeaderPlace::SheetFile, RowLayout::TrxNewer, "Data Point|Date|Time|100|125|150|REF 150"},
        {HeaderPlace::SheetFile, RowLayout::Glow, "Data Point|Date|Time|Counts"},
        {HeaderPlace::GridOnOpening, RowLayout::Unknown, ""},
        {HeaderPlace::GridOnClearing, RowLayout::Unknown, ""},
        {HeaderPlace::SheetFile, RowLayout::Unknown, ""},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(headerRow(each.place, each.layout).join(u'|').toStdString(), each.header);
    }
}

TEST(HeaderRows, RecordFileNamesReferencesLedByLedFromFirmware500On) {
    const char* const newer = "Date|Time|LED1|REF1|LED2|REF2|LED3|REF3";
    const char* const older = "Date|Time|LED1|LED2|LED3|REF3";
    EXPECT_EQ(recordFileHeader(512.0).join(u'|').toStdString(), newer);
    EXPECT_EQ(recordFileHeader(500.0).join(u'|').toStdString(), newer);
    EXPECT_EQ(recordFileHeader(499.0).join(u'|').toStdString(), older);
    EXPECT_EQ(recordFileHeader(0.0).join(u'|').toStdString(), older);
}

} // namespace

} // namespace orv
