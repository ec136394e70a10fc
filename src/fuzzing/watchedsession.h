// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "testing/programrig.h"

#include <set>

namespace orv::fuzzing {

/// One program after another in one folder, with what comes over the line. What must hold of every session is looked at
/// from outside: no complete row is lost, files are whole, nothing is told twice.
class WatchedSession {
public:
    WatchedSession();

    ProgramRig& rig() { return *rig_; }
    QStringList files() const { return folder_.files(); }

    /// A program starts in the folder, as after a crash or for the first time, with a simulated instrument on COM 1 or,
    /// with `device` null, a line whose far end is in our hand. `yes` is the operator's answer to what it asks.
    void start(const char* device, bool yes);
    /// The program is gone in the middle of whatever it did.
    void stop();

    /// "Auto Connect Comm 1", to the end of the attempt. An instrument that is not simulated greets so.
    void connect(const QByteArray& greeting);
    /// "Run", if it can be clicked.
    void run();
    /// "Quit". Whether the program has ended; then it is stopped.
    bool quit();
    /// Lets the procedure under way end, if time alone brings that about.
    void calm();

    /// Something comes over the line, if there is an open one: complete rows of a run are no longer all that comes.
    void disturb(const QByteArray& bytes);
    /// The settings report and the time of day.
    void answerSettings();
    /// Complete rows of the instrument's layout come: `parts` 0 to wait until they are read, else in so many parts, 1
    /// or 2.
    void rowsCome(int count, int parts);
    /// So many stored records come after their echo, and then this.
    void dumpComes(int records, const char* end);
    /// The cable is pulled; what has arrived can still be read, or not.
    void pull(bool readable);
    void plug();

    /// From now on files do not grow beyond so many bytes; or, if that is so, there is room again.
    void fillDisk(rlim_t bytes) { limit_.emplace(bytes); }
    void emptyDisk() { limit_.reset(); }
    bool isDiskFull() const { return limit_.has_value(); }

    /// A name that no file has.
    QString newName(const char* kind);

    /// What is told from now on must not be told twice.
    void beginAction();
    /// What must hold after every action.
    void look();
    /// Whatever has been: with the faults gone, connecting, a run, saving and "Quit" work, and no row is lost. `yes` is
    /// the answer when rows are offered.
    void endWell(bool yes);

private:
    void arrive(const QByteArray& bytes);
    QByteArray dataLine(int values);
    bool deliversToRun();
    void take(int number, const DataRow& row);
    void lookForRows();
    void lookAtFiles() const;
    void runAndSave();

    const int descriptors_; ///< The lowest number that a file would be opened with: it shows whether one was left open.
    OwnFolder folder_;
    QDateTime now_{QDate(2026, 11, 21), QTime(9, 30, 15)};
    std::optional<ProgramRig> rig_;
    std::optional<FileSizeLimit> limit_;
    Subscription taking_;
    Subscription closing_;
    bool simulated_ = false;
    int lines_ = 0; ///< Data lines so far; their values are this number.
    int names_ = 0;
    std::size_t told_ = 0;             ///< Messages before the action.
    bool sendsTwice_ = false;          ///< A shutter reset is under way, whose two sendings may fail alike.
    bool delivering_ = false;          ///< Nothing but complete rows has come since the run began.
    std::set<QByteArray> expectTaken_; ///< First values of rows that came during a run and are still to be taken.
    std::vector<QByteArray> taken_;    ///< Signs of the rows that runs took while the record file could be written.
};

} // namespace orv::fuzzing
