// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryUndoGuard.h"

#include <algorithm>

#include "platform/Text.h"
#include "records/Client.h"
#include "records/Invoice.h"

namespace elmworth {

namespace {

using namespace std::chrono_literals;
using Item = UndoReversal::Item;

constexpr auto minimumLength = 1s;

template <auto Member>
std::size_t field() {
    static const std::size_t index = KeyPath<Member>::index();
    return index;
}

std::optional<Instant> instant(const Value& value) {
    return FieldTraits<std::optional<Instant>>::fromValue(value);
}

std::optional<PersistentID> identity(const Value& value) {
    return FieldTraits<std::optional<PersistentID>>::fromValue(value);
}

bool isEntry(const Item& item) {
    return item.is(TimeEntry::schema());
}

// --- the invoices ------------------------------------------------------------------------------

/// Whether the step did nothing to a billed entry but to put it on its invoice, or take it off.
bool isBillingAlone(const RecordStep& step) {
    if (!step.before || !step.after) return false;
    const std::uint64_t billing = std::uint64_t{1} << field<&TimeEntry::invoice>() |
                                  std::uint64_t{1} << field<&TimeEntry::billedRateCents>();
    return (step.after->mask() & ~billing) == 0;
}

/// Whether an entry may be taken off the invoice on which it is.
bool mayLeaveInvoice(const Item& entry, const PersistentID& invoice, UndoReversal& reversal) {
    const auto* item = reversal.item(invoice);
    if (!item || item->isLeftAlone || !item->goes()) return false;
    return entry.goes() || isBillingAlone(*entry.step);
}

/// Whether an entry may be put on an invoice.
bool mayJoinInvoice(const Item& entry, const PersistentID& invoice, UndoReversal& reversal) {
    if (!instant(entry.goalOf(field<&TimeEntry::end>()))) return false;
    const auto* item = reversal.item(invoice);
    const bool comesToo = item && !item->isLeftAlone && item->comes();
    return comesToo || (entry.comes() && (!item || !item->comes()));
}

void reviewEntry(Item& entry, UndoReversal& reversal) {
    const auto on = identity(entry.current(field<&TimeEntry::invoice>()));
    const auto goal = identity(entry.goalOf(field<&TimeEntry::invoice>()));
    if (on && !mayLeaveInvoice(entry, *on, reversal)) {
        reversal.leaveAlone(entry, &EntryUndoGuard::billed);
    } else if (goal && goal != on && !mayJoinInvoice(entry, *goal, reversal)) {
        reversal.leaveAlone(entry, &UndoReversal::changedSince);
    }
}

/// An entry whose invoice is gone is not billed; it keeps no rate of that.
void reviewLostInvoice(Item& entry, UndoReversal& reversal) {
    const auto& before = entry.step->before;
    const auto* former = before ? before->find(field<&TimeEntry::invoice>()) : nullptr;
    const auto invoice = former ? identity(*former) : std::nullopt;
    if (!invoice || !reversal.isLost(Invoice::schema(), *invoice)) return;
    if (entry.step->after) {
        reversal.leaveAlone(entry, &UndoReversal::changedSince);
    } else {
        entry.goal->set(field<&TimeEntry::billedRateCents>(), {});
    }
}

/// Whether everything of the invoice comes back: its client, its entries, and a number that is
/// still free, however it is written.
bool comesBackWhole(const Item& invoice, UndoReversal& reversal) {
    const auto client = identity(*invoice.step->before->find(field<&Invoice::client>()));
    if (client && reversal.isLost(Client::schema(), *client)) return false;
    return std::none_of(reversal.items().begin(), reversal.items().end(), [&](const Item& item) {
        if (!item.isLeftAlone || !isEntry(item) || !item.step->before) return false;
        const auto* former = item.step->before->find(field<&TimeEntry::invoice>());
        return former && *former == Value{invoice.step->id};
    });
}

bool isNumberTaken(const Item& invoice, UndoReversal& reversal) {
    const auto* number = invoice.goal ? invoice.goal->find(field<&Invoice::number>()) : nullptr;
    if (!number) return false;
    const std::string wanted = canonical(std::get<std::string>(*number));
    bool isTaken = false;
    reversal.context().forEach<Invoice>({}, [&](const Invoice& other) {
        if (other.id() == invoice.step->id || canonical(other.number.get()) != wanted) return;
        const auto* item = reversal.item(other.id());
        isTaken = isTaken || !item || item->isLeftAlone || !item->goes();
    });
    return isTaken;
}

void reviewInvoice(Item& invoice, UndoReversal& reversal) {
    if (isNumberTaken(invoice, reversal)) {
        reversal.leaveAlone(invoice, &UndoReversal::taken);
    } else if (invoice.comes() && !comesBackWhole(invoice, reversal)) {
        reversal.leaveAlone(invoice, &UndoReversal::changedSince);
    }
}

// --- the timer ---------------------------------------------------------------------------------

bool runs(const std::optional<FieldValues>& state) {
    const auto* end = state ? state->find(field<&TimeEntry::end>()) : nullptr;
    return end && *end == Value{};
}

/// Whether the step took the running timer from this entry.
bool endsTimer(const RecordStep& step) {
    return runs(step.before) && !runs(step.after);
}

/// Whether the step gave the running timer to this entry.
bool beginsTimer(const RecordStep& step) {
    return runs(step.after) && !runs(step.before);
}

bool willRun(const Item& item) {
    return item.goal && !instant(item.goalOf(field<&TimeEntry::end>()));
}

/// Whether setting one end back would put the end before the start, because somebody else changed
/// the other one since.
bool getsReversed(const Item& item) {
    if (!item.goal || !item.step->after) return false;  // what comes back does so as it was
    const auto& goal = *item.goal;
    const bool isStartOurs = goal.has(field<&TimeEntry::start>());
    const bool isEndOurs = goal.has(field<&TimeEntry::end>());
    if (isStartOurs == isEndOurs) return false;
    const auto end = instant(item.goalOf(field<&TimeEntry::end>()));
    return end && *end < *instant(item.goalOf(field<&TimeEntry::start>()));
}

/// The timer of one undo.
class TimerPlan {
 public:
    explicit TimerPlan(UndoReversal& reversal) : reversal_(reversal) {}

