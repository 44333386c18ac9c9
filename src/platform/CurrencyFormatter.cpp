// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/CurrencyFormatter.h"

#include <unicode/numfmt.h>
#include <unicode/ucurr.h>
#include <unicode/uenum.h>

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

namespace elmworth {
namespace {

using CurrencyFormat = std::unique_ptr<const icu::NumberFormat>;

/// Null when ICU has none.
CurrencyFormat makeFormat(const Locale& locale, std::string_view currencyCode) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> format(icu::NumberFormat::createCurrencyInstance(
        icu::Locale(locale.identifier().c_str()), status));
    if (U_FAILURE(status)) return nullptr;
    icu::UnicodeString code(currencyCode.data(), static_cast<int>(currencyCode.size()), US_INV);
    format->setCurrency(code.getTerminatedBuffer(), status);
    if (U_FAILURE(status)) return nullptr;
    format->setMinimumFractionDigits(format->getMaximumFractionDigits());
    return format;
}

/// Making a format costs a thousand times what using it does, and a screen shows few currencies.
const icu::NumberFormat* sharedFormat(const Locale& locale, std::string_view currencyCode) {
    constexpr std::size_t mostFormats = 32;
    thread_local std::map<std::pair<std::string, std::string>, CurrencyFormat> formats;
    const std::pair key(locale.identifier(), std::string(currencyCode));
    if (const auto found = formats.find(key); found != formats.end()) return found->second.get();
    if (formats.size() >= mostFormats) formats.clear();
    return formats.emplace(key, makeFormat(locale, currencyCode)).first->second.get();
}

bool isCurrencyCode(std::string_view code) {
    return code.size() == 3 && std::all_of(code.begin(), code.end(), [](char c) {
               return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
           });
}

/// "-12.05": ICU reads an exact decimal from text, where a double would round it.
std::string decimalText(std::int64_t hundredths) {
    std::string digits = std::to_string(hundredths);
    const std::size_t sign = hundredths < 0 ? 1 : 0;
    while (digits.size() < sign + 3) digits.insert(sign, 1, '0');
    return digits.insert(digits.size() - 2, 1, '.');
}

}  // namespace

std::optional<std::string> formatCurrency(std::int64_t hundredths, std::string_view currencyCode,
                                          const Locale& locale) {
    if (!isCurrencyCode(currencyCode)) return std::nullopt;
    const icu::NumberFormat* format = sharedFormat(locale, currencyCode);
    if (format == nullptr) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString text;
    format->format(icu::StringPiece(decimalText(hundredths)), text, nullptr, status);
    if (U_FAILURE(status)) return std::nullopt;
    std::string utf8;
    return text.toUTF8String(utf8);
}

const std::vector<std::string>& commonCurrencyCodes() {
    static const auto codes = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::vector<std::string> found;
        const std::unique_ptr<UEnumeration, decltype(&uenum_close)> all(
            ucurr_openISOCurrencies(UCURR_COMMON | UCURR_NON_DEPRECATED, &status), &uenum_close);
        int length = 0;
        while (const char* code = uenum_next(all.get(), &length, &status))
            found.emplace_back(code, static_cast<std::size_t>(length));
        std::sort(found.begin(), found.end());
        return found;
    }();
    return codes;
}

std::string currencyName(std::string_view currencyCode, const Locale& locale) {
    if (!isCurrencyCode(currencyCode)) return std::string(currencyCode);
    icu::UnicodeString code(currencyCode.data(), static_cast<int>(currencyCode.size()), US_INV);
    UErrorCode status = U_ZERO_ERROR;
    int length = 0;
    const char16_t* name = ucurr_getName(code.getTerminatedBuffer(), locale.identifier().c_str(),
                                         UCURR_LONG_NAME, nullptr, &length, &status);
    if (U_FAILURE(status) || name == nullptr) return std::string(currencyCode);
    std::string utf8;
    return icu::UnicodeString(name, length).toUTF8String(utf8);
}

}  // namespace elmworth
