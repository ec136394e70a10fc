// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/binding.h"
#include "settings/progresspanel.h"

#include <QDialog>

#include <functional>

namespace orv {

/// The dialog "Processing": how far a retrieval, a sending or a download has come. It does not block other windows;
/// closing it only hides it.
class ProgressDialog final : public QDialog {
public:
    explicit ProgressDialog(ProgressPanel& panel, QWidget* parent = nullptr);

    /// What the "Abort" button does; empty: nothing.
    std::function<void()> abort;

    void reject() override;

private:
    ProgressPanel& panel_;
    Bindings bindings_;
};

} // namespace orv
