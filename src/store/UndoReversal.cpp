// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/UndoReversal.h"

#include <algorithm>

namespace elmworth {

namespace {

constexpr Refusal inUse{"is in use and stays.", "are in use and stay."};

}  // namespace

const Refusal UndoReversal::changedSince{"was changed since and stays as it is.",
                                         "were changed since and stay as they are."};
const Refusal UndoReversal::taken{"stays as it is, because another one took its place.",
                                  "stay as they are, because others took their place."};

Value UndoReversal::Item::current(std::size_t field) const {
    return record ? step->schema->fields[field].read(*record) : Value{};
}

Value UndoReversal::Item::goalOf(std::size_t field) const {
    if (!goal) return {};
    const auto* value = goal->find(field);
    return value ? *value : current(field);
}

UndoReversal::UndoReversal(const UndoStep& step, UnitOfWork& context, UndoGuard* guard)
    : step_(step), context_(context), guard_(guard) {
    plan();
    review();
    if (guard_) guard_->adjust(*this);
    dropUnchanged();
    result_.changed = items_.size() - leftAlone_;
}

void UndoReversal::plan() {
    items_.reserve(step_.records.size());
    for (const auto& change : step_.records) {
        if (change.before && !change.after) places_.emplace(change.id, items_.size());
        items_.push_back({&change, context_.record(*change.schema, change.id), change.before});
    }
    for (auto& item : items_) {
        if (item.goal) planGoal(item);
    }
}

void UndoReversal::planGoal(Item& item) {
    const auto& step = *item.step;
    forgetLost(*step.schema, *item.goal);
    if (!step.after) return;
    auto left = *step.after;
    forgetLost(*step.schema, left);
    FieldValues goal;
    item.goal->forEach([&](std::size_t field, const Value& value) {
        if (value != *left.find(field)) goal.set(field, value);
    });
    item.goal = std::move(goal);
}

void UndoReversal::forgetLost(const RecordSchema& schema, FieldValues& values) {
    for (std::size_t field = 0; field < schema.fields.size(); ++field) {
        if (!schema.fields[field].target) continue;
        const auto* value = values.find(field);
        const auto* id = value ? std::get_if<PersistentID>(value) : nullptr;
        if (id && isLost(schema.fields[field].target(), *id)) values.set(field, {});
    }
}

/// Repeats until nothing more is left alone, since other records may depend on what is.
void UndoReversal::review() {
    if (guard_) guard_->review(*this);
    leaveConflicts();
    for (std::size_t before = items_.size() + 1; before != leftAlone_;) {
        before = leftAlone_;
        if (guard_) guard_->review(*this);
        leaveTaken();
        leaveUsed();
    }
}

void UndoReversal::leaveConflicts() {
    for (auto& item : items_) {
        if (!item.isLeftAlone && !isAsLeft(item)) leaveAlone(item, &changedSince);
    }
}

void UndoReversal::leaveTaken() {
    for (auto& item : items_) {
        if (!item.isLeftAlone && item.goal && !isUnique(item)) leaveAlone(item, &taken);
    }
}

void UndoReversal::leaveUsed() {
    for (auto& item : items_) {
        if (!item.isLeftAlone && item.goes() && isUsed(item)) leaveAlone(item, &inUse);
    }
}

void UndoReversal::dropUnchanged() {
    for (auto& item : items_) {
        if (item.isLeftAlone || !item.record || !item.goal) continue;
        bool isAsBefore = true;
        item.goal->forEach([&](std::size_t field, const Value& value) {
            isAsBefore = isAsBefore && value == item.current(field);
        });
        if (isAsBefore) leaveAlone(item, nullptr);
    }
}

// --- conflicts ---------------------------------------------------------------------------------

bool UndoReversal::isAsLeft(const Item& item) {
    const auto& left = item.step->after;
    if (!left || !item.record) return !left && !item.record;
    bool isAsLeft = true;
    left->forEach([&](std::size_t field, const Value& value) {
        isAsLeft = isAsLeft && isFieldAsLeft(item, field, value);
    });
    return isAsLeft;
}

bool UndoReversal::isFieldAsLeft(const Item& item, std::size_t field, const Value& left) {
    // The goal dropped this field: both records that it pointed to are gone.
    if (item.goal && !item.goal->has(field)) return true;
    const auto current = item.current(field);
    if (current == left) return true;
    const auto* id = std::get_if<PersistentID>(&left);
    const auto target = item.step->schema->fields[field].target;
    if (id && target && current == Value{} && !exists(target(), *id)) return true;
    return guard_ && guard_->holds(*item.step, field, *item.record);
}

bool UndoReversal::staysWith(const Record& record, std::size_t field, const Value& value) {
    const auto* item = this->item(record.id());
    return !item || item->isLeftAlone || item->goalOf(field) == value;
}

bool UndoReversal::isUnique(const Item& item) {
    const auto fields = item.step->schema->fields;
    for (std::size_t field = 0; field < fields.size(); ++field) {
        const auto* value = fields[field].unique ? item.goal->find(field) : nullptr;
        if (!value) continue;
        for (const auto& other : context_.recordsWith(*item.step->schema, field, *value)) {
            if (other->id() != item.step->id && staysWith(*other, field, *value)) return false;
        }
    }
    return true;
}

bool UndoReversal::isUsed(const Item& item) {
    for (const auto& relationship : item.step->schema->relationships) {
        const auto& schema = relationship.target();
        const auto field = schema.fieldIndex(relationship.inverse);
        for (const auto& other : context_.recordsWith(schema, field, item.step->id)) {
            if (staysWith(*other, field, item.step->id)) return true;
        }
    }
    return false;
}

bool UndoReversal::exists(const RecordSchema& schema, const PersistentID& id) {
    const auto [known, isNew] = known_.try_emplace(id, false);
    if (isNew) known->second = context_.record(schema, id) != nullptr;
    return known->second;
}

bool UndoReversal::isLost(const RecordSchema& schema, const PersistentID& id) {
    const auto place = places_.find(id);
    if (place != places_.end()) {
        const auto& item = items_[place->second];
        if (item.comes() && !item.isLeftAlone) return false;
    }
    return !exists(schema, id);
}

UndoReversal::Item* UndoReversal::item(const PersistentID& id) {
    if (places_.size() < items_.size()) {
        for (std::size_t i = 0; i < items_.size(); ++i) places_.emplace(items_[i].step->id, i);
    }
    const auto place = places_.find(id);
    return place == places_.end() ? nullptr : &items_[place->second];
}

void UndoReversal::leaveAlone(Item& item, const Refusal* why) {
    if (item.isLeftAlone) return;
    item.isLeftAlone = true;
    ++leftAlone_;
    if (why) result_.leave(*item.step->schema, *why);
}

void UndoReversal::remark(const std::string& sentence) {
    auto& remarks = result_.remarks;
    if (std::find(remarks.begin(), remarks.end(), sentence) == remarks.end()) {
        remarks.push_back(sentence);
    }
}

// --- the records -------------------------------------------------------------------------------

void UndoReversal::apply() {
    for (auto& item : items_) {
        if (item.isLeftAlone || !item.goal || item.record) continue;
        item.record = context_.reinsert(*item.step->schema, item.step->id);
    }
    for (auto& item : items_) {
        if (item.isLeftAlone || !item.goal) continue;
        forgetLost(*item.step->schema, *item.goal);
        item.goal->forEach([&](std::size_t field, const Value& value) {
            context_.assign(item.record, field, value);
        });
    }
    for (auto& item : items_) {
        if (!item.isLeftAlone && item.goes()) context_.deleteRecord(item.record);
    }
}

}  // namespace elmworth
