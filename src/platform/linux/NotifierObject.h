// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusObjectPath>
#include <QObject>

#include "platform/Tray.h"
#include "platform/linux/StatusNotifierTypes.h"

namespace elmworth {

/// The tray item as desktops see it: the object behind org.kde.StatusNotifierItem. Whoever makes
/// one registers it on a bus with its slots, signals and properties.
class NotifierObject final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(int WindowId READ windowId)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(elmworth::NotifierPixmapList IconPixmap READ iconPixmap)
    Q_PROPERTY(QString OverlayIconName READ none)
    Q_PROPERTY(elmworth::NotifierPixmapList OverlayIconPixmap READ noPixmap)
    Q_PROPERTY(QString AttentionIconName READ none)
    Q_PROPERTY(elmworth::NotifierPixmapList AttentionIconPixmap READ noPixmap)
    Q_PROPERTY(QString AttentionMovieName READ none)
    Q_PROPERTY(elmworth::NotifierToolTip ToolTip READ toolTip)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
    Q_PROPERTY(QDBusObjectPath Menu READ menu)
    Q_PROPERTY(QString IconThemePath READ iconThemePath)
    Q_PROPERTY(QString IconAccessibleDesc READ iconDescription)
    Q_PROPERTY(QString XAyatanaLabel READ label)
    Q_PROPERTY(QString XAyatanaLabelGuide READ labelGuide)

 public:
    /// `menuPath` is where the menu stands on the same bus.
    explicit NotifierObject(const QString& menuPath);

    // Each of these tells the desktops when the value is another one.
    void setIconPixmap(NotifierPixmapList pixmaps);
    void setNamedIcon(const QString& name, const QString& folder);
    void setLabel(const QString& label);
    void setToolTip(const QString& text);

    void setEvents(const Tray::Events& events) { events_ = events; }

    [[nodiscard]] QString category() const { return QStringLiteral("ApplicationStatus"); }
    [[nodiscard]] QString id() const { return QStringLiteral("org.elmworth.Elmworth"); }
    [[nodiscard]] QString title() const { return QStringLiteral("Elmworth"); }
    [[nodiscard]] QString status() const { return QStringLiteral("Active"); }
    [[nodiscard]] int windowId() const { return 0; }
    [[nodiscard]] QString none() const { return {}; }
    [[nodiscard]] NotifierPixmapList noPixmap() const { return {}; }
    [[nodiscard]] QString iconName() const { return iconName_; }
    [[nodiscard]] QString iconThemePath() const { return iconFolder_; }
    [[nodiscard]] QString iconDescription() const { return toolTip().title; }
    [[nodiscard]] NotifierPixmapList iconPixmap() const { return pixmaps_; }
    [[nodiscard]] NotifierToolTip toolTip() const;
    [[nodiscard]] bool itemIsMenu() const { return false; }
    [[nodiscard]] QDBusObjectPath menu() const { return menu_; }
    [[nodiscard]] QString label() const { return label_; }
    /// The widest label of the same length, so that the tray does not jump with each minute.
    [[nodiscard]] QString labelGuide() const;

 public Q_SLOTS:
    void Activate(int x, int y);
    void SecondaryActivate(int x, int y);
    void XAyatanaSecondaryActivate(uint timestamp);
    /// The desktop shows the menu by itself.
    void ContextMenu(int x, int y);
    void Scroll(int delta, const QString& orientation);
    /// The desktop's leave to come to the front, for the call that follows.
    void ProvideXdgActivationToken(const QString& token);

 Q_SIGNALS:
    void NewTitle();
    void NewIcon();
    void NewAttentionIcon();
    void NewOverlayIcon();
    void NewToolTip();
    void NewStatus(const QString& status);
    void NewMenu();
    void NewIconThemePath(const QString& path);
    void XAyatanaNewLabel(const QString& label, const QString& guide);

 private:
    QDBusObjectPath menu_;
    QString iconName_;
    QString iconFolder_;
    NotifierPixmapList pixmaps_;
    QString label_;
    QString toolTip_;
    Tray::Events events_;
};

}  // namespace elmworth
