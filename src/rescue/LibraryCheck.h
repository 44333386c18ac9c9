// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Progress.h"
#include "store/PersistentID.h"
#include "store/sqlite/LibraryImage.h"

namespace elmworth {

/// Something in a library that should not be.
struct Finding {
    std::string record;              ///< what it is about: "Client “Acme”", "The file"
    std::optional<PersistentID> id;  ///< of that record; absent when it is about none
    std::string problem;             ///< "ends before it starts"

    /// "Client “Acme”: rate is -500, below 0."
    [[nodiscard]] std::string line() const { return record + ": " + problem + '.'; }
    friend bool operator==(const Finding&, const Finding&) = default;
};

struct LibraryReport {
    std::uint32_t version = 0;             ///< 1'02'00 is 1.2.0
    std::array<std::size_t, 4> records{};  ///< how many can be read, in the order of the schema
    std::vector<Finding> findings;
};

/// Verifies a library: its pages, tables and indexes; that all that records point to is there; that
/// their values are such as the program stores; that at most one timer runs; and that the figures
/// of each invoice can be told, and are the same when they are computed in two ways. One of an
/// older version is looked at as it is. Throws StoreError for one of a newer version, and
/// Cancelled.
[[nodiscard]] LibraryReport checkLibrary(const sqlite::LibraryImage& image,
                                         Progress& progress = noProgress());

}  // namespace elmworth
