// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <unordered_map>
#include <vector>

#include "invoicing/InvoiceCalculator.h"
#include "records/Invoice.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// The figures of many invoices from one pass over the library's time, which makes no records.
class InvoiceFigures {
 public:
    /// Reads the time on `invoices`, which are some of the library's. Where a part of the library
    /// can't be read, the calculator is asked for each of them.
    InvoiceFigures(UnitOfWork& context, const std::vector<Ref<Invoice>>& invoices);

    /// As InvoiceCalculator::totals of one of the invoices, and fails as that does; but its lines
    /// have no names and no entries, and stand in any order.
    [[nodiscard]] InvoiceCalculator::Totals totals(const Invoice& invoice) const;

    /// How many rows an invoice's table has: its lines, and its entries where they show. Throws
    /// FiguresError.
    [[nodiscard]] std::size_t rowCount(const Invoice& invoice) const;

    /// What the figures of an invoice came from.
    struct Source {
        std::vector<PersistentID> entries{};  ///< all of its entries
        bool hasLiveRates = false;  ///< some time has no frozen rate, but that of its project now
    };
    /// Of one of the invoices; null when the library could not be read at once.
    [[nodiscard]] const Source* source(const Invoice& invoice) const;

 private:
    /// The entries of one project at one rate.
    struct Group {
        double seconds = 0;  ///< as billed
        std::size_t entryCount = 0;
    };
    /// A project with a frozen rate, or without one.
    using RateKey = std::pair<PersistentID, std::optional<std::int64_t>>;
    struct Billed {
        double stepSeconds = 0;
        bool isExact = true;  ///< whether the sums are the same in any order
        std::map<RateKey, Group> read;
        std::map<InvoiceCalculator::ProjectKey, Group> groups;
        Source source;
    };

    void expect(const Invoice& invoice);
    void readTime(UnitOfWork& context, const std::vector<Ref<Invoice>>& invoices, bool isOnePass);
    void readRates(UnitOfWork& context, bool isOnePass);
    void applyRates(Billed& billed) const;
    static void add(Billed& billed, const RateKey& key, double seconds);

    std::unordered_map<PersistentID, Billed> billed_;
    std::unordered_map<PersistentID, std::int64_t> rates_;  ///< of the projects
};

}  // namespace elmworth
