// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/loggersettings.h"
#include "sheet/run.h"
#include "testing/fakes.h"
#include "testing/folder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace orv {

inline QStringList filesIn(const QTemporaryDir& folder) {
    return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

/// The sheet's procedures joined as in the program, the instrument on COM 1 and the debug output on COM 2, with files
/// in a folder of the test's own.
class SheetTest : public testing::Test {
protected:
    SheetTest() {
        ports.setDevice(1, QStringLiteral("instrument"));
        ports.setDevice(2, QStringLiteral("debug"));
        ports.open();
        ports.openDebugPort();
        files.saved = [this] { recordFile.rowsSaved(); };
        discarding = sheet.rowsRemoved.subscribe([this] { recordFile.rowsDiscarded(); });
        shown.fileName = path("Untitled");
    }

    std::unique_ptr<Port> makePort(const QString& device) {
        auto port = std::make_unique<FakePort>();
        (device == QLatin1String("instrument") ? instrument : debugPort) = port.get();
        return port;
    }

    QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

    void identify(const char* letter, const char* firmware) {
        session.state.Vartemp = QString::fromLatin1(letter);
        session.setFirmware(QString::fromLatin1(firmware));
        rows.layOutOnOpening();
    }

    /// What a status timer's tick does while a run may be under way.
    void tick() {
        poll.quary();
        if (session.state.Ctrlscrn == Operation::Collecting) {
            if (session.state.Rtn.isEmpty()) {
                collection.endIfPrompted();
            } else {
                collection.profilemode();
            }
        }
    }

    void receive(const QByteArray& bytes) {
        instrument->input += bytes;
        tick();
    }

    QStringList cells(int row) const {
        QStringList texts;
        for (int column = 0; column < DataSheet::columnCount; ++column) {
            texts << sheet.cell(row, column);
        }
        return texts;
    }

    void expectRunning() {
        EXPECT_EQ(session.state.Ctrlscrn, Operation::Collecting);
        EXPECT_EQ(session.status.status.value(), QStringLiteral("Running"));
        EXPECT_EQ(session.commands.activity.value(), Activity::Collecting);
        EXPECT_TRUE(recordFile.isOpen());
    }

    void expectEnded() {
        EXPECT_EQ(session.state.Ctrlscrn, Operation::CollectionSetUp);
        EXPECT_EQ(session.status.status.value(), QStringLiteral("Ready"));
        EXPECT_EQ(session.commands.activity.value(), Activity::None);
        EXPECT_TRUE(session.commands.runEnabled);
        EXPECT_EQ(session.state.gatherstart, 0);
        EXPECT_EQ(session.state.Gatherstop, 0);
        EXPECT_FALSE(recordFile.isOpen());
    }

    QTemporaryDir folder;
    FakePort* instrument = nullptr;
    FakePort* debugPort = nullptr;
    TestClock clock;
    RecordedMessages messages;
    Session session{clock, messages};
    DebugState debug;
    ComPorts ports{session, debug, [this](const QString& device) { return makePort(device); }};
    ProgramLog log;
    Poll poll{session, ports, debug, log};
    SettingsState settings;
    DataSheet sheet;
    SheetState shown;
    PreparedAnswers answers;
    SheetRows rows{session, ports, sheet, shown};
    SheetFiles files{
        {.session = session, .ports = ports, .sheet = sheet, .rows = rows, .shown = shown, .questions = answers}};
    AutomaticSave automaticSave{session, rows, files, shown};
    Subscription discarding;
    RecordFile recordFile{clock, folder.filePath(QStringLiteral("Orvtemp.tmp"))};
    orv::Run collection{{.session = session,
                         .ports = ports,
                         .poll = poll,
                         .settings = settings,
                         .rows = rows,
                         .automaticSave = automaticSave,
                         .recordFile = recordFile}};
};

} // namespace orv
