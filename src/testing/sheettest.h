// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/programrig.h"

#include <limits>

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

} // namespace orv
