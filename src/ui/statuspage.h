// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"

#include <QGroupBox>
#include <QTimer>

#include <vector>

class QLabel;

namespace orv {

/// The newest row of the sheet in large figures, to be read from a few steps away. Drawn about five times a second
/// while rows come, and not at all while hidden.
class NewestRowScreen final : public QGroupBox {
public:
    explicit NewestRowScreen(const Program& program);

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
    explicit StatusPage(Program& program);

private:
    QGroupBox* makeStatusBox(const StatusState& shown);
    QGroupBox* makeInstrumentBox(const Program& program);
    QGroupBox* makeControlsBox(Program& program);
    void setCount(QLabel* label, const QString& text);

    std::vector<QLabel*> counts_;
    QTimer countsTimer_;
    Bindings bindings_;
};

} // namespace orv
