// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace elmworth {

/// Callbacks that are called with `Arguments` until their handles die.
///
/// A callback may add and drop observations, its own included, and may cause another `notify`: a
/// dropped one is not called again, and one that is added is first called by the next `notify`. A
/// handle may outlive the observers.
template <class... Arguments>
class Observers {
 public:
    using Callback = std::function<void(Arguments...)>;
    using Observation = std::shared_ptr<void>;

    Observers() = default;
    Observers(const Observers&) = delete;
    Observers& operator=(const Observers&) = delete;

    [[nodiscard]] Observation add(Callback callback) {
        auto entry = std::make_shared<Entry>(std::make_shared<Callback>(std::move(callback)));
        entries_.push_back(entry);
        return entry;
    }

    /// Calls all, in the order in which they were added. What one throws goes on to the caller, and
    /// the others are not called.
    void notify(const Arguments&... arguments) {
        std::erase_if(entries_, [](const auto& entry) { return entry.expired(); });
        const auto present = entries_;
        for (const auto& entry : present) {
            if (const auto callback = alive(entry)) (*callback)(arguments...);
        }
    }

    [[nodiscard]] bool isEmpty() const {
        return std::all_of(entries_.begin(), entries_.end(),
                           [](const auto& entry) { return entry.expired(); });
    }

 private:
    /// The handle alone owns the entry; the callback lives on while it runs.
    using Entry = std::shared_ptr<Callback>;

    [[nodiscard]] static Entry alive(const std::weak_ptr<Entry>& entry) {
        const auto found = entry.lock();
        return found ? *found : nullptr;
    }

    std::vector<std::weak_ptr<Entry>> entries_;
};

}  // namespace elmworth
