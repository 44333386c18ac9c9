// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "livelist/RowMove.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/Rows.h"

namespace elmworth {
namespace {

using Order = std::vector<std::size_t>;

Order afterMoves(Order order, const std::vector<RowMove>& moves) {
    for (const auto [from, to] : moves) {
        const std::size_t value = order[from];
        order.insert(order.begin() + static_cast<std::ptrdiff_t>(to), value);
        order.erase(order.begin() + static_cast<std::ptrdiff_t>(from < to ? from : from + 1));
    }
    return order;
}

struct Rearrangement {
    const char* name;
    Order order;
    std::size_t moves;
};
class MovesIntoOrder : public testing::TestWithParam<Rearrangement> {};

TEST_P(MovesIntoOrder, areAsFewAsPossible) {
    auto sorted = GetParam().order;
    std::sort(sorted.begin(), sorted.end());
    const auto moves = movesIntoOrder(GetParam().order);
    EXPECT_EQ(afterMoves(GetParam().order, moves), sorted);
    EXPECT_EQ(moves.size(), GetParam().moves);
    EXPECT_EQ(moveCountIntoOrder(GetParam().order), GetParam().moves);
}

INSTANTIATE_TEST_SUITE_P(Rows, MovesIntoOrder,
                         testing::Values(Rearrangement{"none", {}, 0}, Rearrangement{"one", {4}, 0},
                                         Rearrangement{"inOrder", {0, 2, 5, 9}, 0},
                                         Rearrangement{"firstToTheEnd", {3, 0, 1, 2}, 1},
                                         Rearrangement{"lastToTheFront", {1, 2, 3, 0}, 1},
                                         Rearrangement{"twoSwapped", {1, 0, 2, 3}, 1},
                                         Rearrangement{"endsSwapped", {3, 1, 2, 0}, 2},
                                         Rearrangement{"reversed", {4, 3, 2, 1, 0}, 4},
                                         Rearrangement{"halvesSwapped", {3, 4, 5, 0, 1, 2}, 3}),
                         test::rowName);

TEST(RowMove, allArrangementsOfSixRowsComeIntoOrder) {
    Order order{0, 1, 2, 3, 4, 5};
    const Order sorted = order;
    do {
        const auto moves = movesIntoOrder(order);
        ASSERT_EQ(afterMoves(order, moves), sorted);
        ASSERT_EQ(moveCountIntoOrder(order), moves.size());
    } while (std::next_permutation(order.begin(), order.end()));
}

}  // namespace
}  // namespace elmworth
