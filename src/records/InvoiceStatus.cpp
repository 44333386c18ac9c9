// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/InvoiceStatus.h"

namespace elmworth {

std::string_view rawValue(InvoiceStatus status) noexcept {
    switch (status) {
        case InvoiceStatus::sent:
            return "sent";
        case InvoiceStatus::paid:
            return "paid";
        default:
            return "draft";
    }
}

std::string_view label(InvoiceStatus status) noexcept {
    switch (status) {
        case InvoiceStatus::sent:
            return "Sent";
        case InvoiceStatus::paid:
            return "Paid";
        default:
            return "Draft";
    }
}

std::optional<InvoiceStatus> invoiceStatusFromRawValue(std::string_view raw) noexcept {
    for (const auto status : allInvoiceStatuses) {
        if (rawValue(status) == raw) return status;
    }
    return std::nullopt;
}

}  // namespace elmworth
