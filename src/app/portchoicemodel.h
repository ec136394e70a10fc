// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/portchoices.h"

#include <QAbstractListModel>

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

} // namespace orv
