// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

#include "TurningLoop.h"
#include "platform/Calendar.h"
#include "records/Library.h"
#include "support/TemporaryFolder.h"
#include "tracking/TimerService.h"

namespace elmworth::bench {

/// When the generated libraries end: a Wednesday morning.
[[nodiscard]] Instant libraryNow();

/// The calendar in which the generated work was done.
[[nodiscard]] Calendar libraryCalendar();

/// Copies the generated library with `entries` entries, which ends at `now`, into `folder`.
void copyLibrary(std::int64_t entries, Instant now, const std::filesystem::path& folder);

/// A fresh copy of a generated library, for one benchmark to write to.
class LibraryCopy {
 public:
    explicit LibraryCopy(std::int64_t entries) {
        copyLibrary(entries, libraryNow(), folder_.path());
    }
    [[nodiscard]] std::filesystem::path file() const { return folder_.path() / "library.sqlite"; }

 private:
    test::TemporaryFolder folder_;
};

/// A copy that is open, its timer restored, on a clock that only the benchmark moves.
class OpenLibrary {
 public:
    explicit OpenLibrary(std::int64_t entries)
        : copy_(entries), container_(LibraryOptions{copy_.file()}, loop) {
        timer.restore();
    }
    [[nodiscard]] UnitOfWork& context() { return container_.mainContext(); }

    Instant now = libraryNow();
    TurningLoop loop;

 private:
    LibraryCopy copy_;
    Library container_;

 public:
    TimerService timer{context(), [this] { return now; }, loop, &libraryCalendar};
};

}  // namespace elmworth::bench
