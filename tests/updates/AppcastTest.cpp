// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/Appcast.h"

#include <gtest/gtest.h>

#include "updates/SignedReleases.h"

namespace elmworth {
namespace {

using test::appcast;
using test::item;
using test::Signer;

std::string refusal(const std::string& document, const UpdateKeys& keys = Signer().keys()) {
    try {
        static_cast<void>(readAppcast(document, keys));
        return "read";
    } catch (const UpdateError& error) {
        return error.what();
    }
}

constexpr const char* notSignedByUs =
    "The list of updates isn't signed by Elmworth's makers, so nothing of it was used.";
constexpr const char* unreadable = "The list of updates can't be read.";

TEST(AppcastTest, saysWhatIsToBeHad) {
    const auto list =
        readAppcast(Signer().sign(appcast(item("0.2.0", "the program"))), Signer().keys());
    ASSERT_EQ(list.releases.size(), 1U);
    const auto& release = list.releases.front();
    EXPECT_EQ(release.version, ReleaseVersion::parse("0.2"));
    EXPECT_EQ(release.notes, "What is new in 0.2.0");
    EXPECT_EQ(release.page, "https://elmworth.example/0.2.0");
    EXPECT_EQ(release.archive, "https://elmworth.example/Elmworth-0.2.0.AppImage");
    EXPECT_EQ(release.archiveBytes, 11);
    EXPECT_TRUE(Signer().keys().verify("the program", release.archiveSignature));
}

TEST(AppcastTest, theHighestVersionIsTheNewestWhereverItStands) {
    const auto list = readAppcast(Signer().sign(appcast(item("0.9") + item("0.10") + item("0.2"))),
                                  Signer().keys());
    ASSERT_NE(list.newest(), nullptr);
    EXPECT_EQ(list.newest()->version.text(), "0.10");
}

TEST(AppcastTest, anEmptyListHasNoNewest) {
    EXPECT_EQ(readAppcast(Signer().sign(appcast("")), Signer().keys()).newest(), nullptr);
}

TEST(AppcastTest, eachByteIsSigned) {
    const auto document = Signer().sign(appcast(item("0.2.0")));
    for (std::size_t i = 0; i < document.size(); ++i) {
        auto damaged = document;
        damaged[i] = static_cast<char>(damaged[i] ^ 1);
        // The line feed at the end is no part of what is said.
        if (i + 1 == document.size()) continue;
        EXPECT_NE(refusal(damaged), "read") << "byte " << i;
    }
}

TEST(AppcastTest, isRefusedWhereverItIsCutOff) {
    const auto document = Signer().sign(appcast(item("0.2.0")));
    for (std::size_t length = 0; length + 1 < document.size(); ++length) {
        EXPECT_NE(refusal(document.substr(0, length)), "read") << length << " bytes";
    }
}

TEST(AppcastTest, nothingMayStandAfterItsSignature) {
    EXPECT_EQ(refusal(Signer().sign(appcast("")) + "<item/>\n"), notSignedByUs);
}

TEST(AppcastTest, anybodyElsesSignatureIsRefused) {
    EXPECT_EQ(refusal(Signer(2).sign(appcast(item("0.2.0")))), notSignedByUs);
}

TEST(AppcastTest, anyOfTheKeysMayHaveSigned) {
    const auto keys = UpdateKeys::parse("not-a-key " + Signer(1).key() + " " + Signer(2).key());
    EXPECT_EQ(refusal(Signer(2).sign(appcast("")), keys), "read");
    EXPECT_EQ(refusal(Signer(3).sign(appcast("")), keys), notSignedByUs);
    EXPECT_EQ(refusal(Signer().sign(appcast("")), UpdateKeys()), notSignedByUs);
}

struct BadCase {
    const char* name;
    std::string document;  ///< to be signed
    std::string refusal;
};

class BadAppcast : public testing::TestWithParam<BadCase> {};

TEST_P(BadAppcast, isRefusedWithASentence) {
    EXPECT_EQ(refusal(Signer().sign(GetParam().document)), GetParam().refusal);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, BadAppcast,
    testing::Values(BadCase{"withoutItsEnd",
                            "The list of updates doesn't say until when it holds.\n", unreadable},
                    BadCase{"withADocumentType",
                            "<!DOCTYPE rss [<!ENTITY a \"b\">]>\n" + appcast("").substr(39),
                            unreadable},
                    BadCase{"withoutExpiry", "<rss><channel></channel></rss>\n",
                            "The list of updates doesn't say until when it holds."},
                    BadCase{"withADayForAnExpiry", appcast("", "2026-12-01"),
                            "The list of updates doesn't say until when it holds."},
                    BadCase{"withAReleaseThatHasNoVersion", appcast("<item></item>"),
                            "The list of updates names a release without version."},
                    BadCase{"withAVersionThatIsNone", appcast(item("newest")),
                            "The list of updates names a release without version."},
                    BadCase{"cutOffInsideAnItem", appcast("<item>"), unreadable},
                    BadCase{"largerThanItMayBe", appcast(std::string(largestAppcast, ' ')),
                            "The list of updates is too large to be one."}),
    [](const auto& info) { return info.param.name; });

TEST(AppcastTest, anUnsignedProgramOrOneOverHttpIsNotToBeFetched) {
    const std::string start = "<item><sparkle:version>2</sparkle:version><enclosure length=\"7\" ";
    const auto signature = " sparkle:edSignature=\"" + Signer().signature("program") + "\"";
    const auto archive = [&](const std::string& attributes) {
        return readAppcast(Signer().sign(appcast(start + attributes + "/></item>")),
                           Signer().keys())
            .releases.at(0)
            .archive;
    };
    EXPECT_EQ(archive("url=\"https://a.example/b\"" + signature), "https://a.example/b");
    EXPECT_EQ(archive("url=\"https://a.example/b\""), "");
    EXPECT_EQ(archive("url=\"http://a.example/b\"" + signature), "");
    EXPECT_EQ(archive("url=\"file:///etc/passwd\"" + signature), "");
}

}  // namespace
}  // namespace elmworth
