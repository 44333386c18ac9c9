// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

#include "invoicing/InvoiceBuilder.h"
#include "support/Instants.h"
#include "support/ScopedEnvironment.h"
#include "support/TestLibrary.h"

namespace elmworth::test {

/// A library in New York with one invoice of March 2026: two projects, three entries, 8.25% tax.
struct BilledMarch {
    BilledMarch() {
        profile.name = "Ada Byron Design";
        profile.address = "12 Analytical Row\nLondon";
        profile.taxID = "GB 123";
        profile.email = "ada@byron.test";
        profile.paymentInstructions = "IBAN GB00 1234\n";
        profile.taxLabel = "VAT";
        client->address = "400 Harbor Blvd\nSeattle";
        client->email = "pay@northwind.test";
        client->hourlyRateCents = 9500;
        website->rateOverrideCents = 123450;
        addEntry(app, "2026-03-02T09:00-05:00", 90, "Login");
        addEntry(website, "2026-03-03T22:30-05:00", 61, "Landing page\nand footer");
        addEntry(app, "2026-03-31T23:30-04:00", 45, "");
        invoice = builder.createInvoice(client, at("2026-03-01T00:00-05:00"),
                                        at("2026-04-01T00:00-04:00"), 825, profile);
        invoice->notes = " Thank you!\n";
        library.context().save();
    }

    void addEntry(const Ref<Project>& project, const char* start, int minutes,
                  const std::string& notes) {
        const auto entry =
            library.addEntry(project, at(start), at(start) + std::chrono::minutes(minutes));
        entry->notes = notes;
    }

    ScopedEnvironment zone{"TZ", "America/New_York"};
    TestLibrary library;
    Ref<Client> client = library.addClient("Northwind Traders");
    Ref<Project> website = library.addProject("Website", client);
    Ref<Project> app = library.addProject("App", client);
    BusinessProfile profile;
    Instant now = at("2026-04-01T10:00-04:00");
    InvoiceBuilder builder{
        library.context(), [this] { return now; }, {Locale("en_US"), "America/New_York"}};
    Ref<Invoice> invoice;
};

}  // namespace elmworth::test
