// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace elmworth {

/// Splits comma-separated text (UTF-8) into rows of fields, one row at a time.
///
/// The text is read as user-perceived characters: a comma or a quote that a combining character
/// follows is no comma or quote, and CR LF is one character. A quote starts and ends quoting
/// wherever it stands; within it line breaks and commas are text, and a doubled quote is one. Blank
/// lines are passed over. A quote that is never closed quotes the rest.
class CSVTokenizer {
 public:
    explicit CSVTokenizer(std::string_view text) : text_(text) {}

    /// Reads the next row into `fields`; false at the end of the text.
    bool next(std::vector<std::string>& fields);

    /// The bytes that have been read.
    [[nodiscard]] std::size_t position() const noexcept { return position_; }

 private:
    [[nodiscard]] bool standsAlone(std::size_t position) const;
    std::size_t readQuoted(std::size_t position, std::string& field) const;

    std::string_view text_;
    std::size_t position_ = 0;
};

}  // namespace elmworth
