// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>

namespace elmworth {

/// Tells when the machine goes to sleep, when it is awake again, and when it is shut down. A system
/// that cannot tell sends no events; that is no error.
class PowerEvents {
 public:
    virtual ~PowerEvents() = default;

    using Observation = std::shared_ptr<void>;

    /// Calls `handler` on the main thread before the machine sleeps, until the handle dies.
    [[nodiscard]] virtual Observation onWillSleep(std::function<void()> handler) = 0;

    /// Calls `handler` on the main thread after the machine woke, until the handle dies.
    [[nodiscard]] virtual Observation onDidWake(std::function<void()> handler) = 0;

    /// Calls `handler` on the main thread before the machine is shut down, until the handle dies.
    /// The shutdown may still be called off.
    [[nodiscard]] virtual Observation onWillShutDown(std::function<void()> handler) = 0;
};

}  // namespace elmworth
