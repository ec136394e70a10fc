// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sheet/download.h"
#include "testing/sheettest.h"

namespace orv {

/// The two downloads, joined as in the program, with the test at the instrument's end of the line.
class DownloadTest : public SheetTest {
protected:
    DownloadTest() {
        settings.memoryPointer = QStringLiteral("200");
        state.Ctrlscrn = Operation::SettingsOpen;
        status.status = QStringLiteral("Ready");
    }

    /// Lets a line arrive (CR LF is added) and be handled.
    void reply(const QByteArray& line) { receive(line + "\r\n"); }

    void replyAll(std::initializer_list<const char*> lines) {
        for (const char* line : lines) {
            reply(line);
        }
    }

    void saveAsText(const char* name = "dump.txt") {
        answers.fileName = path(name);
        download.saveAsText();
    }

    /// Lets time pass without data; every tick sees the clock.
    void standStill(qint64 milliseconds) {
        clock.advance(milliseconds);
        program.tick();
    }

    QByteArray dump(const char* name = "dump.txt") const { return contentsOf(path(name)); }

    /// The rows of the text file, behind its header.
    std::string dumpRows(const char* name = "dump.txt") const {
        const QByteArray bytes = dump(name);
        const qsizetype headers = bytes.indexOf("Data Point\t");
        return bytes.mid(bytes.indexOf('\n', headers) + 1).toStdString();
    }

    bool isTaking() const { return commands.activity.value() == Activity::Downloading; }

    /// Nothing of a download is left over: commands can be given, the dialog is closed and as new.
    void expectIdle() {
        EXPECT_EQ(state.Ctrlscrn, Operation::Idle);
        EXPECT_EQ(commands.activity.value(), Activity::None);
        expectDialogPutBack();
    }

    void expectDialogPutBack() {
        EXPECT_FALSE(progress.visible);
        EXPECT_EQ(progress.label.value(), QStringLiteral("%"));
        EXPECT_EQ(progress.percentage.value(), QString());
        EXPECT_EQ(progress.value, 0);
    }

    std::string onlyMessage() {
        EXPECT_EQ(messages.shown.size(), 1U);
        if (messages.shown.empty()) {
            return {};
        }
        EXPECT_EQ(messages.shown.back().title, QStringLiteral("ORV Host Program"));
        EXPECT_EQ(messages.shown.back().icon, Message::Icon::Exclamation);
        return messages.shown.back().text.toStdString();
    }
};

} // namespace orv
