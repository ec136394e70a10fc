// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "ui/focus.h"
#include "ui/portchooser.h"

#include <QGroupBox>
#include <QMouseEvent>
#include <QTimer>

#include <array>

class QGridLayout;

namespace orv {

/// The button beside the chooser of a port: "Connect", and "Disconnect" while the instrument is connected there. A
/// second click of a double click does not disconnect again. What is being typed into the chooser counts before it
/// connects; disabled, with the reason as its tool tip, while the chooser shows a text that was refused.
class ConnectButton final : public EndingButton {
public:
    ConnectButton(Program& program, PortChooser& chooser);

    /// Drawn as what the Enter key presses; only while it says "Connect".
    void setEnterPresses(bool on);

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override { event->accept(); }

private:
    QString refusal() const;
    void connectOrDisconnect();
    void follow();

    Program& program_;
    PortChooser& chooser_;
    int portNumber_;
    bool disconnects_ = false;
    bool enterPresses_ = false;
    Bindings bindings_;
};

/// The choosers of COM 1 and COM 2, each with its button, and with what is wrong with the last choice below it; below
/// both the next step. The lists follow the ports that come and go about every two seconds, while the box can be seen,
/// and when one is opened.
class PortsBox final : public QGroupBox {
public:
    explicit PortsBox(Program& program);
    ~PortsBox() override;
    PortsBox(const PortsBox&) = delete;
    PortsBox& operator=(const PortsBox&) = delete;

    /// The Enter key, where no control of the page uses it: connects, on the port where the focus is or was.
    void enter();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void addPort(QGridLayout& layout, int portNumber);
    void addNextStep(QGridLayout& layout);
    void noteFocus(QWidget* control);

    Program& program_;
    PortChoices& choices_;
    std::array<PortChooser*, 2> choosers_{};
    std::array<ConnectButton*, 2> buttons_{};
    std::size_t entered_ = 0; ///< The port that the Enter key connects.
    QTimer refreshTimer_{this};
    Bindings bindings_;
};

} // namespace orv
