// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "store/Record.h"

namespace elmworth {

/// What the delete rules do when a record is deleted. A rule that denies it speaks at the save.
struct Deletion {
    /// The record, and all that are deleted with it.
    std::vector<Ref<Record>> deleted;
    /// The records that point to one of those, with the field that does.
    std::vector<std::pair<Ref<Record>, std::size_t>> nullified;

    /// Throws StoreError when the related records cannot be read.
    [[nodiscard]] static Deletion of(const Ref<Record>& record, UnitOfWork& records);
};

/// Throws StoreError when a rule denies the deletion of `record`, since others still point to it.
void requireDeletable(const Record& record, UnitOfWork& records);

}  // namespace elmworth
