// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <stdexcept>

namespace elmworth {

/// Thrown by work that was told to stop. Whoever began the work leaves things as they were before.
class Cancelled : public std::runtime_error {
 public:
    Cancelled() : std::runtime_error("Stopped. Nothing was changed.") {}
};

/// Follows work that may take long: tells somebody how far it is, and stops it when they ask.
class Progress {
 public:
    Progress() = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    virtual ~Progress() = default;

    /// Said by the work after each piece: `done` of `total` are finished of the step `step`, such
    /// as "Reading". `total` may be 0 when it is not known. Costs next to nothing. Throws
    /// Cancelled.
    void advance(const char* step, std::size_t done, std::size_t total) {
        if (++pieces_ % piecesBetweenReports == 0) report(step, done, total);
    }

 protected:
    /// Called now and then. Throws Cancelled when the work is to stop.
    virtual void report(const char* step, std::size_t done, std::size_t total) = 0;

 private:
    static constexpr std::size_t piecesBetweenReports = 64;
    std::size_t pieces_ = 0;
};

/// Tells nobody, and never stops.
[[nodiscard]] inline Progress& noProgress() {
    class NoProgress final : public Progress {
        void report(const char* /*step*/, std::size_t /*done*/, std::size_t /*total*/) override {}
    };
    static NoProgress progress;
    return progress;
}

}  // namespace elmworth
