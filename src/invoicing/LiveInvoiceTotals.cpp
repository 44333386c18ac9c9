// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/LiveInvoiceTotals.h"

#include <algorithm>

#include "records/Client.h"
#include "records/Project.h"

namespace elmworth {

namespace {

/// To look up more entries than these takes longer than to read the totals again.
constexpr std::size_t mostLookedUp = 1000;

template <auto Field>
bool hasChanged(const RecordChange& change) {
    return (change.fields & (1U << KeyPath<Field>::index())) != 0;
}

bool changesTotal(const RecordChange& invoice) {
    return invoice.kind != RecordChange::Kind::changed ||
           hasChanged<&Invoice::roundingMinutes>(invoice) ||
           hasChanged<&Invoice::taxRateBasisPoints>(invoice);
}

/// Whether an entry may be on an invoice on which it was not before.
bool mayJoin(const RecordChange& entry) {
    if (entry.kind == RecordChange::Kind::went) return false;
    return entry.kind == RecordChange::Kind::came || hasChanged<&TimeEntry::invoice>(entry);
}

}  // namespace

std::optional<std::int64_t> LiveInvoiceTotals::cents(const Ref<Invoice>& invoice) {
    read({invoice});
    return kept_.at(invoice->id()).cents;
}

void LiveInvoiceTotals::read(const std::vector<Ref<Invoice>>& invoices) {
    std::vector<Ref<Invoice>> missing;
    std::copy_if(invoices.begin(), invoices.end(), std::back_inserter(missing),
                 [this](const auto& invoice) { return !keeps(invoice->id()); });
    if (missing.empty()) return;
    const InvoiceFigures figures(context_, missing);
    for (const auto& invoice : missing) keep(*invoice, figures);
}

void LiveInvoiceTotals::keep(const Invoice& invoice, const InvoiceFigures& figures) {
    Kept kept;
    if (const auto* source = figures.source(invoice)) kept.source = *source;
    try {
        kept.cents = figures.totals(invoice).totalCents;
    } catch (const FiguresError&) {
        kept.cents = std::nullopt;  // the invoice itself says why
    }
    kept_[invoice.id()] = std::move(kept);
}

std::unordered_set<PersistentID> LiveInvoiceTotals::follow(const RecordChanges& changes) {
    const Effects effects = effectsOf(changes);
    std::unordered_set<PersistentID> outdated;
    std::erase_if(kept_, [&](const auto& item) {
        const auto& [invoice, kept] = item;
        if (!isOutdated(invoice, kept, effects)) return false;
        outdated.insert(invoice);
        return true;
    });
    return outdated;
}

LiveInvoiceTotals::Effects LiveInvoiceTotals::effectsOf(const RecordChanges& changes) {
    static const RecordChanges::Named none;
    Effects effects{.invoices = &none, .entries = &none};
    if (changes.touch(Invoice::schema())) effects.invoices = changes.of(Invoice::schema());
    effects.rates = changes.touch(Project::schema()) || changes.touch(Client::schema());
    effects.anyTime = changes.touch(TimeEntry::schema());
    if (!effects.anyTime || kept_.empty()) return effects;
    effects.entries = changes.of(TimeEntry::schema());
    if (effects.entries != nullptr && !noteGained(*effects.entries, effects)) {
        effects.entries = nullptr;
    }
    return effects;
}

/// False when they are too many.
bool LiveInvoiceTotals::noteGained(const RecordChanges::Named& entries, Effects& effects) {
    std::size_t count = 0;
    for (const auto& [id, change] : entries) {
        if (!mayJoin(change)) continue;
        if (++count > mostLookedUp) return false;
        const auto entry = context_.recordQuietly<TimeEntry>(id);
        const auto invoice = entry ? entry->invoice.get() : nullptr;
        if (invoice) effects.gained.insert(invoice->id());
    }
    return true;
}

bool LiveInvoiceTotals::isOutdated(const PersistentID& invoice, const Kept& kept,
                                   const Effects& effects) {
    if (effects.invoices == nullptr || effects.gained.contains(invoice)) return true;
    const auto change = effects.invoices->find(invoice);
    if (change != effects.invoices->end() && changesTotal(change->second)) return true;
    if (!kept.source) return effects.anyTime || effects.rates;
    if (kept.source->hasLiveRates && effects.rates) return true;
    if (effects.entries == nullptr) return true;
    return std::ranges::any_of(kept.source->entries, [&](const PersistentID& entry) {
        return effects.entries->contains(entry);
    });
}

}  // namespace elmworth
