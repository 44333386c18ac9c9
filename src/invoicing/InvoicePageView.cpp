// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoicePageView.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QRectF>
#include <QSizeF>
#include <algorithm>
#include <string>
#include <variant>
#include <vector>

#include "invoicing/PageText.h"

namespace elmworth {

namespace {

// All measures are points.
constexpr double margin = 48;
constexpr double rowHeight = 17;
constexpr double ruleHeight = 1;
constexpr QSizeF logoBounds(160, 44);

constexpr double hoursWidth = 50;
constexpr double rateWidth = 80;
constexpr double amountWidth = 90;
constexpr double columnGap = 8;
constexpr double entryIndent = 14;
constexpr double entryDateWidth = 80;

const QColor muted = QColor::fromRgbF(0.45F, 0.45F, 0.45F);
const QColor ruleColor = QColor::fromRgbF(0.82F, 0.82F, 0.82F);

using Face = TextStyle::Face;
const TextStyle body;
const TextStyle mutedBody{.color = muted};
const TextStyle label{.face = Face::label, .size = 8, .color = muted};
const TextStyle issuerName{.size = 13, .weight = QFont::DemiBold};
const TextStyle clientName{.size = 11, .weight = QFont::DemiBold};
const TextStyle invoiceNumber{.size = 11, .weight = QFont::Medium};
const TextStyle projectName{.face = Face::tabular, .weight = QFont::DemiBold};
const TextStyle entryText{.face = Face::tabular, .size = 9, .color = muted};
const TextStyle figure{.face = Face::tabular};
const TextStyle figureLabel{.face = Face::tabular, .color = muted};
const TextStyle total{.face = Face::tabular, .size = 12, .weight = QFont::Bold};
const TextStyle pageNumber{.size = 8, .color = muted};
// Without digits the face shows no difference, and the total's font need not be embedded twice.
const TextStyle heading{
    .face = Face::tabular, .size = 22, .weight = QFont::Bold, .letterSpacing = 1.5};

/// The part of the page inside its margins. Each function below paints one piece of the page with
/// its upper edge at `top`; those that answer with a number tell its lower edge.
struct Frame {
    QPainter& painter;
    double left;
    double right;
    double bottom;

