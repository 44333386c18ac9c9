// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "invoicing/InvoiceFiles.h"
#include "screens/invoices/InvoicesModel.h"
#include "support/LibraryTest.h"
#include "support/QtTesting.h"
#include "support/ScopedEnvironment.h"
#include "support/TestOutlets.h"

namespace elmworth::test {

/// The shown section of the invoices of an American in UTC on Monday, 2026-03-02, at 09:00.
class InvoicesTest : public LibraryTest {
 protected:
    InvoicesTest() {
        acme()->hourlyRateCents = 10000;
        model.setShown(true);
        turn();
    }

    /// A saved invoice of one hour of "Acme Co", issued at noon on a day, "2026-02-01", and due two
    /// weeks later.
    Ref<Invoice> add(const std::string& number, const std::string& issued = "2026-02-01",
                     InvoiceStatus status = InvoiceStatus::draft) {
        return addFor(acme(), number, issued, status);
    }
    Ref<Invoice> addFor(const Ref<Client>& client, const std::string& number,
                        const std::string& issued, InvoiceStatus status) {
        const auto invoice = timer.library.addInvoice(number, client);
        invoice->issueDate = at(issued + "T12:00Z");
        invoice->dueDate = invoice->issueDate.get() + std::chrono::days(14);
        invoice->periodStart = at("2026-01-01T00:00Z");
        invoice->periodEnd = at("2026-02-01T00:00Z");
        invoice->setStatus(status, timer.now);
        bill(invoice, 1);
        return invoice;
    }
    /// Saved hours on `invoice`.
    void bill(const Ref<Invoice>& invoice, int hours) {
        if (!website_) website_ = project("Website");
        for (int hour = 0; hour < hours; ++hour) {
            const Instant start = at("2026-01-05T09:00Z");
            const auto entry =
                timer.library.addEntry(website_, start, start + std::chrono::hours(1));
            entry->invoice = invoice;
            entry->billedRateCents = 10000;
        }
        context().save();
        turn();
    }
    [[nodiscard]] std::vector<std::string> shown(int role) const {
        std::vector<std::string> texts;
        for (int row = 0; row < model.rows().rowCount(); ++row) {
            texts.push_back(utf8(model.rows().data(model.rows().index(row), role).toString()));
        }
        return texts;
    }
    [[nodiscard]] std::vector<std::string> numbers() const {
        return shown(InvoiceRowsModel::number);
    }
    void filter(InvoiceFilter filter) { model.setFilter(static_cast<int>(filter)); }
    [[nodiscard]] std::string outstanding() { return utf8(model.summary()->outstanding()); }
    [[nodiscard]] std::string overdue() { return utf8(model.summary()->overdue()); }
    [[nodiscard]] InvoiceDetailModel& detail() { return *model.detail(); }
    [[nodiscard]] InvoiceDelivery& delivery() { return *detail().delivery(); }
    [[nodiscard]] const InvoiceFacts& facts() { return detail().facts(); }
    [[nodiscard]] std::string problem() { return utf8(delivery().problem()); }

    ScopedEnvironment data{"XDG_DATA_HOME", timer.library.folder.path().string()};
    NumberPainter painter;
    NotingFiles files;
    Confirmation confirmation;
    NewInvoiceModel newInvoice{services()};
    InvoicesModel model{services(), {painter, files}, confirmation, newInvoice};

 private:
    Ref<Project> website_;
};

}  // namespace elmworth::test
