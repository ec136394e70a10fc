// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/manualconnection.h"
#include "session/binding.h"

#include <QDialog>

namespace orv {

/// The "Manual Connection" dialog. It does not block the main window.
class ManualConnectionDialog final : public QDialog {
public:
    /// `manual` and its panel outlive the dialog.
    explicit ManualConnectionDialog(ManualConnection& manual, QWidget* parent = nullptr);

    /// Esc and the frame's close button.
    void reject() override;

private:
    ManualConnection& manual_;
    Bindings bindings_;
};

} // namespace orv
