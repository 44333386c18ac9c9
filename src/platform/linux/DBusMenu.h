// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusContext>
#include <QObject>
#include <functional>
#include <vector>

#include "platform/linux/DBusMenuTypes.h"
#include "platform/linux/MenuTree.h"

namespace elmworth {

/// A menu that other programs show: the object behind com.canonical.dbusmenu, version 3. Whoever
/// makes one registers it on a bus with its slots, signals and properties.
class DBusMenu final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

 public:
    DBusMenu();

    /// Replaces the menu and tells those who show it what differs.
    void setItems(const std::vector<TrayMenuItem>& items);

    /// `function` may call `setItems`; whoever shows the menu waits for it.
    void onAboutToShow(std::function<void()> function) { aboutToShow_ = std::move(function); }

    [[nodiscard]] uint version() const { return 3; }
    [[nodiscard]] QString textDirection() const { return QStringLiteral("ltr"); }
    [[nodiscard]] QString status() const { return QStringLiteral("normal"); }
    [[nodiscard]] QStringList iconThemePath() const { return {}; }

 public Q_SLOTS:
    /// The item `parentId` with those below it, `recursionDepth` levels deep (-1: all), and its
    /// properties among `propertyNames` (none: all). Gives the layout's revision.
    uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                   elmworth::MenuLayoutItem& layout);

    /// The same properties of the items in `ids` (none: all). Unknown numbers are left out.
    QList<elmworth::MenuItemProperties> GetGroupProperties(const QList<int>& ids,
                                                           const QStringList& propertyNames);

    /// An error when the item is not there, or the property has its default.
    QDBusVariant GetProperty(int id, const QString& name);

    /// "clicked" carries out what the item does, after the answer has gone. An error when the item
    /// is not there.
    void Event(int id, const QString& eventId, const QDBusVariant& data, uint timestamp);

    /// The same for several. Gives the numbers that are not there; an error when none is.
    QList<int> EventGroup(const QList<elmworth::MenuEvent>& events);

    /// Whether the layout is another one than before the call.
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);

 Q_SIGNALS:
    void ItemsPropertiesUpdated(const QList<elmworth::MenuItemProperties>& updatedProps,
                                const QList<elmworth::MenuItemPropertyNames>& removedProps);
    void LayoutUpdated(uint revision, int parent);

 private:
    bool handleEvent(int id, const QString& eventId);
    void refuse(const QString& reason);
    void announceProperties(const QList<MenuTree::ChangedProperties>& changes);

    MenuTree tree_;
    std::function<void()> aboutToShow_;
};

}  // namespace elmworth
