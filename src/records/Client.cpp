// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/Client.h"

#include "records/Invoice.h"
#include "records/Project.h"

namespace elmworth {

Client::Client(std::string clientName) {
    name = std::move(clientName);
    createdAt = currentInstant();
}

const RecordSchema& Client::schema() {
    static constexpr FieldDescription fields[] = {
        attribute<&Client::name>("name", {.input = FieldInput::name}),
        attribute<&Client::email>("email"),
        attribute<&Client::address>("address"),
        attribute<&Client::currencyCode>("currencyCode",
                                         {.input = FieldInput::currency, .word = "currency"}),
        attribute<&Client::hourlyRateCents>("hourlyRateCents",
                                            {.input = FieldInput::amount, .word = "rate"}),
        attribute<&Client::createdAt>("createdAt", {.isInternal = true}),
        attribute<&Client::dueDays>("dueDays", {.input = FieldInput::days, .word = "due-days"}),
        attribute<&Client::taxBasisPoints>("taxBasisPoints",
                                           {.input = FieldInput::percent, .word = "tax"}),
    };
    static constexpr ToManyDescription relationships[] = {
        {"projects", &Project::schema, "client", DeleteRule::cascade},
        {"invoices", &Invoice::schema, "client", DeleteRule::deny},
    };
    static constexpr RecordSchema schema{"Client",      0,  fields,
                                         relationships, {}, &makeRecord<Client>};
    return schema;
}

}  // namespace elmworth
