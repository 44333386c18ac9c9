// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/clients/ClientCardsModel.h"

#include <QMetaProperty>

namespace elmworth {

namespace {

QMetaProperty fieldOf(int role) {
    return ClientCardTexts::staticMetaObject.property(role - ClientCardsModel::firstRole);
}

}  // namespace

void ClientCardsModel::forgetTexts() {
    made_.clear();
    if (!rows().empty()) Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

void ClientCardsModel::forgetTexts(const std::unordered_set<PersistentID>& clients) {
    for (int row = 0; row < rowCount(); ++row) {
        const auto& id = rows()[static_cast<std::size_t>(row)].id;
        // Nobody has seen what was never made.
        if (!clients.contains(id) || made_.erase(id) == 0) continue;
        Q_EMIT dataChanged(index(row), index(row));
    }
}

QVariant ClientCardsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, QAbstractItemModel::CheckIndexOption::IndexIsValid)) return {};
    const auto& id = rows()[static_cast<std::size_t>(index.row())].id;
    auto found = made_.find(id);
    if (found == made_.end()) {
        auto texts = make_(id);
        if (!texts) return {};
        found = made_.emplace(id, std::move(*texts)).first;
    }
    return fieldOf(role).readOnGadget(&found->second);
}

QHash<int, QByteArray> ClientCardsModel::roleNames() const {
    QHash<int, QByteArray> names;
    for (int role = firstRole; fieldOf(role).isValid(); ++role) {
        names.insert(role, fieldOf(role).name());
    }
    return names;
}

}  // namespace elmworth
