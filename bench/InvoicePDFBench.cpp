// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSizeF>

#include "invoicing/InvoicePDFRenderer.h"
#include "invoicing/InvoicePageView.h"
#include "invoicing/InvoicePages.h"
#include "platform/AtomicFile.h"
#include "support/Invoices.h"
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
