// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "program/program.h"
#include "sheet/datasheet.h"

#include <QGroupBox>
#include <QLabel>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

namespace orv {

/// The newest row of the sheet in large figures, to be read from a few steps away. Drawn about five times a second
/// while rows come, and not at all while hidden.
class NewestRowScreen final : public QGroupBox {
public:
    NewestRowScreen(const DataSheet& sheet, const SheetState& shown, QWidget* parent = nullptr);

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

/// The page "Status and Controls". The counts of rows and of the receive buffer follow every change, which may come 200
/// times a second; they are painted about five times a second.
class StatusPage final : public QWidget {
public:
    /// What the page's buttons do.
    struct Actions {
        std::function<void()> run;
        std::function<void()> reset;
        std::function<void()> resetShutter;
    };

    StatusPage(Program& program, const Actions& actions, QWidget* parent = nullptr);

private:
    QWidget* makeStatusBox(Program& program);
    QWidget* makeInstrumentBox(Program& program);
    QWidget* makeControlsBox(Program& program, const Actions& actions);
    void setCount(QLabel* label, const QString& text);

    std::vector<QLabel*> counts_;
    QTimer countsTimer_;
    Bindings bindings_;
};

} // namespace orv
