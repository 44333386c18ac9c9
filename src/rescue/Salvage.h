// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/Progress.h"
#include "records/Client.h"
#include "records/Invoice.h"
#include "records/Project.h"
#include "records/TimeEntry.h"
#include "store/sqlite/LibraryImage.h"

namespace elmworth {

template <class T>
using RecordsByID = std::map<PersistentID, Ref<T>>;

/// What the indexes of a library still say of records whose own rows are lost.
struct IndexRows {
    struct Span {
        std::optional<PersistentID> project;
        std::int64_t start;  ///< in microseconds since 1970
        std::optional<std::int64_t> end;
    };
    std::unordered_map<PersistentID, Span> entries;
    std::unordered_map<PersistentID, PersistentID> owners;  ///< client of a project, invoice of …
    std::unordered_map<PersistentID, std::string> numbers;  ///< of invoices
    std::unordered_map<PersistentID, std::int64_t> dates;   ///< when they were issued
};

/// What can be read of a library, in no context.
struct Salvaged {
    RecordsByID<Client> clients;
    RecordsByID<Project> projects;
    RecordsByID<TimeEntry> entries;
    RecordsByID<Invoice> invoices;
    /// Entries and invoices of which the indexes alone told: without notes, rates and figures.
    std::unordered_set<PersistentID> rebuilt;
    IndexRows index;
    std::size_t pages = 0;
    std::size_t damagedPages = 0;
    std::vector<std::string> remarks;  ///< sentences on what was set right

    /// Whether something is known to be lost, or may be.
    [[nodiscard]] bool isIncomplete() const { return damagedPages > 0; }
};

/// Reads the rows of all pages. A value that can't stand becomes the nearest one that can, and of
/// an entry, an invoice or a relationship whose row is lost the indexes tell what they know. What
/// records point to may still be missing. Throws StoreError for a library of a newer version with
/// parts that this one does not know, and Cancelled.
[[nodiscard]] Salvaged salvage(const sqlite::LibraryImage& image, Progress& progress);

}  // namespace elmworth
