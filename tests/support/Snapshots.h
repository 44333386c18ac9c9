// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <optional>
#include <utility>

#include "exchange/AutoBackup.h"
#include "support/TestTimer.h"

namespace elmworth::test {

/// Lets the program take the snapshot of `context` that is due at `now`, and gives its file; absent
/// when it took none.
inline std::optional<std::filesystem::path> takeSnapshot(UnitOfWork& context, Settings& defaults,
                                                         Instant now,
                                                         AutoBackup::Check check = nullptr) {
    ManualRunLoop runLoop;
    ManualPowerEvents power;
    const AutoBackup backup(
        context, defaults, [=] { return now; }, runLoop, power, std::move(check));
    // Besides the trigger of every six hours there are only the steps.
    do {
        runLoop.fire();
    } while (runLoop.repeatingCount() > 1);
    const auto all = AutoBackup::snapshots(AutoBackup::folder());
    if (all.empty() || all.front().date != now) return std::nullopt;
    return all.front().url;
}

}  // namespace elmworth::test
