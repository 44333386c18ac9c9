// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/ProfileStore.h"

#include <utility>

namespace elmworth {
namespace {

constexpr std::string_view key = "businessProfile";

BusinessProfile load(const UserDefaults& defaults) {
    return decodeProfile(defaults.data(key).value_or("")).value_or(BusinessProfile());
}

}  // namespace

ProfileStore::ProfileStore(UserDefaults& defaults)
    : defaults_(defaults), profile_(load(defaults)) {}

void ProfileStore::setProfile(const BusinessProfile& profile) {
    const BusinessProfile old = std::exchange(profile_, profile);
    // Before the observers, who may set another profile: the last one set is the one to be kept.
    if (profile_ != old) defaults_.setData(key, encodeProfile(profile_));

    std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
    const auto present = observers_;
    for (const auto& observer : present) {
        std::function<void()> changed;
        if (const auto alive = observer.lock()) changed = *alive;
        if (changed) changed();
    }
}

ProfileStore::Observation ProfileStore::observe(std::function<void()> changed) {
    auto observer = std::make_shared<std::function<void()>>(std::move(changed));
    observers_.push_back(observer);
    return observer;
}

}  // namespace elmworth
