// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Whatever happens to a library while its years are read piece by piece, a timesheet ends up with
// what a fresh look at all of it would show.

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "support/Rows.h"
#include "support/ScopedEnvironment.h"
#include "support/TestLibrary.h"
#include "tracking/ReferenceListing.h"
#include "tracking/TimesheetContents.h"

namespace elmworth {
namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;
using test::at;
using test::rowName;
using test::TestLibrary;

struct PlaceRow {
    const char* name;
    const char* locale;
    const char* zone;
    unsigned seed;
};

class TimesheetContentsProperties : public testing::TestWithParam<PlaceRow> {
 protected:
    TimesheetContentsProperties() {
        filter_.range = fourteenYears();
        for (const char* name : {"Acme", "Globex"}) clients_.push_back(library_.addClient(name));
        projects_ = {nullptr, library_.addProject("Website", clients_[0]),
                     library_.addProject("Shop", clients_[1]), library_.addProject("Own", nullptr)};
        invoice_ = library_.addInvoice("INV-1", clients_[0]);
        for (int i = 0; i < 60; ++i) addEntry();
        context().save();
        // As a window does it: a change is told in the next turn, and at once in a save.
        observation_ = context().observeAll([this](const RecordChanges& changes) {
            const bool isOfEntries =
                !changes.touch(Project::schema()) && !changes.touch(Client::schema());
            isOfEntries ? contents_.follow(changes) : contents_.reload();
        });
        contents_.setFilter(filter_);
    }

    [[nodiscard]] int upTo(int last) { return std::uniform_int_distribution(0, last)(random_); }
    [[nodiscard]] UnitOfWork& context() { return library_.context(); }

    [[nodiscard]] DateInterval fourteenYears() const {
        return {calendar_.startOfDay(at("2017-05-05T00:00Z")),
                calendar_.startOfDay(at("2031-05-05T00:00Z"))};
    }
    [[nodiscard]] Instant someInstant() {
        return at("2019-12-20T00:00Z") + minutes(upTo(8 * 366 * 24 * 60));
    }
    [[nodiscard]] Instant::duration someLength() {
        switch (upTo(9)) {
            case 0:
                return days(upTo(900));  // over several years
            case 1:
                return -minutes(upTo(90));
            case 2:
                return seconds(0);
            default:
                return minutes(upTo(1000));
        }
    }
    [[nodiscard]] Ref<TimeEntry> someEntry() {
        auto entries = context().fetch<TimeEntry>();
        return entries[static_cast<std::size_t>(upTo(static_cast<int>(entries.size()) - 1))];
    }
    [[nodiscard]] Ref<Project> someProject() {
        return projects_[static_cast<std::size_t>(upTo(3))];
    }

    void addEntry() {
        const Instant start = someInstant();
        const auto entry = library_.addEntry(someProject(), start, start + someLength());
        entry->notes = std::to_string(upTo(20));
    }
    void moveEntry() {
        const auto entry = someEntry();
        entry->start = someInstant();
        entry->end = entry->start.get() + someLength();
    }
    void changeEntry() {
        const auto entry = someEntry();
        switch (upTo(3)) {
            case 0:
                entry->project = someProject();
                break;
            case 1:
                entry->notes = std::to_string(upTo(20));
                break;
            case 2:
                entry->invoice = entry->invoice ? nullptr : invoice_;
                break;
            default:
                entry->end = entry->end.get() ? std::nullopt
                                              : std::optional(entry->start.get() + someLength());
        }
    }
    void renameSomething() {
        if (upTo(1) == 0) {
            projects_[1]->name = "Website " + std::to_string(upTo(9));
        } else {
            projects_[1]->client = clients_[static_cast<std::size_t>(upTo(1))];
        }
    }
    /// Mostly of many years without conditions, which are read piece by piece.
    void changeFilter() {
        switch (upTo(9)) {
            case 0:
                filter_.range = *calendar_.interval(CalendarUnit::month, someInstant());
                break;
            case 1:
                filter_.range = fourteenYears();
                break;
            case 2:
                filter_.range = customInterval(someInstant(), someInstant(), calendar_);
                break;
            case 3:
                filter_.unbilledOnly = !filter_.unbilledOnly;
                break;
            case 4:
                filter_.search = upTo(1) == 0 ? "" : std::to_string(upTo(9));
                break;
            case 5:
                filter_.project = someProject();
                filter_.client = upTo(2) == 0 ? clients_[0] : nullptr;
                break;
            default:
                filter_ = {};
                filter_.range = fourteenYears();
        }
        contents_.setFilter(filter_);
    }
    void step() {
        switch (upTo(9)) {
            case 0:
                return addEntry();
            case 1:
                return context().deleteRecord(someEntry());
            case 2:
                return moveEntry();
            case 3:
                return changeEntry();
            case 4:
                return renameSomething();
            case 5:
                return changeFilter();
            case 6:
                return context().save();
            case 7:
                now_ += hours(upTo(30));
                return contents_.reload();
            default:
                return library_.runLoop.turn();
        }
    }

