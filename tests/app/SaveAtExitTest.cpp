// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/SaveAtExit.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::TestLibrary;

LongWork work;

std::size_t savedProjects(TestLibrary& library) {
    library.open();
    return library.context().fetchCount<Project>();
}

TEST(SaveAtExit, isMadeWhenItDies) {
    TestLibrary library;
    {
        const SaveAtExit lastSave(library.context(), work);
        library.addProject("Website", nullptr);
    }
    EXPECT_FALSE(library.context().hasChanges());
}

TEST(SaveAtExit, isMadeWhenTheProcessExitsWithoutUnwinding) {
    TestLibrary library;
    library.close();
    EXPECT_EXIT(
        {
            library.open();
            const SaveAtExit lastSave(library.context(), work);
            library.addProject("Website", nullptr);
            std::exit(1);
        },
        testing::ExitedWithCode(1), "");
    EXPECT_EQ(savedProjects(library), 1U);
}

TEST(SaveAtExit, keepsNothingOfLongWorkThatIsHalfDone) {
    TestLibrary library;
    library.close();
    EXPECT_EXIT(
        {
            library.open();
            const SaveAtExit lastSave(library.context(), work);
            library.addProject("Website", nullptr);
            work.run([] { std::exit(1); });
        },
        testing::ExitedWithCode(1), "");
    EXPECT_EQ(savedProjects(library), 0U);
}

TEST(SaveAtExit, isNotMadeAfterItHasDied) {
    TestLibrary library;
    library.close();
    EXPECT_EXIT(
        {
            library.open();
            { const SaveAtExit lastSave(library.context(), work); }
            library.addProject("Website", nullptr);
            std::exit(1);
        },
        testing::ExitedWithCode(1), "");
    EXPECT_EQ(savedProjects(library), 0U);
}

}  // namespace
}  // namespace elmworth
