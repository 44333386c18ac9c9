// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractListModel>
#include <QMetaProperty>
#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

#include "livelist/RowMove.h"

namespace elmworth {

/// A list for views that follows a sequence of rows. A new sequence is taken over by removing,
/// moving, changing and inserting rows, never by a reset, so that focus, selection, scroll position
/// and the pointer stay with their row. As few rows as possible move.
///
/// `Row` is a Q_GADGET: its properties are the model's roles, by their names. Its member `id` says
/// which row is the same one (std::hash, ==); rows are compared by == to see what changed. A
/// sequence that names an id twice shows it where it stands first.
///
/// Hand it to QML as a property of type `QAbstractItemModel*`.
template <class Row>
class LiveListModel : public QAbstractListModel {
 public:
    static constexpr int firstRole = Qt::UserRole + 1;

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] const std::vector<Row>& rows() const noexcept { return rows_; }

    /// Shows `rows`. Whoever hears of a step on the way does not call this again meanwhile.
    void setRows(std::vector<Row> rows) {
        const Positions wanted = positionsOf(rows);
        removeAllBut(wanted);
        moveIntoOrder(wanted);
        changeAndInsert(rows);
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
        return property(role).readOnGadget(&rows_[static_cast<std::size_t>(index.row())]);
    }
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override {
        QHash<int, QByteArray> names;
        for (int role = firstRole; property(role).isValid(); ++role) {
            names.insert(role, property(role).name());
        }
        return names;
    }

 private:
    using Positions = std::unordered_map<decltype(Row::id), std::size_t>;

    [[nodiscard]] static QMetaProperty property(int role) {
        return Row::staticMetaObject.property(role - firstRole);
    }
    [[nodiscard]] auto at(std::size_t i) { return rows_.begin() + static_cast<std::ptrdiff_t>(i); }

    /// The position of each row; takes repeated ones out.
    static Positions positionsOf(std::vector<Row>& rows) {
        Positions positions;
        std::erase_if(rows, [&](const Row& row) {
            return !positions.try_emplace(row.id, positions.size()).second;
        });
        return positions;
    }

    void removeAllBut(const Positions& wanted) {
        for (std::size_t end = rows_.size(); end > 0; --end) {
            std::size_t begin = end;
            while (begin > 0 && !wanted.contains(rows_[begin - 1].id)) --begin;
            if (begin == end) continue;
            beginRemoveRows({}, static_cast<int>(begin), static_cast<int>(end) - 1);
            rows_.erase(at(begin), at(end));
            endRemoveRows();
            end = begin + 1;
        }
    }

    void moveIntoOrder(const Positions& wanted) {
        std::vector<std::size_t> order;
        for (const Row& row : rows_) order.push_back(wanted.at(row.id));
        for (const auto [from, to] : movesIntoOrder(std::move(order))) {
            const int row = static_cast<int>(from);
            beginMoveRows({}, row, row, {}, static_cast<int>(to));
            if (from < to) {
                std::rotate(at(from), at(from + 1), at(to));
            } else {
                std::rotate(at(to), at(from), at(from + 1));
            }
            endMoveRows();
        }
    }

    /// All present rows are in order; the missing ones come between them in runs.
    void changeAndInsert(const std::vector<Row>& rows) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::size_t begin = i;
            while (i < rows.size() && !(begin < rows_.size() && rows_[begin].id == rows[i].id)) ++i;
            if (begin < i) insert(begin, i, rows);
            if (i < rows.size() && rows_[i] != rows[i]) change(i, rows[i]);
        }
    }

    void insert(std::size_t begin, std::size_t end, const std::vector<Row>& rows) {
        beginInsertRows({}, static_cast<int>(begin), static_cast<int>(end) - 1);
        rows_.insert(at(begin), rows.begin() + static_cast<std::ptrdiff_t>(begin),
                     rows.begin() + static_cast<std::ptrdiff_t>(end));
        endInsertRows();
    }

    void change(std::size_t i, const Row& row) {
        QList<int> roles;
        for (int role = firstRole; property(role).isValid(); ++role) {
            const QMetaProperty field = property(role);
            if (field.readOnGadget(&rows_[i]) != field.readOnGadget(&row)) roles.append(role);
        }
        rows_[i] = row;
        const QModelIndex where = index(static_cast<int>(i));
        if (!roles.isEmpty()) Q_EMIT dataChanged(where, where, roles);
    }

    std::vector<Row> rows_;
};

}  // namespace elmworth
