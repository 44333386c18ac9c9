// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

#include "store/Schema.h"

namespace elmworth {

class Invoice;
class Project;

/// One billed customer.
class Client final : public Record {
 public:
    explicit Client(std::string name);
    explicit Client(const PersistentID& id) : Record(id) {}

    Attribute<std::string> name{*this};
    Attribute<std::string> email{*this};
    Attribute<std::string> address{*this};
    Attribute<std::string> currencyCode{*this, "USD"};      ///< ISO 4217
    Attribute<std::int64_t> hourlyRateCents{*this, 10000};  ///< default rate of its projects
    Attribute<Instant> createdAt{*this};
    Attribute<std::optional<std::int64_t>> dueDays{*this};         ///< absent: the business default
    Attribute<std::optional<std::int64_t>> taxBasisPoints{*this};  ///< absent: the business default
    ToMany<Project> projects{*this, "client"};                     ///< deleted with the client
    ToMany<Invoice> invoices{*this, "client"};  ///< while there are any, the client stays

    [[nodiscard]] static const RecordSchema& schema();
    [[nodiscard]] const RecordSchema& recordSchema() const noexcept override { return schema(); }
};

}  // namespace elmworth
