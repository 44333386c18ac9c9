// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/SidebarModel.h"

#include <QKeySequence>

#include "screens/main/SidebarItem.h"

namespace elmworth {

namespace {

QString text(std::string_view latin) {
    return QString::fromLatin1(latin.data(), static_cast<qsizetype>(latin.size()));
}

}  // namespace

int SidebarModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(sidebarItems.size());
}

QVariant SidebarModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const SidebarItem& item = sidebarItems[static_cast<std::size_t>(index.row())];
    switch (role) {
        case TitleRole:
            return text(item.rawValue);
        case IconRole:
            return text(item.iconName);
        case ShortcutRole:
            return text(item.shortcut);
        case HintRole:
            return QKeySequence(text(item.shortcut)).toString(QKeySequence::NativeText);
        default:
            return {};
    }
}

QHash<int, QByteArray> SidebarModel::roleNames() const {
    return {{TitleRole, "title"},
            {IconRole, "iconName"},
            {ShortcutRole, "shortcut"},
            {HintRole, "hint"}};
}

}  // namespace elmworth
