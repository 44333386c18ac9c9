// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace elmworth {

struct RecordSchema;

/// Why records stay as they are, as the rest of a sentence that begins with "1 entry" or with
/// "3 entries". Each reason is one object, which lives as long as the program.
struct Refusal {
    std::string_view one;
    std::string_view several;
};

/// What an undo or a redo did, and what it left alone.
struct UndoResult {
    struct LeftAlone {
        const Refusal* why;
        const RecordSchema* schema;
        std::size_t count;
    };

    std::size_t changed = 0;  ///< records that were set back
    std::vector<LeftAlone> leftAlone{};
    std::vector<std::string> remarks{};  ///< whole sentences on what else is not as before the step

    /// Counts one more record that is left alone.
    void leave(const RecordSchema& schema, const Refusal& why);
    /// How many were left alone for this reason.
    [[nodiscard]] std::size_t countOf(const Refusal& why) const noexcept;

    /// What the person should know beyond what the screen shows, a sentence for each reason; empty
    /// for nothing.
    [[nodiscard]] std::string notice() const;
};

}  // namespace elmworth
