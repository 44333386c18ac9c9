// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QImage>
#include <QList>
#include <QMetaType>
#include <QString>

namespace elmworth {

// The structures of org.kde.StatusNotifierItem, as they go over the bus.

/// (iiay): a picture of 32-bit pixels, alpha, red, green, blue in this order.
struct NotifierPixmap {
    int width = 0;
    int height = 0;
    QByteArray pixels = {};
};
using NotifierPixmapList = QList<NotifierPixmap>;

/// (sa(iiay)ss)
struct NotifierToolTip {
    QString iconName = {};
    NotifierPixmapList iconPixmap = {};
    QString title = {};
    QString text = {};
};

[[nodiscard]] NotifierPixmap notifierPixmap(const QImage& image);

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip);

/// Makes these types known to Qt's D-Bus module. Does nothing when called again.
void registerStatusNotifierTypes();

}  // namespace elmworth

Q_DECLARE_METATYPE(elmworth::NotifierPixmap)
Q_DECLARE_METATYPE(elmworth::NotifierToolTip)
