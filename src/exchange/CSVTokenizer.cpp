// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/CSVTokenizer.h"

#include "platform/Text.h"

namespace elmworth {

/// Whether the ASCII character at `position` is a user-perceived character by itself.
bool CSVTokenizer::standsAlone(std::size_t position) const {
    const bool asciiBefore =
        position == 0 || static_cast<unsigned char>(text_[position - 1]) < 0x80;
    const bool asciiAfter =
        position + 1 >= text_.size() || static_cast<unsigned char>(text_[position + 1]) < 0x80;
    if (asciiBefore && asciiAfter) return true;
    return isCharacterBoundary(text_, position) && isCharacterBoundary(text_, position + 1);
}

/// Appends what is quoted from `position` on, and gives the position behind the closing quote.
std::size_t CSVTokenizer::readQuoted(std::size_t position, std::string& field) const {
    while (position < text_.size()) {
        const std::size_t quote = text_.find('"', position);
        if (quote == std::string_view::npos) break;
        if (!standsAlone(quote)) {
            field.append(text_, position, quote + 1 - position);
            position = quote + 1;
            continue;
        }
        field.append(text_, position, quote - position);
        const bool isDoubled =
            quote + 1 < text_.size() && text_[quote + 1] == '"' && standsAlone(quote + 1);
        if (!isDoubled) return quote + 1;
        field += '"';
        position = quote + 2;
    }
    field.append(text_, position);
    return text_.size();
}

bool CSVTokenizer::next(std::vector<std::string>& fields) {
    fields.clear();
    std::string field;
    while (position_ < text_.size()) {
        const std::size_t special = text_.find_first_of("\",\r\n", position_);
        if (special == std::string_view::npos) {
            field.append(text_, position_);
            position_ = text_.size();
            break;
        }
        field.append(text_, position_, special - position_);
        position_ = special + 1;
        const char c = text_[special];
        if (c == '\r' || c == '\n') {
            if (c == '\r' && position_ < text_.size() && text_[position_] == '\n') ++position_;
            if (fields.empty() && field.empty()) continue;  // a blank line
            fields.push_back(std::move(field));
            return true;
        }
        if (!standsAlone(special)) {
            field += c;
        } else if (c == '"') {
            position_ = readQuoted(position_, field);
        } else {
            fields.push_back(std::move(field));
            field.clear();
        }
    }
    if (fields.empty() && field.empty()) return false;
    fields.push_back(std::move(field));
    return true;
}

}  // namespace elmworth
