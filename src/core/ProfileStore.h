// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "core/BusinessProfile.h"
#include "platform/UserDefaults.h"

namespace elmworth {

/// Holds the `BusinessProfile` and keeps it in the user defaults under "businessProfile", and takes
/// it over when it changes there. One instance per run.
class ProfileStore {
 public:
    /// Loads the profile. A missing or unreadable value gives the default profile. An unreadable
    /// one stays in the defaults until the next change, which keeps their file as it was under
    /// another name. One that becomes unreadable later leaves the profile as it is.
    explicit ProfileStore(UserDefaults& defaults);
    ProfileStore(const ProfileStore&) = delete;
    ProfileStore& operator=(const ProfileStore&) = delete;

    [[nodiscard]] const BusinessProfile& profile() const noexcept { return profile_; }

    /// Takes `profile` and tells the observers; writes the defaults only when it differs.
    void setProfile(const BusinessProfile& profile);

    using Observation = std::shared_ptr<void>;
    /// Calls `changed` after each `setProfile`, and each change by others, until the handle dies.
    [[nodiscard]] Observation observe(std::function<void()> changed);

    [[nodiscard]] UserDefaults& defaults() noexcept { return defaults_; }

 private:
    void takeOver();
    void tell();

    UserDefaults& defaults_;
    BusinessProfile profile_;
    std::vector<std::weak_ptr<std::function<void()>>> observers_;
    UserDefaults::Observation observation_;
};

}  // namespace elmworth
