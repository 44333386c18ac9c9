// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>

#include "store/Schema.h"

namespace elmworth {

class Invoice;
class Project;

/// One span of tracked time. An entry without an `end` is a running timer: there is no other stored
/// form of one.
class TimeEntry final : public Record {
 public:
    TimeEntry(Instant start, Ref<Project> project);
    explicit TimeEntry(const PersistentID& id) : Record(id) {}

    Attribute<Instant> start{*this};
    Attribute<std::optional<Instant>> end{*this};  ///< absent while running
    Attribute<std::string> notes{*this};
    ToOne<Project> project{*this};
    ToOne<Invoice> invoice{*this};                                  ///< set: the entry is billed
    Attribute<std::optional<std::int64_t>> billedRateCents{*this};  ///< the rate frozen when billed

    [[nodiscard]] bool isRunning() const noexcept { return !end.get().has_value(); }

    /// Seconds from `start` to `end`, or to `now` while running; negative when they are reversed.
    [[nodiscard]] double duration(Instant now = currentInstant()) const;

    /// Cents per hour: the billed rate when set, else the project's rate, else 0.
    [[nodiscard]] std::int64_t effectiveRateCents() const;

    [[nodiscard]] static const RecordSchema& schema();
    [[nodiscard]] const RecordSchema& recordSchema() const noexcept override { return schema(); }
};

}  // namespace elmworth
