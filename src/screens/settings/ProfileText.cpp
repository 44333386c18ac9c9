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
    load(read_(profiles_.profile()));
}

void ProfileText::keep() {
    if (isKeeping_) return;
    auto profile = profiles_.profile();
    if (!write_(profile, text())) return;
    const QScopedValueRollback keeping(isKeeping_, true);
    keeper_.keep([&] { profiles_.setProfileOrRefuse(profile); });
}

/// What stands for the same value in other words ("8,5") stays as it was typed.
void ProfileText::profileChanged() {
    if (isKeeping_) return;
    auto typed = profiles_.profile();
    if (write_(typed, text()) && typed == profiles_.profile()) return;
    reload();
}

}  // namespace elmworth
