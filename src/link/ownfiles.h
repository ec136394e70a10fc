// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/session.h"

namespace orv {

/// Passes every question on. When the operator chooses to save over a file that the program itself is writing (the
/// record file of the run, the log, and what stands beside them), the operator is told so and the choice counts as
/// cancelled: the later rows of the run would go to a file that is gone.
class OwnFilesKept final : public OperatorQuestions {
public:
    OwnFilesKept(OperatorQuestions& asked, const Session& session);

    [[nodiscard]] Subscription ask(const Question& question, Answered answered) override;

private:
    bool isOwn(const QString& name) const;

    OperatorQuestions& asked_;
    const Session& session_;
};

} // namespace orv
