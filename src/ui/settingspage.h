// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"

#include <QGridLayout>
#include <QGroupBox>

namespace orv {

/// The frame of a tab of the settings window, and what it keeps to follow the program.
class SettingsPage final : public QGroupBox {
public:
    SettingsPage(const QString& title, const char* name)
        : QGroupBox(title) {
        setObjectName(QLatin1String(name));
    }

    Bindings bindings;
};

inline QGridLayout* makeGrid(int horizontalSpacing, int verticalSpacing, QWidget* page = nullptr) {
    auto* grid = new QGridLayout(page);
    grid->setHorizontalSpacing(horizontalSpacing);
    grid->setVerticalSpacing(verticalSpacing);
    return grid;
}

} // namespace orv
