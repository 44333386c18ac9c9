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

using Rows = std::vector<InvoiceRenderModel::Row>;

std::vector<Rows> dealtOut(const Rows& rows, Count firstCapacity) {
    std::vector<Rows> chunks;
    auto next = rows.begin();
    Count capacity = firstCapacity;
    do {
        const auto end = next + std::min<Count>(capacity, rows.end() - next);
        chunks.emplace_back(next, end);
        next = end;
        capacity = laterPageRows;
    } while (next != rows.end());
    return chunks;
}

std::vector<InvoicePage> numbered(std::vector<Rows> chunks) {
    std::vector<InvoicePage> result;
    result.reserve(chunks.size());
    for (Rows& rows : chunks) {
        result.push_back({.index = static_cast<int>(result.size()),
                          .count = static_cast<int>(chunks.size()),
                          .rows = std::move(rows)});
    }
    return result;
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
    const Count headerRows = rowsOf(headerLines(model));
    const Count footerRows = rowsOf(footerLines(model));
    auto chunks = dealtOut(model.rows, std::max(firstPageRows - headerRows, fewestFirstPageRows));
    const Count limit = chunks.size() == 1 ? onlyPageRowsWithClosing - headerRows - footerRows
                                           : lastPageRowsWithClosing - footerRows;
    // No row moves: the closing goes alone onto a page of its own.
    if (static_cast<Count>(chunks.back().size()) > limit) chunks.emplace_back();
    return numbered(std::move(chunks));
}

}  // namespace elmworth
