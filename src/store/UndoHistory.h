// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <string>

#include "store/UnitOfWork.h"

namespace elmworth {

/// What a person changed in the library, step by step. All changes of records that people make go
/// through `perform`, wherever they come from.
class UndoHistory {
 public:
    explicit UndoHistory(UnitOfWork& context) : context_(context) {}
    UndoHistory(const UndoHistory&) = delete;
    UndoHistory& operator=(const UndoHistory&) = delete;

    /// Runs `change` and saves. `name` says what it does, as menus show it: "Archive Website". When
    /// `change` or the save throws, everything is as it was before, and the exception goes on.
    void perform(const std::string& name, const std::function<void()>& change);

 private:
    UnitOfWork& context_;
};

}  // namespace elmworth
