// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "store/LibraryModel.h"

namespace elmworth {

/// The version of the schema, as stored in a library: 1.1.0.
inline constexpr int librarySchemaVersion = 1'01'00;

/// What a library of this program consists of.
[[nodiscard]] const LibraryModel& librarySchema();

}  // namespace elmworth
