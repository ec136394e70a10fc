// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/modes.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

namespace orv {

namespace {

const LoggerSettings exampleMode{.autoStart = true,
                                 .auxAdc = true,
                                 .logEnabled = true,
                                 .samplesPerPoint = QStringLiteral("30"),
                                 .pointsPerBlock = QStringLiteral("00600"),
                                 .secondsBetweenPoints = QStringLiteral("3600")};

const QByteArray exampleContent = "30\r\n\r\n00600\r\n3600\r\n 1\r\n 0\r\n 1\r\n 0\r\n 0\r\n 1\r\n";

TEST(ModeFile, WritesTenLinesTextsAsTypedFlagsInPrintForm) {
    EXPECT_EQ(modeFileContent(exampleMode), exampleContent);
}

TEST(ModeFile, EachFlagHasItsOwnLine) {
    const LoggerSettings inOrder[] = {{.logEnabled = true}, {.wakeUp = true}, {.auxAdc = true},
                                      {.gain = true},       {.append = true}, {.autoStart = true}};
    qsizetype line = 4;
    for (const LoggerSettings& mode : inOrder) {
        EXPECT_EQ(modeFileContent(mode).split('\n').indexOf(" 1\r"), line++);
    }
}

LoggerSettings modeOf(const QByteArray& content) {
    const ReadMode read = readModeFile(content);
    EXPECT_EQ(read.error, QString());
    return read.mode;
}

std::string readingErrorOf(const QByteArray& content) {
    return readModeFile(content).error.toStdString();
}

TEST(ModeFile, ReadsBackWhatItWrote) {
    EXPECT_EQ(modeOf(exampleContent), exampleMode);
}

TEST(ModeFile, FewerThanTenLinesAreNoMode) {
    const std::string tooShort = "is not a complete mode file: it has fewer than ten lines";
    EXPECT_EQ(readingErrorOf(""), tooShort);
    EXPECT_EQ(readingErrorOf("30\r\n0\r\n0\r\n0\r\n 1\r\n 1\r\n 0\r\n 0\r\n 1\r\n"), tooShort);
    EXPECT_EQ(readingErrorOf("30\r\n0\r\n0\r\n0\r\n 1\r\n 1\r\n 0\r\n 0\r\n 1"), tooShort);
}

TEST(ModeFile, ALineThatItsBoxCouldNotHoldIsNoMode) {
    const auto withLine = [](int number, const QByteArray& text) {
        QByteArrayList lines = exampleContent.split('\n');
        lines[number - 1] = text + '\r';
        return lines.join('\n');
    };
    for (const auto& [line, digits] : {std::pair(1, 3), {2, 3}, {3, 5}, {4, 5}}) {
        const QByteArray longest(digits, '9');
        for (const QByteArray& right : {QByteArray(), QByteArray(" 7 "), longest}) {
            EXPECT_EQ(readingErrorOf(withLine(line, right)), "") << line << right.constData();
        }
        for (const QByteArray& wrong :
             {QByteArray("alpha beta"), QByteArray("b.c>d"), QByteArray("-1"), QByteArray("1.5"), QByteArray("1 2"),
              QByteArray("\xb2"), QByteArray("1\0", 2), QByteArray(longest + '0')}) {
            EXPECT_EQ(readingErrorOf(withLine(line, wrong)),
                      QStringLiteral("is not a mode file: line %1 must be empty or hold at most %2 digits")
                          .arg(line)
                          .arg(digits)
                          .toStdString())
                << wrong.constData();
        }
    }
    for (int line = 5; line <= 10; ++line) {
        for (const char* right : {"0", " 1", "2", "-1 ", "+0.5"}) {
            EXPECT_EQ(readingErrorOf(withLine(line, right)), "") << right;
        }
        for (const char* wrong : {"", "  ", "yes", "1x", "1 1", "0x1", "nan", "inf"}) {
            EXPECT_EQ(readingErrorOf(withLine(line, wrong)),
                      QStringLiteral("is not a mode file: line %1 must hold a number").arg(line).toStdString())
                << wrong;
        }
    }
}

TEST(ModeFile, AcceptsAMissingLastLineEndBareLineFeedsAndMoreLines) {
    EXPECT_EQ(modeOf(exampleContent.chopped(2)), exampleMode);
    EXPECT_EQ(modeOf(QByteArray(exampleContent).replace("\r", "")), exampleMode);
    EXPECT_EQ(modeOf(exampleContent + "more\r\n"), exampleMode);
    EXPECT_EQ(modeOf(" 30 \n\n00600\n\t3600\n1\n0\n1\n0\n0\n1\n"), exampleMode);
}

TEST(ModeFile, AFlagIsClearForZeroAndSetForAnyOtherNumber) {
    const LoggerSettings mode = modeOf("\n\n\n\n 2\n-1\n 0.5\n 0.0\n-0\n 0e5\n");
    EXPECT_TRUE(mode.logEnabled);
    EXPECT_TRUE(mode.wakeUp);
    EXPECT_TRUE(mode.auxAdc);
    EXPECT_FALSE(mode.gain);
    EXPECT_FALSE(mode.append);
    EXPECT_FALSE(mode.autoStart);
}

} // namespace

} // namespace orv
