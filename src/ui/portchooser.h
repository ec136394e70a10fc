// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/portchoices.h"
#include "ui/focus.h"

#include <QAbstractListModel>
#include <QComboBox>

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

    int portNumber() const { return portNumber_; }
    /// What the box holds has not been finished.
    const QProperty<bool>& typing() const { return typing_; }

    void showPopup() override;

    /// What is being typed counts from now on.
    void finish();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool takeKey(int key);
    void choose(const QString& device);
    void showDevice();
    void setChoices(const QList<PortChoice>& list);
    void setLock(const QString& reason);
    void showToolTip();
    void keepReadable();

    PortChoices& choices_;
    int portNumber_;
    PortChoiceModel model_;
    QProperty<bool> typing_{false};
    bool finishing_ = false; ///< The Enter key being handled finishes what was typed.
    Bindings bindings_;
};

} // namespace orv
