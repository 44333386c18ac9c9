// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/TextTable.h"

#include <algorithm>

#include "platform/Text.h"

namespace elmworth {

namespace {

constexpr std::size_t gap = 2;

}  // namespace

void TextTable::add(const std::vector<std::string>& cells) {
    std::vector<Cell> row;
    row.reserve(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i) row.push_back(cell(i, oneLine(cells[i])));
    rows_.push_back(std::move(row));
}

/// Behind the last column there are no blanks, so nobody needs to know how long its texts are,
/// which are the longest ones.
TextTable::Cell TextTable::cell(std::size_t column, std::string text) const {
    const bool isOpen =
        column + 1 == columns_.size() && columns_[column].alignment == Alignment::left;
    const std::size_t length = isOpen ? 0 : characterCount(text);
    return {std::move(text), length};
}

std::vector<TextTable::Cell> TextTable::titles() const {
    std::vector<Cell> titles;
    for (std::size_t i = 0; i < columns_.size(); ++i) titles.push_back(cell(i, columns_[i].title));
    return titles;
}

std::vector<std::size_t> TextTable::widths() const {
    std::vector<std::size_t> widths;
    for (const auto& title : titles()) widths.push_back(title.length);
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], row[i].length);
    }
    return widths;
}

void TextTable::appendLine(std::string& text, const std::vector<Cell>& cells,
                           const std::vector<std::size_t>& widths) const {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const std::size_t padding = widths[i] - cells[i].length;
        const bool isRight = columns_[i].alignment == Alignment::right;
        if (i > 0) text.append(gap, ' ');
        text.append(isRight ? padding : 0, ' ');
        text += cells[i].text;
        text.append(isRight ? 0 : padding, ' ');
    }
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
}

std::string TextTable::text() const {
    std::string text;
    appendLine(text, titles(), widths());
    return text + rowsText();
}

std::string TextTable::rowsText() const {
    const auto columnWidths = widths();
    std::string text;
    for (const auto& row : rows_) appendLine(text, row, columnWidths);
    return text;
}

}  // namespace elmworth
