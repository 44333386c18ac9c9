// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ZoneOffsets.h"

#include <unicode/basictz.h>
#include <unicode/tztrans.h>

#include <chrono>
#include <cmath>

namespace elmworth {

namespace {

using std::chrono::milliseconds;

UDate toUDate(Instant instant) {
    return static_cast<UDate>(std::chrono::floor<milliseconds>(instant).time_since_epoch().count());
}

/// What lies beyond the instants that there are is as good as the end of time.
Instant toInstant(UDate date) {
    constexpr double farthest = 9.2e15;  // what 64 bits of microseconds hold, in milliseconds
    if (date >= farthest) return Instant::max();
    if (date <= -farthest) return Instant::min();
    return Instant(milliseconds(static_cast<std::int64_t>(date)));
}

}  // namespace

struct ZoneOffsets::Impl {
    std::unique_ptr<icu::TimeZone> zone;
    // The span that was asked for last, and its offset. Empty at first.
    Instant from = Instant::max();
    Instant until = Instant::min();
    int seconds = 0;

    void ask(Instant instant) {
        const UDate date = toUDate(instant);
        std::int32_t raw = 0;
        std::int32_t daylight = 0;
        UErrorCode status = U_ZERO_ERROR;
        zone->getOffset(date, false, raw, daylight, status);
        seconds = (raw + daylight) / 1000;
        from = until = instant;  // without a list of its changes a zone is asked each time
        const auto* changing = dynamic_cast<const icu::BasicTimeZone*>(zone.get());
        if (!changing) return;
        icu::TimeZoneTransition change;
        from = changing->getPreviousTransition(date, true, change) ? toInstant(change.getTime())
                                                                   : Instant::min();
        until = changing->getNextTransition(date, false, change) ? toInstant(change.getTime())
                                                                 : Instant::max();
    }
};

ZoneOffsets::ZoneOffsets(std::string_view zoneID) : impl_(std::make_unique<Impl>()) {
    impl_->zone.reset(icu::TimeZone::createTimeZone(
        icu::UnicodeString::fromUTF8({zoneID.data(), static_cast<int>(zoneID.size())})));
}

ZoneOffsets::ZoneOffsets(ZoneOffsets&& other) noexcept = default;
ZoneOffsets& ZoneOffsets::operator=(ZoneOffsets&& other) noexcept = default;
ZoneOffsets::~ZoneOffsets() = default;

int ZoneOffsets::secondsAt(Instant instant) const {
    if (instant < impl_->from || instant >= impl_->until) impl_->ask(instant);
    return impl_->seconds;
}

std::string currentZoneID() {
    const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::detectHostTimeZone());
    icu::UnicodeString id;
    std::string zoneID;
    return zone->getID(id).toUTF8String(zoneID);
}

}  // namespace elmworth
