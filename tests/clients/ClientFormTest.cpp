// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clients/ClientForm.h"

#include <gtest/gtest.h>

#include "support/Rows.h"

namespace elmworth {
namespace {

// --- what is typed -----------------------------------------------------------------------------

struct RefusalRow {
    const char* name;
    std::string problem;
    std::string sentence;
};

class FieldText : public testing::TestWithParam<RefusalRow> {};

TEST_P(FieldText, isRefusedInOneSentence) {
    EXPECT_EQ(GetParam().problem, GetParam().sentence);
}

INSTANTIATE_TEST_SUITE_P(
    Client, FieldText,
    testing::Values(
        RefusalRow{"EmptyName", parseName(" \t").problem(), "The name can't be empty."},
        RefusalRow{"NameOfTwoLines", parseName("Two\nlines").problem(),
                   "A name can't hold line breaks or control characters."},
        RefusalRow{"RateInWords", parseRate("ten").problem(),
                   "“ten” is no amount. Enter a number like 120 or 120.50."},
        RefusalRow{"RateAboveTheLimit", parseRate("1000000000.01").problem(),
                   "“1000000000.01” is no amount. Enter a number like 120 or 120.50."},
        RefusalRow{"TaxAboveAll", parseTaxRate("100.01").problem(),
                   "“100.01” is no percentage. Enter a number like 0 or 8.25, at most 100."},
        RefusalRow{"TermTooLong", parseDueDays("121").problem(),
                   "“121” does not fit: a payment term in days is a whole number from 0 to 120."},
        RefusalRow{"TermWithRest", parseDueDays("7 days").problem(),
                   "“7 days” does not fit: a payment term in days is a whole number from 0 to "
                   "120."},
        RefusalRow{"UnknownCurrency", parseCurrency("DOLLARS").problem(),
                   "“DOLLARS” is no currency. Use an ISO code like USD or EUR."},
        RefusalRow{"NeitherYesNorNo", parseFlag("perhaps", "it").problem(),
                   "“perhaps” does not fit: it is true or false."}),
    test::rowName);

TEST(FieldText, isReadAsPeopleTypeIt) {
    EXPECT_EQ(parseName(" Initech\t").value(), "Initech");
    EXPECT_EQ(parseRate("120,50").value(), 12050);
    EXPECT_EQ(parseRate("1,200.50").value(), 120050);
    EXPECT_EQ(parseTaxRate("8,25").value(), 825);
    EXPECT_EQ(parseTaxRate("").value(), 0);
    EXPECT_EQ(parseDueDays(" 0 ").value(), 0);
    EXPECT_EQ(parseCurrency("eur").value(), "EUR");
    for (const char* yes : {"true", "YES", "on", "1"}) EXPECT_TRUE(parseFlag(yes, "it").value());
    for (const char* no : {"False", "no", "off", "0"}) EXPECT_FALSE(parseFlag(no, "it").value());
}

TEST(FieldText, aRateIsComplainedAboutOnceSomethingIsTyped) {
    EXPECT_EQ(rateProblem(""), "");
    EXPECT_EQ(rateProblem("120"), "");
    for (const char* text : {".", "  ", "½", "99999999999"})
        EXPECT_EQ(rateProblem(text), "Enter a number like 120 or 120.50") << text;
}

// --- the form ----------------------------------------------------------------------------------

struct SaveRow {
    const char* name;
    ClientForm form;
    bool canSave;
};

class ClientFormSaving : public testing::TestWithParam<SaveRow> {};

TEST_P(ClientFormSaving, needsANameAndNumbersThatCanBeRead) {
    const auto& [name, form, canSave] = GetParam();
    EXPECT_EQ(form.canSave(), canSave);
    Client client("Before");
    if (canSave) {
        EXPECT_NO_THROW(form.apply(client));
    } else {
        EXPECT_THROW(form.apply(client), Refused);
        EXPECT_EQ(client.name.get(), "Before");
        EXPECT_EQ(client.email.get(), "");
    }
}

INSTANTIATE_TEST_SUITE_P(
    , ClientFormSaving,
    testing::Values(SaveRow{"ANameIsEnough", {.name = "Acme"}, true},
                    SaveRow{"NoName", {.name = " \t", .email = "a@b"}, false},
                    SaveRow{"NoRate", {.name = "Acme", .email = "a@b", .rateText = ""}, false},
                    SaveRow{"FreeOfCharge", {.name = "Acme", .rateText = "0"}, true},
                    SaveRow{"TaxThatCannotBeRead",
                            {.name = "Acme", .email = "a@b", .hasOwnTerms = true, .taxText = "101"},
                            false},
                    SaveRow{"TaxOfTermsThatAreOff", {.name = "Acme", .taxText = "101"}, true},
                    SaveRow{"EmptyTaxIsNone", {.name = "Acme", .hasOwnTerms = true}, true}),
    test::rowName);

TEST(ClientForm, writesNameTrimmedAndTheRestAsTyped) {
    Client client("Before");
    const ClientForm form{" Acme ", " a@b ", "1 Road\n", "EUR", "120,50", true, 7, ""};
    form.apply(client);
    EXPECT_EQ(client.name.get(), "Acme");
    EXPECT_EQ(client.email.get(), " a@b ");
    EXPECT_EQ(client.address.get(), "1 Road\n");
    EXPECT_EQ(client.currencyCode.get(), "EUR");
    EXPECT_EQ(client.hourlyRateCents.get(), 12050);
    EXPECT_EQ(client.dueDays.get(), 7);
    EXPECT_EQ(client.taxBasisPoints.get(), 0) << "reverse charge, not the business default";
}

TEST(ClientForm, withoutTermsOfItsOwnTheBusinessDefaultsHold) {
    Client client("Acme");
    client.dueDays = 7;
    client.taxBasisPoints = 1900;
    BusinessProfile profile;
    profile.defaultTaxBasisPoints = 825;
    profile.defaultDueDays = 30;
    auto form = ClientForm::of(client, profile);
    EXPECT_TRUE(form.hasOwnTerms);
    EXPECT_EQ(form.taxText, "19");
    form.hasOwnTerms = false;
    form.apply(client);
    EXPECT_FALSE(client.dueDays.get());
    EXPECT_FALSE(client.taxBasisPoints.get());
    form = ClientForm::of(client, profile);
    EXPECT_FALSE(form.hasOwnTerms);
    EXPECT_EQ(form.dueDays, 30);
    EXPECT_EQ(form.taxText, "8.25");
    EXPECT_EQ(form.rateText, "100");
}

TEST(ClientForm, oneOwnTermIsEnoughToHaveTerms) {
    Client client("Acme");
    client.taxBasisPoints = 0;
    EXPECT_TRUE(ClientForm::of(client, {}).hasOwnTerms);
    EXPECT_EQ(ClientForm::of(client, {}).dueDays, 14);
}

}  // namespace
}  // namespace elmworth
