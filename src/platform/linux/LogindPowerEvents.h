// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusServiceWatcher>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <functional>

#include "platform/Observers.h"
#include "platform/PowerEvents.h"

namespace elmworth {

/// Sleep and wake as logind tells them on the system bus (PrepareForSleep). Holds a delay lock, so
/// that the machine sleeps only after the handlers have run, or after some seconds that logind
/// decides about. Without a system bus or logind there are no events; a logind that starts later,
/// or again, is taken up.
class LogindPowerEvents final : public QObject, public PowerEvents {
    Q_OBJECT

 public:
    LogindPowerEvents();

    Observation onWillSleep(std::function<void()> handler) override;
    Observation onDidWake(std::function<void()> handler) override;
    Observation onWillShutDown(std::function<void()> handler) override;

 private Q_SLOTS:
    void prepareForSleep(bool isAboutToSleep);
    void prepareForShutdown(bool isAboutToShutDown);

 private:
    void takeDelayLock();

    QDBusServiceWatcher logind_;
    QDBusUnixFileDescriptor delayLock_;  ///< logind waits while this is open
    bool isDelayWanted_ = false;
    Observers<> willSleep_;
    Observers<> didWake_;
    Observers<> willShutDown_;
};

}  // namespace elmworth
