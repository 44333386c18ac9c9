// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "records/Client.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// What clients are found by: their names and e-mail addresses, and the names of their projects,
/// archived ones too. Read once, so that a key typed costs no more than to look through it.
class ClientSearch {
 public:
    /// Reads what `clients` are found by.
    ClientSearch(UnitOfWork& context, const std::vector<Ref<Client>>& clients);

    /// The places of those in `clients` in which `typed`, without blanks at its ends, stands in the
    /// manner of the user's locale, regardless of case.
    [[nodiscard]] std::vector<std::size_t> matches(std::string_view typed) const;

 private:
    std::vector<std::vector<std::string>> texts_;  ///< of each client
};

}  // namespace elmworth
