// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMetaProperty>
#include <unordered_set>
#include <utility>
#include <vector>

#include "livelist/LiveRowModel.h"

namespace elmworth {

/// A live list of finished rows: `Row` is a Q_GADGET whose properties are the model's roles, by
/// their names. A sequence that names an id twice shows it where it stands first.
///
/// Hand it to QML as a property of type `QAbstractItemModel*`.
template <class Row>
class LiveListModel : public LiveRowModel<Row> {
 public:
    static constexpr int firstRole = Qt::UserRole + 1;

    using LiveRowModel<Row>::LiveRowModel;

    /// Shows `rows`. Whoever hears of a step on the way does not call this again meanwhile.
    void setRows(std::vector<Row> rows) {
        std::unordered_set<decltype(Row::id)> seen;
        std::erase_if(rows, [&](const Row& row) { return !seen.insert(row.id).second; });
        this->applyDiff(std::move(rows));
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (!this->checkIndex(index, QAbstractItemModel::CheckIndexOption::IndexIsValid)) return {};
        return property(role).readOnGadget(&this->rows()[static_cast<std::size_t>(index.row())]);
    }
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override {
        QHash<int, QByteArray> names;
        for (int role = firstRole; property(role).isValid(); ++role) {
            names.insert(role, property(role).name());
        }
        return names;
    }

 protected:
    [[nodiscard]] QList<int> changedRoles(const Row& shown, const Row& next) const override {
        QList<int> roles;
        for (int role = firstRole; property(role).isValid(); ++role) {
            const QMetaProperty field = property(role);
            if (field.readOnGadget(&shown) != field.readOnGadget(&next)) roles.append(role);
        }
        return roles;
    }

 private:
    [[nodiscard]] static QMetaProperty property(int role) {
        return Row::staticMetaObject.property(role - firstRole);
    }
};

}  // namespace elmworth
