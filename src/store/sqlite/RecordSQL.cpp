// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/sqlite/RecordSQL.h"

#include <algorithm>

namespace elmworth::sqlite {

namespace {

std::string quoted(std::string_view name) {
    return '"' + std::string(name) + '"';
}

std::string_view columnType(StorageClass storage) {
    switch (storage) {
        case StorageClass::integer:
            return "INTEGER";
        case StorageClass::text:
            return "TEXT";
        default:
            return "BLOB";
    }
}

std::string_view referenceAction(const RecordSchema& target, const RecordSchema& source,
                                 std::string_view field) {
    for (const auto& relationship : target.relationships) {
        if (&relationship.target() != &source || relationship.inverse != field) continue;
        if (relationship.rule == DeleteRule::cascade) return " ON DELETE CASCADE";
        if (relationship.rule == DeleteRule::nullify) return " ON DELETE SET NULL";
    }
    return "";
}

std::string columnSQL(const RecordSchema& schema, const FieldDescription& field) {
    std::string sql = ", " + quoted(field.name) + ' ' + std::string(columnType(field.storage));
    if (!field.optional) sql += " NOT NULL";
    if (field.unique) sql += " UNIQUE";
    if (field.target) {
        const auto& target = field.target();
        sql += " REFERENCES " + quoted(target.name) + "(\"id\")";
        sql += referenceAction(target, schema, field.name);
        sql += " DEFERRABLE INITIALLY DEFERRED";  // rows may be written in any order
    }
    return sql;
}

std::string createTableSQL(const RecordSchema& schema) {
    std::string sql = "CREATE TABLE " + quoted(schema.name) +
                      "(\"id\" BLOB PRIMARY KEY NOT NULL CHECK(length(\"id\") = 16)";
    for (const auto& field : schema.fields) sql += columnSQL(schema, field);
    return sql + ") STRICT, WITHOUT ROWID;\n";
}

std::string createIndexSQL(const RecordSchema& schema, const IndexDescription& index) {
    std::string sql = "CREATE INDEX " + quoted(index.name) + " ON " + quoted(schema.name) + '(' +
                      quoted(index.columns[0]);
    for (const auto column : std::span(index.columns).subspan(1)) {
        if (!column.empty()) sql += ", " + quoted(column);
    }
    sql += ')';
    if (!index.present.empty()) sql += " WHERE " + quoted(index.present) + " IS NOT NULL";
    if (!index.absent.empty()) {
        sql += (index.present.empty() ? " WHERE " : " AND ") + quoted(index.absent) + " IS NULL";
    }
    return sql + ";\n";
}

std::string_view comparisonSQL(PredicateNode::Kind kind) {
    switch (kind) {
        case PredicateNode::Kind::equal:
            return " = ?";
        case PredicateNode::Kind::less:
            return " < ?";
        case PredicateNode::Kind::lessOrEqual:
            return " <= ?";
        case PredicateNode::Kind::greater:
            return " > ?";
        default:
            return " >= ?";
    }
}

std::string allColumns(const RecordSchema& schema) {
    std::string sql = "\"id\"";
    for (const auto& field : schema.fields) sql += ", " + quoted(field.name);
    return sql;
}

class ConditionWriter {
 public:
    ConditionWriter(const RecordSchema& schema, SQLCondition& condition)
        : schema_(schema), condition_(condition) {}

    void write(const PredicateNode& node) {
        switch (node.kind) {
            case PredicateNode::Kind::both:
                return writeJoined(node, " AND ");
            case PredicateNode::Kind::either:
                return writeJoined(node, " OR ");
            case PredicateNode::Kind::negated:
                add("NOT (");
                write(*node.operands.front());
                return add(")");
            default:
                return writeComparison(node);
        }
    }

 private:
    void add(std::string_view text) { condition_.text += text; }

    void writeJoined(const PredicateNode& node, std::string_view joint) {
        add("(");
        for (std::size_t i = 0; i < node.operands.size(); ++i) {
            if (i > 0) add(joint);
            write(*node.operands[i]);
        }
        add(")");
    }

