// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "exchange/BackupWriter.h"
#include "records/Client.h"
#include "records/Invoice.h"
#include "records/Project.h"
#include "records/TimeEntry.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// Writes the backup document of a library in small steps: between two of them others may have
/// their turn, as long as the library does not change. Holds neither all entries nor all invoices.
class BackupWalk {
 public:
    /// The most entries that a step hands out; of invoices, which are larger, an eighth. Entries
    /// that began at the same instant may double it.
    static constexpr std::size_t entriesPerStep = 512;

    BackupWalk(UnitOfWork& context, const BusinessProfile& profile, Instant now,
               BackupWriter& writer);

    /// Goes on by one step. False once the document has ended. Throws StoreError, and what the
    /// writer's sink throws.
    bool advance();

    /// What was written so far.
    [[nodiscard]] BackupCounts counts() const noexcept {
        BackupCounts counts = counts_;
        counts.repairedTexts = writer_.repairedTexts();
        return counts;
    }

 private:
    /// An invoice at its place in the document.
    using Place = std::pair<std::string, PersistentID>;  ///< its number first
    struct Before {
        bool operator()(const Place& a, const Place& b) const;
    };
    using Step = void (BackupWalk::*)();

    void begin();
    void sortInvoices();
    void beginClient();
    void beginProject();
    void visitEntries();
    void beginInvoices();
    void visitInvoices();
    void end();

    [[nodiscard]] const BackupObject& entryObject(const TimeEntry& entry);
    [[nodiscard]] BackupObject invoiceObject(const Invoice& invoice) const;

    UnitOfWork& context_;
    BusinessProfile profile_;
    Instant now_;
    BackupWriter& writer_;
    BackupCounts counts_;
    Step next_ = &BackupWalk::begin;  ///< null at the end

    std::unordered_map<PersistentID, std::string> invoiceNumbers_;
    std::unordered_map<PersistentID, std::string>::const_iterator nextToSort_;
    std::set<Place, Before> invoices_;
    std::set<Place, Before>::const_iterator nextInvoice_;

    std::vector<Ref<Client>> clients_;
    std::unordered_map<PersistentID, std::int64_t> clientIndexes_;
    std::size_t nextClient_ = 0;
    BackupObject client_{backupShapes().client};
    std::vector<Ref<Project>> projects_;  ///< of the client
    std::size_t nextProject_ = 0;
    BackupObject project_{backupShapes().project};
    BackupObject entry_{backupShapes().entry};
    std::optional<Instant> lastStart_;  ///< of the entries of the project that were handed out
    std::size_t countAtLastStart_ = 0;  ///< how many of them began then
};

}  // namespace elmworth
