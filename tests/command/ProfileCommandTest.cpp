// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandTest.h"
#include "support/FileSizeLimit.h"

namespace elmworth {
namespace {

using test::keys;
using testing::ElementsAre;
using testing::HasSubstr;

class ProfileCommand : public test::CommandTest {
 protected:
    [[nodiscard]] const BusinessProfile& profile() const { return profiles_.profile(); }
};

TEST_F(ProfileCommand, showsTheFourteenFields) {
    EXPECT_THAT(
        keys(json({"profile"})),
        ElementsAre("name", "address", "taxID", "email", "paymentInstructions", "invoicePrefix",
                    "nextInvoiceNumber", "paperSize", "roundingMinutes", "defaultDueDays",
                    "defaultTaxBasisPoints", "taxLabel", "resetNumberingYearly", "numberingYear"));
    const std::string text = output({"profile"});
    EXPECT_THAT(text, HasSubstr("\ninvoicePrefix          INV\n"));
    EXPECT_THAT(text, HasSubstr("\nresetNumberingYearly   false\n"));
}

TEST_F(ProfileCommand, setsEachFieldByItsName) {
    const std::vector<std::pair<const char*, const char*>> values{
        {"name", "Ada"},
        {"address", "1 Road\nLondon"},
        {"taxID", "GB 1"},
        {"email", "a@b.test"},
        {"paymentInstructions", "IBAN"},
        {"invoicePrefix", "R"},
        {"nextInvoiceNumber", "42"},
        {"paperSize", "a4"},
        {"roundingMinutes", "15"},
        {"defaultDueDays", "30"},
        {"defaultTaxBasisPoints", "1900"},
        {"taxLabel", "MwSt."},
        {"resetNumberingYearly", "yes"},
        {"numberingYear", "2024"},
    };
    for (const auto& [field, value] : values) output({"profile", "set", field, value});
    const BusinessProfile expected{
        "Ada", "1 Road\nLondon", "GB 1", "a@b.test", "IBAN", "R", 42, PaperSize::a4, 15, 30,
        1900,  "MwSt.",          true,   2024};
    EXPECT_EQ(profile(), expected);
    EXPECT_EQ(ProfileStore(defaults_).profile(), expected) << "it is in the settings file";
}

TEST_F(ProfileCommand, onlyTheTaxIsSaidAgainAsItIsInBasisPoints) {
    EXPECT_EQ(output({"profile", "set", "defaultTaxBasisPoints", "19"}),
              "The default tax is 0.19%.\n");
    EXPECT_EQ(output({"profile", "set", "defaultTaxBasisPoints", "1900"}),
              "The default tax is 19%.\n");
    EXPECT_EQ(output({"profile", "set", "taxLabel", "MwSt."}), "");
}

TEST_F(ProfileCommand, theNextNumberIsSetAsByHandInTheYearOfNow) {
    EXPECT_EQ(json({"profile", "set", "nextInvoiceNumber", "0"})["nextInvoiceNumber"].GetInt(), 1);
    EXPECT_EQ(profile().numberingYear, 2026);
}

TEST_F(ProfileCommand, whatDoesNotFitIsRefused) {
    const auto before = profile();
    expectRefusal({"profile", "set", "defaultDueDays", "121"}, 1,
                  "“121” does not fit: the value is a whole number from 0 to 120.");
    expectRefusal({"profile", "set", "roundingMinutes", "six"}, 1,
                  "“six” does not fit: the value is a whole number from 0 to 1440.");
    expectRefusal({"profile", "set", "paperSize", "a5"}, 1,
                  "“a5” is no paper size. Choose letter or a4.");
    expectRefusal({"profile", "set", "resetNumberingYearly", "perhaps"}, 1,
                  "“perhaps” does not fit: resetNumberingYearly is true or false.");
    EXPECT_EQ(profile(), before);
}

TEST_F(ProfileCommand, aSettingThatCannotBeWrittenIsTakenBack) {
    const test::FileSizeLimit fullDisk(0);
    expectRefusal({"profile", "set", "name", "Ada"}, 1,
                  "The settings file can't be written, so the change was not kept.");
    EXPECT_EQ(profile().name, "");
}

}  // namespace
}  // namespace elmworth
