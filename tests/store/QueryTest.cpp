// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "store/UnitOfWork.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::TestLibrary;
using Names = std::vector<std::string>;

class Fetch : public testing::Test {
 protected:
    [[nodiscard]] Names clientNames(const Query<Client>& descriptor) {
        Names names;
        for (const auto& client : library.context().fetch(descriptor))
            names.push_back(client->name);
        return names;
    }
    void addClients(const Names& names) {
        for (const auto& name : names) library.addClient(name);
    }

    TestLibrary library;
};

TEST_F(Fetch, withoutSortKeyGivesRecordsInTheOrderOfTheirCreation) {
    addClients({"b", "c"});
    library.context().save();
    addClients({"a"});
    EXPECT_EQ(clientNames({}), (Names{"b", "c", "a"}));
    library.context().save();
    library.reopen();
    EXPECT_EQ(clientNames({}), (Names{"b", "c", "a"}));
    EXPECT_EQ(clientNames({.fetchLimit = 2}), (Names{"b", "c"}));
}

TEST_F(Fetch, sortsForwardAndInReverse) {
    addClients({"b", "c", "a"});
    library.context().save();
    EXPECT_EQ(clientNames({.sortBy = {sortedBy<&Client::name>()}}), (Names{"a", "b", "c"}));
    EXPECT_EQ(clientNames({.sortBy = {sortedBy<&Client::name>(SortOrder::reverse)}}),
              (Names{"c", "b", "a"}));
}

TEST_F(Fetch, sortsPlainTextByCodePoints) {
    addClients({"b", "\xC3\xA4", "B", "a10", "a9"});
    library.context().save();
    EXPECT_EQ(clientNames({.sortBy = {sortedBy<&Client::name>()}}),
              (Names{"B", "a10", "a9", "b", "\xC3\xA4"}));
}

TEST_F(Fetch, sortsNamesInTheLocalizedStandardOrder) {
    addClients({"Zoo", "item 10", "\xC3\x84rzte", "apple"});
    library.context().save();
    addClients({"Item 9"});
    const Names sorted{"apple", "\xC3\x84rzte", "Item 9", "item 10", "Zoo"};
    const Query<Client> byName{
        .sortBy = {sortedBy<&Client::name>(SortOrder::forward, SortComparison::localizedStandard)}};
    EXPECT_EQ(clientNames(byName), sorted);
    library.context().save();
    EXPECT_EQ(clientNames(byName), sorted);
}

TEST_F(Fetch, keepsEqualRecordsInTheOrderOfTheirCreationAndReversesItWithTheSort) {
    for (const char* email : {"1", "2", "3", "4"}) {
        library.addClient("same")->email = email;
        if (*email == '2') library.context().save();
    }
    const auto emails = [&](SortOrder order) {
        Names found;
        for (const auto& client :
             library.context().fetch<Client>({.sortBy = {sortedBy<&Client::name>(order)}}))
            found.push_back(client->email);
        return found;
    };
    EXPECT_EQ(emails(SortOrder::forward), (Names{"1", "2", "3", "4"}));
    EXPECT_EQ(emails(SortOrder::reverse), (Names{"4", "3", "2", "1"}));
    library.context().save();
    EXPECT_EQ(emails(SortOrder::forward), (Names{"1", "2", "3", "4"}));
    EXPECT_EQ(emails(SortOrder::reverse), (Names{"4", "3", "2", "1"}));
}

TEST_F(Fetch, putsAbsentValuesFirst) {
    const auto start = at("2026-03-01T09:00Z");
    const auto ended = library.addEntry(nullptr, start, at("2026-03-01T10:00Z"));
    const auto open = library.addEntry(nullptr, start, std::nullopt);
    const Query<TimeEntry> byEnd{.sortBy = {sortedBy<&TimeEntry::end>()}};
    EXPECT_EQ(library.context().fetch(byEnd), (std::vector{open, ended}));
    library.context().save();
    EXPECT_EQ(library.context().fetch(byEnd), (std::vector{open, ended}));
}

