// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <variant>

#include "records/Client.h"
#include "records/Invoice.h"
#include "records/Project.h"
#include "records/TimeEntry.h"
#include "store/Schema.h"
#include "store/UnitOfWork.h"

namespace elmworth::test {

inline std::string valueText(const Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
    if (const auto* text = std::get_if<std::string>(&value)) return '"' + *text + '"';
    if (const auto* blob = std::get_if<Blob>(&value)) return '<' + blob->bytes + '>';
    if (const auto* id = std::get_if<PersistentID>(&value)) return id->string();
    return "absent";
}

template <class T>
std::string recordsText(UnitOfWork& context) {
    std::string text;
    for (const auto& record : context.fetch<T>()) {
        text += std::string(T::schema().name) + ' ' + record->id().string();
        for (const auto& field : T::schema().fields) text += ' ' + valueText(field.read(*record));
        text += '\n';
    }
    return text;
}

/// All records with all their fields: equal texts mean equal libraries.
inline std::string libraryText(UnitOfWork& context) {
    return recordsText<Client>(context) + recordsText<Project>(context) +
           recordsText<TimeEntry>(context) + recordsText<Invoice>(context);
}

}  // namespace elmworth::test
