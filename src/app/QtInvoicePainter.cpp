// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/QtInvoicePainter.h"

#include "invoicing/InvoicePDFRenderer.h"
#include "records/Logo.h"

namespace elmworth {

LogoImage QtInvoicePainter::loadLogo() {
    return elmworth::loadLogo();
}

void QtInvoicePainter::render(const InvoiceRenderModel& model, PaperSize paper,
                              const std::filesystem::path& file, FileAccess access) {
    InvoicePDFRenderer::render(model, paper, file, access);
}

}  // namespace elmworth
