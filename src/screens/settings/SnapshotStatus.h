// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <optional>

#include "exchange/AutoBackup.h"

namespace elmworth {

/// What there is to say of the automatic snapshots.
struct SnapshotStatus {
    QString text;
    bool isWarning = false;  ///< something is to be done

    friend bool operator==(const SnapshotStatus&, const SnapshotStatus&) = default;
};

/// Of a newest snapshot of `newest`, absent for none, at `now`. A snapshot is to be worried about
/// when it is older than three days or dated in the future.
[[nodiscard]] SnapshotStatus snapshotStatus(const std::optional<Instant>& newest, Instant now);

/// Of a newest snapshot that did not verify.
[[nodiscard]] SnapshotStatus snapshotStatus(const AutoBackup::FailedCheck& failed);

}  // namespace elmworth
