// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/QtRunLoop.h"

#include <QTimer>

namespace elmworth {

namespace {

constexpr std::chrono::milliseconds betweenTries{20};

/// A call may end its own timer, so that one is deleted only when the loop turns.
std::shared_ptr<QTimer> makeTimer() {
    return {new QTimer, [](QTimer* timer) {
                timer->stop();
                timer->disconnect();
                timer->deleteLater();
            }};
}

}  // namespace

RunLoop::Handle QtRunLoop::post(std::function<void()> function) {
    auto timer = makeTimer();
    timer->setSingleShot(true);
    const auto run = [this, timer = timer.get(), function = std::move(function)] {
        if (isHeld_) return timer->start(betweenTries);
        function();
    };
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), run);
    timer->start(0);
    return timer;
}

RunLoop::Handle QtRunLoop::repeat(std::chrono::milliseconds interval,
                                  std::function<void()> function) {
    auto timer = makeTimer();
    // The timer shows seconds: a coarse one would skip some.
    timer->setTimerType(Qt::PreciseTimer);
    const auto run = [this, function = std::move(function)] {
        if (!isHeld_) function();
    };
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), run);
    timer->start(interval);
    return timer;
}

}  // namespace elmworth
