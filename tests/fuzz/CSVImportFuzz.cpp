// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A file of any bytes is read as text and as rows of time; rows written as an export are read again
// as the same.

#include <algorithm>

#include "exchange/CSVDocument.h"
#include "exchange/CSVImporter.h"
#include "exchange/ReferenceTokenizer.h"
#include "fuzz/Property.h"
#include "platform/Text.h"
#include "platform/TextEncoding.h"

using namespace elmworth;
using CSVImporter::Row;
using fuzz::require;

namespace {

std::vector<Row> parse(std::string_view text, const std::string& zone) {
    try {
        auto rows = CSVImporter::parse(text, zone);
        require(!rows.empty(), "a file without rows is refused");
        return rows;
    } catch (const ImportError&) {
        return {};
    }
}

std::string exported(const std::vector<Row>& rows) {
    std::string text;
    CSVDocument document("UTC", [&](std::string_view piece) { text += piece; });
    for (const auto& row : rows) {
        document.add(row.start, row.end, row.client, row.project, row.notes);
    }
    document.finish();
    return text;
}

bool isTrimmed(const std::string& text) {
    return trimmedBlanks(text) == text;
}

/// An export cannot bring back texts with CR LF breaks, and characters that join a quote.
bool comesBack(const std::string& text) {
    return test::survivesQuoting(text) && text.find("\r\n") == std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = fuzz::textOf(data, size);
    const auto text = decodeText(std::string(bytes));
    if (!text) return 0;
    require(validUTF8(*text) == *text, "a decoded text is UTF-8");
    require(validUTF8(bytes) != bytes || *text == bytes, "UTF-8 is taken as it is");

    auto rows = parse(*text, "Europe/Berlin");
    for (const auto& row : rows) {
        require(row.start < row.end, "a row ends after its start");
        require(isTrimmed(row.client) && isTrimmed(row.project) && isTrimmed(row.notes),
                "texts are trimmed");
    }
    if (text->substr(0, 3) != "\xEF\xBB\xBF") {
        require(parse("\xEF\xBB\xBF" + *text, "Europe/Berlin") == rows,
                "a byte order mark changes nothing");
    }
    std::erase_if(rows, [](const Row& row) {
        return !comesBack(row.client) || !comesBack(row.project) || !comesBack(row.notes);
    });
    require(parse(exported(rows), "Asia/Tokyo") == rows, "exported rows are read as the same");
    return 0;
}
