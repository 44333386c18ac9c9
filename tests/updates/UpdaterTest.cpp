// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/Updater.h"

#include <gtest/gtest.h>

#include <fstream>

#include "support/Instants.h"
#include "support/TemporaryFolder.h"
#include "support/TestLibrary.h"
#include "updates/SignedReleases.h"
#include "updates/ToldDownloads.h"

namespace elmworth {
namespace {

using test::appcast;
using test::at;
using test::item;
using test::Signer;
using test::ToldDownloads;

class UpdaterTest : public testing::Test {
 protected:
    UpdaterTest() { std::ofstream(program_) << "the old program"; }

    [[nodiscard]] Updater::Setup setup() const {
        return {"https://elmworth.example/appcast.xml", Signer().keys(),
                ReleaseVersion::parse("0.1.0").value(), program_, false};
    }
    Updater& updater() {
        if (!updater_) make(setup());
        return *updater_;
    }
    void make(Updater::Setup setup) {
        updater_ = std::make_unique<Updater>(
            std::move(setup), settings_, loop_, [this] { return now_; }, downloads_);
    }
    /// As the settings' window does it.
    void installAutomatically() {
        static_cast<void>(updater());
        settings_.setBoolean("installUpdatesAutomatically", true);
    }
    /// What a look finds when the server sends `document`.
    Updater::Finding find(const std::string& document, const std::string& failure = {}) {
        Updater::Finding finding{{}, "nothing was found"};
        updater().look([&](const auto& found) { finding = found; });
        downloads_.answer(document, failure);
        return finding;
    }
    Updater::Finding findItems(const std::string& items) {
        return find(Signer().sign(appcast(items)));
    }
    std::string fetch(const Release& release, const std::string& bytes) {
        std::string failure = "nothing was fetched";
        updater().fetch(release, [&](const auto& text) { failure = text; });
        downloads_.answer(bytes);
        return failure;
    }
    std::string content() const { return readFile(program_); }
    Instant now_ = at("2026-11-19T12:00Z");
    test::TemporaryFolder folder_;
    std::filesystem::path program_ = folder_.path() / "Elmworth.AppImage";
    Settings settings_{folder_.path() / "settings/Elmworth.ini"};
    test::ManualRunLoop loop_;
    ToldDownloads downloads_;
    std::unique_ptr<Updater> updater_;
};

TEST_F(UpdaterTest, isOffWithoutAFeedWithoutKeysAndWhenHosted) {
    EXPECT_TRUE(updater().isEnabled());
    auto without = setup();
    without.feed.clear();
    make(without);
    EXPECT_FALSE(updater().isEnabled());
    without = setup();
    without.keys = {};
    make(without);
    EXPECT_FALSE(updater().isEnabled());
    without = setup();
    without.isHosted = true;
    make(without);
    EXPECT_FALSE(updater().isEnabled());
    EXPECT_FALSE(updater().installsAutomatically());
    installAutomatically();
    EXPECT_TRUE(downloads_.asked.empty());
}

TEST_F(UpdaterTest, asksForNothingUntilSomebodyWantsIt) {
    static_cast<void>(updater());
    EXPECT_TRUE(downloads_.asked.empty());
    EXPECT_FALSE(updater().installsAutomatically());
}

TEST_F(UpdaterTest, findsANewerRelease) {
    const auto finding = findItems(item("0.2.0") + item("0.1.0"));
    ASSERT_TRUE(finding.release);
    EXPECT_EQ(finding.release->version.text(), "0.2");
    EXPECT_EQ(finding.failure, "");
    EXPECT_TRUE(updater().available());
    EXPECT_EQ(downloads_.wanted().mostBytes, static_cast<std::int64_t>(largestAppcast));
}

TEST_F(UpdaterTest, itsOwnVersionAndOlderOnesAreNoUpdates) {
    EXPECT_FALSE(findItems(item("0.1")).release);
    EXPECT_FALSE(findItems(item("0.1.0")).release);
    EXPECT_FALSE(findItems("").release);
    EXPECT_FALSE(updater().available());
}

TEST_F(UpdaterTest, aListThatNoLongerHoldsIsRefused) {
    now_ = at("2026-12-01T00:00:01Z");
    EXPECT_EQ(findItems(item("0.2")).failure,
              "The list of updates is out of date. Try again later.");
}

TEST_F(UpdaterTest, anOlderListThanOneSeenBeforeIsRefusedAlsoAfterARestart) {
    EXPECT_TRUE(findItems(item("0.3")).release);
    make(setup());
    for (const char* older : {"0.2", "0.1"}) {
        EXPECT_EQ(findItems(item(older)).failure,
                  "The list of updates is older than one seen before, so it wasn't used.");
    }
    EXPECT_TRUE(findItems(item("0.3")).release);
}

TEST_F(UpdaterTest, aListThatNobodyKnownHasSignedIsRefused) {
    EXPECT_NE(find(Signer(2).sign(appcast(item("0.9")))).failure, "");
    EXPECT_FALSE(settings_.contains("highestUpdateSeen"));
}

TEST_F(UpdaterTest, tellsWhyTheServerCannotBeAsked) {
    EXPECT_EQ(find("", "The update server can't be reached.").failure,
              "The update server can't be reached.");
}

TEST_F(UpdaterTest, aNewLookTakesTheOldOnesPlace) {
    int looks = 0;
    updater().look([&](const auto&) { ++looks; });
    updater().look([&](const auto&) { looks += 10; });
    downloads_.answer(Signer().sign(appcast("")));
    EXPECT_EQ(looks, 10);
}

TEST_F(UpdaterTest, replacesTheProgramWhenItEndsAndNotBefore) {
    std::filesystem::permissions(program_, std::filesystem::perms::owner_all);
    const auto finding = findItems(item("0.2", "the new program"));
    EXPECT_EQ(fetch(*finding.release, "the new program"), "");
    EXPECT_TRUE(updater().isReady());
    EXPECT_EQ(content(), "the old program");
    updater().install();
    EXPECT_EQ(content(), "the new program");
    EXPECT_EQ(std::filesystem::status(program_).permissions(), std::filesystem::perms::owner_all);
    EXPECT_FALSE(updater().isReady());
}

TEST_F(UpdaterTest, throwsAwayWhatIsNotWhatWasSigned) {
    const auto release = *findItems(item("0.2", "the new program")).release;
    const std::string thrownAway =
        "The update isn't what Elmworth's makers signed, so it was thrown away.";
    EXPECT_EQ(fetch(release, "the new progrom"), thrownAway);
    EXPECT_EQ(fetch(release, "the new pro"), thrownAway);
    EXPECT_EQ(fetch(release, ""), thrownAway);
    EXPECT_FALSE(updater().isReady());
    updater().install();
    EXPECT_EQ(content(), "the old program");
    EXPECT_EQ(folder_.names().size(), 2U) << "no half file stays";
}

TEST_F(UpdaterTest, whatWasChangedAfterItsCheckIsNotInstalled) {
    const auto release = *findItems(item("0.2", "the new program")).release;
    ASSERT_EQ(fetch(release, "the new program"), "");
    for (const auto& file : std::filesystem::directory_iterator(folder_.path())) {
        if (file.path().filename().string().starts_with(".elmworth-")) {
            std::ofstream(file.path()) << "the bad program";
        }
    }
    updater().install();
    EXPECT_EQ(content(), "the old program");
}

TEST_F(UpdaterTest, nothingIsLeftBesideTheProgramWhenItIsNotInstalled) {
    const auto release = *findItems(item("0.2", "the new program")).release;
    ASSERT_EQ(fetch(release, "the new program"), "");
    updater_.reset();
    EXPECT_EQ(content(), "the old program");
    EXPECT_EQ(folder_.names().size(), 2U);
}

TEST_F(UpdaterTest, aFolderThatCannotBeWrittenIsSaid) {
    auto elsewhere = setup();
    elsewhere.program = folder_.path() / "gone" / "Elmworth.AppImage";
    make(elsewhere);
    const auto release = *findItems(item("0.2", "the new program")).release;
    std::string failure;
    updater().fetch(release, [&](const auto& text) { failure = text; });
    loop_.turn();
    EXPECT_TRUE(failure.starts_with("The update can't be stored: ")) << failure;
}

TEST_F(UpdaterTest, looksOnceADayAndFetchesWhenItIsToInstallAutomatically) {
    installAutomatically();
    ASSERT_EQ(downloads_.asked.size(), 1U);
    downloads_.answer(Signer().sign(appcast(item("0.2", "the new program"))));
    ASSERT_EQ(downloads_.asked.size(), 2U);
    EXPECT_EQ(downloads_.asked.back(), "https://elmworth.example/Elmworth-0.2.AppImage");
    downloads_.answer("the new program");
    EXPECT_TRUE(updater().isReady());
    updater().install();
    EXPECT_EQ(content(), "the new program");
}

TEST_F(UpdaterTest, looksAgainAfterADayOrWhenTheClockWasSetBack) {
    installAutomatically();
    downloads_.answer("", "The update server can't be reached.");
    const auto looks = [&](std::chrono::hours later) {
        now_ += later;
        loop_.fire();
        const auto count = downloads_.asked.size();
        downloads_.answer("", "The update server can't be reached.");
        return count;
    };
    using namespace std::chrono_literals;
    EXPECT_EQ(looks(23h), 1U);
    EXPECT_EQ(looks(1h), 2U);
    EXPECT_EQ(looks(-48h), 3U);
}

TEST_F(UpdaterTest, onlyTellsWhereAPackageManagerBroughtTheProgram) {
    auto packaged = setup();
    packaged.program.clear();
    make(packaged);
    installAutomatically();
    downloads_.answer(Signer().sign(appcast(item("0.2"))));
    EXPECT_EQ(downloads_.asked.size(), 1U);
    EXPECT_TRUE(updater().available());
    EXPECT_FALSE(updater().canInstall());
}

}  // namespace
}  // namespace elmworth
