// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/observe.h"
#include "link/portchoices.h"

#include <QAbstractListModel>
#include <QComboBox>
#include <QGroupBox>
#include <QTimer>

class QGridLayout;

namespace orv {

/// The devices of a port chooser. An entry is shown with its description; chosen, it is its device alone.
class PortChoiceModel final : public QAbstractListModel {
public:
    /// Takes over a list. Entries that stay keep their place, so that an open list does not jump.
    void setChoices(const QList<PortChoice>& wanted);

    /// The row of a device; -1 if there is none.
    int rowOf(const QString& device) const;
    QString device(int row) const { return choices_.at(row).device; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    QList<PortChoice> choices_;
};

/// A device and what is known of it, for the operator.
QString described(const PortChoice& choice);

/// The chooser of the device behind COM 1 or COM 2: a list of devices into which any other can be typed. What is typed
/// counts once it is finished, by Enter or by leaving the box; Esc takes it back. What an assistive program sets counts
/// at once, unless the box has the focus. Disabled while the port is in use.
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
    bool typing_ = false; ///< What the box holds has not been finished.
    Bindings bindings_;
};

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
