// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "invoicing/InvoiceRenderModel.h"

namespace elmworth {

/// One printed page's share of an invoice.
struct InvoicePage {
    int index = 0;  ///< from 0
    int count = 1;  ///< pages of the invoice
    std::vector<InvoiceRenderModel::Row> rows;

    friend bool operator==(const InvoicePage&, const InvoicePage&) = default;
};

/// An estimate of the lines that `text` takes at `columns` user-perceived characters a line: none
/// for an empty text, and at least one for each piece between line feeds.
[[nodiscard]] std::size_t wrappedLineCount(std::string_view text, std::size_t columns);

/// Deals the rows of `model` out to pages. Measures nothing: the result depends on the texts alone.
[[nodiscard]] std::vector<InvoicePage> pages(const InvoiceRenderModel& model);

/// How many pages there would be with `rowCount` rows, whatever rows `model` has.
[[nodiscard]] int pageCount(const InvoiceRenderModel& model, std::size_t rowCount);

}  // namespace elmworth
