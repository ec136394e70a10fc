// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/programtest.h"

namespace orv {
namespace {

TEST_F(ProgramTest, NothingIsSavedOverTheFilesThatTheProgramWrites) {
    program.load();
    runWithRows(3);
    ASSERT_TRUE(QFile::link(folder.path("Orvtemp.tmp"), folder.path("link.txt")));
    for (const char* name : {"Orvtemp.tmp", "log.ohp", "Orvtemp.tmp.lock", "link.txt"}) {
        messages.shown.clear();
        answers.fileName = folder.path(name);
        const QByteArray before = contentsOf(folder.path("Orvtemp.tmp"));
        program.saveAs();
        EXPECT_EQ(contentsOf(folder.path("Orvtemp.tmp")), before) << name;
        EXPECT_TRUE(program.sheetPanel.unsaved.value()) << name;
        ASSERT_EQ(messages.shown.size(), 1U) << name;
        EXPECT_TRUE(messages.shown[0].text.endsWith(QStringLiteral("Save again under another name.")));
    }
    const QByteArray before = contentsOf(folder.path("Orvtemp.tmp"));
    receive("11/21/26\t2700\t4\t20\t30\t40\r\n");
    const QByteArray after = contentsOf(folder.path("Orvtemp.tmp"));
    EXPECT_TRUE(after.startsWith(before));
    EXPECT_EQ(after.count("\r\n"), before.count("\r\n") + 1) << "the run's record goes on";
    messages.shown.clear();
    answers.fileName = folder.path("mine.txt");
    program.saveAs();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_FALSE(program.sheetPanel.unsaved.value());
}

} // namespace
} // namespace orv
