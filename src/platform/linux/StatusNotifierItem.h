// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <optional>

#include "platform/Tray.h"
#include "platform/linux/DBusMenu.h"
#include "platform/linux/NotifierObject.h"
#include "platform/linux/TrayIconPainter.h"

namespace elmworth {

/// The tray by the StatusNotifierItem protocol. It has a connection to the session bus of its own;
/// without a bus there is no tray. Desktops whose tray starts later, or again, get the item then.
/// Needs a QGuiApplication with the fonts of `style`. One object per process.
class StatusNotifierItem final : public QObject, public Tray {
    Q_OBJECT

 public:
    explicit StatusNotifierItem(TrayIconStyle style);
    StatusNotifierItem(const StatusNotifierItem&) = delete;
    StatusNotifierItem& operator=(const StatusNotifierItem&) = delete;
    ~StatusNotifierItem() override;

    void setFace(const TrayFace& face) override;
    void setMenu(std::vector<TrayMenuItem> items) override;
    [[nodiscard]] bool isShown() const override { return isShown_.value_or(false); }
    void setEvents(Events events) override;

    /// A tray that shows labels. It is a part of a program that has this name too; the protocol has
    /// no question for it.
    struct LabelHost {
        const char* service;
        bool readsPixmaps;
    };

 private Q_SLOTS:
    void findHost();

 private:
    void publish();
    void watchOwners();
    void setTray(const QString& owner);
    void registerItem();
    void findLabelHost(const QString& service);
    void draw();
    void nameIcon();
    void setShown(bool isShown);

    TrayIconStyle style_;
    std::optional<TrayIconFiles> files_;  ///< written when a tray asks for them
    QDBusConnection connection_;
    NotifierObject notifier_;
    DBusMenu menu_;
    QDBusServiceWatcher owners_;
    QString tray_;          ///< the tray's own name on the bus; empty when there is none
    uint trayProcess_ = 0;  ///< the process of the tray
    const LabelHost* labelHost_ = nullptr;  ///< the tray, if it is one that shows labels
    TrayFace face_;
    Events events_;
    std::optional<bool> isShown_;  ///< absent before the desktop has answered
};

}  // namespace elmworth
