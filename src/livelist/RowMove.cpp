// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "livelist/RowMove.h"

#include <algorithm>

namespace elmworth {

namespace {

using Order = std::vector<std::size_t>;

/// The values outside one longest increasing subsequence, in ascending order. Found by patience
/// sorting: `ends[n]` is where the subsequence of n + 1 values with the smallest last value ends.
Order valuesOutOfOrder(const Order& values) {
    const std::size_t none = values.size();
    Order ends;
    Order before(values.size(), none);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto end =
            std::lower_bound(ends.begin(), ends.end(), values[i],
                             [&](std::size_t at, std::size_t value) { return values[at] < value; });
        if (end != ends.begin()) before[i] = *(end - 1);
        if (end == ends.end()) {
            ends.push_back(i);
        } else {
            *end = i;
        }
    }
    std::vector<bool> stays(values.size(), false);
    for (std::size_t i = ends.empty() ? none : ends.back(); i != none; i = before[i]) {
        stays[i] = true;
    }
    Order movers;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!stays[i]) movers.push_back(values[i]);
    }
    std::sort(movers.begin(), movers.end());
    return movers;
}

/// The move that puts `value` behind the greatest one below it. All that are below it stand in
/// order.
RowMove moveOf(std::size_t value, const Order& order) {
    RowMove move;
    std::size_t greatest = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (order[i] == value) move.from = i;
        if (order[i] < value && order[i] >= greatest) {
            greatest = order[i];
            move.to = i + 1;
        }
    }
    return move;
}

void apply(const RowMove& move, Order& order) {
    const auto at = [&](std::size_t i) { return order.begin() + static_cast<std::ptrdiff_t>(i); };
    if (move.from < move.to) {
        std::rotate(at(move.from), at(move.from + 1), at(move.to));
    } else {
        std::rotate(at(move.to), at(move.from), at(move.from + 1));
    }
}

}  // namespace

std::size_t moveCountIntoOrder(const Order& order) {
    return valuesOutOfOrder(order).size();
}

std::vector<RowMove> movesIntoOrder(Order order) {
    std::vector<RowMove> moves;
    for (const std::size_t value : valuesOutOfOrder(order)) {
        const RowMove move = moveOf(value, order);
        if (move.to == move.from || move.to == move.from + 1) continue;
        apply(move, order);
        moves.push_back(move);
    }
    return moves;
}

}  // namespace elmworth
