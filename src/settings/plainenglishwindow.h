// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingspanel.h"

#include <QScrollArea>
#include <QWidget>

namespace orv {

/// The screen "In Plain English": what the instrument will do under the settings on the settings screen, as they were
/// when the screen was opened.
class PlainEnglishWindow final : public QWidget {
public:
    explicit PlainEnglishWindow(const LoggerSettings& record, QWidget* parent = nullptr);

    /// Describes the present settings and shows the screen.
    void open();

private:
    QWidget* makeText() const;

    const LoggerSettings& record_;
    QScrollArea* area_;
};

} // namespace orv
