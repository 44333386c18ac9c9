// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "store/Schema.h"

namespace elmworth {

/// A value that no part of the program would have stored.
struct Correction {
    std::string problem;  ///< "rate is -500, below 0"
    Value value;          ///< the nearest that can stand
};

/// What is wrong with the value of a field; absent when nothing is.
[[nodiscard]] std::optional<Correction> correctionOf(const RecordSchema& schema,
                                                     const FieldDescription& field,
                                                     const Value& value);

/// What is wrong with how the values of an entry go together, and the field to set; absent when
/// nothing is.
struct EntryCorrection {
    Correction correction;
    std::size_t field;
};
[[nodiscard]] std::optional<EntryCorrection> entryCorrectionOf(const std::vector<Value>& values);

/// What to call a record: "Client “Acme”", "Invoice INV-1", "Entry of 2026-03-02T09:00:00Z". On one
/// line, and in UTF-8.
[[nodiscard]] std::string recordTitle(const RecordSchema& schema, const std::vector<Value>& values);

}  // namespace elmworth
