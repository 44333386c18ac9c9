// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string_view>

#include "platform/Instant.h"

namespace elmworth {

/// What the names of AtomicFile's temporary files begin with; six letters or digits follow.
inline constexpr std::string_view temporaryFilePrefix = ".elmworth-";

/// Removes from `folder` the temporary files of AtomicFile that were last written before `before`:
/// whoever wrote them was killed, or the power failed. All other files stay. What can be neither
/// listed nor removed is left for the next time.
void removeStaleTempFiles(const std::filesystem::path& folder, Instant before);

}  // namespace elmworth
