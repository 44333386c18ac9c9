// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/settings/ProfileText.h"

#include <QScopedValueRollback>
#include <utility>

namespace elmworth {

ProfileText::ProfileText(ProfileStore& profiles, SettingsKeeper& keeper, Read read, Write write)
    : profiles_(profiles), keeper_(keeper), read_(std::move(read)), write_(std::move(write)) {
    reload();
    connect(this, &FormText::changed, this, &ProfileText::keep);
    observation_ = profiles_.observe([this] { profileChanged(); });
}

ProfileText::ProfileText(ProfileStore& profiles, SettingsKeeper& keeper,
                         std::string BusinessProfile::*field)
    : ProfileText(
          profiles, keeper,
          [field](const BusinessProfile& profile) {
              return QString::fromStdString(profile.*field);
          },
          [field](BusinessProfile& profile, const QString& text) {
              profile.*field = text.toStdString();
              return true;
          }) {}

void ProfileText::reload() {
    const QScopedValueRollback reloading(isKeeping_, true);
    known_ = read_(profiles_.profile());
    load(known_);
}

void ProfileText::keep() {
    if (isKeeping_) return;
    auto profile = profiles_.profile();
    if (!write_(profile, text())) return;
    const QScopedValueRollback keeping(isKeeping_, true);
    keeper_.keep([&] { profiles_.setProfileOrRefuse(profile); });
    known_ = read_(profiles_.profile());
}

/// What was typed stays until somebody else gives the field another value: it may say the same in
/// other words ("8,5"), or could not be kept.
void ProfileText::profileChanged() {
    if (!isKeeping_ && read_(profiles_.profile()) != known_) reload();
}

}  // namespace elmworth
