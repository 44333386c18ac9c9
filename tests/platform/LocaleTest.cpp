// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Locale.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/Rows.h"
#include "support/ScopedEnvironment.h"

namespace elmworth {
namespace {

using test::rowName;
using test::ScopedEnvironment;

struct LocaleRow {
    const char* name;
    const char* given;
    const char* identifier;
};

void PrintTo(const LocaleRow& row, std::ostream* out) {
    *out << row.name;
}

class LocaleIdentifier : public testing::TestWithParam<LocaleRow> {};

TEST_P(LocaleIdentifier, isCanonical) {
    EXPECT_EQ(Locale(GetParam().given).identifier(), GetParam().identifier);
}

TEST_P(LocaleIdentifier, givesTheSameLocaleAgain) {
    const Locale locale(GetParam().given);
    EXPECT_EQ(Locale(locale.identifier()), locale);
}

INSTANTIATE_TEST_SUITE_P(Row, LocaleIdentifier,
                         testing::ValuesIn(std::vector<LocaleRow>{
                             {"Posix", "de_DE.UTF-8", "de_DE"},
                             {"PosixWithoutCodeset", "en_GB", "en_GB"},
                             {"LanguageTag", "pt-BR", "pt_BR"},
                             {"LanguageOnly", "fr", "fr"},
                             {"Script", "zh-Hans-CN", "zh_Hans_CN"},
                             {"PosixScript", "sr_RS.UTF-8@latin", "sr_Latn_RS"},
                             {"PosixEuro", "de_DE@euro", "de_DE"},
                             {"Keywords", "th_TH@calendar=gregorian", "th_TH@calendar=gregorian"},
                             {"C", "C", "en_US"},
                             {"CInUTF8", "C.UTF-8", "en_US"},
                             {"Posix1003", "POSIX", "en_US"},
                             {"Empty", "", "en_US"},
                             {"NoLocale", "!", "root"},
                             {"Root", "root", "root"},
                         }),
                         rowName);

TEST(Locale, currentTakesTheFirstVariableThatIsSet) {
    const ScopedEnvironment language("LANG", "fr_FR.UTF-8");
    const ScopedEnvironment time("LC_TIME", "de_DE.UTF-8");
    const ScopedEnvironment collate("LC_COLLATE", "sv_SE.UTF-8");
    {
        const ScopedEnvironment all("LC_ALL", "en_GB.UTF-8");
        EXPECT_EQ(Locale::current().identifier(), "en_GB");
        EXPECT_EQ(Locale::currentForCollation().identifier(), "en_GB");
    }
    const ScopedEnvironment all("LC_ALL", "");
    EXPECT_EQ(Locale::current().identifier(), "de_DE");
    EXPECT_EQ(Locale::currentForCollation().identifier(), "sv_SE");
}

TEST(Locale, currentFallsBackToTheLanguageAndThenToAmericanEnglish) {
    const ScopedEnvironment all("LC_ALL", std::nullopt);
    const ScopedEnvironment time("LC_TIME", std::nullopt);
    {
        const ScopedEnvironment language("LANG", "fr_FR.UTF-8");
        EXPECT_EQ(Locale::current().identifier(), "fr_FR");
    }
    const ScopedEnvironment language("LANG", std::nullopt);
    EXPECT_EQ(Locale::current().identifier(), "en_US");
}

struct CategoryRow {
    const char* name;
    LocaleCategory category;
    const char* variable;
};

void PrintTo(const CategoryRow& row, std::ostream* out) {
    *out << row.name;
}

class EnvironmentLocale : public testing::TestWithParam<CategoryRow> {};

TEST_P(EnvironmentLocale, isTheCategorysOwnUnderTheOneForAllAndOverTheLanguage) {
    const ScopedEnvironment language("LANG", "fr_FR.UTF-8");
    const ScopedEnvironment money("LC_MONETARY", "it_IT");
    const ScopedEnvironment numbers("LC_NUMERIC", "it_IT");
    const ScopedEnvironment time("LC_TIME", "it_IT");
    const ScopedEnvironment collation("LC_COLLATE", "it_IT");
    const ScopedEnvironment own(GetParam().variable, "de_CH.UTF-8");
    const auto identifier = [] { return environmentLocale(GetParam().category).identifier(); };
    {
        const ScopedEnvironment all("LC_ALL", "en_GB.UTF-8");
        EXPECT_EQ(identifier(), "en_GB");
    }
    const ScopedEnvironment all("LC_ALL", "");
    EXPECT_EQ(identifier(), "de_CH");
    const ScopedEnvironment unset(GetParam().variable, std::nullopt);
    EXPECT_EQ(identifier(), "fr_FR");
}

INSTANTIATE_TEST_SUITE_P(
    Row, EnvironmentLocale,
    testing::Values(CategoryRow{"Dates", LocaleCategory::time, "LC_TIME"},
                    CategoryRow{"Money", LocaleCategory::monetary, "LC_MONETARY"},
                    CategoryRow{"Numbers", LocaleCategory::numeric, "LC_NUMERIC"},
                    CategoryRow{"Names", LocaleCategory::collate, "LC_COLLATE"}),
    rowName);

}  // namespace
}  // namespace elmworth
