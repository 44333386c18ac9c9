// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <string>

namespace elmworth {

/// What an undo or a redo did, and what it left alone.
struct UndoResult {
    std::size_t changed = 0;           ///< entries that were set back
    std::size_t billed = 0;            ///< left alone: on an invoice by now
    std::size_t changedElsewhere = 0;  ///< left alone: changed, deleted or added again since
    bool timerStaysStopped = false;    ///< an entry that ran is ended: time was tracked since

    /// What the person should know beyond what the screen shows, as sentences; empty for nothing.
    [[nodiscard]] std::string notice() const;

    friend bool operator==(const UndoResult&, const UndoResult&) = default;
};

}  // namespace elmworth
