// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include "invoicing/InvoiceRenderModel.h"
#include "platform/AtomicFile.h"
#include "records/BusinessProfile.h"

namespace elmworth {

/// Why a PDF could not be written. The message is the sentence to show.
class RenderError : public std::runtime_error {
 public:
    enum class Code { cannotCreateContext };
    RenderError() : std::runtime_error("Could not create the PDF file.") {}
    [[nodiscard]] Code code() const noexcept { return Code::cannotCreateContext; }
};

/// Writes invoices as PDF files. Needs a QGuiApplication.
namespace InvoicePDFRenderer {

/// Writes the pages of `model` on `paper` to `file`, replacing a file that stands there once the
/// whole PDF is durable. Throws RenderError when the file cannot be made or written; what stood
/// there stays.
void render(const InvoiceRenderModel& model, PaperSize paper, const std::filesystem::path& file,
            FileAccess access = FileAccess::ownerOnly());

}  // namespace InvoicePDFRenderer

}  // namespace elmworth
