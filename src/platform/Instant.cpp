// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Instant.h"

#include <cmath>

namespace elmworth {

Instant currentInstant() {
    return std::chrono::floor<Instant::duration>(std::chrono::system_clock::now());
}

Instant adding(Instant instant, double seconds) {
    return instant + Instant::duration(std::llround(seconds * 1'000'000.0));
}

}  // namespace elmworth
