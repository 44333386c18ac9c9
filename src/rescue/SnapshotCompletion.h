// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "rescue/Salvage.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// Where the records of a type come from.
struct RecoveredCounts {
    std::size_t fromLibrary = 0;
    std::size_t fromIndexes = 0;   ///< of the library: times and links, without texts
    std::size_t fromSnapshot = 0;  ///< also those of which the library only knows that they were
    std::size_t unknown = 0;       ///< stand-ins for what nothing tells of

    friend bool operator==(const RecoveredCounts&, const RecoveredCounts&) = default;
};

/// Makes what was salvaged whole.
///
/// What the library still has, holds. From the snapshot comes what the library points to and lacks;
/// notes and rates of entries of which only the indexes told; and, where pages are damaged, all
/// that the library does not show: it may have been on one of them. An entry of the snapshot that
/// begins in the same second as one of the library is that one, and one that overlaps time of the
/// library stays away, so that no time counts twice. What nothing tells of gets a stand-in, so that
/// time keeps its project, and billed time is not billed again.
class SnapshotCompletion {
 public:
    explicit SnapshotCompletion(Salvaged& found);

    /// `snapshot` is a library that holds the snapshot.
    void addSnapshot(UnitOfWork& snapshot);
    /// Comes last: stand-ins, one timer at most, and a number for each invoice.
    void finish();

    /// Whether the library lacks something that a snapshot may have.
    [[nodiscard]] bool needsSnapshot() const;
    /// In the order of the schema.
    [[nodiscard]] const std::array<RecoveredCounts, 4>& counts() const noexcept { return counts_; }

 private:
    using IDs = std::unordered_map<PersistentID, PersistentID>;
    void indexEntries();
    [[nodiscard]] std::vector<TimeEntry*> entriesOf(Instant start) const;
    [[nodiscard]] PersistentID matchProject(const Project& project,
                                            const std::vector<Ref<TimeEntry>>& entries) const;
    [[nodiscard]] PersistentID matchClient(const Client& client) const;
    [[nodiscard]] PersistentID matchInvoice(const Invoice& invoice) const;
    void addClients(UnitOfWork& snapshot);
    void addProjects(UnitOfWork& snapshot);
    void addInvoices(UnitOfWork& snapshot);
    void addEntries(UnitOfWork& snapshot);
    void addEntry(const TimeEntry& entry);
    [[nodiscard]] bool overlapsTime(Instant start, Instant end) const;
    void tellOfAddition(const Record& record);
    bool addTo(const std::vector<TimeEntry*>& same, const TimeEntry& entry);

    void standInForProjects();
    void standInForClients();
    void standInForInvoices();
    void describeInvoices();
    void tellOfLostRates();
    void keepRules(const RecordSchema& schema, Record& record);
    void keepOneTimer();
    void keepNumbersApart();
    Ref<Client> unknownClient(const PersistentID& id);

    Salvaged& found_;
    std::array<RecoveredCounts, 4> counts_;
    std::unordered_multimap<std::int64_t, TimeEntry*> entriesByStart_;  ///< in whole seconds
    /// The time of the library in the order of its start, each with the latest end so far.
    std::vector<std::pair<Instant, Instant>> busy_;
    std::unordered_map<PersistentID, std::vector<Ref<TimeEntry>>> snapshotEntries_;  ///< by project
    std::unordered_map<std::string, PersistentID> invoicesByNumber_;
    std::size_t overlapping_ = 0;
    IDs clients_, projects_, invoices_;  ///< of the snapshot: which of the library they are
};

}  // namespace elmworth
