// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/Locale.h"
#include "records/BusinessProfile.h"
#include "records/LogoImage.h"

namespace elmworth {

class Invoice;
namespace InvoiceCalculator {
struct Totals;
}

/// One invoice as pure text: all dates, amounts and labels are finished, so that pages, preview and
/// e-mail text decide nothing about data.
struct InvoiceRenderModel {
    struct Party {
        std::string name;
        std::string address;
        std::string email;
        std::string taxID;

        friend bool operator==(const Party&, const Party&) = default;
    };

    /// A line of the invoice: one project at one rate.
    struct ProjectRow {
        std::string name;
        std::string hours;
        std::string rate;
        std::string amount;

        friend bool operator==(const ProjectRow&, const ProjectRow&) = default;
    };

    /// One entry under a line.
    struct EntryRow {
        std::string date;
        std::string notes;
        std::string hours;

        friend bool operator==(const EntryRow&, const EntryRow&) = default;
    };

    using Row = std::variant<ProjectRow, EntryRow>;

    std::string number;
    std::string issueDate;
    std::string dueDate;
    std::string period;
    Party business;
    Party billTo;
    std::vector<Row> rows;
    std::string subtotal;
    std::optional<std::string> taxLabel;  ///< absent when the invoice has no tax
    std::string tax;
    std::string total;
    std::string paymentInstructions;
    std::string notes;
    LogoImage logo;  ///< null for none
};

/// How whoever reads an invoice writes dates and amounts, and where days begin for them.
struct InvoiceFormats {
    Locale dates;
    Locale money;
    std::string zoneID;  ///< IANA, "Europe/Berlin"
};

/// The part of the render model of `invoice` that needs neither figures nor dates: the parties, the
/// tax's label, the remarks and the logo. The number of pages depends on these and on the number of
/// rows.
[[nodiscard]] InvoiceRenderModel makeInvoiceFrame(const Invoice& invoice,
                                                  const BusinessProfile& profile, LogoImage logo);

/// The render model of `invoice` but for its rows and sums, which are empty.
[[nodiscard]] InvoiceRenderModel makeInvoiceHead(const Invoice& invoice,
                                                 const BusinessProfile& profile,
                                                 const InvoiceFormats& formats, LogoImage logo);

/// The render model of `invoice` in `formats`. The issuer comes from the invoice's own snapshot, or
/// from `profile` when there is none that can be read; the client, projects and entries from the
/// live records. Throws FiguresError.
[[nodiscard]] InvoiceRenderModel makeInvoiceRenderModel(const Invoice& invoice,
                                                        const BusinessProfile& profile,
                                                        const InvoiceFormats& formats,
                                                        LogoImage logo);

/// The same of figures that are known: `totals` are those of the calculator for `invoice`.
[[nodiscard]] InvoiceRenderModel makeInvoiceRenderModel(const Invoice& invoice,
                                                        const InvoiceCalculator::Totals& totals,
                                                        const BusinessProfile& profile,
                                                        const InvoiceFormats& formats,
                                                        LogoImage logo);

}  // namespace elmworth
