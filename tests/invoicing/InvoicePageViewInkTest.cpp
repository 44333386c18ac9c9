// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QSizeF>
#include <algorithm>

#include "invoicing/InvoicePageView.h"
#include "invoicing/InvoicePages.h"
#include "support/Invoices.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::plainInvoice;

constexpr int scale = 4;  // pixels per point

/// What stands on a page as pixels, with a green border of `border` points around it.
QImage painted(const InvoiceRenderModel& model, std::size_t index, double border = 0) {
    const QSizeF size = paperPointSize(PaperSize::letter) + QSizeF(2 * border, 2 * border);
    QImage image((size * scale).toSize(), QImage::Format_RGB32);
    image.fill(Qt::green);
    QPainter painter(&image);
    painter.scale(scale, scale);
    painter.translate(border, border);
    const auto all = pages(model);
    InvoicePageView(all.at(index), model, PaperSize::letter).paint(painter);
    return image;
}

int gray(const QImage& image, double x, double y) {
    return image.pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale)).red();
}

/// The darkest level inside a rectangle of points.
int darkest(const QImage& image, const QRectF& area) {
    int level = 255;
    for (double y = area.top(); y < area.bottom(); y += 1.0 / scale) {
        for (double x = area.left(); x < area.right(); x += 1.0 / scale) {
            level = std::min(level, gray(image, x, y));
        }
    }
    return level;
}

constexpr int mutedLevel = 115;  // 0.45
constexpr int ruleLevel = 209;   // 0.82

TEST(InvoicePageViewInk, pageIsWhiteAndNothingIsPaintedBesideIt) {
    InvoiceRenderModel model = plainInvoice(1);
    model.notes = test::lines(200);
    const QImage image = painted(model, 1, 20);
    EXPECT_EQ(image.pixelColor(20 * scale, 20 * scale), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(image.width() / 2, image.height() - 1), QColor(Qt::green));
    for (int x = 0; x < image.width(); ++x) {
        ASSERT_EQ(image.pixelColor(x, 19 * scale), QColor(Qt::green));
        ASSERT_EQ(image.pixelColor(x, (792 + 21) * scale), QColor(Qt::green));
    }
}

TEST(InvoicePageViewInk, rulesAreOnePointHighOverTheFullWidth) {
    // The page of the totals alone begins with the rule of the closing.
    const QImage image = painted(plainInvoice(13), 1);
    constexpr double top = 48 + 14;
    for (const double x : {48.0, 300.0, 563.5}) {
        EXPECT_EQ(gray(image, x, top - 0.25), 255);
        EXPECT_EQ(gray(image, x, top), ruleLevel);
        EXPECT_EQ(gray(image, x, top + 0.75), ruleLevel);
        EXPECT_EQ(gray(image, x, top + 1), 255);
    }
    EXPECT_EQ(gray(image, 47.5, top + 0.5), 255);
    EXPECT_EQ(gray(image, 564, top + 0.5), 255);
}

TEST(InvoicePageViewInk, tableHeadEndsWithARule) {
    const QImage image = painted(plainInvoice(23), 1);
    constexpr double top = 48 + 17;
    EXPECT_EQ(gray(image, 300, top - 0.25), 255);
    EXPECT_EQ(gray(image, 300, top), ruleLevel);
    EXPECT_EQ(gray(image, 300, top + 0.75), ruleLevel);
    EXPECT_EQ(gray(image, 300, top + 1), 255);
}

TEST(InvoicePageViewInk, labelsEntriesAndFooterAreMutedAndFiguresAreNot) {
    const QImage later = painted(plainInvoice(23), 1);
    EXPECT_EQ(darkest(later, {48, 48, 516, 17}), mutedLevel);   // head row
    EXPECT_EQ(darkest(later, {48, 66, 516, 17}), mutedLevel);   // entry
    EXPECT_EQ(darkest(later, {480, 730, 84, 16}), mutedLevel);  // footer
    EXPECT_EQ(darkest(later, {420, 115, 75, 13}), mutedLevel);  // "Subtotal"
    EXPECT_EQ(darkest(later, {510, 115, 54, 13}), 0);           // its sum
    EXPECT_EQ(darkest(later, {420, 132, 75, 14}), 0);           // "Total"
}

TEST(InvoicePageViewInk, contactsAndDatesOfTheHeaderAreMutedAndNamesAreNot) {
    const QImage page = painted(plainInvoice(0), 0);
    EXPECT_EQ(darkest(page, {48, 48, 150, 15}), 0);            // name
    EXPECT_EQ(darkest(page, {48, 66, 150, 23}), 0);            // address
    EXPECT_EQ(darkest(page, {48, 92, 150, 26}), mutedLevel);   // e-mail and tax ID
    EXPECT_EQ(darkest(page, {440, 50, 124, 24}), 0);           // heading
    EXPECT_EQ(darkest(page, {440, 78, 124, 12}), 0);           // number
    EXPECT_EQ(darkest(page, {440, 94, 124, 28}), mutedLevel);  // dates
    EXPECT_EQ(darkest(page, {48, 140, 300, 8}), mutedLevel);   // "BILL TO", "PERIOD"
}

struct LogoRow {
    const char* name;
    QSize pixels;
    QSizeF shown;
};

void PrintTo(const LogoRow& row, std::ostream* out) {
    *out << row.name;
}

class InvoiceLogo : public testing::TestWithParam<LogoRow> {};

TEST_P(InvoiceLogo, fitsIntoItsSpaceAtTheUpperLeft) {
    InvoiceRenderModel model = plainInvoice(0);
    QImage logo(GetParam().pixels, QImage::Format_RGB32);
    logo.fill(QColor(50, 50, 50));
    model.logo = std::make_shared<const QImage>(logo);
    const QImage page = painted(model, 0);
    const QSizeF shown = GetParam().shown;
    EXPECT_EQ(gray(page, 48, 48), 50);
    EXPECT_EQ(gray(page, 48 + shown.width() - 0.5, 48 + shown.height() - 0.5), 50);
    EXPECT_EQ(gray(page, 48 + shown.width() + 0.5, 48), 255);
    EXPECT_EQ(gray(page, 48, 48 + shown.height() + 0.5), 255);
    // Eight points lie between the logo and the line of the name.
    const QRectF gap(48, 48 + shown.height() + 0.5, 160, 8 + 2);
    EXPECT_EQ(darkest(page, gap), 255);
    EXPECT_EQ(darkest(page, gap.translated(0, 5)), 0);
}

INSTANTIATE_TEST_SUITE_P(InvoicePageViewInk, InvoiceLogo,
                         testing::Values(LogoRow{"Wide", {600, 60}, {160, 16}},
                                         LogoRow{"High", {44, 88}, {22, 44}},
                                         LogoRow{"Square", {500, 500}, {44, 44}},
                                         LogoRow{"ShapedAsItsSpace", {320, 88}, {160, 44}},
                                         LogoRow{"Small", {16, 11}, {64, 44}}),
                         test::rowName);

TEST(InvoicePageViewInk, paintingLeavesThePainterAsItWas) {
    QImage image(100, 100, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setPen(Qt::red);
    const QTransform before = painter.transform();
    const auto model = plainInvoice(1);
    const auto all = pages(model);
    InvoicePageView(all.front(), model, PaperSize::a4).paint(painter);
    EXPECT_EQ(painter.transform(), before);
    EXPECT_EQ(painter.pen().color(), QColor(Qt::red));
    EXPECT_FALSE(painter.hasClipping());
    EXPECT_FALSE(painter.testRenderHint(QPainter::LosslessImageRendering));
}

}  // namespace
}  // namespace elmworth
