// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

namespace elmworth {

class Record;
class UnitOfWork;

/// People change stored records in steps of UndoHistory, so that all of it can be undone. As long
/// as a rule lives, debug builds hold a unit of work to that: a stored record that is changed or
/// deleted outside of a step ends the program with a sentence. Release builds don't look.
class StepRule {
 public:
    /// `context` outlives this.
    explicit StepRule(const UnitOfWork& context);
    StepRule(const StepRule&) = delete;
    StepRule& operator=(const StepRule&) = delete;
    ~StepRule();

    /// What is done with the sentence in place of ending the program.
    using Handler = void (*)(const std::string& sentence);
    /// Sets the handler, or none with null, and returns the former one.
    static Handler setHandler(Handler handler) noexcept;

    /// Called by a unit of work when `record` is changed outside of a step. `what` became of it:
    /// "notes changed".
    static void check(const UnitOfWork& context, const Record& record, std::string_view what);

 private:
    const UnitOfWork& context_;
};

/// As long as one lives, records may change outside of steps: for what no person did, such as the
/// timer that is taken up at the start, and for what is too much to be undone.
class OutsideSteps {
 public:
    OutsideSteps() noexcept;
    OutsideSteps(const OutsideSteps&) = delete;
    OutsideSteps& operator=(const OutsideSteps&) = delete;
    ~OutsideSteps();
};

}  // namespace elmworth
