// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QUrl>
#include <filesystem>
#include <optional>

namespace elmworth {

/// Where a save dialog begins: the file `name` in the user's documents, or at home where there are
/// none.
[[nodiscard]] QUrl savePlace(const QString& name);

/// The file on this computer that was chosen in a save dialog; absent for any other place.
[[nodiscard]] std::optional<std::filesystem::path> localFile(const QUrl& chosen);

}  // namespace elmworth
