// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/UndoHistory.h"

namespace elmworth {

void UndoHistory::perform(const std::string& /*name*/, const std::function<void()>& change) {
    // What waits from an earlier save that failed is not this step's to take back.
    if (context_.hasChanges()) context_.save();
    try {
        change();
        context_.save();
    } catch (...) {
        context_.rollback();
        throw;
    }
}

}  // namespace elmworth
