// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "invoicing/InvoiceFiles.h"

namespace elmworth::test {

/// Draws nothing: the file holds the number of the invoice and the paper.
class TextPainter final : public InvoicePainter {
 public:
    LogoImage loadLogo() override { return nullptr; }
    void render(const InvoiceRenderModel& model, PaperSize paper, const std::filesystem::path& file,
                FileAccess access) override {
        writeAtomically(file, model.number + " " + std::string(rawValue(paper)), access);
    }
};

}  // namespace elmworth::test
