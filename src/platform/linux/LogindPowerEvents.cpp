// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/LogindPowerEvents.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace elmworth {

namespace {

const auto logindService = QStringLiteral("org.freedesktop.login1");
const auto logindObject = QStringLiteral("/org/freedesktop/login1");
const auto managerInterface = QStringLiteral("org.freedesktop.login1.Manager");

}  // namespace

LogindPowerEvents::LogindPowerEvents() {
    auto bus = QDBusConnection::systemBus();
    if (!bus.isConnected()) return;
    bus.connect(logindService, logindObject, managerInterface, QStringLiteral("PrepareForSleep"),
                this, SLOT(prepareForSleep(bool)));
    bus.connect(logindService, logindObject, managerInterface, QStringLiteral("PrepareForShutdown"),
                this, SLOT(prepareForShutdown(bool)));
    logind_.setConnection(bus);
    logind_.addWatchedService(logindService);
    connect(&logind_, &QDBusServiceWatcher::serviceRegistered, this, [this] { takeDelayLock(); });
    takeDelayLock();
}

PowerEvents::Observation LogindPowerEvents::onWillSleep(std::function<void()> handler) {
    return willSleep_.add(std::move(handler));
}

PowerEvents::Observation LogindPowerEvents::onDidWake(std::function<void()> handler) {
    return didWake_.add(std::move(handler));
}

PowerEvents::Observation LogindPowerEvents::onWillShutDown(std::function<void()> handler) {
    return willShutDown_.add(std::move(handler));
}

/// A lock that comes while the machine goes to sleep is given back at once: nobody would do it
/// later. logind that ends takes its locks with it.
void LogindPowerEvents::takeDelayLock() {
    isDelayWanted_ = true;
    auto call = QDBusMessage::createMethodCall(logindService, logindObject, managerInterface,
                                               QStringLiteral("Inhibit"));
    call << QStringLiteral("sleep:shutdown") << QStringLiteral("Elmworth")
         << QStringLiteral("Saves the library") << QStringLiteral("delay");
    auto* const pending =
        new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending] {
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *pending;
        pending->deleteLater();
        if (reply.isValid() && isDelayWanted_) delayLock_ = reply.value();
    });
}

void LogindPowerEvents::prepareForSleep(bool isAboutToSleep) {
    (isAboutToSleep ? willSleep_ : didWake_).notify();
    if (isAboutToSleep) {
        isDelayWanted_ = false;
        delayLock_ = {};
    } else {
        takeDelayLock();
    }
}

/// A shutdown that is called off again is told by false.
void LogindPowerEvents::prepareForShutdown(bool isAboutToShutDown) {
    if (!isAboutToShutDown) return takeDelayLock();
    willShutDown_.notify();
    isDelayWanted_ = false;
    delayLock_ = {};
}

}  // namespace elmworth
