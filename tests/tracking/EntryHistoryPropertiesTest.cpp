// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <map>
#include <random>
#include <set>

#include "support/LibraryText.h"
#include "tracking/HistoryTest.h"

// What holds whatever a person does, in any order.

namespace elmworth {
namespace {

using namespace std::chrono_literals;

/// A person at the timesheet who picks at random.
class EntryHistoryProperties : public test::HistoryTest,
                               public testing::WithParamInterface<unsigned> {
 protected:
    EntryHistoryProperties() : HistoryTest(test::InMemory{}) {}

    using Entries = std::vector<Ref<TimeEntry>>;
    using Identities = std::set<PersistentID>;
    using Texts = std::map<PersistentID, std::string>;

    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    Entries entries() { return context().fetch<TimeEntry>(); }
    Ref<TimeEntry> anyEntry() {
        const auto all = entries();
        return all.empty() ? nullptr : all[static_cast<std::size_t>(pick(int(all.size())))];
    }
    Entries someEntries() {
        Entries some;
        for (const auto& entry : entries()) {
            if (pick(3) == 0) some.push_back(entry);
        }
        return some;
    }
    Ref<Project> anyProject() { return pick(2) == 0 ? website_ : app_; }
    /// Often no time passes at all, so that entries of less than a second are swept away.
    void passTime() {
        if (pick(3) != 0) timer.now += std::chrono::seconds(pick(1200));
    }
    void saveForm(const Ref<TimeEntry>& entry) {
        const Instant start = timer.now - std::chrono::minutes(pick(600));
        editing_.save({anyProject(), start, start + std::chrono::minutes(1 + pick(60)),
                       std::to_string(pick(1000)), entry && entry->isRunning()},
                      entry);
    }

    /// One of the things that can be undone.
    void doAnything() {
        const auto entry = anyEntry();
        switch (pick(entry ? 6 : 1)) {
            case 0:
                return saveForm(nullptr);
            case 1:
                if (!entry->invoice) saveForm(entry);
                return;
            case 2:
                editing_.duplicateEntryToToday(entry);
                return;
            case 3:
                editing_.continueEntry(entry);
                return;
            case 4:
                move(someEntries(), anyProject());
                return;
            default:
                remove(someEntries());
                return;
        }
    }

    /// Something that this history knows nothing of.
    void interfere() {
        const auto entry = anyEntry();
        switch (pick(entry ? 7 : 1)) {
            case 0:
                return service().start(anyProject(), "panel");
            case 1:
                return service().stop();
            case 2:
                return service().stop(timer.now - std::chrono::minutes(pick(20)));
            case 3:
                service().continueEntry(entry);
                return;
            case 4:
                if (!entry->invoice) entry->notes = "elsewhere";
                return context().save();
            case 5:
                if (!entry->isRunning()) entry->invoice = invoice_;
                return context().save();
            default:
                entry->invoice = nullptr;
                return context().save();
        }
    }
    void undoOrRedo() {
        if (pick(3) == 0) {
            history().redo();
        } else {
            history().undo();
        }
    }

    Texts texts(bool billedOnly) {
        Texts texts;
        for (const auto& entry : entries()) {
            if (billedOnly && !entry->invoice) continue;
            std::string text;
            for (const auto& field : TimeEntry::schema().fields) {
                text += ' ' + test::valueText(field.read(*entry));
            }
            texts[entry->id()] = text;
        }
        return texts;
    }

    Identities identities() {
        Identities identities;
        for (const auto& entry : entries()) identities.insert(entry->id());
        return identities;
    }
    static Identities without(Identities all, const Identities& others) {
        std::erase_if(all, [&](const auto& id) { return others.contains(id); });
        return all;
    }

    void expectOneTimer() {
        const auto open =
            context().fetch(Query<TimeEntry>{.predicate = key<&TimeEntry::end>() == absent});
        ASSERT_LE(open.size(), 1U);
        EXPECT_EQ(service().running(), open.empty() ? nullptr : open[0]);
        EXPECT_EQ(timer.library.runLoop.repeatingCount(), open.size());
    }
    void expectNoneReversed() {
        for (const auto& entry : entries()) EXPECT_GE(entry->duration(timer.now), 0);
    }

    std::mt19937 random_{GetParam()};
    Ref<Invoice> invoice_ = timer.library.addInvoice("INV-1", acme_);
};

TEST_P(EntryHistoryProperties, undoAndRedoWalkThroughTheSameStates) {
    service().start(website_, "first");
    std::vector<Texts> states = {texts(false)};
    std::size_t at = 0;
    const auto walk = [&](bool back) {
        EXPECT_EQ((back ? history().undo() : history().redo()).notice(), "");
        at = back ? at - 1 : at + 1;
        ASSERT_EQ(texts(false), states[at]) << "after " << at << " steps";
        expectOneTimer();
    };
    for (int i = 0; i < 60; ++i) {
        passTime();
        if (history().canUndo() && pick(4) == 0) {
            walk(true);
        } else if (history().canRedo() && pick(2) == 0) {
            walk(false);
        } else {
            doAnything();
            if (texts(false) == states[at]) continue;  // nothing happened
            states.resize(at + 1);
            states.push_back(texts(false));
            ++at;
        }
        if (HasFatalFailure()) return;
    }
    while (history().canUndo()) ASSERT_NO_FATAL_FAILURE(walk(true));
    EXPECT_EQ(at, 0U);
    while (history().canRedo()) ASSERT_NO_FATAL_FAILURE(walk(false));
    EXPECT_EQ(at, states.size() - 1);
}

TEST_P(EntryHistoryProperties, oneTimerAtMostRunsAndBilledEntriesStayAndNothingIsReversed) {
    for (int i = 0; i < 120; ++i) {
        passTime();
        if (pick(3) == 0) {
            interfere();
        } else {
            const auto billed = texts(true);
            if (pick(2) == 0) {
                doAnything();
            } else {
                undoOrRedo();
            }
            EXPECT_EQ(texts(true), billed) << i;
        }
        ASSERT_NO_FATAL_FAILURE(expectOneTimer()) << i;
        expectNoneReversed();
        if (HasFailure()) return;
    }
}

TEST_P(EntryHistoryProperties, anUndoTakesAwayOnlyWhatAStepMadeAndARedoOnlyWhatAStepTookAway) {
    Identities made;
    Identities taken;
    for (int i = 0; i < 120; ++i) {
        passTime();
        if (pick(4) == 0) interfere();
        const auto start = identities();
        doAnything();
        const auto done = identities();
        made.merge(without(done, start));
        taken.merge(without(start, done));
        for (int undos = pick(4); undos > 0; --undos) {
            const auto before = identities();
            history().undo();
            EXPECT_EQ(without(without(before, identities()), made), Identities{}) << i;
        }
        for (int redos = pick(4); redos > 0; --redos) {
            const auto before = identities();
            history().redo();
            EXPECT_EQ(without(without(before, identities()), taken), Identities{}) << i;
        }
        if (HasFailure()) return;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, EntryHistoryProperties, testing::Range(1U, 41U));

}  // namespace
}  // namespace elmworth