    [[nodiscard]] double width() const { return right - left; }
    [[nodiscard]] double amountRight() const { return right; }
    [[nodiscard]] double rateRight() const { return amountRight() - amountWidth - columnGap; }
    [[nodiscard]] double hoursRight() const { return rateRight() - rateWidth - columnGap; }
    [[nodiscard]] double descriptionRight() const { return hoursRight() - hoursWidth - columnGap; }
};

double paintRule(const Frame& frame, double top) {
    frame.painter.fillRect(QRectF(frame.left, top, frame.width(), ruleHeight), ruleColor);
    return top + ruleHeight;
}

/// The logo in the pixels that `place` has on a screen, since a painter that makes it much smaller
/// leaves lines out. A file gets all of it.
QImage logoFor(const QPainter& painter, const QRectF& place, const QImage& logo) {
    const QSize pixels = painter.deviceTransform().mapRect(place).size().toSize();
    const bool isOnScreen = painter.paintEngine()->type() == QPaintEngine::Raster;
    if (!isOnScreen || pixels.isEmpty() || pixels.width() >= logo.width()) return logo;
    return logo.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

double paintLogo(const Frame& frame, const QImage& logo, double top) {
    const QSizeF size = QSizeF(logo.size()).scaled(logoBounds, Qt::KeepAspectRatio);
    const QRectF place(QPointF(frame.left, top), size);
    frame.painter.drawImage(place, logoFor(frame.painter, place, logo));
    return top + size.height();
}

double paintIssuer(const Frame& frame, const InvoiceRenderModel& model, double top, double width) {
    constexpr double spacing = 2;
    constexpr double logoPadding = 6;
    const auto& business = model.business;
    TextStack texts(spacing);
    // A blank keeps the height of the line.
    texts.add(PageText::paragraphs(business.name.empty() ? " " : business.name, issuerName, width));
    if (!business.address.empty()) {
        texts.add(PageText::paragraphs(business.address, body, width));
    }
    if (!business.email.empty()) texts.add(PageText::paragraphs(business.email, mutedBody, width));
    if (!business.taxID.empty()) {
        texts.add(PageText::paragraphs("Tax ID: " + business.taxID, mutedBody, width));
    }
    if (model.logo) top = paintLogo(frame, *model.logo, top) + logoPadding + spacing;
    texts.paint(frame.painter, {frame.left, top});
    return top + texts.height();
}

TextStack invoiceColumn(const InvoiceRenderModel& model, double width) {
    TextStack texts(3);
    texts.add(PageText::line("INVOICE", heading, width));
    texts.add(PageText::paragraphs(model.number, invoiceNumber, width));
    texts.add(PageText::paragraphs("Issued " + model.issueDate, mutedBody, width));
    texts.add(PageText::paragraphs("Due " + model.dueDate, mutedBody, width));
    return texts;
}

TextStack clientColumn(const InvoiceRenderModel::Party& client, double width) {
    TextStack texts(2);
    texts.add(PageText::line("BILL TO", label, width));
    texts.add(PageText::paragraphs(client.name, clientName, width));
    if (!client.address.empty()) texts.add(PageText::paragraphs(client.address, body, width));
    if (!client.email.empty()) texts.add(PageText::paragraphs(client.email, mutedBody, width));
    return texts;
}

TextStack periodColumn(const std::string& period, double width) {
    TextStack texts(2);
    texts.add(PageText::line("PERIOD", label, width));
    texts.add(PageText::paragraphs(period, body, width));
    return texts;
}

double paintHeader(const Frame& frame, const InvoiceRenderModel& model, double top) {
    constexpr double rowGap = 18;
    constexpr double issuerGap = 16;
    constexpr double clientGap = 40;
    const double half = frame.width() / 2;

    const TextStack invoice = invoiceColumn(model, half);
    invoice.paintRightAligned(frame.painter, {frame.right, top});
    const double issuerBottom =
        paintIssuer(frame, model, top, frame.width() - invoice.width() - issuerGap);
    top = std::max(issuerBottom, top + invoice.height()) + rowGap;

    const TextStack period = periodColumn(model.period, half);
    const TextStack client = clientColumn(model.billTo, frame.width() - clientGap - period.width());
    client.paint(frame.painter, {frame.left, top});
    period.paint(frame.painter, {frame.left + client.width() + clientGap, top});
    return top + std::max(client.height(), period.height());
}

/// The upper edge of a text that stands in the middle of the row at `top`.
double middleOfRow(double top, const TextStyle& style) {
    return top + (rowHeight - style.lineHeight()) / 2;
}

void paintTableHead(const Frame& frame, double top) {
    const double y = middleOfRow(top, label);
    const auto column = [&](const char* title, double right) {
        PageText::line(title, label, amountWidth).paintRightAligned(frame.painter, {right, y});
    };
    PageText::line("DESCRIPTION", label, frame.width()).paint(frame.painter, {frame.left, y});
    column("HOURS", frame.hoursRight());
    column("RATE", frame.rateRight());
    column("AMOUNT", frame.amountRight());
}

void paintRow(const Frame& frame, double top, const InvoiceRenderModel::ProjectRow& row) {
    constexpr double padding = 2;  // above the text, inside the row's height
    const double y = middleOfRow(top, projectName) + padding / 2;
    const auto paintFigure = [&](const std::string& text, double right, double width) {
        PageText::figure(text, figure, width).paintRightAligned(frame.painter, {right, y});
    };
    PageText::line(row.name, projectName, frame.descriptionRight() - frame.left)
        .paint(frame.painter, {frame.left, y});
    paintFigure(row.hours, frame.hoursRight(), hoursWidth);
    paintFigure(row.rate, frame.rateRight(), rateWidth);
    paintFigure(row.amount, frame.amountRight(), amountWidth);
}

void paintRow(const Frame& frame, double top, const InvoiceRenderModel::EntryRow& row) {
    const double y = middleOfRow(top, entryText);
    const double dateLeft = frame.left + entryIndent;
    const double notesLeft = dateLeft + entryDateWidth + columnGap;
    PageText::figure(row.date, entryText, entryDateWidth).paint(frame.painter, {dateLeft, y});
    PageText::line(row.notes.empty() ? "—" : row.notes, entryText,
                   frame.descriptionRight() - notesLeft)
        .paint(frame.painter, {notesLeft, y});
    PageText::figure(row.hours, entryText, hoursWidth)
        .paintRightAligned(frame.painter, {frame.hoursRight(), y});
}

double paintTable(const Frame& frame, const InvoicePage& page, double top) {
    paintTableHead(frame, top);
    top = paintRule(frame, top + rowHeight);
    for (const auto& row : page.rows) {
        std::visit([&](const auto& kind) { paintRow(frame, top, kind); }, row);
        top += rowHeight;
    }
    return top;
}

double paintTotals(const Frame& frame, const InvoiceRenderModel& model, double top) {
    constexpr double columnSpacing = 24;
    constexpr double rowSpacing = 4;
    const double half = (frame.width() - columnSpacing) / 2;
    struct Row {
        PageText name;
        PageText sum;
    };
    std::vector<Row> rows;
    const auto add = [&](const std::string& name, const TextStyle& nameStyle,
                         const std::string& sum, const TextStyle& sumStyle) {
        rows.push_back(
            {PageText::paragraphs(name, nameStyle, half), PageText::figure(sum, sumStyle, half)});
    };
    add("Subtotal", figureLabel, model.subtotal, figure);
    if (model.taxLabel) add(*model.taxLabel, figureLabel, model.tax, figure);
    add("Total", total, model.total, total);
    double widest = 0;
    for (const Row& row : rows) widest = std::max(widest, row.sum.width());
    for (const Row& row : rows) {
        row.sum.paintRightAligned(frame.painter, {frame.right, top});
        row.name.paintRightAligned(frame.painter, {frame.right - widest - columnSpacing, top});
        top += std::max(row.name.height(), row.sum.height()) + rowSpacing;
    }
    return top - rowSpacing;
}

double paintRemark(const Frame& frame, const char* title, const std::string& text, double top) {
    TextStack texts(3);
    texts.add(PageText::line(title, label, frame.width()));
    texts.add(PageText::paragraphs(text, body, frame.width()));
    texts.paint(frame.painter, {frame.left, top});
    return top + texts.height();
}

double paintClosing(const Frame& frame, const InvoiceRenderModel& model, double top) {
    constexpr double spacing = 18;
    top = paintRule(frame, top) + spacing;
    top = paintTotals(frame, model, top);
    if (!model.notes.empty()) top = paintRemark(frame, "NOTES", model.notes, top + spacing);
    if (!model.paymentInstructions.empty()) {
        top = paintRemark(frame, "PAYMENT", model.paymentInstructions, top + spacing);
    }
    return top;
}

/// At the bottom of the frame, or below what stands on the page where that reaches further.
void paintFooter(const Frame& frame, const InvoicePage& page, double top) {
    const auto text = PageText::line(
        "Page " + std::to_string(page.index + 1) + " of " + std::to_string(page.count), pageNumber,
        frame.width());
    const double y = std::max(top, frame.bottom - text.height());
    text.paintRightAligned(frame.painter, {frame.right, y});
}

void paintParts(const Frame& frame, const InvoicePage& page, const InvoiceRenderModel& model) {
    constexpr double belowHeader = 22;
    constexpr double aboveClosing = 14;
    const bool first = page.index == 0;
    const bool last = page.index == page.count - 1;
    double top = margin;
    if (first) top = paintHeader(frame, model, top) + belowHeader;
    if (first || !page.rows.empty()) top = paintTable(frame, page, top);
    if (last) top = paintClosing(frame, model, top + aboveClosing);
    paintFooter(frame, page, top);
}

}  // namespace

QSizeF paperPointSize(PaperSize paper) {
    return paper == PaperSize::letter ? QSizeF(612, 792) : QSizeF(595, 842);
}

void InvoicePageView::paint(QPainter& painter) const {
    const QSizeF size = paperPointSize(paper_);
    const QRectF sheet(QPointF(0, 0), size);
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
    painter.setClipRect(sheet, Qt::IntersectClip);
    painter.fillRect(sheet, Qt::white);
    paintParts({.painter = painter,
                .left = margin,
                .right = size.width() - margin,
                .bottom = size.height() - margin},
               page_, model_);
    painter.restore();
}

}  // namespace elmworth
