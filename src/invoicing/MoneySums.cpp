// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/MoneySums.h"

#include "invoicing/InvoiceCalculator.h"
#include "platform/MoneyFormat.h"

namespace elmworth {

void MoneySums::add(const std::string& currencyCode, std::int64_t cents) {
    auto& sum = sums_[currencyCode];
    sum = InvoiceCalculator::limitedSum(sum, cents);
}

std::string MoneySums::text(const Locale& locale) const {
    if (sums_.empty()) return "—";
    std::string text;
    for (const auto& [code, cents] : sums_) {
        if (!text.empty()) text += " · ";
        text += formatCents(cents, code, locale);
    }
    return text;
}

}  // namespace elmworth
