// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/clients/ClientCardTexts.h"

#include <algorithm>

#include "platform/DurationFormat.h"

namespace elmworth {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

void showProjects(ClientCardTexts& card, const std::vector<Ref<Project>>& projects) {
    const std::size_t shown = std::min(projects.size(), ClientCardTexts::mostProjects);
    for (std::size_t i = 0; i < shown; ++i) {
        card.projectNames += text(projects[i]->name);
        card.projectColors += text(projects[i]->colorHex);
    }
    if (projects.size() > shown) card.more = QStringLiteral("+%1").arg(projects.size() - shown);
}

}  // namespace

ClientCardTexts ClientCardTexts::of(const ClientCardContent& content, const DateFormatter& days,
                                    const Locale& money) {
    const Client& client = *content.client;
    const auto amount = [&](std::int64_t cents) {
        return text(formatCents(cents, client.currencyCode.get(), money));
    };
    const auto count = content.activeProjects.size();
    ClientCardTexts card;
    card.name = text(client.name);
    card.hasEmail = !client.email->empty();
    card.contact = card.hasEmail ? text(client.email) : QStringLiteral("No email");
    card.rate = amount(client.hourlyRateCents) + QStringLiteral("/h");
    card.projectCount = QString::number(count);
    card.unbilled = text(formatHoursMinutes(content.unbilled.seconds));
    card.value = amount(content.unbilled.cents);
    if (const auto& last = content.lastInvoice)
        card.lastInvoice = text(last->number + " · " + days.string(last->issueDate));
    showProjects(card, content.activeProjects);
    if (content.unbilled.cents >= 1) card.invoiceText = QStringLiteral("Invoice ") + card.value;
    card.summary = QStringList{card.name,
                               card.projectCount + (count == 1 ? QStringLiteral(" project")
                                                               : QStringLiteral(" projects")),
                               card.unbilled + QStringLiteral(" unbilled"), card.value}
                       .join(QStringLiteral(", "));
    return card;
}

}  // namespace elmworth
