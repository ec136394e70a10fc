// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

namespace orv {

/// The About dialog: the program's name and version.
class AboutDialog final : public QDialog {
public:
    explicit AboutDialog(QWidget* parent = nullptr);
};

} // namespace orv
