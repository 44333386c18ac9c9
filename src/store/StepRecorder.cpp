// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/StepRecorder.h"

#include "store/Schema.h"

namespace elmworth {

void StepRecorder::touch(Record& record) {
    if (isTooMuch_) return;
    const auto [place, isNew] = places_.try_emplace(record.id_, touched_.size());
    if (!isNew) {
        auto& known = touched_[place->second].record;
        if (known.get() != &record) known = record.shared_from_this();  // it came back
        return;
    }
    Touched touched{record.shared_from_this(), record.context_ && !record.isDeleted(), nullptr};
    if (touched.existed && record.state_ != Record::State::clean) {
        touched.before = std::make_unique<std::vector<Value>>(record.capture());
    }
    touched_.push_back(std::move(touched));
}

void StepRecorder::takeSaved(Record& record) {
    const auto place = places_.find(record.id_);
    if (place == places_.end()) return;
    auto& touched = touched_[place->second];
    if (touched.existed && !touched.before) touched.before = std::move(record.saved_);
}

void StepRecorder::giveUp() noexcept {
    isTooMuch_ = true;
    places_.clear();
    touched_.clear();
}

std::optional<std::vector<RecordStep>> StepRecorder::finish() && {
    if (isTooMuch_) return std::nullopt;
    std::vector<RecordStep> records;
    records.reserve(touched_.size());
    for (auto& touched : touched_) add(touched, records);
    return records;
}

void StepRecorder::add(Touched& touched, std::vector<RecordStep>& records) {
    const auto& record = *touched.record;
    const bool exists = record.context_ && !record.isDeleted();
    const auto* schema = &record.recordSchema();
    if (!touched.existed) {
        if (exists) {
            records.push_back({schema, record.id(), {}, FieldValues(record.capture())});
        }
        return;
    }
    if (!touched.before && !record.saved_) return;  // rolled back
    auto before = touched.before ? std::move(*touched.before) : *record.saved_;
    if (exists) return addChange(record, std::move(before), records);
    records.push_back({schema, record.id(), FieldValues(std::move(before)), {}});
}

void StepRecorder::addChange(const Record& record, std::vector<Value>&& before,
                             std::vector<RecordStep>& records) {
    const auto& schema = record.recordSchema();
    FieldValues old;
    FieldValues now;
    for (std::size_t field = 0; field < before.size(); ++field) {
        auto value = schema.fields[field].read(record);
        if (value == before[field]) continue;
        old.set(field, std::move(before[field]));
        now.set(field, std::move(value));
    }
    if (now.mask() == 0) return;
    records.push_back({&schema, record.id(), std::move(old), std::move(now)});
}

}  // namespace elmworth
