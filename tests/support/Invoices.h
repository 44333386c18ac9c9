// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

#include "invoicing/InvoiceRenderModel.h"

namespace elmworth::test {

using ProjectRow = InvoiceRenderModel::ProjectRow;
using EntryRow = InvoiceRenderModel::EntryRow;

/// A line with as many entries as make `count` rows that can be told apart.
inline std::vector<InvoiceRenderModel::Row> invoiceRows(int count) {
    std::vector<InvoiceRenderModel::Row> rows;
    for (int i = 0; i < count; ++i) {
        if (i == 0) {
            rows.emplace_back(ProjectRow{"Website", "12.50", "$95.00", "$1,187.50"});
        } else {
            rows.emplace_back(EntryRow{"Mar 2, 2026", "Note" + std::to_string(i), "1.25"});
        }
    }
    return rows;
}

/// An invoice whose texts take no more space than every invoice has: no logo, no tax, no notes.
inline InvoiceRenderModel plainInvoice(int rowCount) {
    InvoiceRenderModel model;
    model.number = "INV-2026-014";
    model.issueDate = "Apr 1, 2026";
    model.dueDate = "Apr 15, 2026";
    model.period = "Mar 1, 2026 – Mar 31, 2026";
    model.business = {"Ada Byron Design", "12 Analytical Row\nLondon", "ada@byron.test", "GB 123"};
    model.billTo = {"Northwind Traders", "400 Harbor Blvd\nSeattle", "pay@northwind.test", ""};
    model.rows = invoiceRows(rowCount);
    model.subtotal = "$1,187.50";
    model.tax = "$0.00";
    model.total = "$1,187.50";
    return model;
}

/// `count` lines of text.
inline std::string lines(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += (i == 0 ? "line" : "\nline");
    return text;
}

}  // namespace elmworth::test
