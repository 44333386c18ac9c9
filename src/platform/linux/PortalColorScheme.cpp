// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/PortalColorScheme.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QMap>
#include <QStringList>
#include <QVariantMap>
#include <algorithm>
#include <utility>

namespace elmworth {

namespace {

using Settings = QMap<QString, QVariantMap>;

constexpr int firstAnswerMilliseconds = 150;
constexpr int laterAnswerMilliseconds = 25'000;

constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;
constexpr uint prefersReducedMotion = 1;

QString service() {
    return QStringLiteral("org.freedesktop.portal.Desktop");
}
QString path() {
    return QStringLiteral("/org/freedesktop/portal/desktop");
}
QString settingsInterface() {
    return QStringLiteral("org.freedesktop.portal.Settings");
}
QString appearanceGroup() {
    return QStringLiteral("org.freedesktop.appearance");
}
QString gnomeGroup() {
    return QStringLiteral("org.gnome.desktop.interface");
}
QString kdeGroup() {
    return QStringLiteral("org.kde.kdeglobals.KDE");
}

QDBusMessage question() {
    auto message = QDBusMessage::createMethodCall(service(), path(), settingsInterface(),
                                                  QStringLiteral("ReadAll"));
    message << QStringList{appearanceGroup(), gnomeGroup(), kdeGroup()};
    return message;
}

}  // namespace

PortalColorScheme::PortalColorScheme(const QDBusConnection& bus)
    : bus_(bus), watcher_(service(), bus, QDBusServiceWatcher::WatchForRegistration) {
    if (!bus_.isConnected()) return;
    // From any sender: Qt 6.4 loses the signals of a service now and then when it is named here.
    bus_.connect(QString(), path(), settingsInterface(), QStringLiteral("SettingChanged"), this,
                 SLOT(settingChanged()));
    connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, [this] { ask(); });
    askAndWait();
}

/// A portal that is only being started, or busy, answers later.
void PortalColorScheme::askAndWait() {
    QDBusPendingCall call = bus_.asyncCall(question(), firstAnswerMilliseconds);
    call.waitForFinished();
    if (!call.isError()) {
        answered(call.reply());
    } else if (call.error().type() == QDBusError::NoReply) {
        ask();
    }
}

void PortalColorScheme::ask() {
    auto* reply =
        new QDBusPendingCallWatcher(bus_.asyncCall(question(), laterAnswerMilliseconds), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply] {
        answered(reply->reply());
        reply->deleteLater();
    });
}

void PortalColorScheme::answered(const QDBusMessage& message) {
    if (message.type() != QDBusMessage::ReplyMessage || message.signature() != u"a{sa{sv}}") return;
    const auto groups = qdbus_cast<Settings>(message.arguments().constFirst());
    Answers answers;
    for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
        for (auto value = group->cbegin(); value != group->cend(); ++value) {
            take(answers, group.key(), value.key(), value.value());
        }
    }
    replace(answers);
}

/// What the signal says is read from the portal itself: anybody could have sent it.
void PortalColorScheme::settingChanged() {
    ask();
}

void PortalColorScheme::take(Answers& answers, const QString& group, const QString& key,
                             const QVariant& value) {
    if (group == appearanceGroup()) {
        if (key == u"color-scheme") answers.colorScheme = value.toUInt();
        if (key == u"reduced-motion") answers.reducedMotion = value.toUInt();
    }
    if (group == gnomeGroup() && key == u"enable-animations") {
        answers.gnomeAnimations = value.toBool();
    }
    if (group == kdeGroup() && key == u"AnimationDurationFactor") {
        bool isNumber = false;
        const double factor = value.toDouble(&isNumber);
        if (isNumber) answers.kdeAnimationDuration = factor;
    }
}

void PortalColorScheme::replace(const Answers& answers) {
    const Preferences before = preferences();
    answers_ = answers;
    if (preferences() == before) return;
    observers_.notify();
}

ColorScheme::Preferences PortalColorScheme::preferences() const {
    Preferences result;
    if (answers_.colorScheme == prefersDark) result.isDark = true;
    if (answers_.colorScheme == prefersLight) result.isDark = false;
    result.reducedMotion = answers_.reducedMotion == prefersReducedMotion ||
                           answers_.gnomeAnimations == false ||
                           answers_.kdeAnimationDuration == 0.0;
    return result;
}

ColorScheme::Observation PortalColorScheme::observe(std::function<void()> changed) {
    return observers_.add(std::move(changed));
}

}  // namespace elmworth
