// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/ProjectRowsModel.h"

#include <algorithm>

namespace elmworth {

int ProjectRowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ProjectRowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const auto& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case NameRole:
            return row.name;
        case ClientRole:
            return row.client;
        case ColorRole:
            return row.color;
        default:
            return {};
    }
}

QHash<int, QByteArray> ProjectRowsModel::roleNames() const {
    return {{NameRole, "name"}, {ClientRole, "client"}, {ColorRole, "projectColor"}};
}

void ProjectRowsModel::setRows(const std::vector<Row>& rows) {
    removeMissing(rows);
    for (std::size_t i = 0; i < rows.size(); ++i) place(i, rows[i]);
}

void ProjectRowsModel::removeMissing(const std::vector<Row>& wanted) {
    for (std::size_t i = rows_.size(); i-- > 0;) {
        const bool stays = std::any_of(wanted.begin(), wanted.end(),
                                       [&](const Row& row) { return row.id == rows_[i].id; });
        if (stays) continue;
        beginRemoveRows({}, static_cast<int>(i), static_cast<int>(i));
        rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(i));
        endRemoveRows();
    }
}

/// Brings `row` to `position`; the rows before it are in place already.
void ProjectRowsModel::place(std::size_t position, const Row& row) {
    const auto found = std::find_if(rows_.begin(), rows_.end(),
                                    [&](const Row& other) { return other.id == row.id; });
    const auto target = rows_.begin() + static_cast<std::ptrdiff_t>(position);
    const int to = static_cast<int>(position);
    if (found == rows_.end()) {
        beginInsertRows({}, to, to);
        rows_.insert(target, row);
        endInsertRows();
        return;
    }
    if (found != target) {
        const int from = static_cast<int>(found - rows_.begin());
        beginMoveRows({}, from, from, {}, to);
        std::rotate(target, found, found + 1);
        endMoveRows();
    }
    if (*target != row) {
        *target = row;
        Q_EMIT dataChanged(index(to), index(to));
    }
}

}  // namespace elmworth
