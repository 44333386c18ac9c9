// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>
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

    /// Those, in their order, in whose texts `typed` without blanks at its ends stands in the
    /// manner of the user's locale, regardless of case.
    [[nodiscard]] std::vector<PersistentID> matches(std::string_view typed) const;

 private:
    struct Texts {
        PersistentID client;
        std::vector<std::string> all;
    };

    std::vector<Texts> texts_;
};

}  // namespace elmworth
