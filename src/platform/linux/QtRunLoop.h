// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/RunLoop.h"

namespace elmworth {

/// The event loop of Qt's main thread. Needs a QCoreApplication, and outlives all calls.
class QtRunLoop final : public RunLoop {
 public:
    Handle post(std::function<void()> function) override;
    Handle repeat(std::chrono::milliseconds interval, std::function<void()> function) override;

    /// While it is held, no function runs though the event loop turns: what was posted waits, and
    /// repeating calls skip their turn.
    void setHeld(bool isHeld) noexcept { isHeld_ = isHeld; }

 private:
    bool isHeld_ = false;
};

}  // namespace elmworth
