// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "livelist/ListSelection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace elmworth {
namespace {

struct Card {
    std::string id;
};
using Lines = PlainRows<Card>;

class PlainSelection : public testing::Test {
 protected:
    static Lines::Rows cards(const std::string& letters) {
        Lines::Rows rows;
        for (const char letter : letters) rows.push_back({std::string(1, letter)});
        return rows;
    }
    [[nodiscard]] std::string selected() const {
        std::string letters;
        for (const auto& row : rows) {
            if (selection.keys().contains(row.id)) letters += row.id;
        }
        return letters;
    }
    void show(const std::string& letters) {
        rows = cards(letters);
        selection.rowsChanged(rows);
    }
    Lines::Rows rows = cards("abcdef");
    ListSelection<Lines> selection;
};

TEST_F(PlainSelection, stepsStopAtTheEnds) {
    EXPECT_EQ(selection.stepFrom(rows, 1), 0U) << "the first, while none is current";
    EXPECT_EQ(selection.stepFrom(rows, -1), 5U);
    selection.select(rows, 4);
    EXPECT_EQ(selection.stepFrom(rows, 1), 5U);
    EXPECT_EQ(selection.stepFrom(rows, 3), 5U);
    EXPECT_EQ(selection.stepFrom(rows, -100), 0U);
    EXPECT_EQ(selection.stepFrom(rows, 0), std::nullopt);
    EXPECT_EQ(selection.stepFrom({}, 1), std::nullopt);
}

TEST_F(PlainSelection, staysWithItsRowsWhereverTheyMove) {
    selection.select(rows, 1);
    selection.toggle(rows, 3);
    show("dxyb");
    EXPECT_EQ(selected(), "db");
    EXPECT_EQ(selection.current(), "d");
    EXPECT_EQ(selection.stepFrom(rows, 1), 1U);
}

TEST_F(PlainSelection, theArrowsGoOnWhereAGoneRowStoodLast) {
    selection.select(rows, 1);
    show("xyabcdef");
    show("xyacdef");
    EXPECT_EQ(selection.stepFrom(rows, 1), 3U) << "c";
    EXPECT_EQ(selection.stepFrom(rows, -1), 2U) << "a";
    selection.clearKeepingPlace();
    EXPECT_EQ(selected(), "");
    EXPECT_EQ(selection.stepFrom(rows, 1), 3U);
    show("xy");
    EXPECT_EQ(selection.stepFrom(rows, 1), 1U);
}

TEST_F(PlainSelection, extendsFromTheRowThatWasSelectedLast) {
    selection.select(rows, 2);
    selection.extendTo(rows, 4);
    EXPECT_EQ(selected(), "cde");
    selection.extendTo(rows, 1);
    EXPECT_EQ(selected(), "bc");
    EXPECT_EQ(selection.current(), "b");
    selection.selectAll(rows);
    EXPECT_EQ(selected(), "abcdef");
    selection.clear();
    EXPECT_EQ(selected(), "");
    EXPECT_EQ(selection.current(), std::nullopt);
}

}  // namespace
}  // namespace elmworth
