// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/MenuTree.h"

#include <algorithm>

namespace elmworth {

namespace {

/// An underscore would underline the letter behind it.
QString escapedLabel(const std::string& text) {
    return QString::fromStdString(text).replace(QLatin1Char('_'), QStringLiteral("__"));
}

QVariantMap propertiesOf(const TrayMenuItem& item) {
    if (item.isSeparator) return {{QStringLiteral("type"), QStringLiteral("separator")}};
    QVariantMap properties{{QStringLiteral("label"), escapedLabel(item.text)}};
    if (!item.isEnabled) properties[QStringLiteral("enabled")] = false;
    if (item.isChecked) {
        properties[QStringLiteral("toggle-type")] = QStringLiteral("checkmark");
        properties[QStringLiteral("toggle-state")] = *item.isChecked ? 1 : 0;
    }
    if (!item.submenu.empty()) {
        properties[QStringLiteral("children-display")] = QStringLiteral("submenu");
    }
    return properties;
}

std::string identityOf(const TrayMenuItem& item) {
    if (!item.identity.empty()) return item.identity;
    return item.isSeparator ? "\n" : item.text;  // no text begins with a line break
}

MenuTree::ChangedProperties difference(int id, const QVariantMap& before,
                                       const QVariantMap& after) {
    MenuTree::ChangedProperties changes{.id = id};
    for (auto i = after.begin(); i != after.end(); ++i) {
        if (before.value(i.key()) != i.value()) changes.changed.insert(i.key(), i.value());
    }
    for (auto i = before.begin(); i != before.end(); ++i) {
        if (!after.contains(i.key())) changes.removed.append(i.key());
    }
    return changes;
}

const MenuTree::Node* findBelow(const MenuTree::Node& node, int id) {
    if (node.id == id) return &node;
    for (const auto& child : node.children) {
        if (const auto* found = findBelow(child, id)) return found;
    }
    return nullptr;
}

void collect(const MenuTree::Node& node, QList<int>& ids) {
    ids.append(node.id);
    for (const auto& child : node.children) collect(child, ids);
}

std::vector<int> idsOf(const std::vector<MenuTree::Node>& nodes) {
    std::vector<int> ids;
    ids.reserve(nodes.size());
    for (const auto& node : nodes) ids.push_back(node.id);
    return ids;
}

}  // namespace

MenuTree::Change MenuTree::replace(const std::vector<TrayMenuItem>& items) {
    Change change;
    root_.children = matched(items, std::move(root_.children), change);
    if (change.isLayoutChanged) ++revision_;
    return change;
}

std::vector<MenuTree::Node> MenuTree::matched(const std::vector<TrayMenuItem>& items,
                                              std::vector<Node> former, Change& change) {
    const auto before = idsOf(former);
    std::vector<Node> nodes;
    nodes.reserve(items.size());
    for (const auto& item : items) {
        const auto same =
            std::find_if(former.begin(), former.end(), [&item](const Node& candidate) {
                return candidate.id != 0 && candidate.identity == identityOf(item);
            });
        nodes.push_back(matched(item, same == former.end() ? nullptr : &*same, change));
    }
    if (idsOf(nodes) != before) change.isLayoutChanged = true;
    return nodes;
}

MenuTree::Node MenuTree::matched(const TrayMenuItem& item, Node* former, Change& change) {
    Node node{
        .properties = propertiesOf(item), .action = item.action, .identity = identityOf(item)};
    if (former == nullptr) {
        node.id = ++lastID_;
        node.children = matched(item.submenu, {}, change);
        return node;
    }
    node.id = std::exchange(former->id, 0);  // no second item is matched with it
    auto changes = difference(node.id, former->properties, node.properties);
    if (!changes.changed.isEmpty() || !changes.removed.isEmpty()) {
        change.properties.append(std::move(changes));
    }
    node.children = matched(item.submenu, std::move(former->children), change);
    return node;
}

const MenuTree::Node* MenuTree::find(int id) const {
    return findBelow(root_, id);
}

QList<int> MenuTree::ids() const {
    QList<int> ids;
    collect(root_, ids);
    return ids;
}

QVariantMap filtered(const QVariantMap& properties, const QStringList& names) {
    if (names.isEmpty()) return properties;
    QVariantMap kept;
    for (const auto& name : names) {
        if (properties.contains(name)) kept.insert(name, properties.value(name));
    }
    return kept;
}

}  // namespace elmworth
