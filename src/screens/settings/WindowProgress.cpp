// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/settings/WindowProgress.h"

#include <utility>

namespace elmworth {

using std::chrono::steady_clock;

WindowProgress::WindowProgress(Window window, std::chrono::milliseconds betweenShows)
    : window_(std::move(window)),
      betweenShows_(betweenShows),
      next_(steady_clock::now() + betweenShows) {}

void WindowProgress::report(const char* step, std::size_t done, std::size_t total) {
    if (steady_clock::now() < next_) return;
    window_.show(step, total > 0 ? static_cast<double>(done) / static_cast<double>(total) : -1.0);
    window_.turn();
    if (window_.isStopped()) throw Cancelled();
    next_ = steady_clock::now() + betweenShows_;
}

}  // namespace elmworth
