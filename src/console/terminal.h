// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/operator.h"
#include "base/words.h"

#include <QIODevice>
#include <QJsonObject>
#include <QSet>

namespace orv {

/// Where a command answers: standard output for what was asked, standard error for everything else.
class Terminal {
public:
    /// How much is told beside the answer.
    enum class Speech { Quiet, Usual, Verbose };

    /// `progress`: somebody sits at standard error and sees how far the command has come.
    Terminal(QIODevice& output, QIODevice& error, bool progress, Speech speech);

    /// A line of the answer. Returns whether it was taken.
    bool print(const QString& line);
    bool print(const QJsonObject& object);

    /// What has to be known: what went wrong, or what became of data.
    void tell(const QString& text);
    /// What is good to know; nothing when quiet.
    void remark(const QString& text);
    /// A step; only when asked for.
    void detail(const QString& text);

    /// Shows how far the command has come, in place of what was shown before; the empty text takes it away.
    void showProgress(const QString& text);
    bool showsProgress() const { return progress_ && speech_ != Speech::Quiet; }

    Signal<QString> said; ///< Every line on standard error but the progress.

    QIODevice& output() { return output_; }
    /// Brings what standard output has taken to the disk if it is a file; says why that cannot be done.
    Words syncOutput() const;

    /// What the system said when standard output first took a line no more; empty if it has taken all.
    const QString& problem() const { return problem_; }

private:
    void say(const QString& text);

    QIODevice& output_;
    QIODevice& error_;
    bool progress_;
    Speech speech_;
    QString shown_; ///< Of the progress.
    QString problem_;
};

/// "[#####               ]  25 %"
QString progressBar(double share);

/// Tells each message on standard error, and the same one only once until forget().
class ConsoleMessages final : public OperatorMessages {
public:
    explicit ConsoleMessages(Terminal& terminal)
        : terminal_(terminal) {}

    void show(const Message& message) override;

    /// What has been told is worth telling again.
    void forget() { told_.clear(); }

private:
    Terminal& terminal_;
    QSet<QString> told_;
};

/// Answers at once, so that nothing ever waits for somebody: No, and no file. What was asked is told.
class SafeAnswers final : public OperatorQuestions {
public:
    explicit SafeAnswers(Terminal& terminal)
        : terminal_(terminal) {}

    [[nodiscard]] Subscription ask(const Question& question, Answered answered) override;

private:
    Terminal& terminal_;
};

} // namespace orv
