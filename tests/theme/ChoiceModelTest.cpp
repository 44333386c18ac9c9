// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/ChoiceModel.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

namespace elmworth {
namespace {

class ChoicesTest : public testing::Test {
 protected:
    ChoicesTest() {
        choices.offer({{"EUR", QStringLiteral("EUR — Euro")},
                       {"USD", QStringLiteral("USD — US Dollar")},
                       {"CHF", QStringLiteral("CHF — Swiss Franc")}});
    }
    [[nodiscard]] std::string shown() const {
        std::string texts;
        for (const auto& row : choices.rows()) {
            texts += row.text.toStdString() + (row.isChosen ? "* " : " ");
        }
        return texts;
    }
    Choices<std::string> choices{QStringLiteral("None")};
};

TEST_F(ChoicesTest, noneIsChosenAtFirst) {
    EXPECT_EQ(shown(), "None* EUR — Euro USD — US Dollar CHF — Swiss Franc ");
    EXPECT_EQ(choices.chosen(), std::nullopt);
    EXPECT_FALSE(choices.isSet());
    EXPECT_EQ(choices.title(), QStringLiteral("None"));
}

TEST_F(ChoicesTest, aRowChoosesItsValue) {
    QSignalSpy picked(&choices, &ChoiceModel::picked);
    choices.choose(2);
    EXPECT_EQ(choices.chosen(), "USD");
    EXPECT_EQ(choices.chosenRow(), 2);
    EXPECT_EQ(choices.title(), QStringLiteral("USD — US Dollar"));
    choices.choose(0);
    EXPECT_EQ(choices.chosen(), std::nullopt);
    EXPECT_EQ(picked.size(), 2);
}

TEST_F(ChoicesTest, aValueThatIsNotOfferedStaysChosenUnderItsName) {
    choices.setChosen("XAU", QStringLiteral("Gold"));
    EXPECT_EQ(choices.chosen(), "XAU");
    EXPECT_EQ(choices.title(), QStringLiteral("Gold"));
    EXPECT_EQ(choices.chosenRow(), -1);
    choices.offer({{"XAU", QStringLiteral("XAU — Gold")}});
    EXPECT_EQ(shown(), "None XAU — Gold* ");
}

TEST_F(ChoicesTest, aRowStaysTheSameOneWhereverItMoves) {
    QSignalSpy removed(choices.rowsModel(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(choices.rowsModel(), &QAbstractItemModel::rowsInserted);
    choices.offer({{"USD", QStringLiteral("USD")}, {"EUR", QStringLiteral("EUR")}});
    EXPECT_EQ(removed.size(), 1) << "CHF alone";
    EXPECT_EQ(inserted.size(), 0);
}

TEST(Choices, withoutATextForNoneThereIsNoSuchRow) {
    Choices<int> choices;
    choices.offer({{1, QStringLiteral("one")}});
    EXPECT_EQ(choices.rows().size(), 1U);
    EXPECT_EQ(choices.chosenRow(), -1);
}

}  // namespace
}  // namespace elmworth
