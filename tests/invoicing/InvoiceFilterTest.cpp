// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceFilter.h"

#include <gtest/gtest.h>

#include "invoicing/InvoiceList.h"
#include "support/Instants.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::at;
using test::rowName;

struct FilterRow {
    const char* name;
    const char* status;
    const char* dueDate;
    bool open;
    bool overdue;
    bool paid;
};

class InvoiceFilterTest : public testing::TestWithParam<FilterRow> {};

TEST_P(InvoiceFilterTest, showsAnInvoiceByStatusAndDueDay) {
    const auto& row = GetParam();
    Invoice invoice("INV-2026-001");
    invoice.statusRaw = row.status;
    invoice.dueDate = at(row.dueDate);
    const Calendar calendar(Locale("en_US"), "America/New_York");
    const auto shows = [&](InvoiceFilter filter) {
        return passes(invoice, filter, at("2026-04-15T23:30-04:00"), calendar);
    };
    EXPECT_TRUE(shows(InvoiceFilter::all));
    EXPECT_EQ(shows(InvoiceFilter::open), row.open);
    EXPECT_EQ(shows(InvoiceFilter::overdue), row.overdue);
    EXPECT_EQ(shows(InvoiceFilter::paid), row.paid);
}

TEST_P(InvoiceFilterTest, showsAListedInvoiceLikewise) {
    const auto& row = GetParam();
    ListedInvoice invoice;
    invoice.status = invoiceStatusFromRawValue(row.status).value_or(InvoiceStatus::draft);
    invoice.dueDate = at(row.dueDate);
    const auto shows = [&](InvoiceFilter filter) {
        return passes(invoice, filter, at("2026-04-15T00:00-04:00"));
    };
    EXPECT_TRUE(shows(InvoiceFilter::all));
    EXPECT_EQ(shows(InvoiceFilter::open), row.open);
    EXPECT_EQ(shows(InvoiceFilter::overdue), row.overdue);
    EXPECT_EQ(shows(InvoiceFilter::paid), row.paid);
}

INSTANTIATE_TEST_SUITE_P(
    , InvoiceFilterTest,
    testing::Values(
        FilterRow{"OldDraft", "draft", "2020-01-01T00:00Z", true, false, false},
        FilterRow{"OldUnknownStatus", "void", "2020-01-01T00:00Z", true, false, false},
        FilterRow{"SentDueEarlierToday", "sent", "2026-04-15T00:00-04:00", true, false, false},
        FilterRow{"SentDueLateYesterday", "sent", "2026-04-14T23:59-04:00", true, true, false},
        FilterRow{"SentDueTomorrow", "sent", "2026-04-16T00:00-04:00", true, false, false},
        FilterRow{"PaidLate", "paid", "2020-01-01T00:00Z", false, false, true}),
    rowName);

}  // namespace
}  // namespace elmworth
