// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/modefile.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

namespace orv {

namespace {

Mode exampleMode() {
    return {.samplesPerPoint = QStringLiteral("30"),
            .hoursBeforeBlock = QString(),
            .pointsPerBlock = QStringLiteral("00600"),
            .secondsBetweenPoints = QStringLiteral("3600"),
            .logEnabled = true,
            .wakeUp = false,
            .auxAdc = true,
            .gain = false,
            .append = false,
            .autoStart = true};
}

const QByteArray exampleContent = "30\r\n\r\n00600\r\n3600\r\n 1\r\n 0\r\n 1\r\n 0\r\n 0\r\n 1\r\n";

TEST(ModeFile, WritesTenLinesTextsAsTypedFlagsInPrintForm) {
    EXPECT_EQ(modeFileContent(exampleMode()), exampleContent);
}

TEST(ModeFile, EachFlagHasItsOwnLine) {
    bool Mode::*const order[] = {&Mode::logEnabled, &Mode::wakeUp, &Mode::auxAdc,
                                 &Mode::gain,       &Mode::append, &Mode::autoStart};
    for (qsizetype set = 0; set < 6; ++set) {
        Mode mode;
        mode.*order[set] = true;
        EXPECT_EQ(modeFileContent(mode).split('\n').indexOf(" 1\r"), 4 + set);
    }
}

TEST(ModeFile, ReadsBackWhatItWrote) {
    EXPECT_EQ(readModeFile(exampleContent), exampleMode());
}

TEST(ModeFile, RecordRoundTrips) {
    LoggerSettings record;
    exampleMode().putInto(record);
    EXPECT_EQ(record.pointsPerBlock.value(), QStringLiteral("00600"));
    EXPECT_TRUE(record.auxAdc.value());
    EXPECT_EQ(Mode::of(record), exampleMode());
}

TEST(ModeFile, FewerThanTenLinesAreNoMode) {
    EXPECT_FALSE(readModeFile(""));
    EXPECT_FALSE(readModeFile("30\r\n0\r\n0\r\n0\r\n 1\r\n 1\r\n 0\r\n 0\r\n 1\r\n"));
    EXPECT_FALSE(readModeFile("30\r\n0\r\n0\r\n0\r\n 1\r\n 1\r\n 0\r\n 0\r\n 1"));
}

TEST(ModeFile, AcceptsAMissingLastLineEndBareLineFeedsAndMoreLines) {
    EXPECT_EQ(readModeFile(exampleContent.chopped(2)), exampleMode());
    EXPECT_EQ(readModeFile(QByteArray(exampleContent).replace("\r", "")), exampleMode());
    EXPECT_EQ(readModeFile(exampleContent + "more\r\n"), exampleMode());
    EXPECT_EQ(readModeFile(" 30 \n\n00600\n\t3600\n1\n0\n1\n0\n0\n1\n"), exampleMode());
}

TEST(ModeFile, AFlagIsClearForZeroAndSetForAnythingElse) {
    const std::optional<Mode> mode = readModeFile("\n\n\n\n 2\n-1\n 0.5\n 0.0\n\nabc\n");
    ASSERT_TRUE(mode);
    EXPECT_TRUE(mode->logEnabled);
    EXPECT_TRUE(mode->wakeUp);
    EXPECT_TRUE(mode->auxAdc);
    EXPECT_FALSE(mode->gain);
    EXPECT_FALSE(mode->append);
    EXPECT_FALSE(mode->autoStart);
}

} // namespace

} // namespace orv
