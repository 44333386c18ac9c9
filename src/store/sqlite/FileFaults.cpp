// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/sqlite/FileFaults.h"

#include <algorithm>
#include <set>

#include "store/sqlite/LibraryFile.h"

namespace elmworth::sqlite {

namespace {

/// SQLite puts a heading and several lines into one row.
void addLines(std::string_view text, std::vector<std::string>& lines) {
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = text.substr(0, end);
        if (!line.empty() && !line.starts_with("***")) lines.emplace_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

/// One line for each table, column and index, such that equal lines mean the same.
std::set<std::string> shapeOf(Database& database) {
    std::set<std::string> shape;
    Statement parts(database.handle(), R"(
SELECT 'table ' || name FROM sqlite_schema WHERE type = 'table'
UNION ALL
SELECT 'index ' || coalesce(replace(substr(sql, instr(sql, '"')), ' ', ''), tbl_name || ' unique')
    FROM sqlite_schema WHERE type = 'index'
UNION ALL
SELECT type || ' ' || name FROM sqlite_schema WHERE type NOT IN ('table', 'index')
UNION ALL
SELECT 'column ' || t.name || '.' || c.name || ' ' || c.type || iif(c."notnull", ' NOT NULL', '')
        || iif(c.pk, ' PRIMARY KEY', '')
    FROM sqlite_schema t JOIN pragma_table_info(t.name) c WHERE t.type = 'table'
)");
    while (parts.step()) shape.emplace(parts.text(0));
    return shape;
}

}  // namespace

std::vector<std::string> integrityFaults(Database& database) {
    std::vector<std::string> faults;
    try {
        Statement check(database.handle(), "PRAGMA integrity_check(100)");
        while (check.step()) addLines(check.text(0), faults);
    } catch (const StoreError& error) {
        faults.emplace_back(error.what());
    }
    std::erase(faults, "ok");
    return faults;
}

std::vector<std::string> shapeFaults(Database& database, const LibraryModel& model) {
    std::vector<std::string> faults;
    try {
        auto empty = openLibraryInMemory(model);
        const auto expected = shapeOf(empty);
        const auto found = shapeOf(database);
        for (const auto& part : expected) {
            if (!found.contains(part)) faults.push_back("lacks the " + part);
        }
        for (const auto& part : found) {
            if (!expected.contains(part)) faults.push_back("has a foreign " + part);
        }
    } catch (const StoreError& error) {
        faults.emplace_back(error.what());
    }
    return faults;
}

}  // namespace elmworth::sqlite
