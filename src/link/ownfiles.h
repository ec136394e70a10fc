// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/session.h"

namespace orv {

/// Passes every question on. When the operator chooses to save over a file that the program itself is writing (the
/// record file of the run, the log, and what stands beside them), the operator is told so and the choice counts as
/// cancelled: the later rows of the run would go to a file that is gone.
class OwnFilesKept final : public OperatorQuestions {
public:
    OwnFilesKept(OperatorQuestions& questions, Session& session);

    [[nodiscard]] Subscription ask(const Question& question, Answered given) override;

    Signal<Question> asked;
    Signal<Question, QString> answered; ///< As the operator has answered it.

    /// Whether this program, or another one in the same folder, writes the file of that name itself.
    bool isOwn(const QString& name) const;

private:
    OperatorQuestions& questions_;
    Session& session_;
};

} // namespace orv
