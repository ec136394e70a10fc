// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "ui/widgets.h"

namespace orv {

/// The page "Status and Controls". The counts of rows and of the receive buffer, which may change a thousand times a
/// second, are drawn about four times a second.
class StatusPage final : public QWidget {
public:
    explicit StatusPage(Program& program);

private:
    QGroupBox* makeStatusBox(const StatusState& shown);
    QGroupBox* makeInstrumentBox(const Program& program);
    QGroupBox* makeControlsBox(Program& program);

    LateTexts counts_;
    Bindings bindings_;
};

} // namespace orv
