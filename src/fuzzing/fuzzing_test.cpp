// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzzing/fuzzing.h"

#include "testing/folder.h"

#include <QDir>

#include <gtest/gtest.h>

namespace orv::fuzzing {

// Outside the unnamed namespace, where the test framework's lookup finds it.
void PrintTo(const Reader& reader, std::ostream* stream) {
    *stream << reader.name;
}

namespace {

class FuzzingTest : public testing::TestWithParam<Reader> {
protected:
    /// Feeds the reader with every input of its folder, one after the other; returns how many there are.
    static int feedAll(const char* kind) {
        const QDir folder(
            QStringLiteral("%1/%2/%3").arg(QLatin1String(INPUTS), QLatin1String(kind), QLatin1String(GetParam().name)));
        const QStringList names = folder.entryList(QDir::Files, QDir::Name);
        for (const QString& name : names) {
            try {
                GetParam().feed(Input(contentsOf(folder.filePath(name))));
            } catch (const std::exception& error) {
                ADD_FAILURE() << qPrintable(name) << ": " << error.what();
            }
        }
        return static_cast<int>(names.size());
    }
};

TEST_P(FuzzingTest, EverySeedHoldsWhatMustHold) {
    EXPECT_GT(feedAll("seeds"), 0);
}

TEST_P(FuzzingTest, WhatWasFoundIsMended) {
    feedAll("found");
}

INSTANTIATE_TEST_SUITE_P(Readers, FuzzingTest, testing::ValuesIn(readers),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace

} // namespace orv::fuzzing
