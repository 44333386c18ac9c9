// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "store/Query.h"
#include "store/Schema.h"
#include "store/SpanTotals.h"

namespace elmworth::sqlite {

/// A condition as SQL text with "?" parameters, and the values for them.
struct SQLCondition {
    std::string text;
    std::vector<const Value*> values;  ///< in the predicate's nodes
};

/// All statements that make the tables and indexes of the library.
[[nodiscard]] std::string createSchemaSQL(std::span<const RecordSchema* const> types);

/// " WHERE …" for `predicate`; empty for null.
[[nodiscard]] SQLCondition whereSQL(const RecordSchema& schema, const PredicateNode* predicate);

/// "SELECT "id", … FROM …", the fields in the order of the schema.
[[nodiscard]] std::string selectSQL(const RecordSchema& schema);

/// The same with the fields of the numbers `fields` only.
[[nodiscard]] std::string selectSQL(const RecordSchema& schema,
                                    std::span<const std::size_t> fields);

/// " ORDER BY …" of the sort keys and then the identity. Empty without sort keys unless the result
/// is limited: an order that nobody asked for would keep SQLite from the best index.
[[nodiscard]] std::string orderSQL(const RecordSchema& schema, std::span<const SortKey> sortBy,
                                   bool isLimited);

/// The sum of the spans of the rows that point to the parameter; 0.0 where there are none.
[[nodiscard]] std::string totalSpanSQL(const SpanFields& fields);

/// The insertion of a row: its identity and all fields.
[[nodiscard]] std::string insertSQL(const RecordSchema& schema);

/// The update of the fields whose bits are set in `fieldMask`, then the identity as the last
/// parameter.
[[nodiscard]] std::string updateSQL(const RecordSchema& schema, std::uint32_t fieldMask);

}  // namespace elmworth::sqlite
