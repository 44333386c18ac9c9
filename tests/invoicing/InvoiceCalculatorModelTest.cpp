// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The calculator against a second, naive one in exact arithmetic, over a million random entries,
// and against the properties that every invoice has.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

#include "invoicing/InvoiceCalculator.h"

namespace elmworth {
namespace {

using InvoiceCalculator::Item;
using InvoiceCalculator::Totals;
using namespace std::chrono_literals;
__extension__ using Wide = __int128;

constexpr int invoicesForTheModel = 25'000;
constexpr int invoicesForAProperty = 2'500;
constexpr std::int64_t microsecondsPerSecond = 1'000'000;

// In the natural order, so that the model needs no collation.
constexpr std::array projectNames{"App 2", "App 10", "Brand", "Website"};

struct ModelEntry {
    std::size_t project;
    std::int64_t rateCents;
    std::int64_t start;         ///< seconds
    std::int64_t microseconds;  ///< length
};

struct RandomInvoice {
    std::vector<ModelEntry> entries;
    std::int64_t roundingMinutes;
    std::int64_t taxBasisPoints;
};

/// Cents as a fraction of sixty, for whole minutes at a rate per hour.
Wide roundedSixtieth(Wide numerator) {
    const Wide magnitude = numerator < 0 ? -numerator : numerator;
    const Wide rounded = (magnitude * 2 + 60) / 120;
    return numerator < 0 ? -rounded : rounded;
}

struct ModelLine {
    std::size_t project;
    std::int64_t rateCents;
    std::int64_t firstStart;
    std::int64_t minutes = 0;
    std::size_t entries = 0;
};

std::int64_t modelMinutes(const ModelEntry& entry, std::int64_t roundingMinutes) {
    const std::int64_t seconds =
        (2 * entry.microseconds + microsecondsPerSecond) / (2 * microsecondsPerSecond);
    if (entry.microseconds <= 0 || seconds <= 0) return 0;
    const std::int64_t step = std::max<std::int64_t>(roundingMinutes, 1);
    std::int64_t minutes = 0;
    while (minutes * 60 < seconds) minutes += step;
    return minutes;
}

std::vector<ModelLine> modelLines(const RandomInvoice& invoice) {
    std::vector<ModelLine> lines;
    for (const auto& entry : invoice.entries) {
        auto line = std::find_if(lines.begin(), lines.end(), [&](const auto& candidate) {
            return candidate.project == entry.project && candidate.rateCents == entry.rateCents;
        });
        if (line == lines.end()) {
            lines.push_back({entry.project, entry.rateCents, entry.start});
            line = lines.end() - 1;
        }
        line->minutes += modelMinutes(entry, invoice.roundingMinutes);
        ++line->entries;
    }
    std::sort(lines.begin(), lines.end(), [](const auto& a, const auto& b) {
        return std::pair(a.project, a.rateCents) < std::pair(b.project, b.rateCents);
    });
    return lines;
}

/// Double precision, in which amounts are defined, may put an exact half of a cent below it.
bool isAmount(std::int64_t cents, const ModelLine& line) {
    const Wide sixtieths = Wide{line.minutes} * line.rateCents;
    const Wide exact = roundedSixtieth(sixtieths);
    const bool isTie = (sixtieths < 0 ? -sixtieths : sixtieths) % 60 == 30;
    return cents == exact || (isTie && cents == exact - (sixtieths < 0 ? -1 : 1));
}

class InvoiceCalculatorModel : public testing::TestWithParam<unsigned> {
 protected:
    std::int64_t between(std::int64_t low, std::int64_t high) {
        return std::uniform_int_distribution<std::int64_t>(low, high)(random_);
    }

