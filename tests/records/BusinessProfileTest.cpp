// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/BusinessProfile.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

#include "support/Rows.h"

namespace elmworth {
namespace {

using test::rowName;
using namespace std::string_literals;

constexpr auto most = std::numeric_limits<std::int64_t>::max();
constexpr auto least = std::numeric_limits<std::int64_t>::min();

BusinessProfile filledProfile() {
    return {
        .name = "Elm & Söhne",
        .address = "1 Main St\nSpringfield",
        .taxID = "DE 123",
        .email = "me@example.com",
        .paymentInstructions = "IBAN \"DE00\"\\ \t 👍",
        .invoicePrefix = "2026/R",
        .nextInvoiceNumber = most,
        .paperSize = PaperSize::a4,
        .roundingMinutes = least,
        .defaultDueDays = 30,
        .defaultTaxBasisPoints = 1900,
        .taxLabel = "MwSt.",
        .resetNumberingYearly = true,
        .numberingYear = 2025,
    };
}

TEST(BusinessProfile, jsonWithOnlyANameLeavesTheDefaults) {
    const auto profile = decodeProfile(R"({"name":"X"})");
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->name, "X");
    EXPECT_EQ(profile->invoicePrefix, "INV");
    EXPECT_EQ(profile->nextInvoiceNumber, 1);
    EXPECT_EQ(profile->defaultDueDays, 14);
    EXPECT_EQ(profile->roundingMinutes, 6);
    EXPECT_EQ(profile->taxLabel, "Tax");
    EXPECT_EQ(*profile, BusinessProfile{.name = "X"});
}

TEST(BusinessProfile, aDefaultProfileHasTheDefaultsOfANewBusiness) {
    const BusinessProfile profile;
    EXPECT_EQ(profile.name + profile.address + profile.taxID + profile.email, "");
    EXPECT_EQ(profile.paymentInstructions, "");
    EXPECT_EQ(profile.paperSize, PaperSize::letter);
    EXPECT_EQ(profile.defaultTaxBasisPoints, 0);
    EXPECT_FALSE(profile.resetNumberingYearly);
    EXPECT_EQ(profile.numberingYear, 0);
}

TEST(BusinessProfile, jsonHoldsAllFieldsInDeclarationOrder) {
    EXPECT_EQ(encodeProfile(BusinessProfile{.name = "X"}),
              R"({"name":"X","address":"","taxID":"","email":"","paymentInstructions":"",)"
              R"("invoicePrefix":"INV","nextInvoiceNumber":1,"paperSize":"letter",)"
              R"("roundingMinutes":6,"defaultDueDays":14,"defaultTaxBasisPoints":0,)"
              R"("taxLabel":"Tax","resetNumberingYearly":false,"numberingYear":0})");
}

TEST(BusinessProfile, jsonRoundTripsEachField) {
    EXPECT_EQ(decodeProfile(encodeProfile(filledProfile())), filledProfile());
}

TEST(BusinessProfile, jsonRoundTripsRandomProfiles) {
    std::mt19937_64 random(20260301);
    const std::vector<std::string> pieces{"a",   "\"",     "\\",       "\n", "ä", "👍",
                                          "\0"s, "\u2028", "</x>\x7f", "7",  "{", "\x01"};
    const auto text = [&] {
        std::string made;
        for (auto left = random() % 20; left > 0; --left) made += pieces[random() % pieces.size()];
        return made;
    };
    const auto number = [&] { return static_cast<std::int64_t>(random()); };
    for (int i = 0; i < 500; ++i) {
        const BusinessProfile profile{
            text(),
            text(),
            text(),
            text(),
            text(),
            text(),
            number(),
            random() % 2 == 0 ? PaperSize::letter : PaperSize::a4,
            number(),
            number(),
            number(),
            text(),
            random() % 2 == 0,
            number(),
        };
        EXPECT_EQ(decodeProfile(encodeProfile(profile)), profile);
    }
}

TEST(BusinessProfile, noPrefixOfItsJSONIsAProfile) {
    const std::string json = encodeProfile(filledProfile());
    for (std::size_t length = 0; length < json.size(); ++length)
        EXPECT_EQ(decodeProfile(std::string_view(json).substr(0, length)), std::nullopt) << length;
}

TEST(BusinessProfile, textThatIsNotUTF8IsWrittenAsValidJSON) {
    const auto profile = decodeProfile(encodeProfile(BusinessProfile{.name = "caf\xe9"}));
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->name, "caf\ufffd");
}

