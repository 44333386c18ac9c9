// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceDue.h"

#include <gtest/gtest.h>

#include "support/Instants.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::at;

struct DueRow {
    const char* name;
    const char* status;
    const char* dueDate;
    const char* paidAt;
    const char* text;
};

class InvoiceDueTest : public testing::TestWithParam<DueRow> {};

/// Late in the evening of April 15th in New York.
TEST_P(InvoiceDueTest, isTold) {
    const auto& row = GetParam();
    Invoice invoice("INV-2026-001");
    invoice.statusRaw = row.status;
    invoice.dueDate = at(row.dueDate);
    if (*row.paidAt != '\0') invoice.paidAt = at(row.paidAt);
    EXPECT_EQ(dueText(invoice, at("2026-04-15T23:30-04:00"),
                      Calendar(Locale("en_US"), "America/New_York"), Locale("en_US")),
              row.text);
}

INSTANTIATE_TEST_SUITE_P(
    , InvoiceDueTest,
    testing::Values(
        DueRow{"SentDueToday", "sent", "2026-04-15T00:00-04:00", "", "Due today"},
        DueRow{"SentDueMinutesAgoYesterday", "sent", "2026-04-14T23:59-04:00", "", "1 days late"},
        DueRow{"SentDueTomorrowInMinutes", "sent", "2026-04-16T00:10-04:00", "", "In 1 days"},
        DueRow{"DraftIsLateToo", "draft", "2026-03-16T12:00-04:00", "", "30 days late"},
        DueRow{"OverAChangeOfClocks", "sent", "2026-11-02T12:00-05:00", "", "In 201 days"},
        DueRow{"Paid", "paid", "2026-03-01T12:00-05:00", "2026-04-02T23:00-04:00", "Paid Apr 2"},
        DueRow{"PaidAtAnUnknownTime", "paid", "2026-03-01T12:00-05:00", "", "Paid"}),
    test::rowName);

TEST(InvoiceDueTextTest, goesBackToDaysWhenAPaidInvoiceIsSentAgain) {
    Invoice invoice("INV-2026-001");
    const Instant now = at("2026-04-15T12:00Z");
    const Calendar calendar(Locale("en_US"), "UTC");
    invoice.dueDate = at("2026-04-17T12:00Z");
    invoice.setStatus(InvoiceStatus::paid, now);
    EXPECT_EQ(dueText(invoice, now, calendar, Locale("de_DE")), "Paid 15. Apr.");
    invoice.setStatus(InvoiceStatus::sent, now);
    EXPECT_EQ(dueText(invoice, now, calendar, Locale("de_DE")), "In 2 days");
    invoice.setStatus(InvoiceStatus::paid, now + std::chrono::days(1));
    EXPECT_EQ(dueText(invoice, now, calendar, Locale("de_DE")), "Paid 16. Apr.");
}

}  // namespace
}  // namespace elmworth
