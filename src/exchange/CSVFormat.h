// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Calendar.h"

namespace elmworth {

using CSVFields = std::vector<std::string>;
using CSVColumn = std::optional<std::size_t>;

/// The names of the columns, trimmed and in lower case.
class CSVHeader {
 public:
    explicit CSVHeader(const CSVFields& names);
    [[nodiscard]] CSVColumn column(std::string_view name) const;
    [[nodiscard]] bool hasAll(std::initializer_list<std::string_view> names) const;

 private:
    CSVFields names_;
};

/// Reads one kind of table of time that was tracked elsewhere, row by row.
class CSVFormat {
 public:
    CSVFormat() = default;
    CSVFormat(const CSVFormat&) = delete;
    CSVFormat& operator=(const CSVFormat&) = delete;
    virtual ~CSVFormat() = default;

    /// The kind that has such columns, of whose times those without an offset are meant in
    /// `zoneID`; null where none has.
    [[nodiscard]] static std::unique_ptr<CSVFormat> of(const CSVHeader& header,
                                                       const std::string& zoneID);

    /// Start and end of a row; absent when they cannot be read.
    [[nodiscard]] virtual std::optional<DateInterval> span(const CSVFields& fields) const = 0;
    [[nodiscard]] virtual std::string_view notesColumn() const = 0;
};

}  // namespace elmworth
