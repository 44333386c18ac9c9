// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <functional>

#include "platform/Progress.h"

namespace elmworth {

/// Shows in a window how far long work on the main thread is, and lets the window's events in so
/// that it can be stopped there.
class WindowProgress final : public Progress {
 public:
    struct Window {
        /// Told each time: the step, such as "Reading", and from 0 to 1 how much of it is done;
        /// below 0 where that isn't known.
        std::function<void(const char* step, double fraction)> show;
        /// Delivers what waits for the window. The work must not be touched by it.
        std::function<void()> turn;
        std::function<bool()> isStopped;
    };

    /// Shows nothing before `betweenShows`, so that short work doesn't flicker.
    WindowProgress(Window window, std::chrono::milliseconds betweenShows);

 protected:
    void report(const char* step, std::size_t done, std::size_t total) override;

 private:
    Window window_;
    std::chrono::milliseconds betweenShows_;
    std::chrono::steady_clock::time_point next_;
};

}  // namespace elmworth
