// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <filesystem>

#include "platform/Instant.h"

namespace elmworth::bench {

/// The measures of a generated library: a freelancer's whole working life up to `now`, one timer
/// running.
struct LibraryShape {
    std::size_t entries;      ///< the running one among them
    std::size_t clients;      ///< over all the years
    std::size_t busyClients;  ///< that have work in the same month, each then billed once
    std::size_t projectsPerClient;
    double entriesPerDay;  ///< of a working day, in the mean
    Instant now;

    /// Five entries a working day, and two new clients a year. What does not fit into 20 years
    /// makes the days denser: 200,000 entries give 40 clients, 400 projects and some 2,400
    /// invoices.
    [[nodiscard]] static LibraryShape ofEntries(std::size_t entries, Instant now);
};

/// Makes the library `file`, which must not exist, with the store that the program itself writes
/// with. Equal shapes give equal records with equal identities. The work is done in Berlin, also at
/// night when the clocks change; all finished months are billed, the present one is not.
void generateLibrary(const std::filesystem::path& file, const LibraryShape& shape);

}  // namespace elmworth::bench
