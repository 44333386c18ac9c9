// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/ProfileStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

using testing::ElementsAre;

class ProfileStoreTest : public testing::Test {
 protected:
    [[nodiscard]] std::optional<std::string> stored() const {
        return UserDefaults(file_).data("businessProfile");
    }

    test::TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "Elmworth.ini";
    UserDefaults defaults_{file_};
};

TEST_F(ProfileStoreTest, WithoutAStoredProfileAllIsDefault) {
    const ProfileStore store(defaults_);
    EXPECT_EQ(store.profile(), BusinessProfile());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(ProfileStoreTest, AChangeIsThereAtTheNextStart) {
    const BusinessProfile profile{.name = "X", .nextInvoiceNumber = 8};
    ProfileStore(defaults_).setProfile(profile);
    EXPECT_EQ(stored(), encodeProfile(profile));
    UserDefaults again(file_);
    EXPECT_EQ(ProfileStore(again).profile(), profile);
}

TEST_F(ProfileStoreTest, AnUnreadableProfileStaysUntilTheNextChange) {
    defaults_.setData("businessProfile", R"({"name":7})");
    ProfileStore store(defaults_);
    EXPECT_EQ(store.profile(), BusinessProfile());
    store.setProfile(BusinessProfile());
    EXPECT_EQ(stored(), R"({"name":7})");
    store.setProfile(BusinessProfile{.name = "X"});
    EXPECT_EQ(stored(), encodeProfile(BusinessProfile{.name = "X"}));
}

TEST_F(ProfileStoreTest, AProfileStoredAsTextIsUnreadable) {
    defaults_.setString("businessProfile", R"({"name":"X"})");
    EXPECT_EQ(ProfileStore(defaults_).profile(), BusinessProfile());
}

TEST_F(ProfileStoreTest, AnEqualProfileIsToldButNotWritten) {
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

TEST_F(ProfileStoreTest, ObserversSeeTheNewProfileUntilTheirHandleDies) {
    ProfileStore store(defaults_);
    std::vector<std::string> seen;
    auto observation = store.observe([&] { seen.push_back(store.profile().name); });
    store.setProfile(BusinessProfile{.name = "X"});
    observation.reset();
    store.setProfile(BusinessProfile{.name = "Y"});
    EXPECT_THAT(seen, ElementsAre("X"));
}

TEST_F(ProfileStoreTest, AProfileSetByAnObserverIsTheOneThatIsKept) {
    ProfileStore store(defaults_);
    const auto observation = store.observe([&] {
        if (store.profile().name == "X") store.setProfile(BusinessProfile{.name = "Y"});
    });
    store.setProfile(BusinessProfile{.name = "X"});
    EXPECT_EQ(store.profile().name, "Y");
    EXPECT_EQ(stored(), encodeProfile(BusinessProfile{.name = "Y"}));
}

TEST_F(ProfileStoreTest, HandsOutItsDefaults) {
    ProfileStore store(defaults_);
    EXPECT_EQ(&store.defaults(), &defaults_);
}

}  // namespace
}  // namespace elmworth
