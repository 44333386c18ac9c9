// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryService.h"

#include <gtest/gtest.h>

#include "support/FileSizeLimit.h"
#include "support/TestTimer.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;

class EntryServiceTest : public testing::Test {
 protected:
    EntryServiceTest() { context().save(); }
    [[nodiscard]] UnitOfWork& context() { return timer_.library.context(); }
    std::string refusal(const EntryForm& form) {
        try {
            entries_.add(form);
            return {};
        } catch (const Refused& why) {
            EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
            return why.what();
        }
    }

    test::TestTimer timer_;
    Ref<Project> website_ = timer_.library.addProject("Website", timer_.library.addClient("Acme"));
    UndoHistory history_{context()};
    EntryService entries_{context(), history_, *timer_.service, [this] { return timer_.now; },
                          [this] { return timer_.calendar; }};
    EntryForm form_{website_, timer_.now - 2h, timer_.now - 1h, "Landing page"};
};

TEST_F(EntryServiceTest, addedTimeIsSaved) {
    const auto entry = entries_.add(form_);
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(EntryForm::of(*entry, timer_.now), form_);
}

TEST_F(EntryServiceTest, whatTheFormRefusesIsNotAdded) {
    form_.end = form_.start;
    EXPECT_EQ(refusal(form_), "End must be after start.");
    form_.project = nullptr;
    EXPECT_EQ(refusal(form_), "Choose a project.");
}

TEST_F(EntryServiceTest, noTimeIsAddedToAnArchivedProject) {
    website_->isArchived = true;
    EXPECT_EQ(refusal(form_), "“Website — Acme” is archived. Unarchive it to log time on it.");
}

TEST_F(EntryServiceTest, timeThatCannotBeSavedIsNotAdded) {
    const test::FileSizeLimit fullDisk(0);
    EXPECT_THROW(entries_.add(form_), StoreError);
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
}

}  // namespace
}  // namespace elmworth
