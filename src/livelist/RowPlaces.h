// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractListModel>

namespace elmworth {

/// The rows of another list by their places alone: another row in a place is a change there, and
/// rows come and go at the end. A grid view makes and destroys an item for each row that comes and
/// goes, which takes longer than a frame when somebody types into a search field; this way its
/// items stay and show something else.
class RowPlaces final : public QAbstractListModel {
 public:
    /// The list of `source`, which outlives it and has no rows yet.
    explicit RowPlaces(const QAbstractListModel& source);

    /// Shows what `source` holds now. What it tells of changed data is passed on by itself, but not
    /// what comes, moves and goes.
    void catchUp();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : count_;
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override { return source_.roleNames(); }

 private:
    void resize(int count);

    const QAbstractListModel& source_;
    int count_ = 0;
};

}  // namespace elmworth
