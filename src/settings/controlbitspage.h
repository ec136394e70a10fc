// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/binding.h"
#include "settings/settingspanel.h"

#include <QGroupBox>

namespace orv {

/// The frame "Control Bits": the six flags and the status lamp.
class ControlBitsPage final : public QGroupBox {
public:
    explicit ControlBitsPage(SettingsPanel& panel);

private:
    Bindings bindings_;
};

} // namespace orv
