// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "screens/AppServices.h"

namespace elmworth {

/// The seconds tracked in the current day or week, followed from second to second without asking
/// the library each time.
class TrackedTotal {
 public:
    enum class Span { day, week };

    TrackedTotal(const AppServices& services, Span span) : services_(services), span_(span) {}

    /// Asks the library. To be called first, and after entries changed.
    void update();

    /// The total up to now. Asks the library when another day or week has begun, or the clock was
    /// set back.
    [[nodiscard]] double seconds();

 private:
    [[nodiscard]] double growth(Instant now) const;

    const AppServices& services_;
    Span span_;
    Instant askedAt_;
    Instant spanEnd_;
    double counted_ = 0;  ///< up to `askedAt_`
};

}  // namespace elmworth
