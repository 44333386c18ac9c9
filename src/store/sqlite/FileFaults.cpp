// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/sqlite/FileFaults.h"

#include <algorithm>
#include <exception>
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

/// How many rows all tables have; 0 when a damaged one can't be counted.
std::size_t rowCount(Database& database) try {
    // A table of a foreign file may be called anything.
    Statement counts(database.handle(),
                     "SELECT 'SELECT count(*) FROM \"' || replace(name, '\"', '\"\"') || '\"' "
                     "FROM sqlite_schema WHERE type = 'table'");
    std::size_t rows = 0;
    while (counts.step()) {
        Statement count(database.handle(), counts.text(0));
        if (count.step()) rows += static_cast<std::size_t>(count.integer(0));
    }
    return rows;
} catch (const StoreError&) {
    return 0;
}

/// Tells a Progress while it lives how far SQLite is with the check of all tables of `database`.
class CheckProgress {
 public:
    CheckProgress(Database& database, Progress& progress)
        : database_(database), progress_(progress), rows_(rowCount(database)) {
        sqlite3_progress_handler(database.handle(), stepsBetweenCalls, &advance, this);
    }
    CheckProgress(const CheckProgress&) = delete;
    CheckProgress& operator=(const CheckProgress&) = delete;
    ~CheckProgress() { sqlite3_progress_handler(database_.handle(), 0, nullptr, nullptr); }

    /// Throws Cancelled when that is why SQLite stopped.
    void rethrow() const {
        if (stopped_) std::rethrow_exception(stopped_);
    }

 private:
    static constexpr int stepsBetweenCalls = 1000;
    /// Of SQLite's machine, for a row with its indexes: measured, and the same in libraries of any
    /// size.
    static constexpr std::size_t stepsPerRow = 51;

    static int advance(void* self) noexcept {
        auto& check = *static_cast<CheckProgress*>(self);
        check.steps_ += stepsBetweenCalls;
        try {
            check.progress_.advance("Checking the file",
                                    std::min(check.steps_ / stepsPerRow, check.rows_), check.rows_);
        } catch (...) {
            check.stopped_ = std::current_exception();
        }
        return check.stopped_ ? 1 : 0;
    }

    Database& database_;
    Progress& progress_;
    std::size_t rows_;
    std::size_t steps_ = 0;
    std::exception_ptr stopped_;  ///< exceptions can't go through SQLite
};

}  // namespace

std::vector<std::string> integrityFaults(Database& database, Progress& progress) {
    std::vector<std::string> faults;
    const CheckProgress told(database, progress);
    try {
        Statement check(database.handle(), "PRAGMA integrity_check(100)");
        while (check.step()) addLines(check.text(0), faults);
    } catch (const StoreError& error) {
        told.rethrow();
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
