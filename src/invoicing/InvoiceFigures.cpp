// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceFigures.h"

#include "records/Project.h"
#include "records/TimeEntry.h"

namespace elmworth {

namespace {

// Below these a sum of seconds or cents is the same in any order, and exact.
constexpr double largestExactSeconds = 9007199254740992.0;  // 2^53
constexpr std::size_t mostLines = 900;                      // of up to 9e15 cents
constexpr std::int64_t longestStepMinutes = 1'000'000'000;

}  // namespace

InvoiceFigures::InvoiceFigures(UnitOfWork& context, const std::vector<Ref<Invoice>>& invoices) {
    try {
        const CompleteReading reading(context);
        readRates(context);
        for (const auto& invoice : invoices) expect(*invoice);
        readTime(context, invoices);
        reading.check();
    } catch (const StoreError&) {
        billed_.clear();  // the calculator knows which of them can still be told
    }
}

void InvoiceFigures::readRates(UnitOfWork& context) {
    for (const auto& project : context.fetch<Project>()) {
        rates_[project->id()] = project->effectiveRateCents();
    }
}

void InvoiceFigures::expect(const Invoice& invoice) {
    auto& billed = billed_[invoice.id()];
    billed.isExact = invoice.roundingMinutes <= longestStepMinutes;
    if (billed.isExact)
        billed.stepSeconds = InvoiceCalculator::stepSeconds(invoice.roundingMinutes);
}

void InvoiceFigures::readTime(UnitOfWork& context, const std::vector<Ref<Invoice>>& invoices) {
    const auto read = [&](const std::optional<Predicate<TimeEntry>>& predicate) {
        context.forEachValues<&TimeEntry::invoice, &TimeEntry::project, &TimeEntry::start,
                              &TimeEntry::end, &TimeEntry::billedRateCents>(
            predicate, [&](const PersistentID& /*entry*/, const auto& invoice, const auto& project,
                           Instant start, const auto& end, const auto& rateCents) {
                if (invoice && project && end) add(*invoice, *project, start, *end, rateCents);
            });
    };
    // One pass reads the library as it lies there, which is quicker than to look each entry up.
    if (4 * invoices.size() >= context.fetchCount<Invoice>()) {
        read(std::nullopt);
    } else {
        for (const auto& invoice : invoices) read(key<&TimeEntry::invoice>() == invoice);
    }
}

void InvoiceFigures::add(const PersistentID& invoice, const PersistentID& project, Instant start,
                         Instant end, const std::optional<std::int64_t>& billedRateCents) {
    const auto found = billed_.find(invoice);
    const auto rate = rates_.find(project);
    if (found == billed_.end() || rate == rates_.end()) return;
    auto& billed = found->second;
    auto& group = billed.groups[{project, billedRateCents.value_or(rate->second)}];
    ++group.entryCount;
    if (!billed.isExact) return;
    group.seconds +=
        InvoiceCalculator::roundedSeconds(secondsBetween(start, end), billed.stepSeconds);
    billed.isExact = group.seconds < largestExactSeconds && billed.groups.size() < mostLines;
}

InvoiceCalculator::Totals InvoiceFigures::totals(const Invoice& invoice) const {
    const auto found = billed_.find(invoice.id());
    if (found == billed_.end() || !found->second.isExact) return InvoiceCalculator::totals(invoice);
    std::vector<InvoiceCalculator::Line> lines;
    lines.reserve(found->second.groups.size());
    for (const auto& [key, group] : found->second.groups) {
        const auto cents = InvoiceCalculator::amountCents(group.seconds, key.second);
        lines.push_back({{}, group.seconds, key.second, cents, {}});
    }
    try {
        return InvoiceCalculator::totalled(std::move(lines), invoice.taxRateBasisPoints);
    } catch (const FiguresError&) {
        return InvoiceCalculator::totals(invoice);  // names the invoice
    }
}

std::size_t InvoiceFigures::rowCount(const Invoice& invoice) const {
    std::size_t lines = 0;
    std::size_t entries = 0;
    if (const auto found = billed_.find(invoice.id()); found != billed_.end()) {
        lines = found->second.groups.size();
        for (const auto& [key, group] : found->second.groups) entries += group.entryCount;
    } else {
        const auto totals = InvoiceCalculator::totals(invoice);
        lines = totals.lines.size();
        for (const auto& line : totals.lines) entries += line.entries.size();
    }
    return invoice.showsEntryDetails ? lines + entries : lines;
}

}  // namespace elmworth
