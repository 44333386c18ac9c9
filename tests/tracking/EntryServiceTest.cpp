// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryService.h"

#include <gtest/gtest.h>

#include "support/FileSizeLimit.h"
#include "support/LibraryTest.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;

class EntryServiceTest : public test::LibraryTest {
 protected:
    EntryServiceTest() { context().save(); }
    std::string refusal(const EntryForm& form) {
        try {
            entries_.add(form);
            return {};
        } catch (const Refused& why) {
            EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
            return why.what();
        }
    }

    Ref<Project> website_ = timer.library.addProject("Website", timer.library.addClient("Acme"));
    EntryService entries_{context(), history(), service(), [this] { return timer.now; },
                          [this] { return timer.calendar; }};
    EntryForm form_{website_, timer.now - 2h, timer.now - 1h, "Landing page"};
};

TEST_F(EntryServiceTest, addedTimeIsSaved) {
    const auto entry = entries_.add(form_);
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(EntryForm::of(*entry, timer.now), form_);
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
