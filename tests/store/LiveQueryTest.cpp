// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/LiveQuery.h"

#include <gtest/gtest.h>

#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::TestLibrary;
using Clients = std::vector<Ref<Client>>;

class LiveQueryTest : public testing::Test {
 protected:
    /// Counts its calls in `calls`.
    [[nodiscard]] std::unique_ptr<LiveQuery<Client>> observe() {
        return std::make_unique<LiveQuery<Client>>(library.context(), Query<Client>{},
                                                   [this](const Clients&) { ++calls; });
    }

    TestLibrary library;
    int calls = 0;
};

TEST_F(LiveQueryTest, firesOnceAtCreation) {
    const auto client = library.addClient("Acme");
    Clients seen;
    const LiveQuery<Client> query(library.context(), {}, [&](const auto& all) { seen = all; });
    EXPECT_EQ(seen, Clients{client});
    EXPECT_EQ(query.records(), Clients{client});
}

TEST_F(LiveQueryTest, firesOnceInATurnHoweverManyChangesThereAre) {
    const auto query = observe();
    EXPECT_EQ(calls, 1);
    library.addClient("Acme");
    library.addClient("Globex")->email = "office@globex.example";
    EXPECT_EQ(calls, 1);
    library.runLoop.turn();
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(query->records().size(), 2U);
    library.runLoop.turn();
    EXPECT_EQ(calls, 2);
}

TEST_F(LiveQueryTest, firesAtOnceOnASaveAndNotAgainInTheNextTurn) {
    const auto query = observe();
    library.addClient("Acme");
    library.context().save();
    EXPECT_EQ(calls, 2);
    library.runLoop.turn();
    EXPECT_EQ(calls, 2);
}

TEST_F(LiveQueryTest, staysSilentOnASaveOfWhatItHasSeen) {
    const auto query = observe();
    library.addClient("Acme");
    library.runLoop.turn();
    library.context().save();
    EXPECT_EQ(calls, 2);
}

TEST_F(LiveQueryTest, firesAfterARollbackInTheNextTurn) {
    const auto query = observe();
    library.addClient("Acme");
    library.runLoop.turn();
    library.context().rollback();
    library.runLoop.turn();
    EXPECT_EQ(calls, 3);
    EXPECT_TRUE(query->records().empty());
}

TEST_F(LiveQueryTest, firesNotForOtherTypes) {
    const auto query = observe();
    library.addProject("Website", nullptr);
    library.context().save();
    library.runLoop.turn();
    EXPECT_EQ(calls, 1);
}

TEST_F(LiveQueryTest, hearsOfRecordsThatADeletionTakesAlong) {
    const auto client = library.addClient("Acme");
    library.addProject("Website", client);
    library.context().save();
    std::size_t projects = 0;
    const LiveQuery<Project> query(library.context(), {},
                                   [&](const auto& all) { projects = all.size(); });
    EXPECT_EQ(projects, 1U);
    library.context().deleteRecord(client);
    library.runLoop.turn();
    EXPECT_EQ(projects, 0U);
}

TEST_F(LiveQueryTest, endsWithItsObject) {
    auto query = observe();
    library.addClient("Acme");
    query.reset();
    library.runLoop.turn();
    library.context().save();
    EXPECT_EQ(calls, 1);
}

TEST_F(LiveQueryTest, deliversNowWhenAsked) {
    const auto query = observe();
    library.addClient("Acme");
    library.context().deliverChanges();
    EXPECT_EQ(calls, 2);
    library.runLoop.turn();
    EXPECT_EQ(calls, 2);
}

TEST_F(LiveQueryTest, hearsInALaterTurnOfWhatItsHandlerChanged) {
    const LiveQuery<Client> query(library.context(), {}, [&](const Clients& clients) {
        ++calls;
        if (clients.size() == 1) library.addClient("Globex");
    });
    library.addClient("Acme");
    library.runLoop.turn();
    EXPECT_EQ(calls, 2);
    library.runLoop.turn();
    EXPECT_EQ(calls, 3);
    library.runLoop.turn();
    EXPECT_EQ(calls, 3);
}

TEST_F(LiveQueryTest, aHandlerThatSavesKeepsTheRecordsItWasGiven) {
    std::vector<std::size_t> sizesAfterSave;
    const LiveQuery<Client> query(library.context(), {}, [&](const Clients& clients) {
        if (clients.size() == 1) {
            library.addClient("Globex");
            library.context().save();
        }
        sizesAfterSave.push_back(clients.size());
    });
    library.addClient("Acme");
    library.runLoop.turn();
    EXPECT_EQ(sizesAfterSave, (std::vector<std::size_t>{0, 2, 1}));
}

TEST_F(LiveQueryTest, aHandlerMayEndItsOwnQuery) {
    std::unique_ptr<LiveQuery<Client>> query;
    std::size_t seen = 0;
    const auto handler = [&, text = std::string(100, 'x')](const Clients& clients) {
        if (clients.empty()) return;
        query.reset();
        seen = clients.size() + text.size();
    };
    query = std::make_unique<LiveQuery<Client>>(library.context(), Query<Client>{}, handler);
    library.addClient("Acme");
    library.runLoop.turn();
    EXPECT_EQ(seen, 101U);
    library.addClient("Globex");
    library.runLoop.turn();
    EXPECT_EQ(seen, 101U);
}

TEST_F(LiveQueryTest, aHandlerMayEndAnotherQueryThatWaits) {
    std::unique_ptr<LiveQuery<Client>> second;
    const LiveQuery<Client> first(library.context(), {}, [&](const Clients&) { second.reset(); });
    second = observe();
    library.addClient("Acme");
    library.runLoop.turn();
    EXPECT_EQ(calls, 1);
}

TEST_F(LiveQueryTest, aHandlerMayBeginAnotherQuery) {
    std::unique_ptr<LiveQuery<Client>> second;
    const LiveQuery<Client> first(library.context(), {}, [&](const Clients& clients) {
        if (!clients.empty() && !second) second = observe();
    });
    library.addClient("Acme");
    library.runLoop.turn();
    EXPECT_EQ(calls, 1);
    library.addClient("Globex");
    library.runLoop.turn();
    EXPECT_EQ(calls, 2);
}

}  // namespace
}  // namespace elmworth
