// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "store/sqlite/LibraryImage.h"
#include "store/sqlite/StoredRows.h"

namespace elmworth::sqlite {

/// A page of the trees in which tables without row numbers and indexes lie
/// (sqlite.org/fileformat2.html#b_tree_pages). Nothing on it is taken for granted.
class StoredPage {
 public:
    enum class Kind {
        branch,  ///< rows, with other pages between them
        leaf,    ///< rows
        schema,  ///< part of what SQLite knows about the tables
        other,   ///< of none of these kinds, or damaged
    };

    StoredPage(const LibraryImage& image, std::uint32_t number);

    [[nodiscard]] Kind kind() const noexcept { return kind_; }
    [[nodiscard]] std::size_t rowCount() const noexcept { return rowCount_; }

    /// The pages below a branch; absent where the page does not say.
    [[nodiscard]] std::optional<std::vector<std::uint32_t>> children() const;

    /// Reads the row `index` into `columns`, which refer to it until the next call; false when it
    /// is damaged. Pages that the row goes on to come to `overflow`.
    bool readRow(std::size_t index, std::vector<StoredColumn>& columns,
                 std::unordered_set<std::uint32_t>& overflow);

 private:
    [[nodiscard]] std::optional<std::size_t> rowPlace(std::size_t index) const;
    [[nodiscard]] std::size_t bytesOnThisPage(std::size_t size) const;
    bool gather(std::size_t size, std::size_t place, std::unordered_set<std::uint32_t>& overflow);

    const LibraryImage& image_;
    std::string_view bytes_;
    Kind kind_ = Kind::other;
    std::size_t rowCount_ = 0;
    std::string gathered_;
};

}  // namespace elmworth::sqlite
