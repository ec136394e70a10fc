// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/programrig.h"

namespace orv {

/// The program with its port open and the debug output's box not ticked.
class SheetTest : public ProgramTest {
protected:
    SheetTest() {
        ports.open();
        ports.openDebugPort();
        sheetState.fileName = path("Untitled");
    }

    /// What the wake-up leaves of an instrument of that letter and firmware.
    void identify(const char* letter, const char* firmware) {
        state.Vartemp = QString::fromLatin1(letter);
        session.setFirmware(QString::fromLatin1(firmware));
        rows.layOutOnOpening();
    }

    QStringList cells(int row) const {
        QStringList texts;
        for (int column = 0; column < DataSheet::columnCount; ++column) {
            texts << sheet.cell(row, column);
        }
        return texts;
    }

    void expectRunning() {
        EXPECT_EQ(state.Ctrlscrn, Operation::Collecting);
        EXPECT_EQ(status.status.value(), QStringLiteral("Running"));
        EXPECT_EQ(commands.activity.value(), Activity::Collecting);
        EXPECT_TRUE(recordFile.isOpen());
    }

    void expectEnded() {
        EXPECT_EQ(state.Ctrlscrn, Operation::CollectionSetUp);
        EXPECT_EQ(status.status.value(), QStringLiteral("Ready"));
        EXPECT_EQ(commands.activity.value(), Activity::None);
        EXPECT_TRUE(commands.runEnabled);
        EXPECT_EQ(state.gatherstart, 0);
        EXPECT_EQ(state.Gatherstop, 0);
        EXPECT_FALSE(recordFile.isOpen());
    }
};

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

    /// The rows of the text file, after its header.
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
        EXPECT_EQ(progress.value, 0);
    }

    std::string onlyMessage() {
        EXPECT_EQ(theMessage().title, QStringLiteral("ORV Host Program"));
        EXPECT_EQ(theMessage().icon, Message::Icon::Exclamation);
        return theMessage().text.toStdString();
    }
};

} // namespace orv
