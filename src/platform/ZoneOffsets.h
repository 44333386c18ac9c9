// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Instant.h"

namespace elmworth {

/// The identifier of the time zone that the computer is set to.
[[nodiscard]] std::string currentZoneID();

/// How far the clocks of a time zone are from UTC. Quick for instants that lie close together: the
/// zone is asked once for each span without a change of the clocks.
class ZoneOffsets {
 public:
    /// An unknown zone counts as UTC.
    explicit ZoneOffsets(std::string_view zoneID);
    ZoneOffsets(ZoneOffsets&& other) noexcept;
    ZoneOffsets& operator=(ZoneOffsets&& other) noexcept;
    ~ZoneOffsets();

    /// The seconds by which the clocks are ahead of UTC at `instant`.
    [[nodiscard]] int secondsAt(Instant instant) const;

 private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace elmworth
