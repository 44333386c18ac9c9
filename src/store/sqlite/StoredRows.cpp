// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/sqlite/StoredRows.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include "store/sqlite/LogFrames.h"
#include "store/sqlite/StoredPage.h"

namespace elmworth::sqlite {

namespace {

/// Whether `column` can be the value of `field`.
bool suits(const StoredColumn& column, const FieldDescription& field) {
    using enum StoredColumn::Kind;
    if (column.kind == null) return field.optional;
    switch (field.storage) {
        case StorageClass::integer:
            return column.kind == integer;
        case StorageClass::text:
            return column.kind == text;
        case StorageClass::blob:
            return column.kind == blob;
        case StorageClass::identity:
            return column.identity().has_value();
    }
    return false;
}

Value valueOf(const StoredColumn& column, StorageClass storage) {
    if (column.kind == StoredColumn::Kind::null) return {};
    switch (storage) {
        case StorageClass::integer:
            return column.number;
        case StorageClass::text:
            return std::string(column.bytes);
        case StorageClass::blob:
            return Blob{std::string(column.bytes)};
        case StorageClass::identity:
            return *column.identity();
    }
    return {};
}

std::vector<std::string> columnNames(Database& database, std::string_view table) {
    std::vector<std::string> names;
    Statement statement(database.handle(), "SELECT name FROM pragma_table_info(?) ORDER BY cid");
    statement.bind(0, Value{std::string(table)});
    while (statement.step()) names.emplace_back(statement.text(0));
    return names;
}

std::uint32_t rootOf(Database& database, std::string_view table) {
    Statement statement(database.handle(),
                        "SELECT rootpage FROM sqlite_schema WHERE type = 'table' AND name = ?");
    statement.bind(0, Value{std::string(table)});
    return statement.step() ? static_cast<std::uint32_t>(statement.integer(0)) : 0;
}

std::int64_t tableCount(Database& database) {
    Statement statement(database.handle(),
                        "SELECT count(*) FROM sqlite_schema WHERE type = 'table'");
    return statement.step() ? statement.integer(0) : 0;
}

std::optional<std::size_t> fieldNamed(const RecordSchema& schema, std::string_view name) {
    for (std::size_t i = 0; i < schema.fields.size(); ++i) {
        if (schema.fields[i].name == name) return i;
    }
    return std::nullopt;
}

}  // namespace

std::optional<PersistentID> StoredColumn::identity() const {
    PersistentID id;
    if (kind != Kind::blob || bytes.size() != id.bytes.size()) return std::nullopt;
    std::memcpy(id.bytes.data(), bytes.data(), bytes.size());
    return id;
}

StoredRows::StoredRows(const LibraryImage& image, const LibraryModel& model) : image_(image) {
    readLayouts(model);
    readSchemaPages();
    readFreePages();
}

/// What SQLite knows about the tables fills the first page and those below it.
void StoredRows::readSchemaPages() {
    constexpr std::size_t head = 100;
    constexpr char branch = 5;
    const auto page = image_.page(1);
    if (page.size() < image_.pageSize() || page[head] != branch) return;
    schema_.insert(bigEndian(page, head + 8));
    const std::size_t count = bigEndian(page, head + 1) & 0xFFFF;
    for (std::size_t i = 0; i < count && head + 16 + 2 * i <= page.size(); ++i) {
        const std::size_t place = bigEndian(page, head + 10 + 2 * i) & 0xFFFF;
        if (place + 4 <= page.size()) schema_.insert(bigEndian(page, place));
    }
}

/// The library knows best how its tables look. One that no longer does has them as the model says.
void StoredRows::readLayouts(const LibraryModel& model) {
    for (const auto* schema : model.types) {
        Layout layout{schema, {}};
        for (std::size_t i = 0; i < schema->fields.size(); ++i) layout.fields.emplace_back(i);
        layouts_.push_back(std::move(layout));
    }
    try {
        Database database = image_.open();
        holdsMore_ = tableCount(database) > static_cast<std::int64_t>(layouts_.size());
        for (auto& layout : layouts_) {
            auto names = columnNames(database, layout.schema->name);
            layout.root = rootOf(database, layout.schema->name);
            std::erase(names, "id");
            if (names.empty()) continue;
            layout.fields.clear();
            for (const auto& name : names) {
                layout.fields.push_back(fieldNamed(*layout.schema, name));
                if (!layout.fields.back()) holdsMore_ = true;
            }
        }
    } catch (const StoreError&) {
        return;  // the pages are read by themselves
    }
}

/// The free pages are listed on pages that are free themselves. When that list is damaged, what the
/// tables still hold is told by their trees.
void StoredRows::readFreePages() {
    constexpr std::size_t firstList = 32;
    constexpr std::size_t count = 36;
    std::uint32_t list = image_.headNumber(firstList);
    bool isWhole = true;
    while (isWhole && list != 0) {
        const auto page = image_.page(list);
        isWhole = page.size() == image_.pageSize() && free_.insert(list).second;
        if (!isWhole) break;
        const std::size_t leaves = bigEndian(page, 4);
        if (leaves > page.size() / 4 - 2) {
            isWhole = false;
            break;
        }
        for (std::size_t i = 0; i < leaves; ++i) free_.insert(bigEndian(page, 8 + 4 * i));
        list = bigEndian(page, 0);
    }
    if (!isWhole || free_.size() != image_.headNumber(count)) collectTrees();
}

void StoredRows::collectTrees() {
    bool isWhole = true;
    for (const auto& layout : layouts_) isWhole = collectTree(layout.root) && isWhole;
    // Rather a deleted record too many than a lost one.
    if (!isWhole) reached_.clear();
    free_.clear();
}

bool StoredRows::collectTree(std::uint32_t root) {
    std::vector<std::uint32_t> waiting{root};
    while (!waiting.empty()) {
        const std::uint32_t number = waiting.back();
        waiting.pop_back();
        const StoredPage page(image_, number);
        if (page.kind() != StoredPage::Kind::leaf && page.kind() != StoredPage::Kind::branch)
            return false;
        if (!reached_.insert(number).second) return false;
        if (page.kind() == StoredPage::Kind::leaf) continue;
        const auto children = page.children();
        if (!children) return false;
        waiting.insert(waiting.end(), children->begin(), children->end());
    }
    return true;
}

bool StoredRows::isFree(std::uint32_t page) const {
    return free_.contains(page) || (!reached_.empty() && !reached_.contains(page));
}

void StoredRows::forEach(const Visitor& visitor, Progress& progress) {
    overflow_.clear();
    std::vector<std::uint32_t> damaged;
    const std::size_t pages = image_.pageCount();
    for (std::uint32_t number = 2; number <= pages; ++number) {
        if (!isFree(number) && !visitPage(number, visitor)) damaged.push_back(number);
        progress.advance("Reading", number, pages);
    }
    std::erase_if(damaged, [&](std::uint32_t number) { return overflow_.contains(number); });
    damagedPages_ = damaged.size() + image_.missingPages();
}

bool StoredRows::visitPage(std::uint32_t number, const Visitor& visitor) {
    StoredPage page(image_, number);
    if (schema_.contains(number)) return page.kind() == StoredPage::Kind::schema;
    if (page.kind() != StoredPage::Kind::leaf && page.kind() != StoredPage::Kind::branch)
        return false;
    bool isWhole = true;
    for (std::size_t i = 0; i < page.rowCount(); ++i) {
        if (page.readRow(i, columns_, overflow_)) {
            visitRow(visitor);
        } else {
            isWhole = false;
        }
    }
    return isWhole;
}

void StoredRows::visitRow(const Visitor& visitor) {
    if (const auto id = columns_.front().identity()) {
        for (const auto& layout : layouts_) {
            if (takeValues(layout)) return visitor.record(*layout.schema, *id, values_);
        }
    }
    if (visitor.indexRow) visitor.indexRow(columns_);
}

/// A row that was written before a column was added to the table lacks it.
bool StoredRows::takeValues(const Layout& layout) {
    const auto& fields = layout.schema->fields;
    if (columns_.size() > layout.fields.size() + 1) return false;
    values_.assign(fields.size(), Value{});
    for (std::size_t i = 0; i < layout.fields.size(); ++i) {
        if (!layout.fields[i]) continue;
        const auto& field = fields[*layout.fields[i]];
        const bool isThere = i + 1 < columns_.size();
        if (!isThere && (field.optional || field.mayBeMissing)) continue;
        if (!isThere || !suits(columns_[i + 1], field)) return false;
        values_[*layout.fields[i]] = valueOf(columns_[i + 1], field.storage);
    }
    return true;
}

}  // namespace elmworth::sqlite
