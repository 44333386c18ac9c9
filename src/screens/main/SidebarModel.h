// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractListModel>
#include <QtQmlIntegration>

namespace elmworth {

/// The sections of the main window as rows.
class SidebarModel : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

 public:
    enum Role { TitleRole = Qt::UserRole + 1, IconRole, ShortcutRole, HintRole };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

}  // namespace elmworth
