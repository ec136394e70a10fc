// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/portchoices.h"
#include "session/binding.h"

#include <QGroupBox>
#include <QTimer>

class QGridLayout;

namespace orv {

/// The choosers of COM 1 and COM 2 side by side, each with what is wrong with the last choice below it. Their lists
/// follow the ports that come and go about every two seconds, while the box can be seen, and when one is opened.
class PortsBox final : public QGroupBox {
public:
    explicit PortsBox(PortChoices& choices);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void addChooser(QGridLayout& layout, int portNumber);

    PortChoices& choices_;
    QTimer refreshTimer_{this};
    Bindings bindings_;
};

} // namespace orv
