// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "store/Record.h"
#include "store/UndoStep.h"

namespace elmworth {

/// Notes what becomes of the records of a unit of work, which tells it, as long as it lives.
class StepRecorder {
 public:
    /// Called before `record` comes, changes or goes.
    void touch(Record& record);
    /// Called when a save has made the changes of `record` durable, while it has its saved values;
    /// takes those where they are the ones before the step.
    void takeSaved(Record& record);
    /// From now on nothing is noted: it is too much.
    void giveUp() noexcept;

    /// What became of the records, in the order in which they were first touched; absent when it
    /// was too much.
    [[nodiscard]] std::optional<std::vector<RecordStep>> finish() &&;

 private:
    struct Touched {
        Ref<Record> record;
        bool existed;
        /// The values before the step; null for those that the record has as saved.
        std::unique_ptr<std::vector<Value>> before;
    };

    static void add(Touched& touched, std::vector<RecordStep>& records);
    static void addChange(const Record& record, std::vector<Value>&& before,
                          std::vector<RecordStep>& records);

    std::unordered_map<PersistentID, std::size_t> places_;
    std::vector<Touched> touched_;
    bool isTooMuch_ = false;
};

}  // namespace elmworth
