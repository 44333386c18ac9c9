// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "command/CommandError.h"
#include "command/JSONOutput.h"
#include "store/Schema.h"

namespace elmworth {

// What commands show and set of a record, by its schema.

/// Writes the fields of `record` into the object that is open. `instead` says by their keys what to
/// write for some of them; relationships and frozen profiles are written only so.
void writeFields(JSONOutput& json, const Record& record,
                 std::initializer_list<std::pair<std::string_view, Value>> instead = {});

/// Sets the field that people call `name` to what they typed; an empty text takes an optional value
/// away. Throws CommandError (usage) with all names when there is no such field, and Refused.
void setField(Record& record, const std::string& name, const std::string& text);

/// "name, email, rate": the fields that `setField` sets.
[[nodiscard]] std::string settableFields(const RecordSchema& schema);

/// What to throw where a name is none of `names`.
[[nodiscard]] CommandError noSuchField(const std::string& name, const std::string& names);

}  // namespace elmworth
