// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/Observers.h"
#include "store/UndoResult.h"
#include "store/UndoReversal.h"
#include "store/UndoStep.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// What a person changed in the library, step by step, to be undone and redone as long as the
/// program runs. All changes of records that people make go through here, wherever they come from.
///
/// A step is what became of records between its begin and its end, cascades included. A step within
/// another is a part of that. What is undone and what is left alone: see UndoReversal.
class UndoHistory {
 public:
    using Change = std::function<void()>;

    /// How much is kept: beyond it the oldest steps are forgotten, but never the newest.
    struct Limits {
        std::size_t steps = 200;
        std::size_t bytes = 16 << 20;
    };

    explicit UndoHistory(UnitOfWork& context, Clock now = currentInstant);
    UndoHistory(UnitOfWork& context, Clock now, Limits limits);
    UndoHistory(const UndoHistory&) = delete;
    UndoHistory& operator=(const UndoHistory&) = delete;

    /// Has `guard` look after every undo from now on. It outlives the last one.
    void setGuard(UndoGuard& guard) noexcept { guard_ = &guard; }

    /// Runs `change` and saves. `name` says what it does, as menus show it: "Archive Website". When
    /// `change` or the save throws, everything is as it was before, and the exception goes on. What
    /// could be redone is forgotten. A change of nothing is no step.
    void perform(const StepName& name, const Change& change);

    /// As `perform`, after `preparation`, which saves on its own and is no part of what is undone:
    /// records that `change` deletes come back as the preparation left them. When `change` or the
    /// save throws, the preparation alone is done, as a step of its own name.
    void performAfter(const StepName& preparationName, const Change& preparation,
                      const StepName& name, const Change& change);

    /// As `perform`, for what a screen does at once: a failed save stays pending, and the step can
    /// be undone all the same. When `change` throws, it must have changed nothing.
    void performQuietly(const StepName& name, const Change& change);

    /// As `perform`, for what is too much to be kept: the person was told before that it can't be
    /// undone. Nothing that came before it can be undone any more.
    void performForGood(const Change& change);

    /// Runs `change`, an edit of one text, without a save. Edits of the same `field`, one after
    /// another, are one step until it is left, or something else is done.
    void type(const StepName& name, const std::string& field, const Change& change);
    /// The field into which was typed last is left.
    void leaveField() noexcept;

    /// Takes the newest step back, saves, and has the guard bring the rest of the program in line;
    /// a failed save stays pending. What is left alone is no longer part of the step. Does nothing
    /// when there is no step. Throws StoreError when the library can't be read; nothing is changed
    /// then.
    UndoResult undo();
    /// Takes the newest undo back, likewise.
    UndoResult redo();

    [[nodiscard]] bool canUndo() const noexcept { return !undo_.empty(); }
    [[nodiscard]] bool canRedo() const noexcept { return !redo_.empty(); }
    /// "Undo Delete 3 Entries", or "Undo" when there is nothing to undo.
    [[nodiscard]] std::string undoText() const;
    /// "Redo Delete 3 Entries", or "Redo".
    [[nodiscard]] std::string redoText() const;

    /// Forgets everything, as when another library takes the place of this one.
    void clear();

    /// Calls `changed` after something above changed, until the handle dies.
    using Observation = Observers<>::Observation;
    [[nodiscard]] Observation observe(std::function<void()> changed) {
        return observers_.add(std::move(changed));
    }

 private:
    using Steps = std::deque<UndoStep>;
    using Records = std::optional<std::vector<RecordStep>>;

    [[nodiscard]] Records recorded(const Change& change);
    void saved(const Change& change);
    UndoResult reverse(Steps& from, Steps& to);
    void keep(const StepName& name, Records records, const std::string& field = {});
    [[nodiscard]] bool goesOn(const std::string& field) const noexcept;
    void forgetOldest();

    UnitOfWork& context_;
    Clock now_;
    Limits limits_;
    UndoGuard* guard_ = nullptr;
    bool isInStep_ = false;
    Steps undo_;
    Steps redo_;
    Observers<> observers_;
};

}  // namespace elmworth
