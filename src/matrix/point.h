// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "matrix/faults.h"
#include "matrix/undertakings.h"
#include "testing/keptrows.h"

#include <QStringList>

#include <array>

namespace orv {

/// How an undertaking goes when nothing goes wrong.
struct Course {
    qint64 bytes = 0;
    qint64 greetingAt = 0; ///< Byte, from 1.
    std::vector<std::string> calls;
    qint64 milliseconds = 45'000; ///< At most.
};

/// What has become of an undertaking; of a program that may not live to tell it.
struct Outcome {
    TakenRows taken;
    bool struck = false;
    bool done = false;
    qint64 longestStep = 0;
    std::array<char, 128> keys{}; ///< Of what was told, with spaces between.

    void add(const char* key);
    QStringList tellings() const;
};

/// One fault, or none, at one point of one undertaking, and what has to hold then.
class Point {
public:
    /// `at`: the byte or the call, from 1.
    Point(const Undertaking& undertaking, const Fault* fault, qint64 at, unsigned seed);

    /// The program is this process or, if it may not survive, a child.
    void play(const Course& usual);

    const Outcome& outcome() const { return *outcome_; }
    const Course& course() const { return course_; }

private:
    void layOut();
    void playInChild();
    void playHere();
    void arm(MatrixBench& bench);
    void strike(MatrixBench& bench);
    void end(MatrixBench& bench, int signal);
    void giveUp(MatrixBench& bench);
    void noteCourse(const MatrixBench& bench);
    void judge(MatrixBench& bench);
    void expectToldOnce(MatrixBench& bench);
    void expectKept(const KeptRows& kept) const;
    void expectEveryRowTaken(const MatrixBench& bench) const;
    void expectWorks(MatrixBench& bench);
    void startNext();
    bool is(Fault::Then then) const { return fault_ != nullptr && fault_->then == then; }
    bool removesFolder() const { return fault_ != nullptr && fault_->removesFolder; }
    bool mayBeGone(int row, const QByteArray& cells) const;
    KeptRows::Flaw flaw() const;

    const Undertaking& undertaking_;
    const Fault* fault_;
    qint64 at_;
    std::minstd_rand random_;
    OwnFolder folder_;
    SharedWithChildren<Outcome> outcome_;
    Course course_;
    qint64 limit_ = 0;
    bool gone_ = false; ///< The program has ended, because it was told to.
    int rowsAtStrike_ = 0;
    int rowsJudged_ = 0;              ///< As many had been taken when the undertaking was over.
    std::optional<KeptRows> onSheet_; ///< What was not saved when the fault struck.
};

} // namespace orv
