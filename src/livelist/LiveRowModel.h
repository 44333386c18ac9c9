// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractListModel>
#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <utility>
#include <vector>

#include "livelist/RowMove.h"

namespace elmworth {

/// A list that follows a sequence of rows. A new sequence is taken over by removing, moving,
/// changing and inserting rows, never by a reset, so that focus, selection, scroll position and the
/// pointer stay with their row. As few rows as possible move; where the sequences begin and end
/// alike, no row is hashed. A sequence that would take more than `mostSteps` steps is another list
/// to those who look at it: all rows between the alike ends are replaced at once.
///
/// The member `id` of a `Row` says which row is the same one (std::hash, ==); rows are compared by
/// == to see what changed. The heirs say what their roles show.
template <class Row>
class LiveRowModel : public QAbstractListModel {
 public:
    using QAbstractListModel::QAbstractListModel;

    /// Each step costs as much as there are rows behind it.
    static constexpr std::size_t mostSteps = 100;

    [[nodiscard]] const std::vector<Row>& rows() const noexcept { return rows_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }

 protected:
    /// Shows `rows`, of which no two have the same id. Whoever hears of a step on the way does not
    /// call this again meanwhile.
    void applyDiff(std::vector<Row> rows) { replaceRows(0, rows_.size(), std::move(rows)); }

    /// The same for the `count` rows from `first` on, whatever the others are: none of those has an
    /// id of `rows`.
    void replaceRows(std::size_t first, std::size_t count, std::vector<Row> rows) {
        const std::size_t behind = rows_.size() - first - count;
        const std::size_t shorter = std::min(rows.size(), count);
        std::size_t head = 0;
        while (head < shorter && rows[head].id == rows_[first + head].id) ++head;
        std::size_t tail = 0;
        while (tail < shorter - head &&
               rows[rows.size() - 1 - tail].id == rows_[first + count - 1 - tail].id) {
            ++tail;
        }
        reorder({rows, first, first + rows.size() - tail}, first + head, behind + tail);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (!(rows_[first + i] == rows[i])) change(first + i, rows[i]);
        }
        // Equal rows may still refer to things of their own.
        std::move(rows.begin(), rows.end(), at(first));
    }

    /// The roles that show something else for `next` than for `shown`, which is the same row.
    [[nodiscard]] virtual QList<int> changedRoles(const Row& shown, const Row& next) const = 0;

 private:
    using Positions = std::unordered_map<decltype(Row::id), std::size_t>;

    [[nodiscard]] auto at(std::size_t i) { return rows_.begin() + static_cast<std::ptrdiff_t>(i); }

    /// The rows to be: `rows` from the place `first` on, of which those from `end` on stay.
    struct Part {
        const std::vector<Row>& rows;
        std::size_t first;
        std::size_t end;

        [[nodiscard]] const Row& operator[](std::size_t i) const { return rows[i - first]; }
    };

    /// Brings the rows between the first `head` and the last `tail`, which stay, into the order of
    /// `next`.
    void reorder(const Part& next, std::size_t head, std::size_t tail) {
        if (head + tail < rows_.size()) {
            Positions wanted;
            wanted.reserve(next.end - head);
            for (std::size_t i = head; i < next.end; ++i) wanted.emplace(next[i].id, i);
            if (stepCount(wanted, head, tail) > mostSteps) {
                removeAllBut({}, head, tail);
            } else {
                removeAllBut(wanted, head, tail);
                moveIntoOrder(wanted, head, tail);
            }
        }
        insertMissing(next, head);
    }

    /// How many runs of rows go, how many rows move, and how many runs come.
    [[nodiscard]] std::size_t stepCount(const Positions& wanted, std::size_t head,
                                        std::size_t tail) const {
        std::size_t steps = 0;
        bool isInRun = false;
        std::vector<std::size_t> order;
        std::vector<bool> isMissing(wanted.size(), true);
        for (std::size_t i = head; i < rows_.size() - tail; ++i) {
            const auto found = wanted.find(rows_[i].id);
            const bool goes = found == wanted.end();
            if (goes && !isInRun) ++steps;
            isInRun = goes;
            if (goes) continue;
            order.push_back(found->second);
            isMissing[found->second - head] = false;
        }
        for (std::size_t i = 0; i < isMissing.size(); ++i) {
            if (isMissing[i] && (i == 0 || !isMissing[i - 1])) ++steps;
        }
        return steps + moveCountIntoOrder(order);
    }

    void removeAllBut(const Positions& wanted, std::size_t head, std::size_t tail) {
        for (std::size_t end = rows_.size() - tail; end > head; --end) {
            std::size_t begin = end;
            while (begin > head && !wanted.contains(rows_[begin - 1].id)) --begin;
            if (begin == end) continue;
            beginRemoveRows({}, static_cast<int>(begin), static_cast<int>(end) - 1);
            rows_.erase(at(begin), at(end));
            endRemoveRows();
            end = begin + 1;
        }
    }

    void moveIntoOrder(const Positions& wanted, std::size_t head, std::size_t tail) {
        std::vector<std::size_t> order;
        for (std::size_t i = head; i < rows_.size() - tail; ++i) {
            order.push_back(wanted.at(rows_[i].id));
        }
        for (const auto [from, to] : movesIntoOrder(std::move(order))) {
            move(head + from, head + to);
        }
    }

    void move(std::size_t from, std::size_t to) {
        const int row = static_cast<int>(from);
        beginMoveRows({}, row, row, {}, static_cast<int>(to));
        if (from < to) {
            std::rotate(at(from), at(from + 1), at(to));
        } else {
            std::rotate(at(to), at(from), at(from + 1));
        }
        endMoveRows();
    }

    /// All present rows are in order; the missing ones come between them in runs.
    void insertMissing(const Part& next, std::size_t from) {
        for (std::size_t i = from; i < next.end; ++i) {
            const std::size_t begin = i;
            while (i < next.end && !(begin < rows_.size() && rows_[begin].id == next[i].id)) ++i;
            if (begin < i) insert(begin, i, next);
        }
    }

    void insert(std::size_t begin, std::size_t end, const Part& next) {
        beginInsertRows({}, static_cast<int>(begin), static_cast<int>(end) - 1);
        const auto from = next.rows.begin() + static_cast<std::ptrdiff_t>(begin - next.first);
        rows_.insert(at(begin), from, from + static_cast<std::ptrdiff_t>(end - begin));
        endInsertRows();
    }

    void change(std::size_t i, const Row& row) {
        const QList<int> roles = changedRoles(rows_[i], row);
        rows_[i] = row;
        const QModelIndex where = index(static_cast<int>(i));
        if (!roles.isEmpty()) Q_EMIT dataChanged(where, where, roles);
    }

    std::vector<Row> rows_;
};

}  // namespace elmworth
