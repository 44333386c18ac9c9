// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/TrackedTotal.h"

#include <algorithm>

namespace elmworth {

void TrackedTotal::update() {
    const auto unit = span_ == Span::day ? CalendarUnit::day : CalendarUnit::weekOfYear;
    askedAt_ = services_.now();
    const auto span = services_.calendar().interval(unit, askedAt_);
    spanEnd_ = span ? span->end : askedAt_;
    counted_ =
        span_ == Span::day ? services_.timer.todaySeconds() : services_.timer.thisWeekSeconds();
}

double TrackedTotal::seconds() {
    const Instant now = services_.now();
    if (now < askedAt_ || now >= spanEnd_) update();
    return counted_ + growth(now);
}

/// What the running entry has added since the library was asked.
double TrackedTotal::growth(Instant now) const {
    const auto& entry = services_.timer.running();
    if (!entry) return 0;
    return std::max(0.0, secondsBetween(std::max(askedAt_, entry->start.get()), now));
}

}  // namespace elmworth
