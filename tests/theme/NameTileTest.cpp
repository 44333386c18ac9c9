// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/NameTile.h"

#include <gtest/gtest.h>

namespace elmworth {
namespace {

TEST(NameHash, isTheSameInEveryRun) {
    EXPECT_EQ(nameHash(QString()), 0U);
    EXPECT_EQ(nameHash(QStringLiteral("a")), 97U);
    EXPECT_EQ(nameHash(QStringLiteral("ab")), 97U * 31 + 98);
    EXPECT_EQ(nameHash(QStringLiteral("Acme Co")), 15634U);
}

TEST(NameHash, countsACharacterOutsideTheBasicPlaneOnce) {
    EXPECT_EQ(nameHash(QStringLiteral("🎉")), 0x1F389U & 0xFFFFU);
}

TEST(NameHash, staysWithinSixteenBits) {
    EXPECT_LE(nameHash(QString(100'000, u'z')), 0xFFFFU);
}

struct Row {
    const char* name;
    const char* text;
    const char* initials;
};

class Initials : public testing::TestWithParam<Row> {};

TEST_P(Initials, standForTheName) {
    EXPECT_EQ(initials(QString::fromUtf8(GetParam().text)).toStdString(), GetParam().initials);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Initials,
    testing::Values(Row{"TwoWords", "Acme Co", "AC"}, Row{"OneWord", "Globex", "G"},
                    Row{"ManyWords", "The Quick Brown Fox", "TQ"},
                    Row{"SmallLetters", "acme co", "AC"}, Row{"Spaces", "  acme \t co  ", "AC"},
                    Row{"Digits", "42 North", "4N"},
                    Row{"SignsBeforeTheLetters", "(acme) & \"co\"", "AC"},
                    Row{"Accents", "e\u0301lan a\u0308hre", "E\u0301A\u0308"},
                    Row{"CapitalOfTwoLetters", "ßtraße", "ß"},
                    Row{"OtherScript", "日本 株式", "日株"},
                    Row{"LettersOutsideTheBasicPlane", "𝒜cme", "𝒜"}, Row{"Empty", "", "?"},
                    Row{"OnlySpaces", "   ", "?"}, Row{"OnlySigns", "--- !", "-"},
                    Row{"JoinedEmoji", "👩‍💻 dev", "D"},
                    Row{"OnlyAnEmoji", "👩‍💻", "👩‍💻"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace elmworth
