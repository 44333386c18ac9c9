// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/ProfileStore.h"

#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "records/FieldText.h"
#include "records/Preferences.h"

namespace elmworth {
namespace {

constexpr std::string_view key = "businessProfile";
constexpr std::string_view announcedKey = "announcedProfile";

/// A profile that waits for a change of the library: as three lines.
struct Announcement {
    std::string evidence;
    std::string profile;   ///< as JSON
    std::string replaced;  ///< the profile of the moment, as JSON

    [[nodiscard]] std::string text() const {
        return evidence + '\n' + profile + '\n' + replaced + '\n';
    }
};

std::optional<Announcement> announcement(const Settings& defaults) {
    const auto text = defaults.data(announcedKey);
    if (!text) return std::nullopt;
    std::istringstream lines(*text);
    Announcement found;
    std::getline(lines, found.evidence);
    std::getline(lines, found.profile);
    std::getline(lines, found.replaced);
    return found;
}

std::optional<BusinessProfile> stored(const Settings& defaults) {
    return decodeProfile(defaults.data(key).value_or(""));
}

}  // namespace

ProfileStore::ProfileStore(Settings& defaults)
    : defaults_(defaults), profile_(stored(defaults).value_or(BusinessProfile())) {
    observation_ = defaults_.observe([this](std::string_view changedKey) {
        if (changedKey == key) reload();
    });
}

void ProfileStore::setProfile(const BusinessProfile& profile) {
    const BusinessProfile old = std::exchange(profile_, profile);
    // Before the observers, who may set another profile: the last one set is the one to be kept.
    if (profile_ != old) store(profile_);
    observers_.notify();
}

void ProfileStore::setProfileOrRefuse(const BusinessProfile& profile) {
    const BusinessProfile old = profile_;
    setProfile(profile);
    if (profile == old || !defaults_.lastWriteFailed()) return;
    setProfile(old);
    throw Refused(settingsNotWrittenText());
}

/// In one write with the end of what was announced before, so that the last profile always wins.
void ProfileStore::store(const BusinessProfile& profile) {
    if (defaults_.contains(key) && !stored(defaults_)) defaults_.keepFile();
    defaults_.setData(key, encodeProfile(profile), announcedKey);
}

bool ProfileStore::announce(const BusinessProfile& profile, std::string_view evidence) {
    defaults_.reload();  // what others wrote before is no later change
    const Announcement announced{std::string(evidence), encodeProfile(profile),
                                 encodeProfile(profile_)};
    defaults_.setData(announcedKey, announced.text());
    if (!defaults_.lastWriteFailed()) return true;
    defaults_.remove(announcedKey);
    return false;
}

void ProfileStore::settle(const std::function<bool(std::string_view evidence)>& isInLibrary) {
    const auto announced = announcement(defaults_);
    if (!announced) return;
    const auto profile = decodeProfile(announced->profile);
    if (profile && encodeProfile(profile_) == announced->replaced &&
        isInLibrary(announced->evidence)) {
        profile_ = *profile;
        store(profile_);
        observers_.notify();
    } else {
        defaults_.remove(announcedKey);
    }
}

void ProfileStore::reload() {
    const auto profile =
        defaults_.contains(key) ? stored(defaults_) : std::optional(BusinessProfile());
    if (!profile || *profile == profile_) return;
    profile_ = *profile;
    observers_.notify();
}

ProfileStore::Observation ProfileStore::observe(std::function<void()> changed) {
    return observers_.add(std::move(changed));
}

}  // namespace elmworth
