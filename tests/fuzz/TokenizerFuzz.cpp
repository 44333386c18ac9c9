// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The tokenizer splits a text as a naive reader of user-perceived characters does, and fields
// written again are split again into the same.

#include <algorithm>

#include "exchange/CSVDocument.h"
#include "exchange/ReferenceTokenizer.h"
#include "fuzz/Property.h"
#include "platform/Text.h"

using namespace elmworth;
using fuzz::require;

namespace {

std::string quoted(const std::string& field) {
    std::string text = "\"";
    for (const char c : field) text.append(c == '"' ? 2 : 1, c);
    return text + '"';
}

template <class Write>
std::string joined(const std::vector<std::string>& fields, Write write) {
    std::string line;
    for (const auto& field : fields) line.append(line.empty() ? "" : ",").append(write(field));
    return line;
}

/// A value whose only line breaks are CR LF stands without quotes, and is split at them.
bool isSplit(const std::string& field) {
    return csvField(field) == field && field.find_first_of("\r\n") != std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = validUTF8(fuzz::textOf(data, size));
    const auto rows = test::tokenize(text);
    require(rows == test::tokenizeByReference(text), "a text is split as a naive reader splits it");
    for (const auto& row : rows) {
        require(row != std::vector<std::string>{""}, "blank lines vanish");
        const bool survives = std::all_of(row.begin(), row.end(), test::survivesQuoting);
        if (!survives || row.front().empty()) continue;
        require(test::tokenize(joined(row, quoted)) == test::Rows{row},
                "fields in quotes are split into the same");
        if (std::any_of(row.begin(), row.end(), isSplit)) continue;
        require(test::tokenize(joined(row, csvField)) == test::Rows{row},
                "fields as they are exported are split into the same");
    }
    return 0;
}
