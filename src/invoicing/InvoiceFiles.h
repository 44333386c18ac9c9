// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include "invoicing/InvoiceRenderModel.h"
#include "platform/AtomicFile.h"

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

/// The name that is proposed for the PDF of an invoice that is saved elsewhere: number and client's
/// name, trimmed of blanks, plus ".pdf", with "-" for what file systems don't take, and no longer
/// than they take.
[[nodiscard]] std::string exportFileName(std::string_view number, std::string_view clientName);

/// Deletes the stored PDF of the invoice `number`. One that can't be deleted stays, which costs
/// nothing.
void deleteStoredInvoiceFile(std::string_view number);

/// Draws invoices. A process without a GUI library has none.
class InvoicePainter {
 public:
    virtual ~InvoicePainter() = default;

    /// The current logo, or null.
    [[nodiscard]] virtual LogoImage loadLogo() = 0;

    /// Writes the PDF of `model` to `file`. Throws RenderError.
    virtual void render(const InvoiceRenderModel& model, PaperSize paper,
                        const std::filesystem::path& file, FileAccess access) = 0;
};

/// The PDF was written where it was asked for, but not to the stored file, which is as it was. The
/// message is the sentence to show.
class StoredFileError : public std::runtime_error {
 public:
    explicit StoredFileError(const std::filesystem::path& written);
};

/// Writes the PDF of `model` to `file`, unless that is empty, and then to the stored file, whose
/// path it returns. Throws RenderError or std::filesystem::filesystem_error when nothing was
/// written, and StoredFileError when only `file` was.
std::filesystem::path exportInvoice(const InvoiceRenderModel& model, PaperSize paper,
                                    const std::filesystem::path& file, FileAccess access,
                                    InvoicePainter& painter);

}  // namespace elmworth
