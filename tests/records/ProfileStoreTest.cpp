// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/ProfileStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/AtomicFile.h"
#include "records/FieldText.h"
#include "support/FileSizeLimit.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

using testing::ElementsAre;
using testing::StartsWith;
using testing::UnorderedElementsAre;

class ProfileStoreTest : public testing::Test {
 protected:
    [[nodiscard]] std::optional<std::string> stored() const {
        return Settings(file_).data("businessProfile");
    }

    test::TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "Elmworth.ini";
    Settings defaults_{file_};
};

TEST_F(ProfileStoreTest, withoutAStoredProfileAllIsDefault) {
    const ProfileStore store(defaults_);
    EXPECT_EQ(store.profile(), BusinessProfile());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(ProfileStoreTest, aChangeIsThereAtTheNextStart) {
    const BusinessProfile profile{.name = "X", .nextInvoiceNumber = 8};
    ProfileStore(defaults_).setProfile(profile);
    EXPECT_EQ(stored(), encodeProfile(profile));
    Settings again(file_);
    EXPECT_EQ(ProfileStore(again).profile(), profile);
}

TEST_F(ProfileStoreTest, aChangeThatCannotBeWrittenIsNotKeptWhereOneAsks) {
    ProfileStore store(defaults_);
    store.setProfileOrRefuse({.name = "X"});
    const test::FileSizeLimit fullDisk(0);
    EXPECT_THROW(store.setProfileOrRefuse({.name = "Y"}), Refused);
    EXPECT_EQ(store.profile().name, "X");
    EXPECT_NO_THROW(store.setProfileOrRefuse({.name = "X"})) << "there is nothing to write";
}

TEST_F(ProfileStoreTest, anUnreadableProfileStaysUntilTheNextChange) {
    defaults_.setData("businessProfile", R"({"name":7})");
    ProfileStore store(defaults_);
    EXPECT_EQ(store.profile(), BusinessProfile());
    store.setProfile(BusinessProfile());
    EXPECT_EQ(stored(), R"({"name":7})");
    store.setProfile(BusinessProfile{.name = "X"});
    EXPECT_EQ(stored(), encodeProfile(BusinessProfile{.name = "X"}));
}

TEST_F(ProfileStoreTest, anUnreadableProfileIsKeptInAFileOfItsOwnWhenAnotherIsStored) {
    defaults_.setData("businessProfile", R"({"name":7})");
    const std::string before = readFile(file_);
    ProfileStore store(defaults_);
    store.setProfile(BusinessProfile{.name = "X"});
    store.setProfile(BusinessProfile{.name = "Y"});
    ASSERT_THAT(folder_.names(),
                UnorderedElementsAre("Elmworth.ini", StartsWith("Elmworth.ini.damaged-")));
    for (const auto& name : folder_.names()) {
        if (name == "Elmworth.ini") continue;
        EXPECT_EQ(readFile(folder_.path() / name), before);
    }
}

TEST_F(ProfileStoreTest, aProfileThatChangesInTheFileIsTheOneThatCountsAndIsTold) {
    ProfileStore store(defaults_);
    store.setProfile(BusinessProfile{.name = "X"});
    std::vector<std::string> seen;
    const auto observation = store.observe([&] { seen.push_back(store.profile().name); });
    Settings(file_).setData("businessProfile", encodeProfile({.name = "Y"}));
    defaults_.reload();
    Settings(file_).setString("appearance", "dark");
    defaults_.reload();
    EXPECT_THAT(seen, ElementsAre("Y"));
    Settings(file_).remove("businessProfile");
    defaults_.reload();
    EXPECT_EQ(store.profile(), BusinessProfile());
}

TEST_F(ProfileStoreTest, aProfileThatBecomesUnreadableInTheFileLeavesTheOneThatIsThere) {
    ProfileStore store(defaults_);
    store.setProfile(BusinessProfile{.name = "X"});
    Settings(file_).setString("businessProfile", "@ByteArray({\"name\":");
    defaults_.reload();
    EXPECT_EQ(store.profile().name, "X");
    store.setProfile(BusinessProfile{.name = "Y"});
    EXPECT_EQ(folder_.names().size(), 2U);
    EXPECT_EQ(stored(), encodeProfile(BusinessProfile{.name = "Y"}));
}

TEST_F(ProfileStoreTest, aProfileThatIsSetWinsOverOneThatIsInTheFileByThen) {
    ProfileStore store(defaults_);
    Settings(file_).setData("businessProfile", encodeProfile({.name = "Y"}));
    std::vector<std::string> seen;
    const auto observation = store.observe([&] { seen.push_back(store.profile().name); });
    store.setProfile(BusinessProfile{.name = "X"});
    EXPECT_THAT(seen, ElementsAre("X"));
    EXPECT_EQ(stored(), encodeProfile(BusinessProfile{.name = "X"}));
}

TEST_F(ProfileStoreTest, aProfileStoredAsTextIsUnreadable) {
    defaults_.setString("businessProfile", R"({"name":"X"})");
    EXPECT_EQ(ProfileStore(defaults_).profile(), BusinessProfile());
}

TEST_F(ProfileStoreTest, anEqualProfileIsToldButNotWritten) {
    ProfileStore store(defaults_);
    store.setProfile(BusinessProfile{.name = "X"});
    int told = 0;
    int written = 0;
    const auto observation = store.observe([&] { ++told; });
    const auto writes = defaults_.observe([&](std::string_view) { ++written; });
    store.setProfile(BusinessProfile{.name = "X"});
    EXPECT_EQ(told, 1);
    EXPECT_EQ(written, 0);
}

TEST_F(ProfileStoreTest, observersSeeTheNewProfileUntilTheirHandleDies) {
    ProfileStore store(defaults_);
    std::vector<std::string> seen;
    auto observation = store.observe([&] { seen.push_back(store.profile().name); });
    store.setProfile(BusinessProfile{.name = "X"});
    observation.reset();
    store.setProfile(BusinessProfile{.name = "Y"});
    EXPECT_THAT(seen, ElementsAre("X"));
}

TEST_F(ProfileStoreTest, aProfileSetByAnObserverIsTheOneThatIsKept) {
    ProfileStore store(defaults_);
    const auto observation = store.observe([&] {
        if (store.profile().name == "X") store.setProfile(BusinessProfile{.name = "Y"});
    });
    store.setProfile(BusinessProfile{.name = "X"});
    EXPECT_EQ(store.profile().name, "Y");
    EXPECT_EQ(stored(), encodeProfile(BusinessProfile{.name = "Y"}));
}

/// A profile that waits for a change of the library with the evidence "client 7".
class AnnouncedProfile : public ProfileStoreTest {
 protected:
    AnnouncedProfile() {
        ProfileStore store(defaults_);
        store.setProfile(old_);
        EXPECT_TRUE(store.announce(new_, "client 7"));
        EXPECT_EQ(store.profile(), old_);
    }
    /// The profile after a start that finds `evidence` in the library.
    [[nodiscard]] BusinessProfile settled(const std::string& evidence) const {
        Settings defaults(file_);
        ProfileStore store(defaults);
        store.settle([&](std::string_view wanted) { return wanted == evidence; });
        return store.profile();
    }

    const BusinessProfile old_{.name = "Old"};
    const BusinessProfile new_{.name = "New", .address = "1 Main St\nSpringfield"};
};

TEST_F(AnnouncedProfile, isTakenWhenTheLibraryHoldsItsEvidence) {
    EXPECT_EQ(settled("client 7"), new_);
    EXPECT_EQ(stored(), encodeProfile(new_));
    EXPECT_EQ(settled("no client"), new_);
}

TEST_F(AnnouncedProfile, isForgottenWhenTheLibraryDoesNotHoldItsEvidence) {
    EXPECT_EQ(settled("no client"), old_);
    EXPECT_EQ(settled("client 7"), old_);
}

TEST_F(AnnouncedProfile, losesToOneThatIsSetLater) {
    ProfileStore(defaults_).setProfile({.name = "Later"});
    EXPECT_EQ(settled("client 7").name, "Later");
}

TEST_F(AnnouncedProfile, losesToOneThatSomebodyElseStoresLater) {
    Settings(file_).setData("businessProfile", encodeProfile({.name = "Later"}));
    EXPECT_EQ(settled("client 7").name, "Later");
}

TEST_F(AnnouncedProfile, isTakenAtTheNextStartWhenItCannotBeStored) {
    {
        ProfileStore store(defaults_);
        const test::FileSizeLimit fullDisk(0);
        store.settle([](std::string_view) { return true; });
        EXPECT_EQ(store.profile(), new_);
    }
    EXPECT_EQ(stored(), encodeProfile(old_));
    EXPECT_EQ(settled("client 7"), new_);
}

TEST_F(AnnouncedProfile, isNoneWhenItCannotBeStored) {
    ProfileStore store(defaults_);
    {
        const test::FileSizeLimit fullDisk(0);
        EXPECT_FALSE(store.announce({.name = "Newer"}, "client 8"));
    }
    store.settle([](std::string_view) { return true; });
    EXPECT_EQ(store.profile(), old_);
}

TEST_F(ProfileStoreTest, handsOutItsDefaults) {
    ProfileStore store(defaults_);
    EXPECT_EQ(&store.defaults(), &defaults_);
}

}  // namespace
}  // namespace elmworth
