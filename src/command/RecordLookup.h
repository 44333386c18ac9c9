// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

#include "records/Client.h"
#include "records/Invoice.h"
#include "records/Project.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// Finds records by the names that people type, without regard to case and to how characters are
/// composed. A name that fits none or several throws CommandError with the candidates.
[[nodiscard]] Ref<Client> findClient(UnitOfWork& context, const std::string& name);
/// Whether there is a client of that name, or several.
[[nodiscard]] bool hasClient(UnitOfWork& context, const std::string& name);

/// The project called `name`; `clientName` narrows the search unless it is empty.
[[nodiscard]] Ref<Project> findProject(UnitOfWork& context, const std::string& name,
                                       const std::string& clientName = {});

/// The invoice with exactly that number, however its characters are composed. Throws CommandError
/// when there is none.
[[nodiscard]] Ref<Invoice> findInvoice(UnitOfWork& context, const std::string& number);

}  // namespace elmworth
