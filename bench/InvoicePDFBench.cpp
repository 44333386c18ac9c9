// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSizeF>

#include "invoicing/InvoiceFiles.h"
#include "invoicing/InvoicePDFRenderer.h"
#include "invoicing/InvoicePageView.h"
#include "invoicing/InvoicePages.h"
#include "platform/AtomicFile.h"
#include "support/Invoices.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace elmworth::bench {
namespace {

/// Writing the file of an invoice with so many rows, with all that makes it durable.
void renderPDF(benchmark::State& state) {
    const test::TemporaryFolder folder;
    const auto model = test::plainInvoice(static_cast<int>(state.range(0)));
    const auto file = folder.path() / "invoice.pdf";
    InvoicePDFRenderer::render(model, PaperSize::letter, file);
    for (auto _ : state) InvoicePDFRenderer::render(model, PaperSize::letter, file);
}
BENCHMARK(renderPDF)
    ->Name("pdf")
    ->Arg(3)
    ->Arg(12)
    ->Arg(56)
    ->Arg(500)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

/// A page with nothing on it, as durable.
void renderEmptyPage(benchmark::State& state) {
    const test::TemporaryFolder folder;
    for (auto _ : state) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        QPainter(&writer).end();
        writeAtomically(folder.path() / "empty.pdf",
                        {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    }
}
BENCHMARK(renderEmptyPage)->Name("limit/pdf")->Unit(benchmark::kMillisecond)->UseRealTime();

constexpr int rowsOfTwentyPages = 22 + 18 * 34 + 26;

class Painter final : public InvoicePainter {
 public:
    LogoImage loadLogo() override { return nullptr; }
    void render(const InvoiceRenderModel& model, PaperSize paper, const std::filesystem::path& file,
                FileAccess access) override {
        InvoicePDFRenderer::render(model, paper, file, access);
    }
};

/// Twenty pages as the file that somebody chose and as the stored one, both durable.
void exportTwentyPages(benchmark::State& state) {
    const test::TemporaryFolder folder;
    const test::ScopedEnvironment data("XDG_DATA_HOME", folder.path().string());
    const auto model = test::plainInvoice(rowsOfTwentyPages);
    Painter painter;
    for (auto _ : state) {
        exportInvoice(model, PaperSize::letter, folder.path() / "invoice.pdf",
                      FileAccess::ownerOnly(), painter);
    }
}
BENCHMARK(exportTwentyPages)->Name("export/20 pages")->Unit(benchmark::kMillisecond)->UseRealTime();

/// The same pages painted as a PDF that is written nowhere.
void paintTwentyPages(benchmark::State& state) {
    const auto model = test::plainInvoice(rowsOfTwentyPages);
    for (auto _ : state) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setResolution(1200);
        QPainter painter(&writer);
        painter.scale(1200 / 72.0, 1200 / 72.0);
        for (const auto& page : pages(model)) {
            if (page.index > 0) writer.newPage();
            InvoicePageView(page, model, PaperSize::letter).paint(painter);
        }
        painter.end();
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK(paintTwentyPages)->Name("limit/export")->Unit(benchmark::kMillisecond)->UseRealTime();

/// One page as the preview shows it.
void paintPreview(benchmark::State& state) {
    const auto model = test::plainInvoice(12);
    const auto all = pages(model);
    QImage image((paperPointSize(PaperSize::letter) * 1.5).toSize(), QImage::Format_RGB32);
    for (auto _ : state) {
        QPainter painter(&image);
        painter.scale(1.5, 1.5);
        InvoicePageView(all.front(), model, PaperSize::letter).paint(painter);
    }
}
BENCHMARK(paintPreview)->Name("preview")->Unit(benchmark::kMillisecond);

/// The pages of an invoice without drawing them.
void dealOutPages(benchmark::State& state) {
    const auto model = test::plainInvoice(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(pages(model));
}
BENCHMARK(dealOutPages)->Name("pages")->Arg(12)->Arg(500)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace elmworth::bench
