// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

namespace elmworth {

/// Rows of text in aligned columns, for people. Line breaks and control characters in cells
/// become blanks.
class TextTable {
 public:
    enum class Alignment { left, right };
    struct Column {
        std::string title;
        Alignment alignment = Alignment::left;
    };

    explicit TextTable(std::vector<Column> columns) : columns_(std::move(columns)) {}

    /// Adds a row; it has a cell for each column.
    void add(const std::vector<std::string>& cells);

    /// The head and the rows, each ended by a line break, without blanks at their ends.
    [[nodiscard]] std::string text() const;

    /// The rows without the head.
    [[nodiscard]] std::string rowsText() const;

 private:
    struct Cell {
        std::string text;
        std::size_t length;  ///< in user-perceived characters; none where it isn't needed
    };

    [[nodiscard]] Cell cell(std::size_t column, std::string text) const;
    [[nodiscard]] std::vector<Cell> titles() const;
    [[nodiscard]] std::vector<std::size_t> widths() const;
    void appendLine(std::string& text, const std::vector<Cell>& cells,
                    const std::vector<std::size_t>& widths) const;

    std::vector<Column> columns_;
    std::vector<std::vector<Cell>> rows_;
};

}  // namespace elmworth