    std::int64_t randomLength() {
        switch (between(0, 5)) {
            case 0:
                return between(-microsecondsPerSecond, 2 * microsecondsPerSecond);
            case 1:  // at and around whole seconds and their halves
                return between(0, 20'000) * microsecondsPerSecond / 2 + between(-1, 1);
            case 2:  // whole minutes
                return between(0, 600) * 60 * microsecondsPerSecond;
            default:
                return between(0, 12 * 3600 * microsecondsPerSecond);
        }
    }

    RandomInvoice randomInvoice() {
        RandomInvoice invoice;
        constexpr std::array<std::int64_t, 8> roundings{-3, 0, 1, 5, 6, 10, 15, 60};
        invoice.roundingMinutes = roundings[static_cast<std::size_t>(between(0, 7))];
        invoice.taxBasisPoints = between(0, 3) == 0 ? 0 : between(0, 10'000);
        const auto count = between(0, 10);
        for (std::int64_t i = 0; i < count; ++i) {
            invoice.entries.push_back({static_cast<std::size_t>(between(0, 3)),
                                       between(0, 2) == 0 ? 9000 : between(0, 2'000'000),
                                       i * 100 + between(0, 99), randomLength()});
        }
        return invoice;
    }

    [[nodiscard]] std::vector<Item> items(const RandomInvoice& invoice) {
        std::vector<Item> made;
        for (const auto& entry : invoice.entries) {
            made.push_back({{projects_[entry.project], entry.rateCents},
                            projectNames[entry.project],
                            entry.rateCents,
                            Instant(std::chrono::seconds(entry.start)),
                            static_cast<double>(entry.microseconds) / microsecondsPerSecond,
                            {}});
        }
        std::shuffle(made.begin(), made.end(), random_);
        return made;
    }

    /// Calls `check(invoice, items, totals)` for `count` invoices.
    template <class Check>
    void forInvoices(int count, Check check) {
        for (int i = 0; i < count && !HasFailure(); ++i) {
            const auto invoice = randomInvoice();
            const auto shuffled = items(invoice);
            const auto totals = InvoiceCalculator::calculate(shuffled, invoice.roundingMinutes,
                                                             invoice.taxBasisPoints);
            check(invoice, shuffled, totals);
        }
    }

    std::mt19937_64 random_{GetParam()};
    std::array<PersistentID, 4> projects_{PersistentID::make(), PersistentID::make(),
                                          PersistentID::make(), PersistentID::make()};
};

TEST_P(InvoiceCalculatorModel, agreesWithExactArithmetic) {
    forInvoices(
        invoicesForTheModel, [](const RandomInvoice& invoice, const auto&, const Totals& totals) {
            const auto lines = modelLines(invoice);
            ASSERT_EQ(totals.lines.size(), lines.size());
            Wide subtotal = 0;
            for (std::size_t i = 0; i < lines.size(); ++i) {
                const auto& line = totals.lines[i];
                ASSERT_EQ(line.projectName, projectNames[lines[i].project]);
                ASSERT_EQ(line.rateCents, lines[i].rateCents);
                ASSERT_EQ(line.seconds, static_cast<double>(lines[i].minutes * 60));
                ASSERT_EQ(line.entries.size(), lines[i].entries);
                ASSERT_TRUE(isAmount(line.amountCents, lines[i]))
                    << line.amountCents << " for " << line.seconds << " s at " << line.rateCents;
                subtotal += line.amountCents;
            }
            const Wide tax = (subtotal * invoice.taxBasisPoints * 2 + 10'000) / 20'000;
            ASSERT_TRUE(totals.subtotalCents == subtotal);
            ASSERT_TRUE(totals.taxCents == tax) << totals.taxCents;
            ASSERT_TRUE(totals.totalCents == subtotal + tax);
        });
}

TEST_P(InvoiceCalculatorModel, eachEntryStandsInOneLineInOrderOfItsStart) {
    forInvoices(invoicesForAProperty,
                [](const RandomInvoice&, const std::vector<Item>& items, const Totals& totals) {
                    std::size_t count = 0;
                    for (const auto& line : totals.lines) {
                        count += line.entries.size();
                        for (std::size_t i = 1; i < line.entries.size(); ++i)
                            ASSERT_LT(line.entries[i - 1].date, line.entries[i].date);
                    }
                    ASSERT_EQ(count, items.size());
                });
}

TEST_P(InvoiceCalculatorModel, timeIsRoundedUpToWholeStepsPerEntry) {
    forInvoices(invoicesForAProperty, [](const RandomInvoice& invoice, const auto& items,
                                         const Totals& totals) {
        const double step =
            60.0 * static_cast<double>(std::max<std::int64_t>(invoice.roundingMinutes, 1));
        double raw = 0;
        double billed = 0;
        for (const auto& item : items) raw += std::max(0.0, item.seconds - 0.5);
        for (const auto& line : totals.lines) {
            double seconds = 0;
            for (const auto& entry : line.entries) {
                ASSERT_EQ(std::fmod(entry.seconds, step), 0);
                seconds += entry.seconds;
            }
            ASSERT_EQ(line.seconds, seconds);
            billed += seconds;
        }
        ASSERT_GE(billed, raw);
        ASSERT_LT(billed, raw + (step + 1) * static_cast<double>(items.size() + 1));
    });
}

TEST_P(InvoiceCalculatorModel, theOrderOfTheInputDoesNotMatter) {
    forInvoices(invoicesForAProperty, [this](const RandomInvoice& invoice, std::vector<Item> items,
                                             const Totals& totals) {
        std::shuffle(items.begin(), items.end(), random_);
        ASSERT_EQ(InvoiceCalculator::calculate(std::move(items), invoice.roundingMinutes,
                                               invoice.taxBasisPoints),
                  totals);
    });
}

TEST_P(InvoiceCalculatorModel, theSumsAddUp) {
    forInvoices(invoicesForAProperty, [](const auto&, const auto&, const Totals& totals) {
        std::int64_t sum = 0;
        for (const auto& line : totals.lines) sum += line.amountCents;
        ASSERT_EQ(totals.subtotalCents, sum);
        ASSERT_EQ(totals.totalCents, totals.subtotalCents + totals.taxCents);
    });
}

INSTANTIATE_TEST_SUITE_P(Seed, InvoiceCalculatorModel,
                         testing::Values(1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U));

}  // namespace
}  // namespace elmworth
