// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace elmworth {

/// An absolute point in time, in microseconds since 1970-01-01T00:00:00Z.
using Instant = std::chrono::sys_time<std::chrono::microseconds>;

/// A clock that is handed to whatever depends on the current instant.
using Clock = std::function<Instant()>;

/// The current instant of the system's clock.
[[nodiscard]] inline Instant currentInstant() {
    return std::chrono::floor<Instant::duration>(std::chrono::system_clock::now());
}

/// Seconds from `from` to `to`, with their fraction; negative when `to` lies before `from`.
[[nodiscard]] constexpr double secondsBetween(Instant from, Instant to) noexcept {
    return static_cast<double>((to - from).count()) / 1'000'000.0;
}

/// Whole seconds since 1970 of `instant`, rounded down.
[[nodiscard]] constexpr std::int64_t wholeSeconds(Instant instant) noexcept {
    return std::chrono::floor<std::chrono::seconds>(instant).time_since_epoch().count();
}

}  // namespace elmworth
