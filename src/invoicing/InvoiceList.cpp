// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceList.h"

#include <algorithm>
#include <tuple>

namespace elmworth {

namespace {

template <auto... Fields>
bool hasChanged(const RecordChange& change) {
    return (((change.fields >> KeyPath<Fields>::index()) & 1U) | ...) != 0;
}

}  // namespace

std::vector<ListedInvoice> listInvoices(UnitOfWork& context) {
    std::vector<ListedInvoice> list;
    context.forEachValues<&Invoice::number, &Invoice::issueDate, &Invoice::dueDate,
                          &Invoice::statusRaw>(
        std::optional<Predicate<Invoice>>(),
        [&](const PersistentID& id, const std::string& number, Instant issueDate, Instant dueDate,
            const std::string& status) {
            list.push_back({id, number, issueDate, dueDate,
                            invoiceStatusFromRawValue(status).value_or(InvoiceStatus::draft)});
        });
    std::sort(list.begin(), list.end(), [](const ListedInvoice& a, const ListedInvoice& b) {
        return std::tie(b.issueDate, b.number) < std::tie(a.issueDate, a.number);
    });
    return list;
}

bool changeList(const RecordChanges& changes) {
    if (!changes.touch(Invoice::schema())) return false;
    const auto* named = changes.of(Invoice::schema());
    if (named == nullptr) return true;
    return std::ranges::any_of(*named, [](const auto& item) {
        return item.second.kind != RecordChange::Kind::changed ||
               hasChanged<&Invoice::number, &Invoice::issueDate, &Invoice::dueDate,
                          &Invoice::statusRaw>(item.second);
    });
}

bool isOverdue(const ListedInvoice& invoice, Instant today) {
    return invoice.status == InvoiceStatus::sent && invoice.dueDate < today;
}

bool passes(const ListedInvoice& invoice, InvoiceFilter filter, Instant today) {
    switch (filter) {
        case InvoiceFilter::all:
            return true;
        case InvoiceFilter::open:
            return invoice.status != InvoiceStatus::paid;
        case InvoiceFilter::overdue:
            return isOverdue(invoice, today);
        case InvoiceFilter::paid:
            return invoice.status == InvoiceStatus::paid;
    }
    return false;
}

}  // namespace elmworth
