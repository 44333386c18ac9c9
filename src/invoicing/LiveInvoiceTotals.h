// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "invoicing/InvoiceFigures.h"
#include "store/RecordChanges.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// The totals of invoices, each computed when it is first asked for, and kept until a record that
/// it comes from changes.
class LiveInvoiceTotals {
 public:
    explicit LiveInvoiceTotals(UnitOfWork& context) : context_(context) {}

    /// In cents, as InvoiceCalculator::totals has it; absent when it can't be told.
    [[nodiscard]] std::optional<std::int64_t> cents(const Ref<Invoice>& invoice);

    /// Computes those of `invoices` that are not kept, and reads their time together.
    void read(const std::vector<Ref<Invoice>>& invoices);

    [[nodiscard]] bool keeps(const PersistentID& invoice) const { return kept_.contains(invoice); }

    /// Forgets the totals that may be others after `changes`, which were made since the last call,
    /// and names their invoices.
    std::unordered_set<PersistentID> follow(const RecordChanges& changes);

 private:
    struct Kept {
        std::optional<std::int64_t> cents;
        /// Absent when any change of time may change it.
        std::optional<InvoiceFigures::Source> source;
    };
    /// What changes did that totals come from.
    struct Effects {
        const RecordChanges::Named* invoices = nullptr;  ///< null for any
        const RecordChanges::Named* entries = nullptr;   ///< null for any
        bool anyTime = false;
        bool rates = false;
        std::unordered_set<PersistentID> gained{};  ///< invoices that may have more entries now
    };

    [[nodiscard]] Effects effectsOf(const RecordChanges& changes);
    [[nodiscard]] bool noteGained(const RecordChanges::Named& entries, Effects& effects);
    [[nodiscard]] static bool isOutdated(const PersistentID& invoice, const Kept& kept,
                                         const Effects& effects);
    void keep(const Invoice& invoice, const InvoiceFigures& figures);

    UnitOfWork& context_;
    std::unordered_map<PersistentID, Kept> kept_;
};

}  // namespace elmworth
