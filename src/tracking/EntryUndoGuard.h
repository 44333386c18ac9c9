// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>

#include "store/UndoReversal.h"
#include "tracking/TimerService.h"

namespace elmworth {

/// What an undo may do to tracked and to billed time.
///
/// A billed entry stays as it is, unless its invoice goes in the same undo, as when the invoice was
/// deleted. An invoice comes back with all entries that it had, or not at all.
///
/// Where the step began a timer, a stop since is no change of its entry. Where it also ended
/// another, that one takes over: it runs on when the step's timer still runs, and else gets the end
/// that the step's timer got. An entry that ran when the step deleted it runs on only if nothing
/// runs and nothing began since; else it ends when the step was done. So at most one entry runs,
/// and no tracked second is lost. No span is reversed that was not reversed before.
class EntryUndoGuard final : public UndoGuard {
 public:
    explicit EntryUndoGuard(TimerService& timer) : timer_(timer) {}

    [[nodiscard]] bool holds(const RecordStep& step, std::size_t field,
                             const Record& record) const override;
    void review(UndoReversal& reversal) override;
    void adjust(UndoReversal& reversal) override;
    /// Brings the timer in line.
    void applied(const UndoReversal& reversal) override;

    /// Why a billed entry is left alone.
    static const Refusal billed;
    static constexpr const char* timerStaysStopped =
        "The timer was not started again, because time was tracked since.";

 private:
    TimerService& timer_;
};

}  // namespace elmworth
