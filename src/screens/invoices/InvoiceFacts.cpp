// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoiceFacts.h"

#include <algorithm>

#include "invoicing/InvoiceDue.h"
#include "platform/DateFormatter.h"
#include "platform/DurationFormat.h"
#include "platform/MoneyFormat.h"
#include "screens/invoices/InvoiceOutlets.h"

namespace elmworth {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QString nextStepOf(InvoiceStatus status) {
    switch (status) {
        case InvoiceStatus::draft:
            return QStringLiteral("Mark Sent");
        case InvoiceStatus::sent:
            return QStringLiteral("Mark Paid");
        case InvoiceStatus::paid:
            return {};
    }
    return {};
}

QString taxCaption(const Invoice& invoice) {
    if (invoice.taxRateBasisPoints < 1) return QStringLiteral("No tax");
    return QStringLiteral("incl. %1% tax").arg(text(formatBasisPoints(invoice.taxRateBasisPoints)));
}

std::string hoursOf(const InvoiceCalculator::Totals& totals) {
    double seconds = 0;
    for (const auto& line : totals.lines) seconds += line.seconds;
    return formatDecimalHours(seconds);
}

}  // namespace

InvoiceFacts factsOf(const Invoice& invoice, std::size_t entryCount, const InvoiceRenderModel& head,
                     const InvoiceCalculator::Totals* totals, const AppServices& services) {
    const Calendar calendar = services.calendar();
    const DateFormatter dates(DateFormatter::Style::monthDay, services.locale, calendar.zoneID());
    const auto place = std::ranges::find(allInvoiceStatuses, invoice.status());
    InvoiceFacts facts;
    facts.number = text(invoice.number);
    facts.subtitle =
        text(head.billTo.name.empty() ? head.period : head.billTo.name + " · " + head.period);
    facts.status = static_cast<int>(place - allInvoiceStatuses.begin());
    facts.isDraft = invoice.status() == InvoiceStatus::draft;
    facts.isOverdue = invoice.isOverdue(services.now(), calendar);
    facts.total = totals ? text(head.total) : QStringLiteral("—");
    facts.totalCaption = taxCaption(invoice);
    facts.hours = totals ? text(hoursOf(*totals)) : QStringLiteral("—");
    facts.hoursCaption = QStringLiteral("%1 entries · %2-min rounding")
                             .arg(entryCount)
                             .arg(invoice.roundingMinutes.get());
    facts.dueDate = text(dates.string(invoice.dueDate));
    facts.dueCaption = text(dueText(invoice, services.now(), calendar, services.locale));
    facts.nextStep = nextStepOf(invoice.status());
    facts.showsEntries = invoice.showsEntryDetails;
    facts.entryCount = entryCount;
    return facts;
}

}  // namespace elmworth
