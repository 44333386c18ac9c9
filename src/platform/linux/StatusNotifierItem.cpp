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

constexpr std::array labelHosts{
    StatusNotifierItem::LabelHost{"org.gnome.Shell", true},
    StatusNotifierItem::LabelHost{"org.ayatana.indicator.application", false},
    StatusNotifierItem::LabelHost{"com.canonical.indicator.application", false},
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

QDBusMessage busQuestion(const QString& method, const QString& service) {
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                               QStringLiteral("/org/freedesktop/DBus"),
                                               QStringLiteral("org.freedesktop.DBus"), method);
    call << service;
    return call;
}

QDBusMessage processQuestion(const QString& service) {
    return busQuestion(QStringLiteral("GetConnectionUnixProcessID"), service);
}

QDBusMessage propertyQuestion(const QString& property) {
    auto call = QDBusMessage::createMethodCall(watcherService, watcherObject,
                                               QStringLiteral("org.freedesktop.DBus.Properties"),
                                               QStringLiteral("Get"));
    call << watcherInterface << property;
    return call;
}

/// Calls `answered` on the main thread with the first value of an answer without error, `refused`
/// after an error.
void ask(QObject* receiver, const QDBusConnection& connection, const QDBusMessage& call,
         const std::function<void(const QVariant&)>& answered,
         const std::function<void()>& refused = {}) {
    auto* const pending = new QDBusPendingCallWatcher(connection.asyncCall(call), receiver);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, receiver,
                     [pending, answered, refused](QDBusPendingCallWatcher* /*same*/) {
                         const QDBusMessage answer = pending->reply();
                         pending->deleteLater();
                         if (answer.type() == QDBusMessage::ReplyMessage) {
                             answered(answer.arguments().value(0));
                         } else if (refused) {
                             refused();
                         }
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
    watchOwners();
}

void StatusNotifierItem::watchOwners() {
    owners_.setConnection(connection_);
    owners_.addWatchedService(watcherService);
    for (const auto& known : labelHosts) {
        owners_.addWatchedService(QString::fromLatin1(known.service));
    }
    connect(&owners_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& service, const QString& /*former*/, const QString& owner) {
                if (service == watcherService) return setTray(owner);
                if (!owner.isEmpty()) findLabelHost(service);
            });
    ask(
        this, connection_, busQuestion(QStringLiteral("GetNameOwner"), watcherService),
        [this](const QVariant& owner) {
            if (tray_.isEmpty()) setTray(owner.toString());
        },
        [this] {
            if (tray_.isEmpty()) setShown(false);
        });
}

/// The bus answers in the order of the questions, so that the item is drawn as this tray needs it
/// before the tray looks at it.
void StatusNotifierItem::setTray(const QString& owner) {
    tray_ = owner;
    if (isShown_ || tray_.isEmpty()) setShown(false);
    if (std::exchange(labelHost_, nullptr)) draw();
    if (tray_.isEmpty()) return;
    ask(this, connection_, processQuestion(watcherService),
        [this](const QVariant& process) { trayProcess_ = process.toUInt(); });
    for (const auto& known : labelHosts) findLabelHost(QString::fromLatin1(known.service));
    registerItem();
}

void StatusNotifierItem::registerItem() {
    ask(this, connection_, watcherCall(QStringLiteral("RegisterStatusNotifierItem"), serviceName()),
        [this, tray = tray_](const QVariant& /*nothing*/) {
            if (tray == tray_) findHost();
        });
}

void StatusNotifierItem::findHost() {
    if (tray_.isEmpty()) return;
    ask(this, connection_, propertyQuestion(QStringLiteral("IsStatusNotifierHostRegistered")),
        [this, tray = tray_](const QVariant& value) {
            if (tray == tray_) setShown(value.value<QDBusVariant>().variant().toBool());
        });
}

/// One process may have several connections to the bus.
void StatusNotifierItem::findLabelHost(const QString& service) {
    ask(this, connection_, processQuestion(service),
        [this, service, tray = tray_](const QVariant& process) {
            if (tray != tray_ || tray_.isEmpty() || process.toUInt() != trayProcess_) return;
            for (const auto& known : labelHosts) {
                if (service == QLatin1String(known.service)) labelHost_ = &known;
            }
            draw();
        });
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
    for (const auto& image : drawTrayIcons(style_, face_, labelHost_ == nullptr)) {
        pixmaps.append(notifierPixmap(image));
    }
    notifier_.setIconPixmap(std::move(pixmaps));
    nameIcon();
}

void StatusNotifierItem::nameIcon() {
    if (!labelHost_ || labelHost_->readsPixmaps) return notifier_.setNamedIcon({}, {});
    if (!files_) files_.emplace(style_);
    notifier_.setNamedIcon(TrayIconFiles::name(face_.icon), files_->folder());
}

void StatusNotifierItem::setMenu(std::vector<TrayMenuItem> items) {
    menu_.setItems(items);
}

void StatusNotifierItem::setEvents(Events events) {
    events_ = std::move(events);
    notifier_.setEvents(events_);
    menu_.onAboutToShow(events_.menuAboutToShow);
    if (!connection_.isConnected()) setShown(false);
}

void StatusNotifierItem::setShown(bool isShown) {
    if (isShown_ == isShown) return;
    isShown_ = isShown;
    if (events_.shownChanged) events_.shownChanged(isShown);
}

}  // namespace elmworth
