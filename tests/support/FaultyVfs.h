// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>

namespace elmworth::test {

/// A disk that fails when a test says so. During its life all SQLite connections that are opened go
/// through it; writes, truncations, syncs and openings are counted. Syncs do not reach the disk,
/// which makes many libraries quick to use. One at a time.
class FaultyVfs {
 public:
    FaultyVfs();
    FaultyVfs(const FaultyVfs&) = delete;
    FaultyVfs& operator=(const FaultyVfs&) = delete;
    ~FaultyVfs();

    enum class Duration { once, lasting };

    /// Lets the `n`-th operation from now on, counted from 1, fail with the SQLite result `code`;
    /// those after it too when the failure is lasting. A write that fails has written its first
    /// half.
    void failAt(int n, int code, Duration duration);

    /// Kills the process at the `n`-th operation from now on, counted from 1, before it happens; of
    /// a write the first half is written.
    void killAt(int n);

    /// Ends all failures.
    void heal();

    /// Whether an operation has failed since `failAt`.
    [[nodiscard]] bool hasFailed() const;

    /// Whether nothing was written since the last sync of any file.
    [[nodiscard]] static bool isSynced();

 private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace elmworth::test
