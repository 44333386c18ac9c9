// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "livelist/RowPlaces.h"

#include <algorithm>

namespace elmworth {

RowPlaces::RowPlaces(const QAbstractListModel& source) : source_(source) {
    connect(&source_, &QAbstractListModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
                if (last.row() < count_)
                    Q_EMIT dataChanged(index(first.row()), index(last.row()), roles);
            });
}

void RowPlaces::catchUp() {
    const int kept = std::min(count_, source_.rowCount());
    resize(source_.rowCount());
    if (kept > 0) Q_EMIT dataChanged(index(0), index(kept - 1));
}

void RowPlaces::resize(int count) {
    if (count < count_) {
        beginRemoveRows({}, count, count_ - 1);
        count_ = count;
        endRemoveRows();
    } else if (count > count_) {
        beginInsertRows({}, count_, count - 1);
        count_ = count;
        endInsertRows();
    }
}

QVariant RowPlaces::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, QAbstractItemModel::CheckIndexOption::IndexIsValid)) return {};
    return source_.data(source_.index(index.row()), role);
}

}  // namespace elmworth
