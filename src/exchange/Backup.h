// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Instant.h"
#include "records/BusinessProfile.h"

namespace elmworth {

// The records of a backup document, one for each level of it. docs/backup-format.md describes the
// document for others. Instants are whole seconds.

struct EntryDTO {
    Instant start;
    std::optional<Instant> end;  ///< absent on an entry that was running
    std::string notes;
    std::optional<std::string> invoiceNumber;  ///< absent on unbilled time
    std::optional<std::int64_t> billedRateCents;

    friend bool operator==(const EntryDTO&, const EntryDTO&) = default;
};

struct ProjectDTO {
    std::string name;
    std::string colorHex;
    std::optional<std::int64_t> rateOverrideCents;
    bool isArchived = false;
    std::optional<std::int64_t> budgetHours;
    std::vector<EntryDTO> entries;

    friend bool operator==(const ProjectDTO&, const ProjectDTO&) = default;
};

struct ClientDTO {
    std::string name;
    std::string email;
    std::string address;
    std::string currencyCode;
    std::int64_t hourlyRateCents = 0;
    std::optional<std::int64_t> dueDays;
    std::optional<std::int64_t> taxBasisPoints;
    std::vector<ProjectDTO> projects;

    friend bool operator==(const ClientDTO&, const ClientDTO&) = default;
};

struct InvoiceDTO {
    std::string number;
    std::string client;  ///< the client's name; empty for none
    std::string status;
    std::string currencyCode;
    std::string notes;
    Instant issueDate;
    Instant dueDate;
    Instant periodStart;
    Instant periodEnd;
    std::int64_t taxRateBasisPoints = 0;
    std::int64_t roundingMinutes = 0;
    std::optional<Instant> paidAt;
    std::optional<bool> showsEntryDetails;
    std::optional<BusinessProfile> business;  ///< the profile frozen on the invoice
    std::optional<std::int64_t> clientIndex;  ///< the client's position in the document

    friend bool operator==(const InvoiceDTO&, const InvoiceDTO&) = default;
};

/// How much a document holds.
struct BackupCounts {
    std::size_t clients = 0;
    std::size_t projects = 0;
    std::size_t entries = 0;
    std::size_t invoices = 0;
    std::size_t repairedTexts = 0;  ///< damaged ones, which stand with U+FFFD in the document

    friend bool operator==(const BackupCounts&, const BackupCounts&) = default;
};

struct Backup {
    std::int64_t version = 1;
    Instant exportedAt;
    BusinessProfile profile;
    std::vector<ClientDTO> clients;
    std::vector<InvoiceDTO> invoices;

    friend bool operator==(const Backup&, const Backup&) = default;
};

}  // namespace elmworth
