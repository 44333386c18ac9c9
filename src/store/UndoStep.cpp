// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/UndoStep.h"

#include <algorithm>
#include <unordered_map>

namespace elmworth {

namespace {

std::size_t bytesOf(const std::optional<FieldValues>& values) noexcept {
    return values ? values->bytes() : 0;
}

/// The fields that differ between `before` and `after`, which have the same fields.
void keepDifferences(RecordStep& step, const FieldValues& before, const FieldValues& after) {
    FieldValues old;
    FieldValues now;
    before.forEach([&](std::size_t field, const Value& value) {
        if (value == *after.find(field)) return;
        old.set(field, value);
        now.set(field, *after.find(field));
    });
    step.before = std::move(old);
    step.after = std::move(now);
}

void overlay(FieldValues& values, const FieldValues& others) {
    others.forEach([&](std::size_t field, const Value& value) { values.set(field, value); });
}

/// Two consecutive changes of a record as one.
void join(RecordStep& step, RecordStep next) {
    // A change holds only its own fields; the others are taken from the other change.
    if (step.before && next.before) {
        auto before = std::move(*next.before);
        overlay(before, *step.before);
        step.before = std::move(before);
    }
    if (step.after && next.after) {
        overlay(*step.after, *next.after);
    } else {
        step.after = std::move(next.after);
    }
    if (!step.before || !step.after) return;
    const auto before = std::move(*step.before);
    auto after = std::move(*step.after);
    keepDifferences(step, before, after);
}

/// Whether the record is as before the step.
bool isNothing(const RecordStep& step) {
    if (!step.before || !step.after) return !step.before && !step.after;
    return step.after->mask() == 0;
}

}  // namespace

void FieldValues::set(std::size_t field, Value value) {
    const auto at = values_.begin() + static_cast<std::ptrdiff_t>(place(field));
    if (has(field)) {
        *at = std::move(value);
    } else {
        values_.insert(at, std::move(value));
        mask_ |= std::uint64_t{1} << field;
    }
}

std::size_t FieldValues::bytes() const noexcept {
    std::size_t bytes = sizeof(Value) * values_.size();
    for (const auto& value : values_) {
        if (const auto* text = std::get_if<std::string>(&value)) bytes += text->size();
        if (const auto* blob = std::get_if<Blob>(&value)) bytes += blob->bytes.size();
    }
    return bytes;
}

std::string StepName::text(std::size_t records) const {
    if (records == 1 || several_.empty()) return one_;
    std::string text = several_;
    return text.replace(text.find("%1"), 2, std::to_string(records));
}

std::size_t UndoStep::bytes() const noexcept {
    std::size_t bytes = sizeof *this;
    for (const auto& record : records) {
        bytes += sizeof record + bytesOf(record.before) + bytesOf(record.after);
    }
    return bytes;
}

void append(std::vector<RecordStep>& step, std::vector<RecordStep> next) {
    std::unordered_map<PersistentID, std::size_t> places;
    for (std::size_t i = 0; i < step.size(); ++i) places.emplace(step[i].id, i);
    for (auto& record : next) {
        const auto known = places.find(record.id);
        if (known == places.end()) {
            step.push_back(std::move(record));
        } else {
            join(step[known->second], std::move(record));
        }
    }
    std::erase_if(step, isNothing);
}

}  // namespace elmworth
