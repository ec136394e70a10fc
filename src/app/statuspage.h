// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/program.h"
#include "session/binding.h"

#include <QLabel>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

namespace orv {

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
