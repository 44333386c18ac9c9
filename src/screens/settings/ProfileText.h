// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <string>

#include "records/ProfileStore.h"
#include "screens/settings/SettingsKeeper.h"
#include "theme/FormFields.h"

namespace elmworth {

/// A text that stands for a field of the business profile, which follows it letter by letter. What
/// can't be kept stays as it was typed, and the profile as it was.
class ProfileText final : public FormText {
    Q_OBJECT

 public:
    /// How the field reads as a text.
    using Read = std::function<QString(const BusinessProfile&)>;
    /// Gives the field the value of a text. False for a text that it can't be.
    using Write = std::function<bool(BusinessProfile&, const QString&)>;

    ProfileText(ProfileStore& profiles, SettingsKeeper& keeper, Read read, Write write);
    ProfileText(ProfileStore& profiles, SettingsKeeper& keeper,
                std::string BusinessProfile::*field);

    /// Shows what the profile holds, whatever was typed.
    void reload();

 private:
    void keep();
    void profileChanged();

    ProfileStore& profiles_;
    SettingsKeeper& keeper_;
    Read read_;
    Write write_;
    QString known_;  ///< how the field read last
    bool isKeeping_ = false;
    ProfileStore::Observation observation_;
};

}  // namespace elmworth
