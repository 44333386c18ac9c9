// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>
#include <unordered_map>

#include "platform/LocalizedSearch.h"
#include "records/Project.h"

namespace elmworth {

/// What somebody typed to find entries by. For one pass over many entries: it remembers which
/// projects bear the text, and is made anew when names may have changed.
class TimesheetSearch {
 public:
    /// Blanks around `typed` do not count.
    explicit TimesheetSearch(std::string_view typed);

    /// Whether nothing is looked for, so that every entry is found.
    [[nodiscard]] bool isEmpty() const noexcept { return isEmpty_; }

    /// Whether the text stands in the notes of an entry, in its project's name or in that of the
    /// project's client. `project` may be null.
    [[nodiscard]] bool finds(std::string_view notes, const Ref<Project>& project) const;

 private:
    [[nodiscard]] bool isNamedSo(const Ref<Project>& project) const;

    bool isEmpty_;
    LocalizedSearch search_;
    mutable std::unordered_map<const Project*, bool> projects_;
};

}  // namespace elmworth
