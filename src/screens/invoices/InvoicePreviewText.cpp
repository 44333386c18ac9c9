// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoicePreviewText.h"

#include <initializer_list>
#include <string_view>
#include <variant>

namespace elmworth {

namespace {

using Party = InvoiceRenderModel::Party;

/// Lines of words; what is empty is left out.
class Reading {
 public:
    void line(std::initializer_list<std::string_view> words) {
        std::string line;
        for (const auto word : words) {
            if (word.empty()) continue;
            if (!line.empty()) line += ' ';
            line += word;
        }
        if (line.empty()) return;
        if (!text_.empty()) text_ += '\n';
        text_ += line;
    }
    /// A text with its heading, or nothing.
    void remark(std::string_view heading, std::string_view text) {
        if (!text.empty()) line({heading, text});
    }
    [[nodiscard]] std::string take() { return std::move(text_); }

 private:
    std::string text_;
};

void read(Reading& reading, const Party& party) {
    for (const auto& text : {party.name, party.address, party.email}) reading.line({text});
    reading.remark("Tax ID:", party.taxID);
}

void readHeader(Reading& reading, const InvoiceRenderModel& model) {
    reading.line({"INVOICE", model.number});
    reading.line({"Issued", model.issueDate});
    reading.line({"Due", model.dueDate});
    read(reading, model.business);
    reading.line({"BILL TO"});
    read(reading, model.billTo);
    reading.line({"PERIOD", model.period});
}

void read(Reading& reading, const InvoiceRenderModel::ProjectRow& row) {
    reading.line({row.name, row.hours, row.rate, row.amount});
}

void read(Reading& reading, const InvoiceRenderModel::EntryRow& row) {
    reading.line({row.date, row.notes.empty() ? "—" : row.notes, row.hours});
}

void readClosing(Reading& reading, const InvoiceRenderModel& model) {
    reading.line({"Subtotal", model.subtotal});
    if (model.taxLabel) reading.line({*model.taxLabel, model.tax});
    reading.line({"Total", model.total});
    reading.remark("NOTES", model.notes);
    reading.remark("PAYMENT", model.paymentInstructions);
}

}  // namespace

std::string previewText(const InvoicePage& page, const InvoiceRenderModel& model) {
    Reading reading;
    if (page.index == 0) readHeader(reading, model);
    if (page.index == 0 || !page.rows.empty()) {
        reading.line({"DESCRIPTION", "HOURS", "RATE", "AMOUNT"});
    }
    for (const auto& row : page.rows) {
        std::visit([&](const auto& kind) { read(reading, kind); }, row);
    }
    if (page.index == page.count - 1) readClosing(reading, model);
    return reading.take();
}

}  // namespace elmworth
