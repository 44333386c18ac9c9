// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/LogindPowerEvents.h"

#include <QDBusConnection>

namespace elmworth {

LogindPowerEvents::LogindPowerEvents() {
    QDBusConnection::systemBus().connect(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PrepareForSleep"), this,
        SLOT(prepareForSleep(bool)));
}

PowerEvents::Observation LogindPowerEvents::onWillSleep(std::function<void()> handler) {
    return add(willSleep_, std::move(handler));
}

PowerEvents::Observation LogindPowerEvents::onDidWake(std::function<void()> handler) {
    return add(didWake_, std::move(handler));
}

void LogindPowerEvents::prepareForSleep(bool isAboutToSleep) {
    call(isAboutToSleep ? willSleep_ : didWake_);
}

PowerEvents::Observation LogindPowerEvents::add(Handlers& handlers, Handler handler) {
    auto observation = std::make_shared<Handler>(std::move(handler));
    handlers.push_back(observation);
    return observation;
}

void LogindPowerEvents::call(Handlers& handlers) {
    std::erase_if(handlers, [](const auto& handler) { return handler.expired(); });
    const Handlers current = handlers;
    for (const auto& weak : current) {
        if (const auto handler = weak.lock()) (*handler)();
    }
}

}  // namespace elmworth
