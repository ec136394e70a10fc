// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/portchoicemodel.h"
#include "session/binding.h"

#include <QComboBox>

namespace orv {

/// The chooser of the device behind COM 1 or COM 2: a list of devices into which any other can be typed. What is typed
/// counts once it is finished, by Enter or by leaving the box; Esc takes it back. Disabled while the port is in use.
class PortChooser final : public QComboBox {
public:
    PortChooser(PortChoices& choices, int portNumber);

    void showPopup() override;

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void choose(const QString& device);
    void showDevice();
    void setChoices(const QList<PortChoice>& list);
    void setLock(const QString& reason);
    void showToolTip();
    void keepReadable();

    PortChoices& choices_;
    int portNumber_;
    PortChoiceModel model_;
    Bindings bindings_;
};

} // namespace orv
