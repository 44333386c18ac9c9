// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/LocalizedSearch.h"

#include <gtest/gtest.h>

#include <random>

#include "support/Rows.h"

namespace elmworth {
namespace {

using test::rowName;

struct SearchRow {
    const char* name;
    const char* locale;
    const char* wanted;
    const char* text;
    bool isFound;
};

class LocalizedSearchRow : public testing::TestWithParam<SearchRow> {};

TEST_P(LocalizedSearchRow, findsInTheMannerOfTheLocale) {
    const auto& row = GetParam();
    EXPECT_EQ(LocalizedSearch(row.wanted, Locale(row.locale)).findsIn(row.text), row.isFound);
}

INSTANTIATE_TEST_SUITE_P(
    , LocalizedSearchRow,
    testing::Values(
        SearchRow{"Inside", "en_US", "sign", "Design review", true},
        SearchRow{"WithoutRegardToCase", "en_US", "dESIGN", "Design review", true},
        SearchRow{"OverAWordsEnd", "en_US", "n r", "Design review", true},
        SearchRow{"NotThere", "en_US", "draft", "Design review", false},
        SearchRow{"NothingEverywhere", "en_US", "", "", true},
        SearchRow{"InNoText", "en_US", "a", "", false},
        SearchRow{"Punctuation", "en_US", "#12", "Ticket #12", true},
        SearchRow{"PunctuationThatDiffers", "en_US", "-12", "Ticket #12", false},
        SearchRow{"AfterALineBreak", "en_US", "b", "a\r\nb", true},
        SearchRow{"LettersBeyondASCII", "de_DE", "prüf", "PRÜFUNG", true},
        SearchRow{"AccentsTell", "de_DE", "prufung", "Prüfung", false},
        SearchRow{"ComposedInDecomposed", "en_US", "caf\u00e9", "Cafe\u0301 Roma", true},
        SearchRow{"DecomposedInComposed", "en_US", "cafe\u0301", "Caf\u00e9 Roma", true},
        SearchRow{"ComposedInDecomposedDanish", "da_DK", "\u00e5", "A\u030arhus", true},
        SearchRow{"MarksInAnotherOrder", "vi_VN", "\u1ed9", "vo\u0302\u0323i", true},
        SearchRow{"ControlCharactersAreNotSeen", "en_US", "ab",
                  "a\x01"
                  "b",
                  true},
        SearchRow{"ALetterOfTwoIsOneInCzech", "cs_CZ", "c", "chata", false},
        SearchRow{"AndTwoInEnglish", "en_US", "c", "chata", true}),
    rowName);

TEST(LocalizedSearch, ofPlainTextsFindsWhatCollationFinds) {
    std::mt19937 random(20);  // NOLINT: the same texts in each run
    const std::string letters = "abAB -.'#1\t\n";
    std::uniform_int_distribution<std::size_t> letter(0, letters.size() - 1);
    const auto text = [&](std::size_t length) {
        std::string made;
        while (made.size() < length) made += letters[letter(random)];
        return made;
    };
    std::size_t found = 0;
    for (int i = 0; i < 4000; ++i) {
        const auto where = text(12);
        const LocalizedSearch search(text(1 + static_cast<std::size_t>(i % 3)), Locale("en_US"));
        ASSERT_EQ(search.findsIn(where), search.findsByCollation(where)) << where;
        found += search.findsIn(where) ? 1U : 0U;
    }
    EXPECT_GT(found, 500U);
}

}  // namespace
}  // namespace elmworth
