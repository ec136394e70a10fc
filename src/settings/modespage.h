// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/binding.h"
#include "settings/modes.h"

#include <QGroupBox>

namespace orv {

/// The frame "Modes": built-in modes, mode files, and the way to the description in sentences.
class ModesPage final : public QGroupBox {
public:
    /// `viewAsText` shows the settings in plain English.
    ModesPage(Session& session, SettingsPanel& panel, Modes& modes, const std::function<void()>& viewAsText);

private:
    Bindings bindings_;
};

} // namespace orv
