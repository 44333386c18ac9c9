// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/StatusNotifierItem.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <array>
#include <utility>

namespace elmworth {

namespace {

const auto watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto watcherObject = QStringLiteral("/StatusNotifierWatcher");
const auto watcherInterface = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto itemPath = QStringLiteral("/StatusNotifierItem");
const auto menuPath = QStringLiteral("/MenuBar");
const auto connectionName = QStringLiteral("elmworth-tray");

/// The trays that show labels are parts of programs that have these names too. The protocol has no
/// question for it.
constexpr std::array labelShowingServices{
    "org.gnome.Shell",
    "org.ayatana.indicator.application",
    "com.canonical.indicator.application",
};

QString serviceName() {
    return QStringLiteral("org.kde.StatusNotifierItem-%1-1")
        .arg(QCoreApplication::applicationPid());
}

QDBusMessage watcherCall(const QString& method, const QVariant& argument) {
    auto call =
        QDBusMessage::createMethodCall(watcherService, watcherObject, watcherInterface, method);
    call << argument;
    return call;
}

QDBusMessage busCall(const QString& method, const QString& argument) {
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                               QStringLiteral("/org/freedesktop/DBus"),
                                               QStringLiteral("org.freedesktop.DBus"), method);
    call << argument;
    return call;
}

QDBusMessage propertyQuestion(const QString& property) {
    auto call = QDBusMessage::createMethodCall(watcherService, watcherObject,
                                               QStringLiteral("org.freedesktop.DBus.Properties"),
                                               QStringLiteral("Get"));
    call << watcherInterface << property;
    return call;
}

/// Calls `answered` on the main thread with the first value of an answer without error.
void ask(QObject* receiver, const QDBusConnection& connection, const QDBusMessage& call,
         const std::function<void(const QVariant&)>& answered) {
    auto* const pending = new QDBusPendingCallWatcher(connection.asyncCall(call), receiver);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, receiver,
                     [pending, answered](QDBusPendingCallWatcher* /*same*/) {
                         const QDBusMessage answer = pending->reply();
                         pending->deleteLater();
                         if (answer.type() != QDBusMessage::ReplyMessage) return;
                         answered(answer.arguments().value(0));
                     });
}

}  // namespace

StatusNotifierItem::StatusNotifierItem(TrayIconStyle style)
    : style_(std::move(style)),
      connection_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName)),
      notifier_(menuPath) {
    if (connection_.isConnected()) publish();
}

StatusNotifierItem::~StatusNotifierItem() {
    QDBusConnection::disconnectFromBus(connectionName);
}

/// The objects stand on the bus before any tray is asked to look at them.
void StatusNotifierItem::publish() {
    draw();
    constexpr auto all = QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals |
                         QDBusConnection::ExportAllProperties;
    connection_.registerObject(itemPath, &notifier_, all);
    connection_.registerObject(menuPath, &menu_, all);
    connection_.registerService(serviceName());
    for (const auto& signal : {QStringLiteral("StatusNotifierHostRegistered"),
                               QStringLiteral("StatusNotifierHostUnregistered")}) {
        connection_.connect(watcherService, watcherObject, watcherInterface, signal, this,
                            SLOT(findHost()));
    }
    trays_.setConnection(connection_);
    trays_.addWatchedService(watcherService);
    connect(&trays_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& /*service*/, const QString& /*former*/, const QString& owner) {
                trayWent();
                if (!owner.isEmpty()) trayCame();
            });
    ask(this, connection_, busCall(QStringLiteral("NameHasOwner"), watcherService),
        [this](const QVariant& hasOwner) {
            if (hasOwner.toBool() && !isRegistered_) trayCame();
        });
}

/// The bus answers in the order of the questions, so that the item is drawn as this tray needs it
/// before the tray looks at it.
void StatusNotifierItem::trayCame() {
    ++host_;
    isRegistered_ = true;
    ask(this, connection_, busCall(QStringLiteral("GetNameOwner"), watcherService),
        [this, host = host_](const QVariant& tray) {
            if (host != host_) return;
            askWhetherLabelsShow(tray.toString());
            registerItem();
        });
}

void StatusNotifierItem::registerItem() {
    ask(this, connection_, watcherCall(QStringLiteral("RegisterStatusNotifierItem"), serviceName()),
        [this, host = host_](const QVariant& /*nothing*/) {
            if (host == host_) findHost();
        });
}

void StatusNotifierItem::trayWent() {
    ++host_;
    isRegistered_ = false;
    setShown(false);
}

void StatusNotifierItem::findHost() {
    if (!isRegistered_) return;
    ask(this, connection_, propertyQuestion(QStringLiteral("IsStatusNotifierHostRegistered")),
        [this, host = host_](const QVariant& value) {
            if (host == host_) setShown(value.value<QDBusVariant>().variant().toBool());
        });
}

void StatusNotifierItem::askWhetherLabelsShow(const QString& tray) {
    if (std::exchange(hostShowsLabel_, false)) draw();
    for (const char* service : labelShowingServices) {
        ask(this, connection_,
            busCall(QStringLiteral("GetNameOwner"), QString::fromLatin1(service)),
            [this, tray, host = host_](const QVariant& owner) {
                if (host != host_ || owner.toString() != tray) return;
                hostShowsLabel_ = true;
                draw();
            });
    }
}

void StatusNotifierItem::setFace(const TrayFace& face) {
    if (face == face_) return;
    face_ = face;
    draw();
    notifier_.setToolTip(QString::fromStdString(face.toolTip));
    notifier_.setLabel(QString::fromStdString(face.label));
}

void StatusNotifierItem::draw() {
    if (!connection_.isConnected()) return;
    NotifierPixmapList pixmaps;
    for (const auto& image : drawTrayIcons(style_, face_, !hostShowsLabel_)) {
        pixmaps.append(notifierPixmap(image));
    }
    notifier_.setIconPixmap(std::move(pixmaps));
}

void StatusNotifierItem::setMenu(std::vector<TrayMenuItem> items) {
    menu_.setItems(items);
}

void StatusNotifierItem::setEvents(Events events) {
    events_ = std::move(events);
    notifier_.setEvents(events_);
    menu_.onAboutToShow(events_.menuAboutToShow);
}

void StatusNotifierItem::setShown(bool isShown) {
    if (isShown_ == isShown) return;
    isShown_ = isShown;
    if (events_.shownChanged) events_.shownChanged(isShown);
}

}  // namespace elmworth
