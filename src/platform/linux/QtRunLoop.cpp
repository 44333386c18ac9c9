// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/QtRunLoop.h"

#include <QTimer>

namespace elmworth {

namespace {

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
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), std::move(function));
    timer->start(0);
    return timer;
}

RunLoop::Handle QtRunLoop::repeat(std::chrono::milliseconds interval,
                                  std::function<void()> function) {
    auto timer = makeTimer();
    // The timer shows seconds: a coarse one would skip some.
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), std::move(function));
    timer->start(interval);
    return timer;
}

}  // namespace elmworth
