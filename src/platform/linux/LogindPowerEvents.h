// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "platform/PowerEvents.h"

namespace elmworth {

/// Sleep and wake as logind tells them on the system bus (PrepareForSleep). Without a system bus or
/// logind there are no events.
class LogindPowerEvents final : public QObject, public PowerEvents {
    Q_OBJECT

 public:
    LogindPowerEvents();

    Observation onWillSleep(std::function<void()> handler) override;
    Observation onDidWake(std::function<void()> handler) override;

 private Q_SLOTS:
    void prepareForSleep(bool isAboutToSleep);

 private:
    using Handler = std::function<void()>;
    using Handlers = std::vector<std::weak_ptr<Handler>>;

    static Observation add(Handlers& handlers, Handler handler);
    static void call(Handlers& handlers);

    Handlers willSleep_;
    Handlers didWake_;
};

}  // namespace elmworth
