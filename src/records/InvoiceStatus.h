// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace elmworth {

enum class InvoiceStatus { draft, sent, paid };

inline constexpr std::array allInvoiceStatuses{InvoiceStatus::draft, InvoiceStatus::sent,
                                               InvoiceStatus::paid};

/// "draft", "sent" or "paid", the stored form.
[[nodiscard]] std::string_view rawValue(InvoiceStatus status) noexcept;
/// "Draft", "Sent" or "Paid".
[[nodiscard]] std::string_view label(InvoiceStatus status) noexcept;
[[nodiscard]] std::optional<InvoiceStatus> invoiceStatusFromRawValue(std::string_view raw) noexcept;

}  // namespace elmworth
