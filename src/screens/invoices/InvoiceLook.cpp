// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoiceLook.h"

#include "records/Client.h"

namespace elmworth {

std::string clientName(const Invoice& invoice) {
    const auto& client = invoice.client.get();
    return client ? client->name.get() : std::string();
}

InvoiceBadge badgeOf(const Invoice& invoice, Instant now, const Calendar& calendar) {
    if (invoice.isOverdue(now, calendar)) return InvoiceBadge::overdue;
    switch (invoice.status()) {
        case InvoiceStatus::sent:
            return InvoiceBadge::sent;
        case InvoiceStatus::paid:
            return InvoiceBadge::paid;
        case InvoiceStatus::draft:
            return InvoiceBadge::draft;
    }
    return InvoiceBadge::draft;
}

QString badgeText(InvoiceBadge badge) {
    switch (badge) {
        case InvoiceBadge::draft:
            return QStringLiteral("Draft");
        case InvoiceBadge::sent:
            return QStringLiteral("Sent");
        case InvoiceBadge::overdue:
            return QStringLiteral("Overdue");
        case InvoiceBadge::paid:
            return QStringLiteral("Paid");
    }
    return {};
}

QString InvoiceLook::summary() const {
    return number + QStringLiteral(", ") + caption + QStringLiteral(", ") + amount +
           QStringLiteral(", ") + badgeText(badge);
}

InvoiceLook lookOf(const Invoice& invoice, std::optional<std::int64_t> cents,
                   const AppServices& services, const DateFormatter& dates) {
    const std::string client = clientName(invoice);
    const std::string day = dates.string(invoice.issueDate);
    const std::string amount =
        cents ? formatCents(*cents, invoice.effectiveCurrencyCode()) : std::string("—");
    return {.number = QString::fromStdString(invoice.number),
            .client = QString::fromStdString(client),
            .caption = QString::fromStdString(client.empty() ? day : client + " · " + day),
            .amount = QString::fromStdString(amount),
            .badge = badgeOf(invoice, services.now(), services.calendar())};
}

}  // namespace elmworth
