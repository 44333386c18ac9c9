// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QStringList>
#include <QVariantMap>

namespace elmworth {

// The structures of com.canonical.dbusmenu, as they go over the bus.

/// (ia{sv}av): an item with those below it.
struct MenuLayoutItem {
    int id = 0;
    QVariantMap properties = {};
    QList<MenuLayoutItem> children = {};
};

/// (ia{sv})
struct MenuItemProperties {
    int id = 0;
    QVariantMap properties = {};
};
using MenuItemPropertiesList = QList<MenuItemProperties>;

/// (ias): properties that are back to their defaults.
struct MenuItemPropertyNames {
    int id = 0;
    QStringList names = {};
};
using MenuItemPropertyNamesList = QList<MenuItemPropertyNames>;

/// (isvu)
struct MenuEvent {
    int id = 0;
    QString name = {};
    QDBusVariant data = {};
    uint timestamp = 0;
};
using MenuEventList = QList<MenuEvent>;

QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayoutItem& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayoutItem& item);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuItemProperties& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuItemProperties& item);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuItemPropertyNames& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuItemPropertyNames& item);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event);

/// Makes these types known to Qt's D-Bus module. Does nothing when called again.
void registerDBusMenuTypes();

}  // namespace elmworth

Q_DECLARE_METATYPE(elmworth::MenuLayoutItem)
Q_DECLARE_METATYPE(elmworth::MenuItemProperties)
Q_DECLARE_METATYPE(elmworth::MenuItemPropertyNames)
Q_DECLARE_METATYPE(elmworth::MenuEvent)
