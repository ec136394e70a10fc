// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/binding.h"
#include "sheet/datasheet.h"
#include "sheet/sheetpanel.h"

#include <QGroupBox>
#include <QLabel>
#include <QTimer>

#include <vector>

namespace orv {

/// The newest row of the sheet in large figures, to be read from a few steps away. Drawn about five times a second
/// while rows come, and not at all while hidden.
class NewestRowScreen final : public QGroupBox {
public:
    NewestRowScreen(const DataSheet& sheet, const SheetPanel& panel, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void draw();

    const DataSheet& sheet_;
    std::vector<QLabel*> captions_;
    std::vector<QLabel*> values_;
    QLabel* empty_;
    QTimer drawTimer_;
    Bindings bindings_;
};

} // namespace orv
