// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoicePages.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/Text.h"

namespace elmworth {

namespace {

using Count = std::int64_t;

constexpr std::size_t addressColumns = 45;
constexpr std::size_t noteColumns = 90;

// The layout allows for two lines of address and of payment instructions as they are.
constexpr Count linesIncluded = 2;
constexpr Count logoLines = 4;
constexpr Count notesHeadingLines = 2;

constexpr Count firstPageRows = 22;
constexpr Count fewestFirstPageRows = 4;
constexpr Count laterPageRows = 34;
constexpr Count onlyPageRowsWithClosing = 12;
constexpr Count lastPageRowsWithClosing = 26;

Count wrappedLines(std::string_view text, std::size_t columns) {
    return static_cast<Count>(wrappedLineCount(text, columns));
}

Count headerLines(const InvoiceRenderModel& model) {
    const Count address = std::max(wrappedLines(model.business.address, addressColumns),
                                   wrappedLines(model.billTo.address, addressColumns));
    return std::max<Count>(address - linesIncluded, 0) + (model.logo ? logoLines : 0);
}

Count footerLines(const InvoiceRenderModel& model) {
    const Count payment = wrappedLines(model.paymentInstructions, noteColumns) - linesIncluded;
    const Count notes =
        model.notes.empty() ? 0 : wrappedLines(model.notes, noteColumns) + notesHeadingLines;
    return std::max<Count>(payment, 0) + notes;
}

/// Table rows as high as `lines` lines of text.
Count rowsOf(Count lines) {
    constexpr double lineHeight = 13;
    constexpr double rowHeight = 17;
    return static_cast<Count>(std::ceil(static_cast<double>(lines) * lineHeight / rowHeight));
}

/// How many of `rowCount` rows stand on each page.
std::vector<std::size_t> rowsOfPages(const InvoiceRenderModel& model, std::size_t rowCount) {
    const Count headerRows = rowsOf(headerLines(model));
    const Count footerRows = rowsOf(footerLines(model));
    std::vector<std::size_t> pageRows;
    Count capacity = std::max(firstPageRows - headerRows, fewestFirstPageRows);
    do {
        pageRows.push_back(std::min(static_cast<std::size_t>(capacity), rowCount));
        rowCount -= pageRows.back();
        capacity = laterPageRows;
    } while (rowCount > 0);
    const Count limit = pageRows.size() == 1 ? onlyPageRowsWithClosing - headerRows - footerRows
                                             : lastPageRowsWithClosing - footerRows;
    // No row moves: the closing goes alone onto a page of its own.
    if (static_cast<Count>(pageRows.back()) > limit) pageRows.push_back(0);
    return pageRows;
}

}  // namespace

std::size_t wrappedLineCount(std::string_view text, std::size_t columns) {
    if (text.empty()) return 0;
    std::size_t lines = 0;
    while (true) {
        const std::size_t feed = text.find('\n');
        const std::size_t characters = characterCount(text.substr(0, feed));
        lines += std::max<std::size_t>((characters + columns - 1) / columns, 1);
        if (feed == std::string_view::npos) return lines;
        text.remove_prefix(feed + 1);
    }
}

std::vector<InvoicePage> pages(const InvoiceRenderModel& model) {
    const auto pageRows = rowsOfPages(model, model.rows.size());
    std::vector<InvoicePage> result;
    result.reserve(pageRows.size());
    auto next = model.rows.begin();
    for (const std::size_t count : pageRows) {
        const auto end = next + static_cast<std::ptrdiff_t>(count);
        result.push_back({.index = static_cast<int>(result.size()),
                          .count = static_cast<int>(pageRows.size()),
                          .rows = {next, end}});
        next = end;
    }
    return result;
}

int pageCount(const InvoiceRenderModel& model, std::size_t rowCount) {
    return static_cast<int>(rowsOfPages(model, rowCount).size());
}

}  // namespace elmworth
