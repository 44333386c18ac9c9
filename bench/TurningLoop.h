// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/RunLoop.h"

namespace elmworth::bench {

/// A main loop that turns when it is told to, so that the store tidies up between two measurements
/// as it does between two clicks.
class TurningLoop final : public RunLoop {
 public:
    Handle post(std::function<void()> function) override {
        return keep(posted_, std::move(function));
    }
    Handle repeat(std::chrono::milliseconds /*interval*/, std::function<void()> function) override {
        return keep(repeating_, std::move(function));
    }

    /// Runs what has been posted.
    void turn() { runAll(std::exchange(posted_, {})); }
    /// Lets the repeating calls fire once.
    void fire() { runAll(repeating_); }

 private:
    using Call = std::function<void()>;
    using Calls = std::vector<std::weak_ptr<Call>>;

    static Handle keep(Calls& calls, Call function) {
        std::erase_if(calls, [](const auto& call) { return call.expired(); });
        auto call = std::make_shared<Call>(std::move(function));
        calls.push_back(call);
        return call;
    }
    static void runAll(const Calls& calls) {
        for (const auto& weak : calls) {
            if (const auto call = weak.lock()) (*call)();
        }
    }

    Calls posted_;
    Calls repeating_;
};

}  // namespace elmworth::bench
