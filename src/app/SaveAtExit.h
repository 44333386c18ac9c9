// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/LongWork.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// The last save of the process: when this object dies, and also when the process ends through
/// exit() before, as Qt ends it when the display goes away. One object at a time, and none of the
/// context's may die before it.
class SaveAtExit {
 public:
    /// Not during `longWork`, which outlives this object: half of that is not to be kept.
    SaveAtExit(UnitOfWork& context, const LongWork& longWork);
    SaveAtExit(const SaveAtExit&) = delete;
    SaveAtExit& operator=(const SaveAtExit&) = delete;
    ~SaveAtExit();
};

}  // namespace elmworth
