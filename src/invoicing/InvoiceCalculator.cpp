// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceCalculator.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

#include "platform/Collator.h"
#include "records/Project.h"
#include "store/UnitOfWork.h"

namespace elmworth {

namespace {

const char* ending(FiguresError::Reason reason) {
    return reason == FiguresError::Reason::tooLarge ? " are too large." : " can't be read.";
}

}  // namespace

FiguresError::FiguresError(const std::string& invoice, Reason reason)
    : std::runtime_error("The figures of " + invoice + ending(reason)) {}

namespace InvoiceCalculator {

namespace {

/// A sum or product is beyond 64 bits.
struct Overflow {};

constexpr double largestAmount = 9e15;

std::int64_t sum(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_add_overflow(a, b, &result)) throw Overflow{};
    return result;
}

std::int64_t product(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_mul_overflow(a, b, &result)) throw Overflow{};
    return result;
}

/// The groups of items with one key, in the order in which the keys first appear.
std::vector<std::vector<Item>> grouped(std::vector<Item> items) {
    std::vector<std::vector<Item>> groups;
    std::map<ProjectKey, std::size_t> places;
    for (auto& item : items) {
        const auto [place, isNew] = places.try_emplace(item.projectKey, groups.size());
        if (isNew) groups.emplace_back();
        groups[place->second].push_back(std::move(item));
    }
    return groups;
}

Line makeLine(std::vector<Item> group, double stepSeconds) {
    Line line;
    line.projectName = group.front().projectName;
    line.rateCents = group.front().rateCents;
    for (auto& item : group) {
        const double seconds = roundedSeconds(item.seconds, stepSeconds);
        line.seconds += seconds;
        line.entries.push_back({item.start, std::move(item.notes), seconds});
    }
    line.amountCents = amountCents(line.seconds, line.rateCents);
    return line;
}

bool precedes(const Line& a, const Line& b) {
    const int names = localizedStandardCompare(a.projectName, b.projectName);
    return names != 0 ? names < 0 : a.rateCents < b.rateCents;
}

}  // namespace

double roundedSeconds(double seconds, double stepSeconds) {
    const double whole = std::round(seconds);
    return whole > 0 ? std::ceil(whole / stepSeconds) * stepSeconds : 0;
}

std::int64_t amountCents(double seconds, std::int64_t rateCents) {
    const double rounded = std::round((seconds / 3600.0) * static_cast<double>(rateCents));
    if (!std::isfinite(rounded)) return 0;
    return static_cast<std::int64_t>(std::clamp(rounded, -largestAmount, largestAmount));
}

std::vector<Item> items(const std::vector<Ref<TimeEntry>>& entries) {
    std::vector<Item> items;
    items.reserve(entries.size());
    for (const auto& entry : entries) {
        const auto& project = entry->project.get();
        if (entry->isRunning() || !project) continue;
        const std::int64_t rate = entry->effectiveRateCents();
        items.push_back({{project->id(), rate},
                         project->name,
                         rate,
                         entry->start,
                         secondsBetween(entry->start, *entry->end.get()),
                         entry->notes});
    }
    return items;
}

namespace {

double exactStep(std::int64_t roundingMinutes) {
    return static_cast<double>(product(std::max<std::int64_t>(roundingMinutes, 1), 60));
}

Totals sumUp(std::vector<Line> lines, std::int64_t taxBasisPoints) {
    Totals totals{std::move(lines)};
    for (const auto& line : totals.lines) {
        totals.subtotalCents = sum(totals.subtotalCents, line.amountCents);
    }
    totals.taxCents = sum(product(totals.subtotalCents, taxBasisPoints), 5000) / 10000;
    totals.totalCents = sum(totals.subtotalCents, totals.taxCents);
    return totals;
}

Totals price(std::vector<Item> items, std::int64_t roundingMinutes, std::int64_t taxBasisPoints) {
    std::stable_sort(items.begin(), items.end(),
                     [](const Item& a, const Item& b) { return a.start < b.start; });
    const double step = exactStep(roundingMinutes);
    std::vector<Line> lines;
    for (auto& group : grouped(std::move(items))) lines.push_back(makeLine(std::move(group), step));
    std::stable_sort(lines.begin(), lines.end(), precedes);
    return sumUp(std::move(lines), taxBasisPoints);
}

/// What can't be read must not make an invoice look cheaper.
std::vector<Item> itemsOf(const Invoice& invoice) {
    if (!invoice.unitOfWork()) return {};
    const CompleteReading reading(*invoice.unitOfWork());
    auto all = items(invoice.entries());
    reading.check();
    return all;
}

template <class Compute>
auto orTooLarge(const Compute& compute) {
    try {
        return compute();
    } catch (const Overflow&) {
        throw FiguresError("this invoice", FiguresError::Reason::tooLarge);
    }
}

}  // namespace

Totals calculate(std::vector<Item> items, std::int64_t roundingMinutes,
                 std::int64_t taxBasisPoints) {
    return orTooLarge([&] { return price(std::move(items), roundingMinutes, taxBasisPoints); });
}

double stepSeconds(std::int64_t roundingMinutes) {
    return orTooLarge([&] { return exactStep(roundingMinutes); });
}

Totals totalled(std::vector<Line> lines, std::int64_t taxBasisPoints) {
    return orTooLarge([&] { return sumUp(std::move(lines), taxBasisPoints); });
}

Totals totals(const Invoice& invoice) {
    try {
        return price(itemsOf(invoice), invoice.roundingMinutes, invoice.taxRateBasisPoints);
    } catch (const Overflow&) {
        throw FiguresError(invoice.number, FiguresError::Reason::tooLarge);
    } catch (const StoreError&) {
        throw FiguresError(invoice.number, FiguresError::Reason::unreadable);
    }
}

std::int64_t limitedSum(std::int64_t a, std::int64_t b) noexcept {
    using Limits = std::numeric_limits<std::int64_t>;
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a, b, &sum)) return b < 0 ? Limits::min() : Limits::max();
    return sum;
}

}  // namespace InvoiceCalculator

}  // namespace elmworth
