// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/ChangeObservers.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/SystemLogCapture.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::TestLibrary;

/// A library with a new client, and two views of clients, the first of which fails.
class FailingView : public testing::Test {
 protected:
    void observe(std::function<void()> fail) {
        failing_ = library.context().observe(Client::schema(), std::move(fail));
        other_ = library.context().observe(Client::schema(), [this] { ++seen; });
        client = library.addClient("Acme");
    }
    void expectSaved() {
        EXPECT_FALSE(library.context().hasChanges());
        EXPECT_EQ(client->unitOfWork(), &library.context());
        EXPECT_EQ(seen, 1);
        failing_.reset();
        other_.reset();
        library.reopen();
        EXPECT_EQ(library.context().fetchCount<Client>(), 1U);
    }
    static void failInTheStore() { throw StoreError(StoreError::Code::corrupt, "torn page"); }
    static void failOtherwise() { throw std::logic_error("no such row"); }

    TestLibrary library;
    Ref<Client> client;
    int seen = 0;

 private:
    ChangeObservers::Observation failing_;
    ChangeObservers::Observation other_;
};

TEST_F(FailingView, makesNoSaveLookFailed) {
    observe(&failInTheStore);
    EXPECT_NO_THROW(library.context().save());
    expectSaved();
}

TEST_F(FailingView, doesNotEndAQuietSave) {
    observe(&failOtherwise);
    library.context().saveQuietly();
    expectSaved();
}

TEST_F(FailingView, rollsNothingBackThatIsSaved) {
    observe(&failInTheStore);
    EXPECT_NO_THROW(library.context().saveOrRollback());
    expectSaved();
}

TEST_F(FailingView, isLoggedAndKeepsNothingFromTheOthersInALaterTurn) {
    observe(&failOtherwise);
    const test::SystemLogCapture log;
    EXPECT_NO_THROW(library.runLoop.turn());
    EXPECT_EQ(log.take(), "Elmworth: a change could not be shown: no such row\n");
    EXPECT_EQ(seen, 1);
}

TEST_F(FailingView, mayThrowAnything) {
    observe([] { throw 1; });
    library.context().saveQuietly();
    expectSaved();
}

}  // namespace
}  // namespace elmworth
