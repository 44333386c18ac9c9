// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/store/ChangeObservers.h"

#include <exception>
#include <string>
#include <utility>

#include "platform/SystemLog.h"

namespace elmworth {

namespace {

/// A view that fails must not make a save look failed that is durable.
void tell(const std::function<void()>& changed) noexcept {
    try {
        changed();
    } catch (const std::exception& error) {
        writeSystemLog(std::string("Elmworth: a change could not be shown: ") + error.what());
    } catch (...) {
        writeSystemLog("Elmworth: a change could not be shown");
    }
}

}  // namespace

ChangeObservers::Observation ChangeObservers::observe(const RecordSchema& schema,
                                                      std::function<void()> changed) {
    auto observer = std::make_shared<Observer>(Observer{schema.ordinal, std::move(changed)});
    observers_.push_back(observer);
    return observer;
}

void ChangeObservers::note(const RecordSchema& schema) {
    if (observers_.empty()) return;
    noted_[schema.ordinal] = true;
    if (!delivery_) delivery_ = runLoop_.post([this] { deliver(); });
}

void ChangeObservers::deliver() {
    delivery_.reset();
    const auto changedTypes = std::exchange(noted_, {});
    std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
    const auto observers = observers_;  // they may begin and end observations
    for (const auto& weak : observers) {
        const auto observer = weak.lock();
        if (observer && changedTypes[observer->type]) tell(observer->changed);
    }
}

}  // namespace elmworth