    void plan() {
        for (const auto& item : reversal_.items()) {
            if (!isEntry(item) || !beginsTimer(*item.step)) continue;
            if (item.isLeftAlone) {
                wasLeftAlone_ = true;
            } else if (!stopped_) {
                stopped_ = &item;
            }
        }
        bool mayRun = true;
        for (auto& item : reversal_.items()) {
            if (item.isLeftAlone || !isEntry(item) || !endsTimer(*item.step)) continue;
            resume(item);
            if (item.isLeftAlone || !willRun(item)) continue;
            if (!mayRun || runsBeside()) finish(item);
            mayRun = mayRun && !willRun(item);
        }
    }

 private:
    /// Decides whether an entry that ran before the step runs on.
    void resume(Item& item) {
        if (stopped_) {
            item.goal->set(field<&TimeEntry::end>(), stopped_->current(field<&TimeEntry::end>()));
        } else if (wasLeftAlone_) {
            reversal_.leaveAlone(item, nullptr);  // the timer stays there: nothing takes over
        } else if (wasTrackedSince()) {
            finish(item);
        }
    }

    /// Ends an entry that ran before the step and may not run on.
    void finish(Item& item) {
        const Instant start = *instant(item.goalOf(field<&TimeEntry::start>()));
        const Instant end = std::max(reversal_.step().at, start + minimumLength);
        const Value ended = FieldTraits<Instant>::toValue(end);
        item.goal->set(field<&TimeEntry::end>(),
                       item.record ? item.current(field<&TimeEntry::end>()) : ended);
        reversal_.remark(EntryUndoGuard::timerStaysStopped);
    }

    [[nodiscard]] bool runsBeside() const {
        const auto running = reversal_.context().fetch(
            Query<TimeEntry>{.predicate = key<&TimeEntry::end>() == absent});
        return std::any_of(running.begin(), running.end(), [&](const auto& entry) {
            return !stopped_ || entry->id() != stopped_->step->id;
        });
    }

    [[nodiscard]] bool wasTrackedSince() const {
        const auto newest = reversal_.context().fetch(Query<TimeEntry>{
            .sortBy = {sortedBy<&TimeEntry::start>(SortOrder::reverse)}, .fetchLimit = 1});
        return !newest.empty() && newest[0]->start.get() > reversal_.step().at;
    }

    UndoReversal& reversal_;
    const Item* stopped_ = nullptr;  ///< the entry on which the step's timer is
    bool wasLeftAlone_ = false;      ///< that entry is left alone
};

}  // namespace

const Refusal EntryUndoGuard::billed{"is on an invoice and stays as it is.",
                                     "are on an invoice and stay as they are."};

/// A timer that the step began and that was stopped since has an end that the step did not leave;
/// the one that takes over gets at least a second of it.
bool EntryUndoGuard::holds(const RecordStep& step, std::size_t fieldIndex,
                           const Record& record) const {
    if (step.schema != &TimeEntry::schema() || fieldIndex != field<&TimeEntry::end>()) return false;
    if (!beginsTimer(step)) return false;
    if (!step.before) return true;
    const auto former = instant(*step.before->find(fieldIndex));
    const auto& end = static_cast<const TimeEntry&>(record).end.get();
    return end && *end >= *former + minimumLength;
}

void EntryUndoGuard::review(UndoReversal& reversal) {
    for (auto& item : reversal.items()) {
        if (!item.isLeftAlone && isEntry(item)) reviewEntry(item, reversal);
        if (!item.isLeftAlone && isEntry(item)) reviewLostInvoice(item, reversal);
        if (!item.isLeftAlone && isEntry(item) && getsReversed(item)) {
            reversal.leaveAlone(item, &UndoReversal::changedSince);
        }
        if (!item.isLeftAlone && item.is(Invoice::schema())) reviewInvoice(item, reversal);
    }
}

void EntryUndoGuard::adjust(UndoReversal& reversal) {
    TimerPlan(reversal).plan();
}

void EntryUndoGuard::applied(const UndoReversal& reversal) {
    timer_.refresh();
    for (const auto& item : reversal.items()) {
        if (item.isLeftAlone || !isEntry(item) || !endsTimer(*item.step) || !willRun(item)) {
            continue;
        }
        timer_.resume(std::static_pointer_cast<TimeEntry>(item.record));
    }
}

}  // namespace elmworth
