// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A restore gives a library and its profile, or neither.

#include <gtest/gtest.h>

#include "exchange/Restore.h"
#include "platform/AtomicFile.h"
#include "support/BackupObjects.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::TestLibrary;

/// A library and the settings beside it.
class RestoreWithProfile : public testing::Test {
 protected:
    RestoreWithProfile() {
        profiles().setProfile({.name = "Old"});
        backup_.profile.name = "New";
        backup_.clients.push_back(test::clientObject("Acme"));
    }

    [[nodiscard]] ProfileStore& profiles() {
        if (!profiles_) profiles_.emplace(defaults_.emplace(settings_ / "Elmworth.ini"));
        return *profiles_;
    }
    /// Ends the program and starts it again.
    void restart() {
        profiles_.reset();
        defaults_.reset();
        library_.reopen();
        finishRestore(library_.context(), profiles());
    }
    /// Nothing can be written where the settings are.
    void breakSettings() {
        std::filesystem::rename(settings_, folder_.path() / "away");
        writeAtomically(settings_, "in the way");
    }
    void mendSettings() {
        std::filesystem::remove(settings_);
        std::filesystem::rename(folder_.path() / "away", settings_);
    }
    [[nodiscard]] std::string state() {
        const auto clients = std::to_string(library_.context().fetchCount<Client>());
        return profiles().profile().name + " profile, " + clients + " clients";
    }

    TestLibrary library_;
    test::TemporaryFolder folder_;
    std::filesystem::path settings_ = folder_.path() / "settings";
    Backup backup_;

 private:
    std::optional<Settings> defaults_;
    std::optional<ProfileStore> profiles_;
};

TEST_F(RestoreWithProfile, givesTheLibraryAndTheProfileOfTheDocument) {
    restore(backup_, library_.context(), profiles());
    EXPECT_EQ(state(), "New profile, 1 clients");
    restart();
    EXPECT_EQ(state(), "New profile, 1 clients");
}

TEST_F(RestoreWithProfile, ofADocumentWithoutClientsGivesItsProfile) {
    backup_.clients.clear();
    restore(backup_, library_.context(), profiles());
    restart();
    EXPECT_EQ(state(), "New profile, 0 clients");
}

TEST_F(RestoreWithProfile, changesNothingWhereTheProfileCannotBeWrittenAndCanBeRepeated) {
    breakSettings();
    try {
        restore(backup_, library_.context(), profiles());
        FAIL() << "was restored";
    } catch (const RestoreError& error) {
        EXPECT_STREQ(error.what(),
                     "The settings file can't be written, so nothing was restored. Make its folder "
                     "writable or free some space, then restore again.");
    }
    EXPECT_EQ(state(), "Old profile, 0 clients");
    mendSettings();
    restart();
    EXPECT_EQ(state(), "Old profile, 0 clients");
    restore(backup_, library_.context(), profiles());
    restart();
    EXPECT_EQ(state(), "New profile, 1 clients");
}

TEST_F(RestoreWithProfile, isWholeAtTheNextStartWhenTheSettingsFailInTheMidstOfIt) {
    class Breaking final : public Progress {
     public:
        explicit Breaking(std::function<void()> act) : act_(std::move(act)) {}

     protected:
        void report(const char* step, std::size_t /*done*/, std::size_t /*total*/) override {
            if (std::string_view(step) == "Saving" && act_) std::exchange(act_, nullptr)();
        }

     private:
        std::function<void()> act_;
    };
    for (int i = 0; i < 100; ++i) backup_.clients.push_back(backup_.clients.front());
    Breaking breaking([this] { breakSettings(); });
    restore(backup_, library_.context(), profiles(), breaking);
    EXPECT_EQ(state(), "New profile, 101 clients");
    mendSettings();
    restart();
    EXPECT_EQ(state(), "New profile, 101 clients");
}

TEST_F(RestoreWithProfile, thatWasRefusedLeavesAProfileThatIsSetLater) {
    library_.addClient("Globex");
    library_.context().save();
    EXPECT_THROW(restore(backup_, library_.context(), profiles()), RestoreError);
    restart();
    EXPECT_EQ(state(), "Old profile, 1 clients");
}

}  // namespace
}  // namespace elmworth
