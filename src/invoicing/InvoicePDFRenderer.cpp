// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoicePDFRenderer.h"

#include <QBuffer>
#include <QByteArray>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSizeF>

#include "invoicing/InvoicePageView.h"
#include "invoicing/InvoicePages.h"
#include "invoicing/PDFDocumentInfo.h"

namespace elmworth {

namespace {

// Qt places things on whole units of the resolution only; this one keeps that out of sight.
constexpr int unitsPerInch = 1200;
constexpr double pointsPerInch = 72;

void setUp(QPdfWriter& writer, PaperSize paper) {
    writer.setResolution(unitsPerInch);
    writer.setPageSize(QPageSize(paperPointSize(paper), QPageSize::Point));
    writer.setPageMargins(QMarginsF());
}

void paintPages(QPdfWriter& writer, const InvoiceRenderModel& model, PaperSize paper) {
    QPainter painter;
    if (!painter.begin(&writer)) throw RenderError();
    painter.scale(unitsPerInch / pointsPerInch, unitsPerInch / pointsPerInch);
    for (const InvoicePage& page : pages(model)) {
        if (page.index > 0 && !writer.newPage()) throw RenderError();
        InvoicePageView(page, model, paper).paint(painter);
    }
    if (!painter.end()) throw RenderError();
}

QByteArray pdfOf(const InvoiceRenderModel& model, PaperSize paper) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly)) throw RenderError();
    QPdfWriter writer(&buffer);
    setUp(writer, paper);
    paintPages(writer, model, paper);
    return withDocumentInfo(
        bytes, {.title = QStringLiteral("Invoice ") + QString::fromStdString(model.number),
                .author = QString::fromStdString(model.business.name),
                .creator = QStringLiteral("Elmworth")});
}

}  // namespace

void InvoicePDFRenderer::render(const InvoiceRenderModel& model, PaperSize paper,
                                const std::filesystem::path& file, FileAccess access) {
    const QByteArray pdf = pdfOf(model, paper);
    try {
        writeAtomically(file, {pdf.constData(), static_cast<std::size_t>(pdf.size())}, access);
    } catch (const std::filesystem::filesystem_error&) {
        throw RenderError();
    }
}

}  // namespace elmworth
