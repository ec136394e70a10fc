// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/portchoicemodel.h"

#include <algorithm>

namespace orv {

QString described(const PortChoice& choice) {
    return choice.description.isEmpty() ? choice.device
                                        : QStringLiteral("%1 - %2").arg(choice.device, choice.description);
}

void PortChoiceModel::setChoices(const QList<PortChoice>& wanted) {
    const auto removeRow = [this](int row) {
        beginRemoveRows({}, row, row);
        choices_.removeAt(row);
        endRemoveRows();
    };
    for (int row = rowCount() - 1; row >= 0; --row) {
        const bool stays = std::any_of(wanted.begin(), wanted.end(), [this, row](const PortChoice& choice) {
            return choice.device == choices_.at(row).device;
        });
        if (!stays) {
            removeRow(row);
        }
    }
    for (int row = 0; row < wanted.size(); ++row) {
        if (row < rowCount() && choices_.at(row).device == wanted.at(row).device) {
            if (choices_.at(row) != wanted.at(row)) {
                choices_[row] = wanted.at(row);
                Q_EMIT dataChanged(index(row), index(row));
            }
        } else {
            beginInsertRows({}, row, row);
            choices_.insert(row, wanted.at(row));
            endInsertRows();
        }
    }
    for (int row = rowCount() - 1; row >= wanted.size(); --row) {
        removeRow(row);
    }
}

int PortChoiceModel::rowOf(const QString& device) const {
    const auto found = std::find_if(choices_.begin(), choices_.end(),
                                    [&device](const PortChoice& choice) { return choice.device == device; });
    return found == choices_.end() ? -1 : static_cast<int>(found - choices_.begin());
}

int PortChoiceModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(choices_.size());
}

QVariant PortChoiceModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const PortChoice& choice = choices_.at(index.row());
    switch (role) {
    case Qt::EditRole:
        return choice.device;
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return described(choice);
    default:
        return {};
    }
}

} // namespace orv
