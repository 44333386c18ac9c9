// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "invoicing/InvoiceFiles.h"

namespace elmworth {

/// Draws invoices with Qt. Needs a QGuiApplication.
class QtInvoicePainter final : public InvoicePainter {
 public:
    LogoImage loadLogo() override;
    void render(const InvoiceRenderModel& model, PaperSize paper, const std::filesystem::path& file,
                FileAccess access) override;
};

}  // namespace elmworth
