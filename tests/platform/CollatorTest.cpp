// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Collator.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/Rows.h"

namespace elmworth {
namespace {

using test::rowName;

struct OrderRow {
    const char* name;
    const char* locale;
    const char* first;
    const char* second;
    int order;  ///< of `first` against `second`
};

void PrintTo(const OrderRow& row, std::ostream* out) {
    *out << row.name;
}

int sign(int value) {
    return (value > 0) - (value < 0);
}

class CollatorOrder : public testing::TestWithParam<OrderRow> {};

TEST_P(CollatorOrder, isWhatPeopleExpect) {
    const auto& row = GetParam();
    const Collator collator{Locale(row.locale)};
    EXPECT_EQ(sign(collator.compare(row.first, row.second)), row.order);
    EXPECT_EQ(sign(collator.compare(row.second, row.first)), -row.order);
}

INSTANTIATE_TEST_SUITE_P(Row, CollatorOrder,
                         testing::ValuesIn(std::vector<OrderRow>{
                             {"Alphabet", "en_US", "apple", "banana", -1},
                             {"Same", "en_US", "apple", "apple", 0},
                             {"EmptyFirst", "en_US", "", "a", -1},
                             {"CaseIsIgnored", "en_US", "ACME", "acme", 0},
                             {"CaseDoesNotDecideBeforeLetters", "en_US", "Zebra", "apple", 1},
                             {"DigitRunsAreNumbers", "en_US", "Site 9", "Site 10", -1},
                             {"LeadingZeros", "en_US", "Site 007", "Site 7", 0},
                             {"LongDigitRuns", "en_US", "99999999999999999998",
                              "99999999999999999999", -1},
                             {"AccentsDiffer", "en_US", "resume", "résumé", -1},
                             {"AccentsComeAfterLetters", "en_US", "résumé", "resumes", -1},
                             {"GermanUmlautBesideItsVowel", "de_DE", "Ärger", "Zorn", -1},
                             {"SwedishUmlautBehindZ", "sv_SE", "Ärger", "Zorn", 1},
                         }),
                         rowName);

TEST(Collator, theCurrentOneIsMadeOnce) {
    EXPECT_EQ(&Collator::current(), &Collator::current());
    EXPECT_LT(localizedStandardCompare("Site 9", "site 10"), 0);
}

}  // namespace
}  // namespace elmworth
