// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/session.h"

namespace orv {

/// Asks through another, but takes no file that the program itself writes at that time (the record file of the run, the
/// log, and their locks) as a place to save something: the operator is told, and it counts as cancelled. Replacing the
/// record file would have every later row of the run written to a file that is gone.
class OwnFilesKept final : public OperatorQuestions {
public:
    OwnFilesKept(OperatorQuestions& asked, const Session& session);

    bool askYesNo(const QString& title, const QString& text) override;
    QString saveFileName(const QString& title, const QString& presetName, const QString& suffix,
                         const QString& filter) override;
    QString openFileName(const QString& title, const QString& suffix, const QString& filter) override;

private:
    bool isOwn(const QString& name) const;

    OperatorQuestions& asked_;
    const Session& session_;
};

} // namespace orv
