// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractListModel>
#include <QString>
#include <QtQmlIntegration>
#include <vector>

#include "core/store/PersistentID.h"

namespace elmworth {

/// A list of projects to start. A new list is taken over by removing, inserting, moving and
/// changing rows, so that focus and the pointer stay where they are.
class ProjectRowsModel : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

 public:
    struct Row {
        PersistentID id;
        QString name;
        QString client;
        QString color;

        friend bool operator==(const Row&, const Row&) = default;
    };
    enum Role { NameRole = Qt::UserRole + 1, ClientRole, ColorRole };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    void setRows(const std::vector<Row>& rows);
    [[nodiscard]] const std::vector<Row>& rows() const noexcept { return rows_; }

 private:
    void removeMissing(const std::vector<Row>& wanted);
    void place(std::size_t position, const Row& row);

    std::vector<Row> rows_;
};

}  // namespace elmworth
