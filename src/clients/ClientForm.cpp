// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clients/ClientForm.h"

#include <algorithm>

#include "platform/CurrencyFormatter.h"
#include "platform/MoneyFormat.h"
#include "platform/Text.h"

namespace elmworth {

Parsed<std::string> parseName(std::string_view text) {
    const std::string name(trimmedBlanks(text));
    if (name.empty()) return Refused("The name can't be empty.");
    if (oneLine(name) != name)
        return Refused("A name can't hold line breaks or control characters.");
    return name;
}

Parsed<std::int64_t> parseRate(std::string_view text) {
    if (const auto cents = parseCents(text)) return *cents;
    return Refused("“" + std::string(text) + "” is no amount. Enter a number like 120 or 120.50.");
}

Parsed<std::string> parseCurrency(std::string_view text) {
    std::string code(text);
    std::transform(code.begin(), code.end(), code.begin(), [](char c) {
        return static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    });
    const auto& codes = commonCurrencyCodes();
    if (std::binary_search(codes.begin(), codes.end(), code)) return code;
    return Refused("“" + std::string(text) + "” is no currency. Use an ISO code like USD or EUR.");
}

Parsed<std::int64_t> parseDueDays(std::string_view text) {
    return parseWholeNumber(text, "a payment term in days", 0, longestTerm);
}

std::string_view rateProblem(std::string_view text) {
    return text.empty() || parseRate(text) ? "" : "Enter a number like 120 or 120.50";
}

ClientForm ClientForm::of(const Client& client, const BusinessProfile& profile) {
    return {client.name,
            client.email,
            client.address,
            client.currencyCode,
            formatBasisPoints(client.hourlyRateCents),
            client.dueDays.get() || client.taxBasisPoints.get(),
            client.dueDays->value_or(profile.defaultDueDays),
            formatBasisPoints(client.taxBasisPoints->value_or(profile.defaultTaxBasisPoints))};
}

bool ClientForm::canSave() const {
    return !trimmedBlanks(name).empty() && parseRate(rateText) &&
           (!hasOwnTerms || parseTaxRate(taxText));
}

void ClientForm::apply(Client& client) const {
    const auto newName = parseName(oneLine(name)).value();
    const auto rate = parseRate(rateText).value();
    const auto tax = hasOwnTerms ? std::optional(parseTaxRate(taxText).value()) : std::nullopt;
    client.name = newName;
    client.email = email;
    client.address = address;
    client.currencyCode = currencyCode;
    client.hourlyRateCents = rate;
    client.dueDays = hasOwnTerms ? std::optional(dueDays) : std::nullopt;
    client.taxBasisPoints = tax;
}

}  // namespace elmworth
