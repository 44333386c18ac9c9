// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>

#include "platform/Instant.h"
#include "records/Client.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// When the first of the client's finished, unbilled entries started, of those that did before
/// `before`; absent without any. By an index of unbilled entries and without records. Throws
/// StoreError.
[[nodiscard]] std::optional<Instant> firstUnbilledStart(UnitOfWork& context,
                                                        const Ref<Client>& client, Instant before);

}  // namespace elmworth
