// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "ui/widgets.h"

#include <vector>

namespace orv {

/// The page "Status and Controls". The counts of rows and of the receive buffer follow every change, which may come 200
/// times a second; they are painted about five times a second.
class StatusPage final : public QWidget {
public:
    explicit StatusPage(Program& program);

private:
    QGroupBox* makeStatusBox(const StatusState& shown);
    QGroupBox* makeInstrumentBox(const Program& program);
    QGroupBox* makeControlsBox(Program& program);
    void setCount(QLabel* label, const QString& text);

    std::vector<QLabel*> counts_;
    Redrawing redrawing_; ///< Of the counts.
    Bindings bindings_;
};

} // namespace orv
