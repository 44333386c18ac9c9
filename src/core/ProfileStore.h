// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "core/BusinessProfile.h"
#include "platform/UserDefaults.h"

namespace elmworth {

/// Holds the `BusinessProfile` and keeps it in the user defaults under "businessProfile". One
/// instance per run.
class ProfileStore {
 public:
    /// Loads the profile. A missing or unreadable value gives the default profile; an unreadable
    /// one stays in the defaults until the next change.
    explicit ProfileStore(UserDefaults& defaults);

    [[nodiscard]] const BusinessProfile& profile() const noexcept { return profile_; }

    /// Takes `profile` and tells the observers; writes the defaults only when it differs.
    void setProfile(const BusinessProfile& profile);

    using Observation = std::shared_ptr<void>;
    /// Calls `changed` after each `setProfile` until the handle dies.
    [[nodiscard]] Observation observe(std::function<void()> changed);

    [[nodiscard]] UserDefaults& defaults() noexcept { return defaults_; }

 private:
    UserDefaults& defaults_;
    BusinessProfile profile_;
    std::vector<std::weak_ptr<std::function<void()>>> observers_;
};

}  // namespace elmworth
