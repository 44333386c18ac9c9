// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "platform/Observers.h"
#include "platform/Settings.h"
#include "records/BusinessProfile.h"

namespace elmworth {

/// Holds the `BusinessProfile` and keeps it in the settings under "businessProfile", and
/// follows changes that others make there. One instance per run.
class ProfileStore {
 public:
    /// Loads the profile. A missing or unreadable value gives the default profile. An unreadable
    /// one stays in the defaults until the next change, which keeps their file as it was under
    /// another name. One that becomes unreadable later leaves the profile as it is.
    explicit ProfileStore(Settings& defaults);
    ProfileStore(const ProfileStore&) = delete;
    ProfileStore& operator=(const ProfileStore&) = delete;

    [[nodiscard]] const BusinessProfile& profile() const noexcept { return profile_; }

    /// Takes `profile` and tells the observers; writes the defaults only when it differs.
    void setProfile(const BusinessProfile& profile);

    /// As `setProfile`, or not at all: throws Refused when the settings file can't be written.
    void setProfileOrRefuse(const BusinessProfile& profile);

    /// Stores a profile that is to be taken only together with a change of the library: before that
    /// change is saved. `evidence` is a line that tells whether the library holds the change. The
    /// profile stays as it is until `settle`. False when it could not be stored.
    [[nodiscard]] bool announce(const BusinessProfile& profile, std::string_view evidence);

    /// Takes the profile that was announced last, when `isInLibrary` says so of its evidence, and
    /// forgets it otherwise; for after the change of the library, and for each start, as the
    /// process may have ended in between. A profile that was set since then stays in any case. Does
    /// nothing when none was announced.
    void settle(const std::function<bool(std::string_view evidence)>& isInLibrary);

    using Observation = std::shared_ptr<void>;
    /// Calls `changed` after each `setProfile`, and each change by others, until the handle dies.
    [[nodiscard]] Observation observe(std::function<void()> changed);

    [[nodiscard]] Settings& defaults() noexcept { return defaults_; }

 private:
    void store(const BusinessProfile& profile);
    void reload();

    Settings& defaults_;
    BusinessProfile profile_;
    Observers<> observers_;
    Settings::Observation observation_;
};

}  // namespace elmworth
