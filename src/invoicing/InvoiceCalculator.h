// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "records/Invoice.h"
#include "records/TimeEntry.h"

namespace elmworth {

/// The figures of an invoice can't be told. The message is the sentence to show in their place.
class FiguresError : public std::runtime_error {
 public:
    enum class Reason {
        tooLarge,    ///< a sum is beyond 64 bits
        unreadable,  ///< part of the library can't be read
    };
    /// `invoice` is its number, or what else to call it.
    FiguresError(const std::string& invoice, Reason reason);
};

/// The one place where time becomes money. Pure functions; nothing that they compute is ever
/// stored. Rates and amounts are cents, tax rates basis points, durations seconds.
namespace InvoiceCalculator {

/// Entries are billed together when project and rate are the same.
using ProjectKey = std::pair<PersistentID, std::int64_t>;

/// A finished entry, reduced to what billing needs.
struct Item {
    ProjectKey projectKey;
    std::string projectName;
    std::int64_t rateCents = 0;  ///< cents per hour
    Instant start;
    double seconds = 0;  ///< the exact duration
    std::string notes;

    friend bool operator==(const Item&, const Item&) = default;
};

/// An entry under a line.
struct EntryLine {
    Instant date;
    std::string notes;
    double seconds = 0;  ///< rounded up

    friend bool operator==(const EntryLine&, const EntryLine&) = default;
};

/// A line of the invoice.
struct Line {
    std::string projectName;
    double seconds = 0;  ///< the sum of its entries' rounded seconds
    std::int64_t rateCents = 0;
    std::int64_t amountCents = 0;
    std::vector<EntryLine> entries;  ///< in ascending order of their start

    friend bool operator==(const Line&, const Line&) = default;
};

struct Totals {
    std::vector<Line> lines;
    std::int64_t subtotalCents = 0;
    std::int64_t taxCents = 0;
    std::int64_t totalCents = 0;

    friend bool operator==(const Totals&, const Totals&) = default;
};

/// The items of `entries`, in their order. Running entries and those without a project are left
/// out.
[[nodiscard]] std::vector<Item> items(const std::vector<Ref<TimeEntry>>& entries);

/// Prices `items`. Each entry is rounded up to a whole step of `roundingMinutes` (at least 1) after
/// rounding it to a whole second; a line's amount is rounded once, halves away from zero; the tax
/// is computed once on the subtotal, half up. Lines stand in the order of their projects' names,
/// then of their rates. Throws FiguresError for a sum beyond 64 bits.
[[nodiscard]] Totals calculate(std::vector<Item> items, std::int64_t roundingMinutes,
                               std::int64_t taxBasisPoints);

/// The figures of a stored invoice, from its entries as they are now. Throws FiguresError.
[[nodiscard]] Totals totals(const Invoice& invoice);

/// The sums over `lines`, whose amounts stand. Throws FiguresError for a sum beyond 64 bits.
[[nodiscard]] Totals totalled(std::vector<Line> lines, std::int64_t taxBasisPoints);

/// The step to which entries are rounded up. Throws FiguresError when it doesn't fit 64 bits.
[[nodiscard]] double stepSeconds(std::int64_t roundingMinutes);

/// Seconds of an entry as billed with the rounding step `stepSeconds` (above 0): rounded to a whole
/// second, halves away from zero, then up to a whole step; 0 for what is not above zero then.
[[nodiscard]] double roundedSeconds(double seconds, double stepSeconds);

/// The amount of `seconds` at `rateCents` an hour, rounded to whole cents, halves away from zero,
/// and kept between -9e15 and 9e15; 0 when there is no finite amount.
[[nodiscard]] std::int64_t amountCents(double seconds, std::int64_t rateCents);

/// The sum for figures over many clients' time, which no invoice holds: kept within 64 bits.
[[nodiscard]] std::int64_t limitedSum(std::int64_t a, std::int64_t b) noexcept;

}  // namespace InvoiceCalculator

}  // namespace elmworth
