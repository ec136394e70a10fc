// SPDX-License-Identifier: GPL-3.0-or-later
// Before the record file of a run begins anew the rows of the run before are on the disk elsewhere.
#include "console/standardoutput.h"
#include "testing/consolerig.h"

#include <cerrno>

#include <sys/syscall.h>
#include <unistd.h>

namespace {
int syncs = 0; ///< Of the output.
bool failing = false;
} // namespace

/// Before the system's own.
extern "C" int fdatasync(int descriptor) {
    char link[64];
    char name[4096];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    const ssize_t length = ::readlink(link, name, sizeof name);
    if (std::string_view(name, length < 0 ? 0 : static_cast<std::size_t>(length)).ends_with("/lake.csv")) {
        ++syncs;
        if (failing) {
            errno = EIO;
            return -1;
        }
    }
    return static_cast<int>(::syscall(SYS_fdatasync, descriptor));
}

namespace orv {
namespace {

class SyncedOutput : public ConsoleTest {
protected:
    SyncedOutput() { syncs = 0; }
    ~SyncedOutput() { failing = false; }

    /// Some rows, a cable that is pulled, and some more of the next run.
    void collectTwice(const char* name = "lake.csv") {
        begin(QStringLiteral("collect sim:trx?rate=5 --keep-trying -o ") + QLatin1String(name));
        live(8);
        EXPECT_EQ(syncs, 0);
        line->unplugged = true;
        live(2);
        line->unplugged = false;
        live(20);
        EXPECT_NE(result().error.find("Connected again"), std::string::npos) << result().error;
    }
    /// Ends it; returns how many record files were kept.
    int keptAtTheEnd() {
        failing = false;
        visit->interrupt(2);
        live(5);
        EXPECT_EQ(answered.status, 130);
        return static_cast<int>(folder.files().filter(QStringLiteral("Orvtemp-2026")).size());
    }
};

TEST_F(SyncedOutput, IsOnTheDiskBeforeTheNextRunBegins) {
    collectTwice();
    EXPECT_EQ(syncs, 1);
    EXPECT_EQ(keptAtTheEnd(), 0);
    EXPECT_TRUE(recordFile.isSaved());
}

TEST_F(SyncedOutput, LeavesTheRowsInTheRecordFileIfTheDiskFails) {
    failing = true;
    collectTwice();
    EXPECT_EQ(keptAtTheEnd(), 1) << "of the first run";
    EXPECT_FALSE(recordFile.isSaved()) << "a disk that has failed once is not trusted";
    EXPECT_NE(result().error.find("lake.csv could not be brought to the disk: Input/output error. The rows of this run "
                                  "stay in the record file too."),
              std::string::npos)
        << result().error;
}

class SyncedStandardOutput : public SyncedOutput {
protected:
    SyncedStandardOutput() {
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        standard.emplace(file.handle());
        otherOutput = &*standard;
    }

    QFile file{folder.path() + QStringLiteral("/lake.csv")};
    std::optional<StandardOutput> standard;
};

TEST_F(SyncedStandardOutput, IsOnTheDiskBeforeTheRecordFileIsGivenUp) {
    collectTwice("-");
    EXPECT_EQ(syncs, 1);
    EXPECT_EQ(keptAtTheEnd(), 0);
    EXPECT_EQ(syncs, 2);
    EXPECT_TRUE(recordFile.isSaved());
}

TEST_F(SyncedStandardOutput, LeavesTheRowsInTheRecordFileIfTheDiskFails) {
    failing = true;
    collectTwice("-");
    EXPECT_EQ(keptAtTheEnd(), 1);
    EXPECT_FALSE(recordFile.isSaved());
    EXPECT_NE(result().error.find("Standard output could not be brought to the disk: Input/output error."),
              std::string::npos)
        << result().error;
}

} // namespace
} // namespace orv
