// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/Predicate.h"

#include <gtest/gtest.h>

#include <random>

#include "store/UnitOfWork.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::TestLibrary;

/// Random time entries, and random conditions over all of their fields, from few enough values that
/// conditions often meet.
class RandomLibrary {
 public:
    explicit RandomLibrary(unsigned seed) : random_(seed) {
        for (int i = 0; i < 3; ++i) {
            projects_.push_back(library.addProject("p", nullptr));
            invoices_.push_back(library.addInvoice(std::to_string(i), nullptr));
        }
        for (int i = 0; i < 40; ++i) randomize(*library.addEntry(nullptr, instant(), {}));
        library.context().save();
    }

    /// Changes, adds and deletes some entries.
    void change() {
        for (const auto& entry : library.context().fetch<TimeEntry>()) {
            if (pick(4) == 0) randomize(*entry);
            if (pick(8) == 0) library.context().deleteRecord(entry);
        }
        for (int i = pick(8); i > 0; --i) randomize(*library.addEntry(nullptr, instant(), {}));
    }

    Predicate<TimeEntry> condition(int depth) {
        if (depth == 0 || pick(4) == 0) return comparison();
        switch (pick(3)) {
            case 0:
                return condition(depth - 1) && condition(depth - 1);
            case 1:
                return condition(depth - 1) || condition(depth - 1);
            default:
                return !condition(depth - 1);
        }
    }

    TestLibrary library;

 private:
    using Kind = PredicateNode::Kind;

    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    Instant instant() { return at("2026-03-01T09:00Z") + std::chrono::hours(pick(5)); }

    void randomize(TimeEntry& entry) {
        entry.start = instant();
        entry.end = pick(2) == 0 ? std::nullopt : std::optional(instant());
        entry.notes = text();
        entry.project = pick(3) == 0 ? nullptr : projects_[static_cast<std::size_t>(pick(3))];
        entry.invoice = pick(2) == 0 ? nullptr : invoices_[static_cast<std::size_t>(pick(3))];
        entry.billedRateCents = pick(2) == 0 ? std::nullopt : std::optional(std::int64_t{pick(4)});
    }
    std::string text() {
        static const char* const texts[] = {"", "a", "A", "b", "\xC3\xA4", "a'; --"};
        return texts[pick(6)];
    }

    Predicate<TimeEntry> comparison() {
        const auto fields = TimeEntry::schema().fields;
        const auto field = static_cast<std::size_t>(pick(static_cast<int>(fields.size())));
        const auto kind = static_cast<Kind>(pick(6));
        return Predicate<TimeEntry>(PredicateNode{kind, field, value(fields[field]), {}});
    }
    Value value(const FieldDescription& field) {
        if (pick(4) == 0) return {};
        if (field.storage == StorageClass::text) return text();
        if (field.name == "billedRateCents") return std::int64_t{pick(4)};
        if (field.storage == StorageClass::integer) return FieldTraits<Instant>::toValue(instant());
        const auto target = static_cast<std::size_t>(pick(3));
        return field.name == "project" ? projects_[target]->id() : invoices_[target]->id();
    }

    std::mt19937 random_;
    std::vector<Ref<Project>> projects_;
    std::vector<Ref<Invoice>> invoices_;
};

class RandomPredicate : public testing::TestWithParam<unsigned> {};

TEST_P(RandomPredicate, meansTheSameInSQLAsInMemory) {
    RandomLibrary random(GetParam());
    auto& context = random.library.context();
    for (int i = 0; i < 300; ++i) {
        if (i == 150) random.change();
        const auto condition = random.condition(4);
        std::vector<Ref<TimeEntry>> expected;
        for (const auto& entry : context.fetch<TimeEntry>()) {
            if (condition.node()->matches(TimeEntry::schema(), *entry)) expected.push_back(entry);
        }
        const Query<TimeEntry> descriptor{.predicate = condition};
        ASSERT_EQ(context.fetch(descriptor), expected) << "condition " << i;
        ASSERT_EQ(context.fetchCount(descriptor), expected.size()) << "condition " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomPredicate, testing::Values(1U, 2U, 3U, 4U, 5U));

class AbsentValues : public testing::Test {
 protected:
    AbsentValues() {
        open = library.addEntry(nullptr, at("2026-03-01T09:00Z"), std::nullopt);
        ended = library.addEntry(nullptr, at("2026-03-01T09:00Z"), noon);
        library.context().save();
    }
    [[nodiscard]] std::vector<Ref<TimeEntry>> fetch(const Predicate<TimeEntry>& predicate) {
        return library.context().fetch<TimeEntry>({.predicate = predicate});
    }

    TestLibrary library;
    const Instant noon = at("2026-03-01T12:00Z");
    const std::vector<Ref<TimeEntry>> none;
    Ref<TimeEntry> open, ended;
};

TEST_F(AbsentValues, areNeitherLessNorGreaterThanAnything) {
    const auto end = key<&TimeEntry::end>();
    EXPECT_EQ(fetch(end < noon), none);
    EXPECT_EQ(fetch(end <= noon), std::vector{ended});
    EXPECT_EQ(fetch(end > noon), none);
    EXPECT_EQ(fetch(end >= noon), std::vector{ended});
}

TEST_F(AbsentValues, areFoundByTheNegationOfAComparison) {
    const auto end = key<&TimeEntry::end>();
    EXPECT_EQ(fetch(!(end < noon)), (std::vector{open, ended}));
    EXPECT_EQ(fetch(!(end <= noon)), std::vector{open});
    EXPECT_EQ(fetch(!(end == noon)), std::vector{open});
    EXPECT_EQ(fetch(!!(end == noon)), std::vector{ended});
}

TEST_F(AbsentValues, differFromEveryPresentOne) {
    const auto end = key<&TimeEntry::end>();
    EXPECT_EQ(fetch(end != noon), std::vector{open});
    EXPECT_EQ(fetch(end == absent), std::vector{open});
    EXPECT_EQ(fetch(end != absent), std::vector{ended});
    EXPECT_EQ(fetch(!(end == absent)), std::vector{ended});
}

TEST_F(AbsentValues, canStandForAnOptionalWithoutValue) {
    EXPECT_EQ(fetch(key<&TimeEntry::end>() == std::optional<Instant>()), std::vector{open});
    EXPECT_EQ(fetch(key<&TimeEntry::project>() == Ref<Project>()), (std::vector{open, ended}));
}

}  // namespace
}  // namespace elmworth
