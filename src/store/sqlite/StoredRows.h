// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/Progress.h"
#include "store/Schema.h"
#include "store/sqlite/LibraryImage.h"

namespace elmworth::sqlite {

/// One column of a row as it stands on a page.
struct StoredColumn {
    enum class Kind { null, integer, real, text, blob };
    Kind kind = Kind::null;
    std::int64_t number = 0;
    std::string_view bytes;

    /// The identity that the column holds; absent when it holds none.
    [[nodiscard]] std::optional<PersistentID> identity() const;
};

/// The rows of a library page by page, without asking the trees that hold them together: a page
/// that is damaged costs its own rows and no others. What was deleted is not among them, as far as
/// the library still tells which of its pages are free.
class StoredRows {
 public:
    /// Both outlive this.
    StoredRows(const LibraryImage& image, const LibraryModel& model);

    struct Visitor {
        /// A record: its values in the order of the schema's fields; absent where the library has
        /// no such column yet.
        std::function<void(const RecordSchema& schema, const PersistentID& id,
                           std::vector<Value>& values)>
            record;
        /// A row of an index. May be empty.
        std::function<void(std::span<const StoredColumn> columns)> indexRow;
    };
    /// Hands out all rows that can be read, in any order, and counts the damaged pages. Throws
    /// Cancelled.
    void forEach(const Visitor& visitor, Progress& progress = noProgress());

    [[nodiscard]] std::size_t pages() const noexcept { return image_.pageCount(); }
    /// Pages that the last `forEach` could not read, or not all of, and those that are missing.
    [[nodiscard]] std::size_t damagedPages() const noexcept { return damagedPages_; }

    /// Whether the library has tables or columns that the model lacks, as a newer program would
    /// make them.
    [[nodiscard]] bool holdsMore() const noexcept { return holdsMore_; }

 private:
    struct Layout {
        const RecordSchema* schema;
        /// The field of each column behind the identity; absent for one that the model lacks.
        std::vector<std::optional<std::size_t>> fields;
        std::uint32_t root = 0;  ///< 0: not known
    };

    void readLayouts(const LibraryModel& model);
    void readSchemaPages();
    void readFreePages();
    bool collectTree(std::uint32_t root);
    void collectTrees();
    [[nodiscard]] bool isFree(std::uint32_t page) const;
    bool visitPage(std::uint32_t number, const Visitor& visitor);
    void visitRow(const Visitor& visitor);
    bool takeValues(const Layout& layout);

    const LibraryImage& image_;
    std::vector<Layout> layouts_;
    bool holdsMore_ = false;
    std::unordered_set<std::uint32_t> schema_;  ///< what SQLite knows about the tables
    std::unordered_set<std::uint32_t> free_;
    std::unordered_set<std::uint32_t> reached_;  ///< from the roots; only where `free_` is damaged
    std::unordered_set<std::uint32_t> overflow_;
    std::size_t damagedPages_ = 0;
    std::vector<StoredColumn> columns_;
    std::vector<Value> values_;
};

}  // namespace elmworth::sqlite
