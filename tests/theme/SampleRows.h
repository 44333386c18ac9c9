// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <vector>

#include "livelist/LiveListModel.h"
#include "theme/KeyedSelection.h"

namespace elmworth::test {

struct SampleRow {
    Q_GADGET
    Q_PROPERTY(QString text MEMBER text)

 public:
    int id = 0;
    QString text;

    friend bool operator==(const SampleRow&, const SampleRow&) = default;
};

/// Rows "1", "2" ... with a selection.
class SampleRows : public QObject {
    Q_OBJECT
    Q_PROPERTY(QAbstractItemModel* rows READ rows CONSTANT)
    Q_PROPERTY(elmworth::KeyedSelection* selection READ selection CONSTANT)

 public:
    [[nodiscard]] QAbstractItemModel* rows() { return &rows_; }
    [[nodiscard]] RowSelection<PlainRows<SampleRow>>* selection() { return &selection_; }

    /// Shows so many rows, none of them selected.
    Q_INVOKABLE void show(int count) {
        std::vector<SampleRow> rows;
        for (int i = 1; i <= count; ++i) rows.push_back({i, QString::number(i)});
        rows_.setRows(std::move(rows));
        selection_.clear();
        selection_.rowsChanged();
    }
    Q_INVOKABLE void remove(int id) {
        auto rows = rows_.rows();
        std::erase_if(rows, [id](const SampleRow& row) { return row.id == id; });
        rows_.setRows(std::move(rows));
        selection_.rowsChanged();
    }
    /// The texts of what is selected, "2 3".
    Q_INVOKABLE [[nodiscard]] QString selected() const {
        QStringList texts;
        for (const auto& row : rows_.rows()) {
            if (selection_.contains(row.id)) texts.append(row.text);
        }
        return texts.join(u' ');
    }

 private:
    LiveListModel<SampleRow> rows_;
    RowSelection<PlainRows<SampleRow>> selection_{rows_};
};

}  // namespace elmworth::test