    /// What shows meanwhile may be of before a change, but never has an entry twice, nor a day, and
    /// stands in order.
    void expectSound() const {
        std::vector<PersistentID> ids;
        for (const auto& place : shown_->entries) ids.push_back(place.entry().id);
        std::sort(ids.begin(), ids.end());
        EXPECT_EQ(std::adjacent_find(ids.begin(), ids.end()), ids.end());
        for (std::size_t i = 1; i < shown_->entries.size(); ++i) {
            EXPECT_GE(shown_->entries[i - 1].entry().start, shown_->entries[i].entry().start);
        }
        for (std::size_t i = 1; i < shown_->days.size(); ++i) {
            EXPECT_GT(shown_->days[i - 1]->start, shown_->days[i]->start);
        }
    }
    /// Lets the loop turn until all is told and read.
    void settle() {
        library_.runLoop.turn();
        expectSound();
        for (int turn = 0; contents_.isReading(); ++turn) {
            ASSERT_LT(turn, 100);
            library_.runLoop.turn();
            expectSound();
        }
    }

    const PlaceRow& row_ = GetParam();
    test::ScopedEnvironment locale_{"LC_ALL", std::string(row_.locale) + ".UTF-8"};
    TestLibrary library_{test::InMemory{}};
    Calendar calendar_{Locale(row_.locale), row_.zone};
    Instant now_ = at("2026-11-06T12:00Z");
    std::mt19937 random_{row_.seed};  // NOLINT: the same steps in each run
    std::vector<Ref<Client>> clients_;
    std::vector<Ref<Project>> projects_;
    Ref<Invoice> invoice_;
    TimesheetFilter filter_;
    std::shared_ptr<const TimesheetListing> shown_;
    TimesheetContents contents_{context(),
                                library_.runLoop,
                                [this] { return now_; },
                                [this] { return calendar_; },
                                {[this](auto listing) { shown_ = std::move(listing); }},
                                5};
    UnitOfWork::Observation observation_;
};

TEST_P(TimesheetContentsProperties, whateverHappensWhileItIsReadItEndsAsAFreshLook) {
    int pieceReads = 0;
    for (int round = 0; round < 40 && !HasFailure(); ++round) {
        for (int i = upTo(6); i >= 0; --i) {
            step();
            expectSound();
            pieceReads += contents_.isReading() ? 1 : 0;
        }
        settle();
        ASSERT_EQ(test::linesOf(*shown_, now_),
                  test::naiveListing(context(), filter_, now_, calendar_))
            << "round " << round;
    }
    EXPECT_GT(pieceReads, 20) << "the years must be read piece by piece for this to say anything";
}

INSTANTIATE_TEST_SUITE_P(, TimesheetContentsProperties,
                         testing::Values(PlaceRow{"Berlin", "de_DE", "Europe/Berlin", 1},
                                         PlaceRow{"NewYork", "en_US", "America/New_York", 2},
                                         PlaceRow{"Apia", "en_US", "Pacific/Apia", 3},
                                         PlaceRow{"Beirut", "de_DE", "Asia/Beirut", 4},
                                         PlaceRow{"UTC", "en_US", "UTC", 5}),
                         rowName);

}  // namespace
}  // namespace elmworth