    void writeComparison(const PredicateNode& node) {
        const auto& field = schema_.fields[node.field];
        const std::string column = quoted(field.name);
        if (std::holds_alternative<std::monostate>(node.value))
            return writeAbsence(node.kind, column);
        condition_.values.push_back(&node.value);
        if (node.kind == PredicateNode::Kind::notEqual) return add(column + " IS NOT ?");
        // An absent value must make the comparison false and not unknown, or NOT would lose it.
        // "IS ?" would do that too, but keeps SQLite from the indexes over present values.
        if (field.optional) add("(" + column + " IS NOT NULL AND ");
        add(column + std::string(comparisonSQL(node.kind)));
        if (field.optional) add(")");
    }

    void writeAbsence(PredicateNode::Kind kind, const std::string& column) {
        if (kind == PredicateNode::Kind::equal) return add(column + " IS NULL");
        if (kind == PredicateNode::Kind::notEqual) return add(column + " IS NOT NULL");
        add("0");  // nothing is less or greater than an absent value
    }

    const RecordSchema& schema_;
    SQLCondition& condition_;
};

}  // namespace

std::string createSchemaSQL(std::span<const RecordSchema* const> types) {
    std::string sql;
    for (const auto* schema : types) sql += createTableSQL(*schema);
    for (const auto* schema : types) {
        for (const auto& index : schema->indexes) sql += createIndexSQL(*schema, index);
    }
    return sql;
}

SQLCondition whereSQL(const RecordSchema& schema, const PredicateNode* predicate) {
    SQLCondition condition;
    if (!predicate) return condition;
    condition.text = " WHERE ";
    ConditionWriter(schema, condition).write(*predicate);
    return condition;
}

std::string selectSQL(const RecordSchema& schema) {
    return "SELECT " + allColumns(schema) + " FROM " + quoted(schema.name);
}

std::string selectSQL(const RecordSchema& schema, std::span<const std::size_t> fields) {
    std::string sql = "SELECT \"id\"";
    for (const auto field : fields) sql += ", " + quoted(schema.fields[field].name);
    return sql + " FROM " + quoted(schema.name);
}

std::string orderSQL(const RecordSchema& schema, std::span<const SortKey> sortBy, bool isLimited) {
    if (sortBy.empty() && !isLimited) return {};
    std::string sql = " ORDER BY ";
    for (const auto& key : sortBy) {
        sql += quoted(schema.fields[key.field].name);
        if (key.comparison == SortComparison::localizedStandard)
            sql += " COLLATE localizedStandard";
        sql += key.order == SortOrder::reverse ? " DESC, " : ", ";
    }
    const bool reverse = !sortBy.empty() && sortBy.back().order == SortOrder::reverse;
    return sql + (reverse ? "\"id\" DESC" : "\"id\"");
}

std::string totalSpanSQL(const SpanFields& fields) {
    const auto columns = fields.schema->fields;
    return "SELECT total(" + quoted(columns[fields.until].name) + " - " +
           quoted(columns[fields.since].name) + ") FROM " + quoted(fields.schema->name) +
           " WHERE " + quoted(columns[fields.owner].name) + " = ?";
}

std::string insertSQL(const RecordSchema& schema) {
    // Named, because a migrated table may have its columns in another order.
    std::string sql =
        "INSERT INTO " + quoted(schema.name) + '(' + allColumns(schema) + ") VALUES(?";
    for (std::size_t i = 0; i < schema.fields.size(); ++i) sql += ",?";
    return sql + ')';
}

std::string updateSQL(const RecordSchema& schema, std::uint32_t fieldMask) {
    std::string sql = "UPDATE " + quoted(schema.name) + " SET ";
    bool first = true;
    for (std::size_t i = 0; i < schema.fields.size(); ++i) {
        if ((fieldMask & (1U << i)) == 0) continue;
        if (!first) sql += ", ";
        sql += quoted(schema.fields[i].name) + " = ?";
        first = false;
    }
    return sql + " WHERE \"id\" = ?";
}

}  // namespace elmworth::sqlite
