// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "store/Value.h"

namespace elmworth {

enum class PaperSize { letter, a4 };

inline constexpr std::array allPaperSizes{PaperSize::letter, PaperSize::a4};

/// "letter" or "a4", the stored form.
[[nodiscard]] std::string_view rawValue(PaperSize size) noexcept;
[[nodiscard]] std::optional<PaperSize> paperSizeFromRawValue(std::string_view raw) noexcept;

/// The user's own business and the defaults of new invoices.
struct BusinessProfile {
    std::string name{};
    std::string address{};
    std::string taxID{};
    std::string email{};
    std::string paymentInstructions{};        ///< printed on invoices
    std::string invoicePrefix = "INV";        ///< first part of the invoice number
    std::int64_t nextInvoiceNumber = 1;       ///< the number that the next invoice takes
    PaperSize paperSize = PaperSize::letter;  ///< of new PDFs
    std::int64_t roundingMinutes = 6;         ///< rounding step of new invoices
    std::int64_t defaultDueDays = 14;         ///< payment term when the client has none
    std::int64_t defaultTaxBasisPoints = 0;   ///< tax rate when the client has none
    std::string taxLabel = "Tax";             ///< word printed for the tax line
    bool resetNumberingYearly = false;        ///< restart the numbers each calendar year
    std::int64_t numberingYear = 0;           ///< year of the last number given; 0 = none yet

    friend bool operator==(const BusinessProfile&, const BusinessProfile&) = default;

    /// Prepares the numbering for an invoice of `year`: starts again at 1 in a new year when
    /// `resetNumberingYearly` is set and a number was given before, and notes the year in any case.
    void applyYearlyReset(std::int64_t year);

    /// Takes `number`, at least 1, for the next invoice, as a person set it in `year`: the yearly
    /// restart leaves it alone until the next year.
    void setNextInvoiceNumber(std::int64_t number, std::int64_t year);

    /// "{invoicePrefix}-{year}-{nextInvoiceNumber}", the number with at least three digits.
    [[nodiscard]] std::string formattedInvoiceNumber(std::int64_t year) const;
};

/// One field of the profile: how JSON, the backup document and the command line name it, in the
/// order of declaration.
struct ProfileField {
    std::string_view name;
    FieldKind kind;
    Value (*read)(const BusinessProfile&);
    void (*write)(BusinessProfile&, const Value&);
    std::int64_t highest;  ///< of a number that people type, which is at least 0
};
[[nodiscard]] std::span<const ProfileField> profileFields();

/// The profile as one JSON object, keys in declaration order, in UTF-8.
[[nodiscard]] std::string encodeProfile(const BusinessProfile& profile);

/// Reads a profile from JSON. A key that is missing or null takes its default. Absent when the text
/// is no JSON object, a value has the wrong type (see
/// `fieldValue`), or the paper size is unknown.
[[nodiscard]] std::optional<BusinessProfile> decodeProfile(std::string_view json);

}  // namespace elmworth
