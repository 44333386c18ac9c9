// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "core/store/ModelContext.h"

namespace elmworth {

/// A fetch that follows the library: `changed` is called with the records once at creation, and
/// again after records of type `T` changed, at most once in a turn of the run loop and at once
/// after a save. Unsaved changes are seen. A fetch that fails counts as empty. Ends when the object
/// dies.
template <class T>
class LiveQuery {
 public:
    using Handler = std::function<void(const std::vector<Ref<T>>&)>;

    LiveQuery(ModelContext& context, FetchDescriptor<T> descriptor, Handler changed)
        : context_(context), descriptor_(std::move(descriptor)), changed_(std::move(changed)) {
        observation_ = context_.observe(T::schema(), [this] { evaluate(); });
        evaluate();
    }
    LiveQuery(const LiveQuery&) = delete;
    LiveQuery& operator=(const LiveQuery&) = delete;

    [[nodiscard]] const std::vector<Ref<T>>& records() const noexcept { return records_; }

 private:
    void evaluate() {
        try {
            records_ = context_.fetch(descriptor_);
        } catch (const StoreError&) {
            records_.clear();
        }
        if (changed_) changed_(records_);
    }

    ModelContext& context_;
    FetchDescriptor<T> descriptor_;
    Handler changed_;
    std::vector<Ref<T>> records_;
    ModelContext::Observation observation_;
};

}  // namespace elmworth
