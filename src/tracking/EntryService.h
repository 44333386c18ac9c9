// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/FieldText.h"
#include "store/UndoHistory.h"
#include "tracking/EntryForm.h"

namespace elmworth {

/// What a person does to entries apart from the timer and the timesheet. Each change is a named
/// step of `history`, saved or not done at all: throws Refused with the sentence to show, or
/// StoreError.
class EntryService {
 public:
    EntryService(UnitOfWork& context, UndoHistory& history, TimerService& timer, Clock now)
        : context_(context), history_(history), timer_(timer), now_(std::move(now)) {}

    /// Adds time that was worked without the timer. Refused where the form has a problem, and on an
    /// archived project.
    Ref<TimeEntry> add(const EntryForm& form);

 private:
    UnitOfWork& context_;
    UndoHistory& history_;
    TimerService& timer_;
    Clock now_;
};

}  // namespace elmworth
