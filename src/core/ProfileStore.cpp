// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/ProfileStore.h"

#include <optional>
#include <string_view>
#include <utility>

namespace elmworth {
namespace {

constexpr std::string_view key = "businessProfile";

std::optional<BusinessProfile> stored(const UserDefaults& defaults) {
    return decodeProfile(defaults.data(key).value_or(""));
}

}  // namespace

ProfileStore::ProfileStore(UserDefaults& defaults)
    : defaults_(defaults), profile_(stored(defaults).value_or(BusinessProfile())) {
    observation_ = defaults_.observe([this](std::string_view changedKey) {
        if (changedKey == key) takeOver();
    });
}

void ProfileStore::setProfile(const BusinessProfile& profile) {
    const BusinessProfile old = std::exchange(profile_, profile);
    // Before the observers, who may set another profile: the last one set is the one to be kept.
    if (profile_ != old) {
        if (defaults_.contains(key) && !stored(defaults_)) defaults_.keepFile();
        defaults_.setData(key, encodeProfile(profile_));
    }
    tell();
}

void ProfileStore::takeOver() {
    const auto profile =
        defaults_.contains(key) ? stored(defaults_) : std::optional(BusinessProfile());
    if (!profile || *profile == profile_) return;
    profile_ = *profile;
    tell();
}

void ProfileStore::tell() {
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
