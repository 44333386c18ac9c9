// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/settings/SettingsTest.h"

namespace elmworth {
namespace {

class InvoiceSettingsTest : public test::SettingsTest {
 protected:
    void type(const char* text) { invoices.tax()->setText(QString::fromUtf8(text)); }

    InvoiceSettings invoices{profiles, keeper};
};

TEST_F(InvoiceSettingsTest, keepsEachChoice) {
    invoices.setPaper(1);
    invoices.setRounding(2);
    invoices.setDueDays(30);
    invoices.taxName()->setText(QStringLiteral("VAT"));
    type("8.25");
    const auto stored = storedProfile();
    EXPECT_EQ(stored.paperSize, PaperSize::a4);
    EXPECT_EQ(stored.roundingMinutes, 15);
    EXPECT_EQ(stored.defaultDueDays, 30);
    EXPECT_EQ(stored.taxLabel, "VAT");
    EXPECT_EQ(stored.defaultTaxBasisPoints, 825);
    EXPECT_EQ(invoices.dueText(), QStringLiteral("Due in 30 days"));
}

TEST_F(InvoiceSettingsTest, aTextThatIsNoPercentageLeavesTheTaxAsItWas) {
    type("7");
    type("abc");
    EXPECT_EQ(profile().defaultTaxBasisPoints, 700);
    EXPECT_EQ(invoices.tax()->text(), QStringLiteral("abc"));
    type("101");
    EXPECT_EQ(profile().defaultTaxBasisPoints, 700);
}

TEST_F(InvoiceSettingsTest, clearingTheTaxMakesItZero) {
    type("7");
    type("");
    EXPECT_EQ(profile().defaultTaxBasisPoints, 0);
    EXPECT_EQ(invoices.tax()->text(), QString());
}

TEST_F(InvoiceSettingsTest, theTaxStaysInTheWordsInWhichItWasTyped) {
    type("8,5");
    EXPECT_EQ(profile().defaultTaxBasisPoints, 850);
    setProfile([](auto& profile) { profile.name = "Acme"; });
    EXPECT_EQ(invoices.tax()->text(), QStringLiteral("8,5"));
    invoices.reload();
    EXPECT_EQ(invoices.tax()->text(), QStringLiteral("8.50"));
    setProfile([](auto& profile) { profile.defaultTaxBasisPoints = 900; });
    EXPECT_EQ(invoices.tax()->text(), QStringLiteral("9"));
}

TEST_F(InvoiceSettingsTest, theDueDaysStopAtTheirEnds) {
    invoices.setDueDays(-1);
    EXPECT_EQ(profile().defaultDueDays, 0);
    invoices.setDueDays(121);
    EXPECT_EQ(profile().defaultDueDays, 120);
}

TEST_F(InvoiceSettingsTest, aRoundingThatIsNotOfferedShowsNone) {
    setProfile([](auto& profile) { profile.roundingMinutes = 10; });
    EXPECT_EQ(invoices.rounding(), -1);
    invoices.setRounding(-1);
    EXPECT_EQ(profile().roundingMinutes, 10);
    setProfile([](auto& profile) { profile.roundingMinutes = 1; });
    EXPECT_EQ(invoices.rounding(), 0);
}

TEST_F(InvoiceSettingsTest, aChoiceThatCannotBeKeptGoesBack) {
    int changes = 0;
    QObject::connect(&invoices, &InvoiceSettings::changed, [&] { ++changes; });
    const test::FileSizeLimit full(0);
    invoices.setPaper(1);
    EXPECT_EQ(invoices.paper(), 0);
    EXPECT_GT(changes, 0);
    EXPECT_NE(keeper.problem(), QString());
}

}  // namespace
}  // namespace elmworth
