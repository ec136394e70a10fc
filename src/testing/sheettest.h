// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/loggersettings.h"
#include "sheet/run.h"
#include "testing/fakes.h"
#include "testing/filesizelimit.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace orv {

inline QByteArray contentsOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

inline void fill(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

inline QStringList filesIn(const QTemporaryDir& folder) {
    return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

#ifdef Q_OS_UNIX
inline void allowEveryone(const QString& path) {
    constexpr int readAndWriteForAll = 0x6666;
    QFile::setPermissions(path, QFile::Permissions(readAndWriteForAll));
}

/// While it lives the folder takes no new files, whoever runs the test: a superuser acts as nobody meanwhile.
class UnwritableFolder {
public:
    explicit UnwritableFolder(const QTemporaryDir& folder)
        : path_(folder.path()) {
        constexpr int readAndEnterForAll = 0x5555;
        QFile::setPermissions(path_, QFile::Permissions(readAndEnterForAll));
        superuser_ = geteuid() == 0;
        if (superuser_) {
            constexpr uid_t nobody = 65534;
            EXPECT_EQ(seteuid(nobody), 0);
        }
    }
    UnwritableFolder(const UnwritableFolder&) = delete;
    UnwritableFolder& operator=(const UnwritableFolder&) = delete;
    ~UnwritableFolder() {
        if (superuser_) {
            EXPECT_EQ(seteuid(0), 0);
        }
        QFile::setPermissions(path_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

private:
    QString path_;
    bool superuser_ = false;
};
#endif

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
