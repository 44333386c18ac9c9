// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <unicode/brkiter.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "exchange/CSVTokenizer.h"

namespace elmworth::test {

using Rows = std::vector<std::vector<std::string>>;

/// All rows of `text`, read by the program.
inline Rows tokenize(std::string_view text) {
    CSVTokenizer tokenizer(text);
    Rows rows;
    std::vector<std::string> fields;
    while (tokenizer.next(fields)) rows.push_back(fields);
    return rows;
}

/// The user-perceived characters of `text`, as ICU finds them.
inline std::vector<std::string> characters(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const auto source =
        icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
    static const std::unique_ptr<icu::BreakIterator> breaks(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    breaks->setText(source);
    std::vector<std::string> found;
    for (int start = breaks->first(), end = breaks->next(); end != icu::BreakIterator::DONE;
         start = end, end = breaks->next()) {
        source.tempSubStringBetween(start, end).toUTF8String(found.emplace_back());
    }
    return found;
}

/// The tokenizer's rules once more, naively, over ICU's user-perceived characters.
inline Rows tokenizeByReference(std::string_view text) {
    const auto all = characters(text);
    Rows rows;
    std::vector<std::string> row;
    std::string field;
    bool isQuoted = false;
    const auto endRow = [&] {
        row.push_back(std::exchange(field, {}));
        if (row != std::vector<std::string>{""}) rows.push_back(row);
        row.clear();
    };
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto& c = all[i];
        if (isQuoted) {
            if (c != "\"") {
                field += c;
            } else if (i + 1 < all.size() && all[i + 1] == "\"") {
                field += all[++i];
            } else {
                isQuoted = false;
            }
        } else if (c == "\"") {
            isQuoted = true;
        } else if (c == ",") {
            row.push_back(std::exchange(field, {}));
        } else if (c == "\n" || c == "\r\n" || c == "\r") {
            endRow();
        } else {
            field += c;
        }
    }
    if (!field.empty() || !row.empty()) endRow();
    return rows;
}

/// Whether quotes around `text`, with its own doubled, keep it as it is: not so when a character at
/// one of its ends joins a quote beside it, or one within joins its own.
inline bool survivesQuoting(std::string_view text) {
    const auto all = characters('"' + std::string(text) + '"');
    if (all.size() < 2 || all.front() != "\"" || all.back() != "\"") return false;
    return std::none_of(all.begin(), all.end(), [](const auto& character) {
        return character.size() > 1 && character.find('"') != std::string::npos;
    });
}

}  // namespace elmworth::test
