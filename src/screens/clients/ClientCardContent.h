// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "invoicing/ProjectTimes.h"
#include "records/Client.h"
#include "records/Project.h"

namespace elmworth {

/// What a client's card is made of.
struct ClientCardContent {
    struct LastInvoice {
        std::string number;
        Instant issueDate;
    };

    Ref<Client> client;
    std::vector<Ref<Project>> activeProjects;  ///< by name
    UnbilledTime unbilled;                     ///< of the archived ones too
    std::optional<LastInvoice> lastInvoice;    ///< the one with the latest issue date

    /// Reads that of `client`, with time from `times`. What can't be read is left out.
    [[nodiscard]] static ClientCardContent of(const Ref<Client>& client, UnitOfWork& context,
                                              ProjectTimes& times);
};

}  // namespace elmworth
