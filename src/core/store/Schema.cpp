// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/store/Schema.h"

#include <array>

#include "core/Client.h"
#include "core/Invoice.h"
#include "core/Project.h"
#include "core/TimeEntry.h"

namespace elmworth {

std::size_t RecordSchema::fieldIndex(std::string_view fieldName) const {
    std::size_t i = 0;
    while (fields[i].name != fieldName) ++i;
    return i;
}

std::span<const RecordSchema* const> librarySchema() {
    static const std::array<const RecordSchema*, recordTypeCount> types{
        &Client::schema(), &Project::schema(), &TimeEntry::schema(), &Invoice::schema()};
    return types;
}

}  // namespace elmworth
