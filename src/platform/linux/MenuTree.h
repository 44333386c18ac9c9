// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QStringList>
#include <QVariantMap>
#include <cstdint>
#include <functional>
#include <vector>

#include "platform/Tray.h"

namespace elmworth {

/// A menu as com.canonical.dbusmenu describes it: items with numbers and named properties, under a
/// root with the number 0. A number stands for one item for as long as that is in the menu, and is
/// never given to another.
class MenuTree {
 public:
    struct Node {
        int id = 0;
        QVariantMap properties = {};  ///< only those that differ from the protocol's defaults
        std::function<void()> action = {};
        std::string identity = {};
        std::vector<Node> children = {};
    };

    struct ChangedProperties {
        int id = 0;
        QVariantMap changed = {};
        QStringList removed = {};  ///< back to their defaults
    };

    struct Change {
        bool isLayoutChanged = false;  ///< items came, went or moved; the revision has grown
        QList<ChangedProperties> properties = {};  ///< of items that were there before
    };

    /// Puts `items` in the place of what the menu held, and tells the difference.
    Change replace(const std::vector<TrayMenuItem>& items);

    [[nodiscard]] std::uint32_t revision() const noexcept { return revision_; }
    [[nodiscard]] const Node& root() const noexcept { return root_; }

    /// The item of that number, or null.
    [[nodiscard]] const Node* find(int id) const;

    /// The numbers of all items, the root's first.
    [[nodiscard]] QList<int> ids() const;

 private:
    std::vector<Node> matched(const std::vector<TrayMenuItem>& items, std::vector<Node> former,
                              Change& change);
    Node matched(const TrayMenuItem& item, Node* former, Change& change);

    Node root_{.properties = {{QStringLiteral("children-display"), QStringLiteral("submenu")}}};
    std::uint32_t revision_ = 1;
    int lastID_ = 0;
};

/// `properties` without those that `names` leaves out; no names leave out none.
[[nodiscard]] QVariantMap filtered(const QVariantMap& properties, const QStringList& names);

}  // namespace elmworth
