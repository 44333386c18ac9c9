// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "store/UnitOfWork.h"

namespace elmworth {

/// A fetch that follows the library: `changed` is called with the records once at creation, and
/// again after records of type `T` changed, at most once in a turn of the run loop and at once
/// after a save. Unsaved changes are seen. A fetch that fails counts as empty. Ends when the object
/// dies.
template <class T>
class LiveQuery {
 public:
    using Handler = std::function<void(const std::vector<Ref<T>>&)>;

    LiveQuery(UnitOfWork& context, Query<T> descriptor, Handler changed)
        : state_(std::make_shared<State>(context, std::move(descriptor), std::move(changed))) {
        observation_ = context.observe(T::schema(), [state = state_] { evaluate(state); });
        evaluate(state_);
    }
    LiveQuery(const LiveQuery&) = delete;
    LiveQuery& operator=(const LiveQuery&) = delete;

    [[nodiscard]] const std::vector<Ref<T>>& records() const noexcept { return *state_->records; }

 private:
    using Records = std::vector<Ref<T>>;
    struct State {
        State(UnitOfWork& owner, Query<T> what, Handler handler)
            : context(owner), descriptor(std::move(what)), changed(std::move(handler)) {}

        UnitOfWork& context;
        Query<T> descriptor;
        Handler changed;
        std::shared_ptr<const Records> records = std::make_shared<Records>();
    };

    /// The handler may save, which evaluates again, and may end the query: it reads records of its
    /// own, and `state` outlives its call.
    static void evaluate(std::shared_ptr<State> state) {  // NOLINT: a reference of its own
        const auto records =
            std::make_shared<const Records>(state->context.fetchQuietly(state->descriptor));
        state->records = records;
        if (state->changed) state->changed(*records);
    }

    std::shared_ptr<State> state_;
    UnitOfWork::Observation observation_;
};

}  // namespace elmworth
