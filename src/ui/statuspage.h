// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "ui/widgets.h"

namespace orv {

class PortsBox;

/// The page "Status and Controls". The counts of rows and of the receive buffer, which may change a thousand times a
/// second, are drawn about four times a second.
class StatusPage final : public QWidget {
public:
    explicit StatusPage(Program& program);

    /// The Enter key, where no control uses it.
    void enter();

private:
    QGroupBox* makeStatusBox(const Program& program);
    QGroupBox* makeInstrumentBox(const Program& program);
    QGroupBox* makeControlsBox(Program& program);

    PortsBox* ports_;
    LateTexts counts_;
    Bindings bindings_;
};

} // namespace orv
