// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/Project.h"
#include "store/UnitOfWork.h"
#include "tracking/TimerService.h"

namespace elmworth {

/// Whether any entry of `project` is on an invoice. Throws StoreError.
[[nodiscard]] bool hasInvoicedTime(const Project& project);

/// Deletes `project` with its entries, or archives it when it has invoiced time, and saves. A
/// failed save stays pending. Gives whether it was deleted.
bool deleteOrArchiveProject(const Ref<Project>& project, UnitOfWork& context, TimerService& timer);

}  // namespace elmworth
