// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceEmail.h"

#include <gtest/gtest.h>

#include "support/BilledMarch.h"
#include "support/Golden.h"

namespace elmworth {
namespace {

InvoiceRenderModel plainModel() {
    InvoiceRenderModel model;
    model.number = "INV-2026-014";
    model.total = "$1,187.50";
    model.dueDate = "Apr 15, 2026";
    return model;
}

TEST(InvoiceEmail, saysNumberTotalDueDateAndHowToPay) {
    const test::BilledMarch march;
    const Locale american("en_US");
    const auto model = makeInvoiceRenderModel(*march.invoice, march.profile,
                                              {american, american, "America/New_York"}, nullptr);
    test::expectGolden(emailText(model, "Northwind Traders"), "invoicing/Email.en_US.txt");
}

TEST(InvoiceEmail, leavesOutWhatIsEmpty) {
    EXPECT_EQ(emailText(plainModel(), ""),
              "Hi there,\n"
              "\n"
              "Please find attached invoice INV-2026-014 for $1,187.50, due Apr 15, 2026.\n"
              "\n"
              "Thank you!");
}

TEST(InvoiceEmail, closesWithTheNameOfTheBusiness) {
    auto model = plainModel();
    model.business.name = "Ada";
    const std::string text = emailText(model, "Jo");
    EXPECT_EQ(text.substr(0, 7), "Hi Jo,\n");
    EXPECT_EQ(text.substr(text.size() - 15), "\nThank you!\nAda");
}

TEST(InvoiceEmail, takesThePaymentInstructionsAsTheyStand) {
    auto model = plainModel();
    model.paymentInstructions = " Bank A\nBank B ";
    EXPECT_NE(
        emailText(model, "Jo").find("2026.\n\nPayment details:\n Bank A\nBank B \n\nThank you!"),
        std::string::npos);
}

}  // namespace
}  // namespace elmworth
