// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace elmworth {

/// The main loop of the process, as far as the logic needs it. All calls are made, and all
/// functions are run, on the main thread.
class RunLoop {
 public:
    virtual ~RunLoop() = default;

    /// A pending or repeating call; ends when the handle dies.
    using Handle = std::shared_ptr<void>;

    /// Runs `function` once, in a later turn of the loop, unless the handle dies before.
    [[nodiscard]] virtual Handle post(std::function<void()> function) = 0;

    /// Runs `function` every `interval`, for the first time after one `interval`.
    [[nodiscard]] virtual Handle repeat(std::chrono::milliseconds interval,
                                        std::function<void()> function) = 0;
};

/// A loop that never turns, for work that ends before one would: commands and benchmarks.
class NoRunLoop final : public RunLoop {
 public:
    Handle post(std::function<void()> /*function*/) override { return nullptr; }
    Handle repeat(std::chrono::milliseconds /*interval*/,
                  std::function<void()> /*function*/) override {
        return std::make_shared<int>(0);
    }
};

}  // namespace elmworth