TEST_F(Fetch, sortsByTheUnsavedValue) {
    addClients({"a", "b", "c"});
    library.context().save();
    library.context().fetch<Client>().at(0)->name = "z";
    EXPECT_EQ(clientNames({.sortBy = {sortedBy<&Client::name>()}}), (Names{"b", "c", "z"}));
}

TEST_F(Fetch, countsWithUnsavedChanges) {
    addClients({"a", "b", "c", "d"});
    library.context().save();
    const auto clients = library.context().fetch<Client>();
    const Query<Client> notA{.predicate = key<&Client::name>() != std::string("a")};
    clients[1]->name = "a";
    library.context().deleteRecord(clients[2]);
    clients[3]->email = "changed, and still a match";
    addClients({"a", "e"});
    EXPECT_EQ(library.context().fetchCount(notA), 2U);
    EXPECT_EQ(clientNames(notA), (Names{"d", "e"}));
    EXPECT_EQ(library.context().fetchCount<Client>(), 5U);
    library.context().save();
    EXPECT_EQ(library.context().fetchCount(notA), 2U);
}

TEST_F(Fetch, limitsAfterUnsavedChangesAreLaidOver) {
    addClients({"b", "c", "d", "e"});
    library.context().save();
    const auto clients = library.context().fetch<Client>();
    library.context().deleteRecord(clients[0]);
    clients[1]->name = "z";
    addClients({"a"});
    const Query<Client> firstThree{.sortBy = {sortedBy<&Client::name>()}, .fetchLimit = 3};
    EXPECT_EQ(clientNames(firstThree), (Names{"a", "d", "e"}));
    EXPECT_EQ(library.context().fetchCount(firstThree), 4U);
}

TEST_F(Fetch, withLimitZeroGivesNothing) {
    addClients({"a"});
    library.context().save();
    addClients({"b"});
    EXPECT_TRUE(clientNames({.fetchLimit = 0}).empty());
}

TEST_F(Fetch, findsByTheRecordThatIsPointedTo) {
    const auto acme = library.addClient("Acme");
    const auto website = library.addProject("Website", acme);
    const auto own = library.addProject("Own", nullptr);
    library.context().save();
    EXPECT_EQ(library.context().fetch<Project>({.predicate = key<&Project::client>() == acme}),
              std::vector{website});
    EXPECT_EQ(library.context().fetch<Project>({.predicate = key<&Project::client>() == absent}),
              std::vector{own});
    EXPECT_EQ(library.context().fetch<Project>({.predicate = key<&Project::client>() != acme}),
              std::vector{own});
}

TEST_F(Fetch, withUnsavedChangesGivesWhatItGivesOnceTheyAreSaved) {
    std::mt19937 random(20260301);
    const auto pick = [&](int count) {
        return std::uniform_int_distribution<int>(0, count - 1)(random);
    };
    for (int round = 0; round < 60; ++round) {
        const auto clients = library.context().fetch<Client>();
        for (const auto& client : clients) {
            if (pick(4) == 0) client->hourlyRateCents = pick(6);
            if (pick(8) == 0) library.context().deleteRecord(client);
        }
        for (int i = pick(8); i > 0; --i) library.addClient("n")->hourlyRateCents = pick(6);

        Query<Client> descriptor;
        if (pick(2) == 0)
            descriptor.sortBy.push_back(sortedBy<&Client::hourlyRateCents>(
                pick(2) == 0 ? SortOrder::forward : SortOrder::reverse));
        if (pick(2) == 0) descriptor.fetchLimit = static_cast<std::size_t>(pick(10));
        if (pick(2) == 0) descriptor.predicate = key<&Client::hourlyRateCents>() < pick(6);
        const auto before = library.context().fetch(descriptor);
        const auto count = library.context().fetchCount(descriptor);
        library.context().save();
        ASSERT_EQ(library.context().fetch(descriptor), before) << "round " << round;
        ASSERT_EQ(library.context().fetchCount(descriptor), count) << "round " << round;
    }
}

}  // namespace
}  // namespace elmworth
