// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/CSVFormat.h"

#include <algorithm>
#include <chrono>

#include "platform/ISO8601.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

/// Calendars count the years before this one backwards.
constexpr Instant yearOne = std::chrono::sys_days{std::chrono::year{1} / 1 / 1};

class OwnFormat final : public CSVFormat {
 public:
    explicit OwnFormat(const CSVHeader& header)
        : start_(*header.column("start")), end_(*header.column("end")) {}
    [[nodiscard]] std::optional<DateInterval> span(const CSVFields& fields) const override {
        if (std::max(start_, end_) >= fields.size()) return std::nullopt;
        const auto start = parseISO8601(fields[start_]);
        const auto end = parseISO8601(fields[end_]);
        if (!start || !end) return std::nullopt;
        return DateInterval{*start, *end};
    }
    [[nodiscard]] std::string_view notesColumn() const override { return "notes"; }

 private:
    std::size_t start_;
    std::size_t end_;
};

class TogglFormat final : public CSVFormat {
 public:
    TogglFormat(const CSVHeader& header, const std::string& zoneID)
        : startDate_(*header.column("start date")),
          startTime_(*header.column("start time")),
          endDate_(*header.column("end date")),
          endTime_(*header.column("end time")),
          calendar_(Locale("en_US"), zoneID),
          utc_(Locale("en_US"), "UTC") {}

    [[nodiscard]] std::optional<DateInterval> span(const CSVFields& fields) const override {
        if (std::max({startDate_, startTime_, endDate_, endTime_}) >= fields.size()) {
            return std::nullopt;
        }
        const auto start = localTime(fields[startDate_], fields[startTime_]);
        const auto end = localTime(fields[endDate_], fields[endTime_]);
        if (!start || !end) return std::nullopt;
        return DateInterval{*start, *end};
    }
    [[nodiscard]] std::string_view notesColumn() const override { return "description"; }

 private:
    [[nodiscard]] std::optional<Instant> localTime(const std::string& date,
                                                   const std::string& time) const {
        const auto asIfUTC = parseISO8601(date + 'T' + time + 'Z');
        if (!asIfUTC || *asIfUTC < yearOne) return std::nullopt;
        const auto instant = calendar_.date(utc_.components(*asIfUTC));
        return instant && hasISO8601(*instant) ? instant : std::nullopt;
    }

    std::size_t startDate_;
    std::size_t startTime_;
    std::size_t endDate_;
    std::size_t endTime_;
    Calendar calendar_;
    Calendar utc_;
};

}  // namespace

CSVHeader::CSVHeader(const CSVFields& names) {
    for (const auto& name : names) names_.push_back(lowerCased(trimmedBlanks(name)));
}

CSVColumn CSVHeader::column(std::string_view name) const {
    const auto found = std::find(names_.begin(), names_.end(), name);
    if (found == names_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - names_.begin());
}

bool CSVHeader::hasAll(std::initializer_list<std::string_view> names) const {
    return std::all_of(names.begin(), names.end(),
                       [&](auto name) { return column(name).has_value(); });
}

std::unique_ptr<CSVFormat> CSVFormat::of(const CSVHeader& header, const std::string& zoneID) {
    if (header.hasAll({"start", "end", "hours"})) return std::make_unique<OwnFormat>(header);
    if (header.hasAll({"start date", "start time", "end date", "end time"})) {
        return std::make_unique<TogglFormat>(header, zoneID);
    }
    return nullptr;
}

}  // namespace elmworth
