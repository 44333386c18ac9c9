// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/DBusMenu.h"

#include <QDBusError>
#include <QTimer>

namespace elmworth {

namespace {

constexpr int rootID = 0;

MenuLayoutItem layoutOf(const MenuTree::Node& node, int depth, const QStringList& names) {
    MenuLayoutItem item{.id = node.id, .properties = filtered(node.properties, names)};
    if (depth == 0) return item;
    for (const auto& child : node.children) {
        item.children.append(layoutOf(child, depth - 1, names));
    }
    return item;
}

}  // namespace

DBusMenu::DBusMenu() {
    registerDBusMenuTypes();
}

void DBusMenu::setItems(const std::vector<TrayMenuItem>& items) {
    const auto change = tree_.replace(items);
    if (!change.properties.isEmpty()) announceProperties(change.properties);
    if (change.isLayoutChanged) Q_EMIT LayoutUpdated(tree_.revision(), rootID);
}

void DBusMenu::announceProperties(const QList<MenuTree::ChangedProperties>& changes) {
    MenuItemPropertiesList updated;
    MenuItemPropertyNamesList removed;
    for (const auto& change : changes) {
        if (!change.changed.isEmpty()) updated.append({change.id, change.changed});
        if (!change.removed.isEmpty()) removed.append({change.id, change.removed});
    }
    Q_EMIT ItemsPropertiesUpdated(updated, removed);
}

uint DBusMenu::GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                         MenuLayoutItem& layout) {
    if (const auto* node = tree_.find(parentId)) {
        layout = layoutOf(*node, recursionDepth, propertyNames);
    } else {
        refuse(QStringLiteral("There is no such item."));
    }
    return tree_.revision();
}

MenuItemPropertiesList DBusMenu::GetGroupProperties(const QList<int>& ids,
                                                    const QStringList& propertyNames) {
    MenuItemPropertiesList found;
    for (const int id : ids.isEmpty() ? tree_.ids() : ids) {
        const auto* node = tree_.find(id);
        if (node) found.append({id, filtered(node->properties, propertyNames)});
    }
    return found;
}

QDBusVariant DBusMenu::GetProperty(int id, const QString& name) {
    const auto* node = tree_.find(id);
    if (node && node->properties.contains(name)) return QDBusVariant(node->properties.value(name));
    refuse(QStringLiteral("There is no such item or property."));
    return QDBusVariant(QString());
}

void DBusMenu::Event(int id, const QString& eventId, const QDBusVariant& /*data*/,
                     uint /*timestamp*/) {
    if (!handleEvent(id, eventId)) refuse(QStringLiteral("There is no such item."));
}

QList<int> DBusMenu::EventGroup(const QList<MenuEvent>& events) {
    QList<int> unknown;
    for (const auto& event : events) {
        if (!handleEvent(event.id, event.name)) unknown.append(event.id);
    }
    if (!events.isEmpty() && unknown.size() == events.size()) {
        refuse(QStringLiteral("There are no such items."));
    }
    return unknown;
}

bool DBusMenu::AboutToShow(int id) {
    if (!tree_.find(id)) {
        refuse(QStringLiteral("There is no such item."));
        return false;
    }
    const auto before = tree_.revision();
    if (id == rootID && aboutToShow_) aboutToShow_();
    return tree_.revision() != before;
}

QList<int> DBusMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) {
    QList<int> changed;
    for (const int id : ids) {
        if (!tree_.find(id)) {
            idErrors.append(id);
        } else if (AboutToShow(id)) {
            changed.append(id);
        }
    }
    return changed;
}

/// The action may replace this menu, or end the program: the desktop gets its answer before.
bool DBusMenu::handleEvent(int id, const QString& eventId) {
    const auto* node = tree_.find(id);
    if (!node) return false;
    const bool isEnabled = node->properties.value(QStringLiteral("enabled"), true).toBool();
    if (eventId == QLatin1String("clicked") && isEnabled && node->action) {
        QTimer::singleShot(0, this, node->action);
    }
    return true;
}

void DBusMenu::refuse(const QString& reason) {
    if (calledFromDBus()) sendErrorReply(QDBusError::InvalidArgs, reason);
}

}  // namespace elmworth