struct JSONRow {
    const char* name;
    std::string json;
    std::optional<BusinessProfile> expected;
};

void PrintTo(const JSONRow& row, std::ostream* out) {
    *out << row.name;
}

class ProfileJSON : public testing::TestWithParam<JSONRow> {};

TEST_P(ProfileJSON, isReadStrictly) {
    EXPECT_EQ(decodeProfile(GetParam().json), GetParam().expected);
}

const auto refused = std::nullopt;

INSTANTIATE_TEST_SUITE_P(
    Row, ProfileJSON,
    testing::ValuesIn(std::vector<JSONRow>{
        {"EmptyObject", "{}", BusinessProfile()},
        {"WhiteSpaceAround", " \t\r\n{}\n \t\r", BusinessProfile()},
        {"NullIsTheDefault", R"({"taxLabel":null,"numberingYear":null})", BusinessProfile()},
        {"UnknownKey", R"({"colour":{"deep":[1,2]},"name":"X"})", BusinessProfile{.name = "X"}},
        {"KeysAreCaseSensitive", R"({"Name":7})", BusinessProfile()},
        {"LastOfTwoEqualKeysCounts", R"({"name":"X","name":"Y"})", BusinessProfile{.name = "Y"}},
        {"LastOfTwoEqualKeysIsNull", R"({"taxLabel":"X","taxLabel":null})", BusinessProfile()},
        {"LargestInteger", R"({"nextInvoiceNumber":9223372036854775807})",
         BusinessProfile{.nextInvoiceNumber = most}},
        {"SmallestInteger", R"({"nextInvoiceNumber":-9223372036854775808})",
         BusinessProfile{.nextInvoiceNumber = least}},
        {"Paper", R"({"paperSize":"a4"})", BusinessProfile{.paperSize = PaperSize::a4}},
        {"EscapedText", R"({"name":"\u00e4\n\ud83d\ude00"})", BusinessProfile{.name = "ä\n😀"}},
        {"IntegerWithAFractionOfZeros", R"({"roundingMinutes":6.0,"defaultDueDays":-0.0})",
         BusinessProfile{.roundingMinutes = 6, .defaultDueDays = 0}},
        {"IntegerWithAnExponent", R"({"nextInvoiceNumber":1.2e2})",
         BusinessProfile{.nextInvoiceNumber = 120}},
        {"LargestIntegerWithAFraction", R"({"nextInvoiceNumber":9007199254740992.0})",
         BusinessProfile{.nextInvoiceNumber = 9'007'199'254'740'992}},
        {"TooLargeForAFraction", R"({"nextInvoiceNumber":9007199254740994.0})", refused},
        {"TooSmallForAnExponent", R"({"nextInvoiceNumber":-1e16})", refused},
        {"FarTooLargeForAFraction", R"({"nextInvoiceNumber":1e300})", refused},
        {"IntegerTooLarge", R"({"nextInvoiceNumber":9223372036854775808})", refused},
        {"IntegerTooSmall", R"({"nextInvoiceNumber":-9223372036854775809})", refused},
        {"IntegerWithFraction", R"({"nextInvoiceNumber":1.5})", refused},
        {"IntegerAsText", R"({"nextInvoiceNumber":"1"})", refused},
        {"IntegerAsBoolean", R"({"nextInvoiceNumber":true})", refused},
        {"TextAsNumber", R"({"name":7})", refused},
        {"TextAsList", R"({"name":["X"]})", refused},
        {"BooleanAsNumber", R"({"resetNumberingYearly":1})", refused},
        {"BooleanAsText", R"({"resetNumberingYearly":"true"})", refused},
        {"UnknownPaper", R"({"paperSize":"legal"})", refused},
        {"PaperInCapitals", R"({"paperSize":"A4"})", refused},
        {"EarlierFieldWrongLaterRight", R"({"name":7,"address":"X"})", refused},
        {"List", "[]", refused},
        {"Null", "null", refused},
        {"Text", R"("name")", refused},
        {"Empty", "", refused},
        {"OnlyWhiteSpace", "  ", refused},
        {"TrailingText", "{}x", refused},
        {"TwoObjects", "{}{}", refused},
        {"TrailingNUL", "{}\0"s, refused},
        {"TextBehindANUL", "{}\0{"s, refused},
        {"TrailingComma", R"({"name":"X",})", refused},
        {"Comment", "{}//", refused},
        {"SingleQuotes", "{'name':'X'}", refused},
        {"NotUTF8", "{\"name\":\"caf\xe9\"}", refused},
        {"LoneHighSurrogate", R"({"name":"\ud83d"})", refused},
        {"LoneLowSurrogate", R"({"name":"\ude00"})", refused},
        {"DeepNesting", "{\"x\":" + std::string(200'000, '['), refused},
    }),
    rowName);

struct NumberRow {
    const char* name;
    std::int64_t number;
    const char* text;
};

void PrintTo(const NumberRow& row, std::ostream* out) {
    *out << row.name;
}

class InvoiceNumber : public testing::TestWithParam<NumberRow> {};

TEST_P(InvoiceNumber, hasAtLeastThreeDigits) {
    const BusinessProfile profile{.nextInvoiceNumber = GetParam().number};
    EXPECT_EQ(profile.formattedInvoiceNumber(2026), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Row, InvoiceNumber,
                         testing::ValuesIn(std::vector<NumberRow>{
                             {"OneDigit", 7, "INV-2026-007"},
                             {"TwoDigits", 42, "INV-2026-042"},
                             {"ThreeDigits", 999, "INV-2026-999"},
                             {"AThousandHasFour", 1000, "INV-2026-1000"},
                             {"FourDigits", 1234, "INV-2026-1234"},
                             {"Zero", 0, "INV-2026-000"},
                             {"Negative", -5, "INV-2026--05"},
                             {"Largest", most, "INV-2026-9223372036854775807"},
                         }),
                         rowName);

TEST(BusinessProfile, anEmptyPrefixLeavesItsHyphen) {
    EXPECT_EQ(BusinessProfile{.invoicePrefix = ""}.formattedInvoiceNumber(2026), "-2026-001");
}

struct ResetRow {
    const char* name;
    bool resetNumberingYearly;
    std::int64_t numberingYear;
    std::int64_t year;
    const char* text;
};

void PrintTo(const ResetRow& row, std::ostream* out) {
    *out << row.name;
}

class YearlyReset : public testing::TestWithParam<ResetRow> {};

TEST_P(YearlyReset, startsAgainOnlyInANewYear) {
    const auto& row = GetParam();
    BusinessProfile profile{.nextInvoiceNumber = 42,
                            .resetNumberingYearly = row.resetNumberingYearly,
                            .numberingYear = row.numberingYear};
    profile.applyYearlyReset(row.year);
    EXPECT_EQ(profile.formattedInvoiceNumber(row.year), row.text);
    EXPECT_EQ(profile.numberingYear, row.year);
}

INSTANTIATE_TEST_SUITE_P(Row, YearlyReset,
                         testing::ValuesIn(std::vector<ResetRow>{
                             {"NewYear", true, 2025, 2026, "INV-2026-001"},
                             {"SameYear", true, 2025, 2025, "INV-2025-042"},
                             {"EarlierYear", true, 2025, 2024, "INV-2024-001"},
                             {"FirstYearNeverResets", true, 0, 2026, "INV-2026-042"},
                             {"WithoutResetANewYearOnlyIsNoted", false, 2025, 2026, "INV-2026-042"},
                             {"WithoutResetTheFirstYearIsNoted", false, 0, 2026, "INV-2026-042"},
                         }),
                         rowName);

TEST(BusinessProfile, aNumberSetByHandOutlivesTheYearlyRestartOfItsYear) {
    BusinessProfile profile{.resetNumberingYearly = true, .numberingYear = 2025};
    profile.setNextInvoiceNumber(42, 2026);
    profile.applyYearlyReset(2026);
    EXPECT_EQ(profile.nextInvoiceNumber, 42);
    profile.applyYearlyReset(2027);
    EXPECT_EQ(profile.nextInvoiceNumber, 1);
    profile.setNextInvoiceNumber(0, 2027);
    EXPECT_EQ(profile.nextInvoiceNumber, 1);
}

TEST(PaperSize, hasARawValueForEachCase) {
    EXPECT_EQ(allPaperSizes.size(), 2);
    EXPECT_EQ(rawValue(PaperSize::letter), "letter");
    EXPECT_EQ(rawValue(PaperSize::a4), "a4");
    for (const auto size : allPaperSizes) EXPECT_EQ(paperSizeFromRawValue(rawValue(size)), size);
    EXPECT_EQ(paperSizeFromRawValue("legal"), std::nullopt);
}

}  // namespace
}  // namespace elmworth
