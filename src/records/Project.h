// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>

#include "store/Schema.h"

namespace elmworth {

class Client;
class TimeEntry;

/// One piece of work, usually for a client.
class Project final : public Record {
 public:
    Project(std::string name, Ref<Client> client);
    explicit Project(const PersistentID& id) : Record(id) {}

    Attribute<std::string> name{*this};
    ToOne<Client> client{*this};
    Attribute<std::optional<std::int64_t>> rateOverrideCents{*this};  ///< absent: the client's rate
    Attribute<std::string> colorHex{*this, "#4F7CFF"};                ///< #RRGGBB
    Attribute<bool> isArchived{*this};                          ///< hidden from the timer's lists
    Attribute<std::optional<std::int64_t>> budgetHours{*this};  ///< whole hours
    ToMany<TimeEntry> entries{*this, "project"};                ///< deleted with the project

    /// Cents per hour: the override when set, else the client's rate, else 0.
    [[nodiscard]] std::int64_t effectiveRateCents() const;

    /// What the budget allows; absent without one of at least one hour.
    [[nodiscard]] std::optional<double> budgetSeconds() const;
    /// The share of the budget that all entries use, running ones up to `now`; 1.25 is 25% over.
    /// Absent without a budget.
    [[nodiscard]] std::optional<double> budgetFraction(Instant now) const;

    [[nodiscard]] static const RecordSchema& schema();
    [[nodiscard]] const RecordSchema& recordSchema() const noexcept override { return schema(); }
};

/// What an entry without a project shows in its place.
struct NoProject {
    static constexpr const char* name = "No project";
    static constexpr const char* chartName = "—";
    static constexpr const char* color = "#999999";
    static constexpr const char* badgeColor = "#7C6CFF";    ///< of a tile with an icon
    static constexpr const char* runningColor = "#FF5B87";  ///< of the dot of a running timer
};

/// "{project} — {client}", or the project's name alone without a client.
[[nodiscard]] std::string fullName(const Project& project);

}  // namespace elmworth
