// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProperty>
#include <QString>

namespace orv {

/// What the "Processing" dialog shows.
struct ProgressPanel {
    QProperty<bool> visible{false};
    QProperty<int> maximum{100};
    QProperty<int> value{0};
    QProperty<QString> label{QStringLiteral("%")};
    QProperty<QString> valueLabel;
    QProperty<QString> percentage; ///< Beside the "%" label during a download; empty otherwise.

    /// Shows the dialog as newly loaded.
    void show() {
        label = QStringLiteral("%");
        valueLabel = QString();
        percentage = QString();
        visible = true;
    }
};

} // namespace orv
