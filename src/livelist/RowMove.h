// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <vector>

namespace elmworth {

/// Takes the row at `from` out and puts it in before the row that stood at `to`. Both count from
/// the state before the move; `to` may be the number of rows, and is neither `from` nor `from` + 1.
struct RowMove {
    std::size_t from = 0;
    std::size_t to = 0;
};

/// The fewest moves, one after another, that put rows into order whose places to be are `order`.
/// The values are distinct.
[[nodiscard]] std::vector<RowMove> movesIntoOrder(std::vector<std::size_t> order);

/// How many these are, found without carrying them out.
[[nodiscard]] std::size_t moveCountIntoOrder(const std::vector<std::size_t>& order);

}  // namespace elmworth
