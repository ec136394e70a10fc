// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/interruption.h"
#include "matrix/faultyline.h"
#include "testing/consolerig.h"
#include "testing/keptrows.h"

#include <set>

namespace orv {

/// The real program in a folder, on a line on which things go wrong; the operator, the clock and the one who starts
/// commands of `orv` are the test.
class MatrixBench : public ConsoleRig {
public:
    /// What is taken is noted in `taken`.
    MatrixBench(const QString& folder, FaultyLine::Way way, TakenRows& taken);
    ~MatrixBench();
    MatrixBench(const MatrixBench&) = delete;
    MatrixBench& operator=(const MatrixBench&) = delete;

    /// The instrument on COM 1: five points a block, six records in its memory.
    static constexpr const char* instrument = "sim:trx?rate=5&points=5&records=6";
    static constexpr const char* otherInstrument = "sim:glow?rate=5&points=5&records=6";
    static constexpr int rowsOfBlock = 5;
    static constexpr int recordsInMemory = 6;

    void load();

    /// Lets the clock run, ten milliseconds a step, and notes how long a click would have had to wait.
    void pass(qint64 milliseconds);
    bool passUntil(qint64 longest, const std::function<bool()>& reached);
    /// The operator does something at once.
    void click(const std::function<void()>& action);

    /// Whether what the operator has begun is over.
    bool isAtRest() const;
    bool isReady() const;

    // What is done before and after the undertaking that is tried; it throws if it does not succeed.
    void connect();
    void runBlock();
    /// Puts the settings from before the undertaking on the screen and sends them.
    void sendSettingsOfBefore();
    void save(const QString& name);

    QString place(const char* name) const { return QDir(folder_).filePath(QLatin1String(name)); }

    /// From now on `told` has each sentence that the operator has been told, in message boxes and beside the status.
    void listen();
    std::vector<QString> told;

    /// The folder is removed with what is in it. What was there counts as made.
    void removeFolder();
    bool hasMade(const char* name) const;

    /// The same as FaultyLine::watch(), also for a line that is still to be made.
    void watchLine(qint64 at, std::function<void()> strike);
    FaultyLine* faulty = nullptr;
    qint64 longestStep = 0; ///< Milliseconds of the processor's time in which no click could be answered.
    std::optional<Interruption> interruption;
    LoggerSettings settingsBefore; ///< Of the undertaking.

private:
    void note(const QString& sentence);
    template <typename Property>
    void follow(Property& property);

    QString folder_;
    QStringList removed_; ///< Files.
    TakenRows& taken_;
    qint64 strikeAt_ = 0;
    std::function<void()> strike_;
    bool listens_ = false;
    QString nextStep_;
    std::vector<QPropertyNotifier> notifiers_;
    std::vector<Subscription> subscriptions_;
};

} // namespace orv
