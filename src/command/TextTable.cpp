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
    for (const auto& cell : cells) row.emplace_back(oneLine(cell));
    rows_.push_back(std::move(row));
}

TextTable::Cell::Cell(std::string line) : text(std::move(line)), length(characterCount(text)) {}

std::vector<std::size_t> TextTable::widths() const {
    std::vector<std::size_t> widths;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        std::size_t width = characterCount(columns_[i].title);
        for (const auto& row : rows_) width = std::max(width, row[i].length);
        widths.push_back(width);
    }
    return widths;
}

void TextTable::appendLine(std::string& text, const std::vector<Cell>& cells,
                           const std::vector<std::size_t>& widths) const {
    std::string line;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const std::size_t padding = widths[i] - cells[i].length;
        const bool isRight = columns_[i].alignment == Alignment::right;
        if (i > 0) line.append(gap, ' ');
        line.append(isRight ? padding : 0, ' ');
        line += cells[i].text;
        line.append(isRight ? 0 : padding, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + '\n';
}

std::string TextTable::text() const {
    std::vector<Cell> titles;
    for (const auto& column : columns_) titles.push_back(Cell(column.title));
    std::string text;
    appendLine(text, titles, widths());
    return text + rowsText();
}

std::string TextTable::rowsText() const {
    const auto columnWidths = widths();
    std::string text;
    for (const auto& row : rows_) appendLine(text, row, columnWidths);
    return text;
}

}  // namespace elmworth
