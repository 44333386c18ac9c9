// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Text.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/Rows.h"

namespace elmworth {
namespace {

using test::rowName;
using namespace std::string_literals;

struct CharacterRow {
    const char* name;
    std::string text;
    std::size_t count;
    std::string firstTwo;
};

void PrintTo(const CharacterRow& row, std::ostream* out) {
    *out << row.name;
}

class Characters : public testing::TestWithParam<CharacterRow> {};

/// The UTF-8 of a code point below U+10000.
std::string encoded(unsigned c) {
    const auto byte = [](unsigned value) { return std::string(1, static_cast<char>(value)); };
    if (c < 0x80) return byte(c);
    if (c < 0x800) return byte(0xC0 | c >> 6) + byte(0x80 | (c & 0x3F));
    return byte(0xE0 | c >> 12) + byte(0x80 | (c >> 6 & 0x3F)) + byte(0x80 | (c & 0x3F));
}

TEST(CharacterCount, ofTextsWithoutClustersIsThatOfTheRulesForClusters) {
    const std::string hangul = "\u1100";  // a text with it goes the long way
    std::string previous = "a";
    for (unsigned c = 1; c < 0x2200; ++c) {
        const std::string text = previous + encoded(c) + "b";
        ASSERT_EQ(characterCount(text), characterCount(text + " " + hangul) - 2) << std::hex << c;
        previous = encoded(c);
    }
    EXPECT_EQ(characterCount("\xC3"), 1U);
    EXPECT_EQ(characterCount("a\xE2\x82"), characterCount("a\xE2\x82 " + hangul) - 2);
}

TEST_P(Characters, areCountedAsPeoplePerceiveThem) {
    EXPECT_EQ(characterCount(GetParam().text), GetParam().count);
}

TEST_P(Characters, areNeverCutInTheMiddle) {
    EXPECT_EQ(firstCharacters(GetParam().text, 2), GetParam().firstTwo);
}

INSTANTIATE_TEST_SUITE_P(Row, Characters,
                         testing::ValuesIn(std::vector<CharacterRow>{
                             {"Empty", "", 0, ""},
                             {"Letters", "abc", 3, "ab"},
                             {"FewerThanAsked", "a", 1, "a"},
                             {"Umlauts", "äöü", 3, "äö"},
                             {"CombiningAccents", "e\u0301e\u0301e\u0301", 3, "e\u0301e\u0301"},
                             {"Family", "👨‍👩‍👧‍👦!", 2,
                              "👨‍👩‍👧‍👦!"},
                             {"Flags", "🇩🇪🇺🇸🇫🇷", 3, "🇩🇪🇺🇸"},
                             {"SkinTones", "👍🏽👍🏿👍", 3, "👍🏽👍🏿"},
                             {"HangulSyllables", "각각각", 3, "각각"},
                             {"CarriageReturnAndLineFeed", "\r\na\r\n", 3, "\r\na"},
                             {"LineFeeds", "\n\n\n", 3, "\n\n"},
                             {"NotUTF8",
                              "a\xff"
                              "b",
                              3, "a\xff"},
                         }),
                         rowName);

TEST(Text, firstNoneIsEmpty) {
    EXPECT_EQ(firstCharacters("äöü", 0), "");
    EXPECT_EQ(firstCharacters("abc", 0), "");
}

TEST(Text, trimmedBlanksLeavesLineBreaks) {
    EXPECT_EQ(trimmedBlanks(" \t a b \t"), "a b");
    EXPECT_EQ(trimmedBlanks(" \na\n "), "\na\n");
    EXPECT_EQ(trimmedBlanks(" \t "), "");
    EXPECT_EQ(trimmedBlanks(""), "");
}

TEST(Text, trimmedWhitespaceTakesAllUnicodeWhiteSpace) {
    EXPECT_EQ(trimmedWhitespace(" \t\r\n\u00a0\u2003a b\u2028\u3000\n "), "a b");
    EXPECT_EQ(trimmedWhitespace("\u00a0\n"), "");
    EXPECT_EQ(trimmedWhitespace(""), "");
    EXPECT_EQ(trimmedWhitespace("ä"), "ä");
}

TEST(Text, numericCharactersAreThoseOfAnyScript) {
    EXPECT_EQ(numericCharacters(" $ 1,200.50 -x"), "120050");
    EXPECT_EQ(numericCharacters(" $ 1,200.50 -x", ".,"), "1,200.50");
    EXPECT_EQ(numericCharacters("٣½²Ⅷ一𝟙aé👍"), "٣½²Ⅷ一𝟙");
    EXPECT_EQ(numericCharacters(""), "");
}

TEST(Text, caseFoldingMakesSpellingsEqual) {
    EXPECT_EQ(caseFolded("STRASSE"), caseFolded("straße"));
    EXPECT_EQ(caseFolded("ΣΊΣΥΦΟΣ"), caseFolded("σίσυφος"));
    EXPECT_EQ(caseFolded("Ärger 7"), "ärger 7");
    EXPECT_EQ(caseFolded(""), "");
}

TEST(Text, canonicalFormsCaseFoldingsAndLowerCaseAreEqualForEquivalentTexts) {
    const std::pair<const char*, const char*> equivalents[] = {
        {"Caf\u00c9", "CafE\u0301"},  // one code point and two
        {"\u212b", "A\u030a"},        // three spellings of one letter
        {"\u1ed8", "O\u0302\u0323"},  // marks in another order
        {"\uac00", "\u1100\u1161"},   // a syllable and its parts
        {"\u0130", "I\u0307"},       {"\u1fb3", "\u03b1\u0345"}, {"\u212a", "K"},
    };
    for (const auto& [one, other] : equivalents) {
        EXPECT_EQ(canonical(one), canonical(other)) << one;
        EXPECT_EQ(caseFolded(one), caseFolded(other)) << one;
        EXPECT_EQ(lowerCased(one), lowerCased(other)) << one;
    }
    EXPECT_EQ(canonical("Cafe\u0301"), "Caf\u00e9");
    EXPECT_EQ(lowerCased("CAFE\u0301"), "caf\u00e9");
    // Alike, but not equivalent.
    EXPECT_NE(canonical("\ufb01"), canonical("fi"));
    EXPECT_NE(canonical("Cafe"), canonical("Caf\u00e9"));
    EXPECT_NE(canonical("a\xff"), canonical("a\xfe"));
}

TEST(Text, longTextsAreComposedAsShortOnesAre) {
    for (std::string before; before.size() < 4; before += 'x') {
        std::string one = before;
        std::string other = before;
        for (int i = 0; i < 2000; ++i) {
            one += "\u1ed8\uac00";
            other += "O\u0302\u0323\u1100\u1161";
        }
        EXPECT_EQ(canonical(other), one);
        EXPECT_EQ(lowerCased(other), lowerCased(one));
    }
}

// All at once, they took a minute of processor time.
TEST(Text, marksWithoutEndAreComposedInTimeThatGrowsAsTheyDo) {
    std::string marks = "a";
    for (int i = 0; i < 150'000; ++i) marks += "\u0301\u0316";
    EXPECT_EQ(lowerCased(marks).size(), marks.size() - 1);  // of which the first makes "á"
}

TEST(Text, onlyUTF8IsUTF8) {
    for (const char* text : {"", "plain", "Z\u00fcrich", "\U0001f44d"})
        EXPECT_TRUE(isUTF8(text)) << text;
    for (const char* text : {"caf\xe9", "\xed\xa0\x80", "cut \xf0\x9f\x91", "\xc0\x80"})
        EXPECT_FALSE(isUTF8(text)) << text;
}

TEST(Text, validUTF8ReplacesOnlyWhatIsNot) {
    EXPECT_EQ(validUTF8("Zürich 👍"), "Zürich 👍");
    EXPECT_EQ(validUTF8("a\xff"
                        "b"),
              "a\ufffd"
              "b");
    EXPECT_EQ(validUTF8("caf\xc3"), "caf\ufffd");
    EXPECT_EQ(validUTF8("a\0b"s), "a\0b"s);
}

TEST(Text, aLoneSurrogateIsNoticedAndNothingElse) {
    EXPECT_TRUE(holdsLoneSurrogate("\xED\xA0\x80"));
    EXPECT_TRUE(holdsLoneSurrogate("a\xED\xBF\xBF"));
    EXPECT_FALSE(holdsLoneSurrogate("\uD7FF\uE000 😀 í"));
    EXPECT_FALSE(holdsLoneSurrogate(""));
}

struct OneLineRow {
    const char* name;
    std::string_view text;
    std::string_view line;
};

class OneLine : public testing::TestWithParam<OneLineRow> {};

TEST_P(OneLine, hasABlankForWhatBreaksOrSteers) {
    EXPECT_EQ(oneLine(GetParam().text), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(, OneLine,
                         testing::Values(OneLineRow{"Nothing", "", ""},
                                         OneLineRow{"Plain", "Logo, v2", "Logo, v2"},
                                         OneLineRow{"LineBreaks", "a\r\nb\tc", "a  b c"},
                                         OneLineRow{"Escape", "\x1b[31mred\x7f", " [31mred "},
                                         OneLineRow{"Nul", std::string_view("a\0b", 3), "a b"},
                                         OneLineRow{"TerminalControl", "\u009b31m", " 31m"},
                                         OneLineRow{"NoBreakSpaceStays", "a\u00a0b", "a\u00a0b"},
                                         OneLineRow{"OtherScripts", "日本語 é 👩‍👧",
                                                    "日本語 é 👩‍👧"},
                                         OneLineRow{"HalfACharacter", "a\xc2", "a\xc2"}),
                         test::rowName);

}  // namespace
}  // namespace elmworth
