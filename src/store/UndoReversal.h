// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/UndoResult.h"
#include "store/UndoStep.h"
#include "store/UnitOfWork.h"

namespace elmworth {

class UndoReversal;

/// What the rules of the program have to say on an undo. Undoing knows records and fields alone.
class UndoGuard {
 public:
    virtual ~UndoGuard() = default;

    /// Whether `record` counts as left by the step, though it has another value in `field`.
    [[nodiscard]] virtual bool holds(const RecordStep& step, std::size_t field,
                                     const Record& record) const = 0;
    /// Leaves alone what must stay. Called again whenever something more is left alone, so that
    /// records that belong together stay together.
    virtual void review(UndoReversal& reversal) = 0;
    /// Changes the goals of what is undone, once all of it is known.
    virtual void adjust(UndoReversal& reversal) = 0;
    /// Called when the records are changed and saved, or wait for the next save.
    virtual void applied(const UndoReversal& reversal) = 0;
};

/// Takes one step back.
///
/// Only the fields that the step changed are set back, and only of a record that has in them what
/// the step left; others stay as they are. A reference to a record that is gone counts as none. A
/// record that the step brought is removed only if nothing points to it that stays, and none comes
/// back whose unique value another one has by now.
class UndoReversal {
 public:
    struct Item {
        const RecordStep* step;
        Ref<Record> record;               ///< null where it must be inserted again
        std::optional<FieldValues> goal;  ///< absent: it goes
        bool isLeftAlone = false;

        [[nodiscard]] bool is(const RecordSchema& schema) const noexcept {
            return step->schema == &schema;
        }
        [[nodiscard]] bool comes() const noexcept { return goal && !step->after; }
        [[nodiscard]] bool goes() const noexcept { return !goal; }
        /// The value of a field now; absent while there is no record.
        [[nodiscard]] Value current(std::size_t field) const;
        /// Its value after the undo; absent when the record goes.
        [[nodiscard]] Value goalOf(std::size_t field) const;
    };

    /// Plans it. Changes nothing. `guard` may be null. Throws StoreError.
    UndoReversal(const UndoStep& step, UnitOfWork& context, UndoGuard* guard);

    /// Changes the records, without a save. Throws StoreError.
    void apply();

    [[nodiscard]] const UndoResult& result() const noexcept { return result_; }

    // --- for the guard

    [[nodiscard]] UnitOfWork& context() const noexcept { return context_; }
    [[nodiscard]] const UndoStep& step() const noexcept { return step_; }
    [[nodiscard]] std::vector<Item>& items() noexcept { return items_; }
    [[nodiscard]] const std::vector<Item>& items() const noexcept { return items_; }
    /// The item of a record, also of one that is left alone; null when the step has none.
    [[nodiscard]] Item* item(const PersistentID& id);
    /// Leaves a record alone, and says why; null says nothing.
    void leaveAlone(Item& item, const Refusal* why);
    /// Adds a sentence, once.
    void remark(const std::string& sentence);
    /// Whether a reference to the record leads nowhere once the step is taken back.
    [[nodiscard]] bool isLost(const RecordSchema& schema, const PersistentID& id);

    /// Why a record is left alone that somebody else changed.
    static const Refusal changedSince;
    /// Why a record is left alone whose unique value another one has by now.
    static const Refusal taken;

 private:
    void plan();
    void planGoal(Item& item);
    void forgetLost(const RecordSchema& schema, FieldValues& values);
    void review();
    void leaveConflicts();
    void leaveTaken();
    void leaveUsed();
    void dropUnchanged();
    [[nodiscard]] bool isAsLeft(const Item& item);
    [[nodiscard]] bool isFieldAsLeft(const Item& item, std::size_t field, const Value& left);
    /// Whether a record has `value` in `field` also after the undo.
    [[nodiscard]] bool staysWith(const Record& record, std::size_t field, const Value& value);
    [[nodiscard]] bool exists(const RecordSchema& schema, const PersistentID& id);
    [[nodiscard]] bool isUnique(const Item& item);
    [[nodiscard]] bool isUsed(const Item& item);

    const UndoStep& step_;
    UnitOfWork& context_;
    UndoGuard* guard_;
    std::vector<Item> items_;
    std::unordered_map<PersistentID, std::size_t> places_;
    std::unordered_map<PersistentID, bool> known_;  ///< referred records: whether each exists
    std::size_t leftAlone_ = 0;
    UndoResult result_;
};

}  // namespace elmworth
