// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/words.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

std::string both(const Words& words) {
    return words.toStdString() + " = " + words.shown().toStdString();
}

const Words rows(QStringLiteral("%1 rows"), QStringLiteral("%1 Zeilen"));
const Words file(QStringLiteral("%1 in the file %2"), QStringLiteral("Datei %2: %1"));

TEST(WordsTest, ANameIsTheSameInBoth) {
    EXPECT_EQ(both(QStringLiteral("ttyUSB0")), "ttyUSB0 = ttyUSB0");
    EXPECT_EQ(both({}), " = ");
}

TEST(WordsTest, WordsAsArgumentsKeepBoth) {
    EXPECT_EQ(both(rows.arg(12)), "12 rows = 12 Zeilen");
    EXPECT_EQ(both(rows.arg(2.5, 0, 'f', 2)), "2.50 rows = 2.50 Zeilen");
    EXPECT_EQ(both(file.arg(rows.arg(12), QStringLiteral("a%1.txt"))),
              "12 rows in the file a%1.txt = Datei a%1.txt: 12 Zeilen");
}

TEST(WordsTest, JoiningKeepsBoth) {
    EXPECT_EQ(both(rows.arg(1) + rows.arg(2)), "1 rows2 rows = 1 Zeilen2 Zeilen");
    EXPECT_EQ(both(QStringLiteral("(") + rows.arg(1) + QStringLiteral(")")), "(1 rows) = (1 Zeilen)");
    EXPECT_EQ(both(join({rows.arg(1), rows.arg(2)}, QStringLiteral(", "))), "1 rows, 2 rows = 1 Zeilen, 2 Zeilen");
    EXPECT_EQ(both(join({}, QStringLiteral(", "))), " = ");
    Words more = rows.arg(1);
    more += QStringLiteral(".");
    EXPECT_EQ(both(more), "1 rows. = 1 Zeilen.");
}

TEST(WordsTest, WhereTextIsTakenItIsEnglish) {
    const QString text = rows.arg(3);
    EXPECT_EQ(text.toStdString(), "3 rows");
    EXPECT_TRUE(rows.arg(3) == QStringLiteral("3 rows"));
    EXPECT_EQ(rows.english().toStdString(), "%1 rows");
}

TEST(WordsTest, WithoutALanguageEverythingIsEnglish) {
    EXPECT_EQ(both(Words::tr("Save \u201cit\u201d")), "Save \u201cit\u201d = Save \u201cit\u201d");
    EXPECT_EQ(Screen::tr("Ready").toStdString(), "Ready");
    EXPECT_EQ(Screen::english(QStringLiteral("Ready")).toStdString(), "Ready");
}

} // namespace
} // namespace orv
