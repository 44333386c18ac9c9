// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

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
    [[nodiscard]] bool isShown() const override { return isShown_; }
    void setEvents(Events events) override;

 private Q_SLOTS:
    void findHost();

 private:
    void publish();
    void trayCame();
    void trayWent();
    void registerItem();
    void askWhetherLabelsShow(const QString& tray);
    void draw();
    void setShown(bool isShown);

    TrayIconStyle style_;
    QDBusConnection connection_;
    NotifierObject notifier_;
    DBusMenu menu_;
    QDBusServiceWatcher trays_;
    TrayFace face_;
    Events events_;
    bool isRegistered_ = false;
    bool isShown_ = false;
    bool hostShowsLabel_ = false;
    int host_ = 0;  ///< counts the trays that came and went: answers of former ones are dropped
};

}  // namespace elmworth
