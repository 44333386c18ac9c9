// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/TextTable.h"

#include <algorithm>

#include "command/OneLine.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

constexpr std::size_t gap = 2;

std::string padded(const std::string& text, std::size_t width, TextTable::Alignment alignment) {
    const std::size_t length = characterCount(text);
    const std::string padding(width > length ? width - length : 0, ' ');
    return alignment == TextTable::Alignment::right ? padding + text : text + padding;
}

}  // namespace

void TextTable::add(std::vector<std::string> cells) {
    for (auto& cell : cells) cell = oneLine(cell);
    rows_.push_back(std::move(cells));
}

std::vector<std::size_t> TextTable::widths() const {
    std::vector<std::size_t> widths;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        std::size_t width = characterCount(columns_[i].title);
        for (const auto& row : rows_) width = std::max(width, characterCount(row[i]));
        widths.push_back(width);
    }
    return widths;
}

std::string TextTable::line(const std::vector<std::string>& cells,
                            const std::vector<std::size_t>& widths) const {
    std::string line;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (i > 0) line.append(gap, ' ');
        line += padded(cells[i], widths[i], columns_[i].alignment);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line + '\n';
}

std::string TextTable::text() const {
    std::vector<std::string> titles;
    for (const auto& column : columns_) titles.push_back(column.title);
    return line(titles, widths()) + rowsText();
}

std::string TextTable::rowsText() const {
    const auto columnWidths = widths();
    std::string text;
    for (const auto& row : rows_) text += line(row, columnWidths);
    return text;
}

}  // namespace elmworth
