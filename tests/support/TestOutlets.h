// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "invoicing/InvoiceFiles.h"
#include "invoicing/InvoicePDFRenderer.h"
#include "platform/DesktopFiles.h"

namespace elmworth::test {

/// Draws nothing: the file holds the invoice's number, the paper and the number of logos that were
/// asked for.
class NumberPainter final : public InvoicePainter {
 public:
    LogoImage loadLogo() override {
        ++logoCount;
        return nullptr;
    }
    void render(const InvoiceRenderModel& model, PaperSize paper, const std::filesystem::path& file,
                FileAccess access) override {
        if (fails) throw RenderError();
        writeAtomically(file, model.number + ' ' + std::string(rawValue(paper)) + ' ' + mark,
                        access);
    }

    int logoCount = 0;
    bool fails = false;
    std::string mark = "logo";  ///< stands for what the pages look like
};

/// A desktop that notes what it is asked for.
class NotingFiles final : public DesktopFiles {
 public:
    void open(const std::filesystem::path& file, Failed failed) override {
        opened.push_back(file);
        if (fails) failed();
    }
    void reveal(const std::filesystem::path& file, Failed failed) override {
        revealed.push_back(file);
        if (fails) failed();
    }

    std::vector<std::filesystem::path> opened;
    std::vector<std::filesystem::path> revealed;
    bool fails = false;
};

}  // namespace elmworth::test
