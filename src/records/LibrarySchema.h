// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "store/Schema.h"

namespace elmworth {

/// What a library of this program consists of. Its version is that of the last step: 1'02'00 is
/// 1.2.0.
[[nodiscard]] const LibraryModel& librarySchema();

}  // namespace elmworth
