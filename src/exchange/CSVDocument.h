// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Instant.h"
#include "platform/ZoneOffsets.h"
#include "records/TimeEntry.h"

namespace elmworth {

/// Writes finished entries as comma-separated text: a header, then a line for each in the order in
/// which they are added, each line ended by CR LF. Dates and times stand in one time zone, with the
/// offset; hours are exact, with a point.
class CSVDocument {
 public:
    /// Hands the text to `sink` piece by piece.
    CSVDocument(const std::string& zoneID, std::function<void(std::string_view)> sink);

    void add(Instant start, Instant end, std::string_view client, std::string_view project,
             std::string_view notes);
    /// Adds a finished entry; false, and nothing is added, for one that runs.
    bool add(const TimeEntry& entry);

    /// Hands on what is left. Called once, at the end.
    void finish();

 private:
    void addLine(std::initializer_list<std::string_view> values);

    ZoneOffsets offsets_;
    std::function<void(std::string_view)> sink_;
    std::string gathered_;
};

/// `value` as a field: in quotes, with its quotes doubled, when it holds a comma, a quote or a line
/// break. A comma or a quote that a combining character follows is another character and none of
/// these. A CR LF pair is one character that is neither a line feed nor a carriage return, so a
/// value whose only line breaks are such pairs stands as it is.
[[nodiscard]] std::string csvField(std::string_view value);

}  // namespace elmworth
