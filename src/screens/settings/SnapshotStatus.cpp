// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/settings/SnapshotStatus.h"

#include "platform/DateFormatter.h"

namespace elmworth {

namespace {

using namespace std::chrono_literals;

constexpr auto worrying = 72h;
constexpr auto day = 24h;

QString dated(Instant instant) {
    return QString::fromStdString(mediumDateFormatter().string(instant) + ", " +
                                  shortTimeFormatter().string(instant));
}

}  // namespace

SnapshotStatus snapshotStatus(const std::optional<Instant>& newest, Instant now) {
    if (!newest) return {QStringLiteral("No snapshot has been taken yet."), false};
    if (*newest > now) {
        return {QStringLiteral("The newest snapshot is dated in the future (%1), so no new one is "
                               "taken. Check this computer's clock, then move that file away.")
                    .arg(dated(*newest)),
                true};
    }
    if (now - *newest <= worrying) {
        return {QStringLiteral("Newest snapshot: %1").arg(dated(*newest)), false};
    }
    return {
        QStringLiteral("The newest snapshot is %1 days old (%2). Check that the disk has space, "
                       "and export a backup.")
            .arg((now - *newest) / day)
            .arg(dated(*newest)),
        true};
}

SnapshotStatus snapshotStatus(const AutoBackup::FailedCheck& failed) {
    return {QStringLiteral("The snapshot of %1 failed its check: %2 Export a backup.")
                .arg(dated(failed.date), QString::fromStdString(failed.reason)),
            true};
}

}  // namespace elmworth
