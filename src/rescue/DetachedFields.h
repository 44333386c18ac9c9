// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>
#include <utility>

#include "store/Record.h"
#include "store/Schema.h"

namespace elmworth {

/// Sets the field `name` of a record that is in no context, which relationships need otherwise.
inline void setField(Record& record, std::string_view name, Value value) {
    const auto& schema = record.recordSchema();
    schema.fields[schema.fieldIndex(name)].write(record, std::move(value));
}

}  // namespace elmworth
