// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace elmworth {

/// The folder of stored invoice PDFs, "Invoices" in `dataFolder()`, created when
/// missing. Throws std::filesystem::filesystem_error.
[[nodiscard]] std::filesystem::path invoicesFolder();

/// `number` with each "/" and ":" replaced by "-".
[[nodiscard]] std::string safeFileName(std::string_view number);

/// The stored PDF of the invoice `number` inside `invoicesFolder()`: `safeFileName(number)` plus
/// ".pdf". A number whose safe name differs from it, could name another folder or a hidden file,
/// holds control characters, or is too long for a file system gets a short hash of the number
/// added, so that two numbers never share a file. Throws std::filesystem::filesystem_error.
[[nodiscard]] std::filesystem::path storedInvoiceFile(std::string_view number);

}  // namespace elmworth
