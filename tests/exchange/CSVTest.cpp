// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "exchange/CSVDocument.h"
#include "exchange/ReferenceTokenizer.h"
#include "platform/TextEncoding.h"
#include "support/Instants.h"

namespace elmworth {
namespace {

using test::at;
using test::Rows;
using test::tokenize;

TEST(CSVTokenizer, linesEndAtEveryKindOfBreak) {
    EXPECT_EQ(tokenize("a,b\nc\r\nd\re"), (Rows{{"a", "b"}, {"c"}, {"d"}, {"e"}}));
}

TEST(CSVTokenizer, blankLinesVanish) {
    EXPECT_EQ(tokenize("a\n\n\r\n\rb\n"), (Rows{{"a"}, {"b"}}));
}

TEST(CSVTokenizer, quotesHoldCommasAndBreaks) {
    EXPECT_EQ(tokenize("\"a,b\r\nc\",d"), (Rows{{"a,b\r\nc", "d"}}));
}

TEST(CSVTokenizer, aDoubledQuoteIsOne) {
    EXPECT_EQ(tokenize("\"a\"\"b\""), (Rows{{"a\"b"}}));
}

TEST(CSVTokenizer, aQuoteMayBeginInTheMiddleOfAField) {
    EXPECT_EQ(tokenize("a\"b,c\"d,e"), (Rows{{"ab,cd", "e"}}));
}

TEST(CSVTokenizer, aQuoteThatIsNeverClosedQuotesTheRest) {
    EXPECT_EQ(tokenize("a,\"b,c\nd"), (Rows{{"a", "b,c\nd"}}));
}

TEST(CSVTokenizer, aTrailingCommaLeavesAnEmptyField) {
    EXPECT_EQ(tokenize("a,\n,"), (Rows{{"a", ""}, {"", ""}}));
}

TEST(CSVTokenizer, aCommaWithACombiningAccentIsText) {
    EXPECT_EQ(tokenize("a,\xCC\x81"
                       "b,c"),
              (Rows{{"a,\xCC\x81"
                     "b",
                     "c"}}));
}

TEST(CSVTokenizer, agreesWithASimpleReaderOfCharactersOnAnyText) {
    const std::vector<std::string> pieces{
        "a",        ",", "\"",           "\r", "\n", "é",  "\xCC\x81", "\xE2\x80\x8D",
        "\xD8\x80", "😀", "\xE0\xA4\xBE", " ",  "🇩",  "\t", "b\"\""};
    std::mt19937 random(20260321);
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (std::size_t i = random() % 12; i > 0; --i) text += pieces[random() % pieces.size()];
        ASSERT_EQ(tokenize(text), test::tokenizeByReference(text)) << testing::PrintToString(text);
    }
}

TEST(CSVDocument, fieldsAreQuotedOnlyWhereTheyMustBe) {
    EXPECT_EQ(csvField("plain"), "plain");
    EXPECT_EQ(csvField("a,b"), "\"a,b\"");
    EXPECT_EQ(csvField("a\"b"), "\"a\"\"b\"");
    EXPECT_EQ(csvField("\n"), "\"\n\"");
    EXPECT_EQ(csvField("a\rb"), "\"a\rb\"");
    EXPECT_EQ(csvField("a\r\nb"), "a\r\nb");
    EXPECT_EQ(csvField("a\n\r\nb"), "\"a\n\r\nb\"");
    EXPECT_EQ(csvField("a,\xCC\x81"), "a,\xCC\x81");
}

TEST(CSVDocument, onlyAQuoteThatIsAWholeCharacterIsDoubled) {
    EXPECT_EQ(csvField("q\"\xCC\x88"), "q\"\xCC\x88");
    EXPECT_EQ(csvField("q\"\xCC\x88, x, y"), "\"q\"\xCC\x88, x, y\"");
    EXPECT_EQ(csvField("\"\"\xCC\x88\""), "\"\"\"\"\xCC\x88\"\"\"");
    EXPECT_EQ(csvField("\xD8\x80\", x"), "\"\xD8\x80\", x\"");
}

TEST(CSVDocument, whateverAFieldHoldsItIsReadBackWithTheFieldsAroundIt) {
    const std::vector<std::string> pieces{"\"", "\"\xCC\x88", ",", ",\xCC\x81", "\n", "x, y",
                                          "é",  "\xD8\x80\"", "a", "👍\"",       " "};
    std::mt19937 random(20260322);
    for (int round = 0; round < 20'000; ++round) {
        std::string value = "a";
        for (std::size_t i = random() % 8; i > 0; --i) value += pieces[random() % pieces.size()];
        value += "z";
        ASSERT_EQ(tokenize("1," + csvField(value) + ",2\r\nnext"),
                  (Rows{{"1", value, "2"}, {"next"}}))
            << testing::PrintToString(value);
    }
}

std::string documentOf(const std::string& zone, Instant start, Instant end) {
    std::string text;
    CSVDocument document(zone, [&](std::string_view piece) { text += piece; });
    document.add(start, end, "Acme", "Web", "");
    document.finish();
    return text;
}

TEST(CSVDocument, withoutEntriesItIsTheHeader) {
    std::string text;
    CSVDocument("UTC", [&](std::string_view piece) { text += piece; }).finish();
    EXPECT_EQ(text, "Date,Start,End,Client,Project,Notes,Hours\r\n");
}

TEST(CSVDocument, hoursAreExactWithAPoint) {
    EXPECT_THAT(documentOf("UTC", at("2026-03-01T09:00Z"), at("2026-03-01T09:01:30Z")),
                testing::EndsWith(",0.03\r\n"));
    EXPECT_THAT(documentOf("UTC", at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z")),
                testing::EndsWith(",1.00\r\n"));
}

TEST(CSVDocument, dateAndTimesStandInTheExportsZone) {
    EXPECT_THAT(
        documentOf("Africa/Cairo", at("2026-03-01T23:30Z"), at("2026-03-02T00:30Z")),
        testing::HasSubstr("2026-03-02,2026-03-02T01:30:00+02:00,2026-03-02T02:30:00+02:00"));
}

TEST(TextEncoding, filesOfOtherEncodingsAreRead) {
    using namespace std::string_literals;
    EXPECT_EQ(decodeText("Größe"), "Größe");
    EXPECT_EQ(decodeText("a,Gr\xF6\xDF"
                         "e,\x80"),
              "a,Größe,€");
    EXPECT_EQ(decodeText("\xFF\xFE"
                         "a\0,\0\xF6\0"s),
              "a,ö");
    EXPECT_EQ(decodeText("\0a\0,\0\xF6"s), "a,ö");
    EXPECT_EQ(decodeText("Gr\x9A\xA7"
                         "e\x81"),
              "GrößeÅ");
}

}  // namespace
}  // namespace elmworth
