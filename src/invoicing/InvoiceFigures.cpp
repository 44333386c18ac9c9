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
        // One pass reads the library as it lies there, which is quicker than to look each entry up.
        const bool isOnePass = 4 * invoices.size() >= context.fetchCount<Invoice>();
        for (const auto& invoice : invoices) expect(*invoice);
        readTime(context, invoices, isOnePass);
        readRates(context, isOnePass);
        for (auto& [id, billed] : billed_) applyRates(billed);
        reading.check();
    } catch (const StoreError&) {
        billed_.clear();  // the calculator knows which of them can still be told
    }
}

void InvoiceFigures::expect(const Invoice& invoice) {
    auto& billed = billed_[invoice.id()];
    billed.isExact = invoice.roundingMinutes <= longestStepMinutes;
    if (billed.isExact)
        billed.stepSeconds = InvoiceCalculator::stepSeconds(invoice.roundingMinutes);
}

void InvoiceFigures::readTime(UnitOfWork& context, const std::vector<Ref<Invoice>>& invoices,
                              bool isOnePass) {
    const auto read = [&](const std::optional<Predicate<TimeEntry>>& predicate) {
        context.forEachValues<&TimeEntry::invoice, &TimeEntry::project, &TimeEntry::start,
                              &TimeEntry::end, &TimeEntry::billedRateCents>(
            predicate, [&](const PersistentID& entry, const auto& invoice, const auto& project,
                           Instant start, const auto& end, const auto& rateCents) {
                const auto found = invoice ? billed_.find(*invoice) : billed_.end();
                if (found == billed_.end()) return;
                found->second.source.entries.push_back(entry);
                if (!project || !end) return;
                add(found->second, {*project, rateCents}, secondsBetween(start, *end));
            });
    };
    if (isOnePass) {
        read(std::nullopt);
    } else {
        for (const auto& invoice : invoices) read(key<&TimeEntry::invoice>() == invoice);
    }
}

void InvoiceFigures::add(Billed& billed, const RateKey& key, double seconds) {
    auto& group = billed.read[key];
    ++group.entryCount;
    if (!billed.isExact) return;
    group.seconds += InvoiceCalculator::roundedSeconds(seconds, billed.stepSeconds);
    billed.isExact = group.seconds < largestExactSeconds && billed.read.size() < mostLines;
}

/// Those of the projects that have time on one of the invoices.
void InvoiceFigures::readRates(UnitOfWork& context, bool isOnePass) {
    if (isOnePass) {
        for (const auto& project : context.fetch<Project>()) {
            rates_[project->id()] = project->effectiveRateCents();
        }
        return;
    }
    for (const auto& [id, billed] : billed_) {
        for (const auto& [key, group] : billed.read) {
            if (rates_.contains(key.first)) continue;
            const auto project = context.record<Project>(key.first);
            if (project) rates_[key.first] = project->effectiveRateCents();
        }
    }
}

void InvoiceFigures::applyRates(Billed& billed) const {
    for (const auto& [key, group] : billed.read) {
        const auto rate = rates_.find(key.first);
        if (rate == rates_.end()) continue;
        if (!key.second) billed.source.hasLiveRates = true;
        auto& line = billed.groups[{key.first, key.second.value_or(rate->second)}];
        line.seconds += group.seconds;
        line.entryCount += group.entryCount;
        billed.isExact = billed.isExact && line.seconds < largestExactSeconds;
    }
    billed.read.clear();
}

const InvoiceFigures::Source* InvoiceFigures::source(const Invoice& invoice) const {
    const auto found = billed_.find(invoice.id());
    return found == billed_.end() ? nullptr : &found->second.source;
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
