// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gmock/gmock.h>

#include <QAccessible>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>
#include <array>
#include <memory>
#include <ostream>

#include "invoicing/InvoicePDFRenderer.h"
#include "screens/invoices/InvoicePreviewPage.h"
#include "support/Invoices.h"
#include "support/TemporaryFolder.h"
#include "support/WindowPicture.h"
#include "theme/AppAppearance.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_InvoicesPlugin)

namespace elmworth {

static void PrintTo(PaperSize paper, std::ostream* out) {
    *out << rawValue(paper);
}

namespace {

using test::plainInvoice;
using testing::ElementsAre;
using testing::SizeIs;

constexpr const char* source = R"(
import QtQuick
import Elmworth.Invoices

Window {
    id: window

    required property InvoicePreviewModel preview
    property real pageWidth: 430
    property alias contentY: flick.contentY

    width: 1000
    height: 700
    visible: true

    Flickable {
        id: flick

        anchors.fill: parent
        clip: true
        contentHeight: pages.height

        InvoicePreview {
            id: pages

            width: flick.width
            model: window.preview
            pageWidth: window.pageWidth
        }
    }
}
)";

/// The page `number`, from 1, of a PDF as another program draws it, `size` pixels large.
QImage pdfPicture(const std::filesystem::path& file, int number, const QSize& size) {
    const QString page = QString::number(number);
    QProcess process;
    process.start(
        QStringLiteral("pdftoppm"),
        {QStringLiteral("-f"), page, QStringLiteral("-l"), page, QStringLiteral("-scale-to-x"),
         QString::number(size.width()), QStringLiteral("-scale-to-y"),
         QString::number(size.height()), QString::fromStdString(file.string())});
    if (!process.waitForFinished() || process.exitCode() != 0) return {};
    return QImage::fromData(process.readAllStandardOutput());
}

/// How dark a square is on average, 0 to 255.
double darkness(const QImage& gray, QPoint corner, int side) {
    int sum = 0;
    for (int y = corner.y(); y < corner.y() + side; ++y) {
        for (int x = corner.x(); x < corner.x() + side; ++x) sum += 255 - gray.constScanLine(y)[x];
    }
    return static_cast<double>(sum) / (side * side);
}

/// How much two pictures differ in the square where they do most, 0 to 255. Two programs draw the
/// edges of letters differently, and one has them on whole pixels: but not what stands where.
double difference(const QImage& one, const QImage& other) {
    constexpr int side = 6;
    const QImage a = one.convertToFormat(QImage::Format_Grayscale8);
    const QImage b = other.convertToFormat(QImage::Format_Grayscale8);
    EXPECT_EQ(a.size(), b.size());
    double most = 0;
    for (int y = side; y + 2 * side < a.height(); y += side) {
        for (int x = 0; x + side < a.width(); x += side) {
            const double here = darkness(a, {x, y}, side);
            double apart = 255;
            for (const int shift : {-1, 0, 1}) {
                apart = std::min(apart, std::abs(here - darkness(b, {x, y + shift}, side)));
            }
            most = std::max(most, apart);
        }
    }
    return most;
}

class InvoicePreviewTest : public testing::Test {
 protected:
    InvoicePreviewTest() {
        AppAppearance::instance().setSetting(AppearanceSetting::dark);
        AppAppearance::instance().setReducedMotion(true);
    }
    void show(const InvoiceRenderModel& invoice, PaperSize paper = PaperSize::letter) {
        preview.show(invoice, paper);
        QQmlComponent component(&engine);
        component.setData(source, QUrl());
        window.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
            {{QStringLiteral("preview"), QVariant::fromValue(&preview)}})));
        ASSERT_TRUE(window) << component.errorString().toStdString();
        frame();
    }
    /// Lets the window draw once.
    QImage frame() {
        QCoreApplication::processEvents();
        Q_EMIT window->afterAnimating();
        return test::pictureOf(*window);
    }
    void scrollTo(double y) {
        window->setProperty("contentY", y);
        frame();
    }
    [[nodiscard]] std::vector<InvoicePreviewPage*> items() const {
        return pagesBelow(*window->contentItem());
    }
    [[nodiscard]] static std::vector<InvoicePreviewPage*> pagesBelow(const QQuickItem& parent) {
        std::vector<InvoicePreviewPage*> found;
        for (QQuickItem* child : parent.childItems()) {
            if (auto* page = qobject_cast<InvoicePreviewPage*>(child)) found.push_back(page);
            for (auto* page : pagesBelow(*child)) found.push_back(page);
        }
        return found;
    }
    /// The pages in view, from 1.
    [[nodiscard]] std::vector<int> inView() const {
        std::vector<int> numbers;
        for (const auto* page : items()) {
            if (page->isInView()) numbers.push_back(page->page() + 1);
        }
        return numbers;
    }

    InvoicePreviewModel preview;
    QQmlEngine engine;
    std::unique_ptr<QQuickWindow> window;
};

/// An invoice that has everything a page can show.
InvoiceRenderModel fullInvoice() {
    auto invoice = plainInvoice(40);
    invoice.rows[5] = test::ProjectRow{"Рекламная кампания — весна", "3.25", "95,00 €", "308,75 €"};
    invoice.taxLabel = "VAT (19%)";
    invoice.tax = "$225.63";
    invoice.total = "$1,413.13";
    invoice.notes = "Thank you for your business.\nOrder 4711";
    invoice.paymentInstructions = "Bank transfer, IBAN XX00 1234 5678 9000";
    QImage logo(300, 120, QImage::Format_ARGB32_Premultiplied);
    logo.fill(QColor(20, 90, 160));
    invoice.logo = std::make_shared<const QImage>(logo);
    return invoice;
}

class InvoicePreviewPictureTest : public InvoicePreviewTest,
                                  public testing::WithParamInterface<PaperSize> {};

INSTANTIATE_TEST_SUITE_P(Paper, InvoicePreviewPictureTest,
                         testing::Values(PaperSize::letter, PaperSize::a4),
                         [](const auto& row) { return std::string(rawValue(row.param)); });

TEST_P(InvoicePreviewPictureTest, pagesOnTheScreenAreThePagesOfTheFile) {
    const auto invoice = fullInvoice();
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "invoice.pdf";
    InvoicePDFRenderer::render(invoice, GetParam(), file);
    show(invoice, GetParam());
    window->setProperty("pageWidth", 860);
    window->setHeight(1250);
    ASSERT_THAT(items(), SizeIs(2));
    for (auto* page : items()) {
        page->setProperty("corner", 0);
        scrollTo(page->y());
        const QSize size(static_cast<int>(page->width()), static_cast<int>(page->height()));
        const QImage there =
            pdfPicture(file, page->page() + 1, size).copy(0, 0, size.width(), size.height());
        const QImage here =
            frame().copy(static_cast<int>(page->x()), 0, size.width(), size.height());
        EXPECT_LT(difference(here, there), 40) << page->page();
        EXPECT_GT(difference(here, there.copy(0, 8, size.width(), size.height())), 90);
    }
}

TEST_F(InvoicePreviewTest, paintsTheSameOnAnyTheme) {
    show(plainInvoice(3));
    const QImage dark = frame();
    AppAppearance::instance().setSetting(AppearanceSetting::light);
    EXPECT_EQ(frame(), dark);
}

TEST_F(InvoicePreviewTest, pagesStandBelowEachOtherInTheMiddle) {
    show(plainInvoice(56));
    ASSERT_THAT(items(), SizeIs(3));
    for (const auto* page : items()) {
        EXPECT_EQ(page->size(), QSizeF(430, 556));
        EXPECT_EQ(page->position(), QPointF(285, page->page() * (556 + 16)));
    }
}

TEST_F(InvoicePreviewTest, cornersAreRoundAndThereIsAShadowBelow) {
    show(plainInvoice(1));
    const QImage image = frame();
    EXPECT_NE(image.pixelColor(285, 0), QColor(Qt::white).darker(101)) << "as the window";
    EXPECT_EQ(image.pixelColor(300, 10), QColor(Qt::white));
    EXPECT_LT(image.pixelColor(500, 556 + 4).lightness(), 240);
}

TEST_F(InvoicePreviewTest, aLogoThatIsMadeSmallKeepsItsFineLines) {
    QImage logo(600, 240, QImage::Format_ARGB32_Premultiplied);
    logo.fill(Qt::white);
    QPainter painter(&logo);
    for (int x = 50; x < 600; x += 53) painter.fillRect(x, 0, 2, 240, Qt::black);
    painter.end();
    auto invoice = plainInvoice(1);
    invoice.logo = std::make_shared<const QImage>(logo);
    show(invoice);
    const QImage picture = frame();
    const double scale = 430.0 / 612;
    for (int x = 50; x < 600; x += 53) {
        const double center = 285 + scale * (48 + (x + 1) * 110.0 / 600);
        int ink = 0;
        for (int i = -1; i <= 1; ++i) {
            ink += 255 - qGray(picture.pixel(static_cast<int>(center) + i, 45));
        }
        EXPECT_GT(ink, 40) << x;
    }
}

TEST_F(InvoicePreviewTest, onlyPagesInViewArePainted) {
    show(plainInvoice(22 + 18 * 34));
    ASSERT_THAT(items(), SizeIs(20));
    EXPECT_THAT(inView(), ElementsAre(1, 2));
    scrollTo(10 * 572 + 100);
    EXPECT_THAT(inView(), ElementsAre(11, 12));
}

/// Counts how often it is painted.
class CountingPage : public InvoicePreviewPage {
 public:
    using InvoicePreviewPage::InvoicePreviewPage;
    void paint(QPainter* painter) override {
        ++paints;
        InvoicePreviewPage::paint(painter);
    }
    int paints = 0;
};

TEST_F(InvoicePreviewTest, aPageIsPaintedOnceAndAgainWhenItLooksDifferent) {
    auto invoice = plainInvoice(13);
    show(invoice);
    std::array<CountingPage, 3> pages;
    for (int i = 0; i < 3; ++i) {
        auto& page = pages[static_cast<std::size_t>(i)];
        page.setParentItem(window->contentItem());
        page.setSize({100, 130});
        page.setPosition({0, i == 2 ? 5000.0 : i * 140.0});
        page.setModel(&preview);
        page.setPage(i == 2 ? 0 : i);
    }
    const auto paints = [&] {
        frame();
        return std::array{pages[0].paints, pages[1].paints, pages[2].paints};
    };
    EXPECT_THAT(paints(), ElementsAre(1, 1, 0));
    EXPECT_THAT(paints(), ElementsAre(1, 1, 0));
    invoice.notes = "Thank you";
    preview.show(invoice, PaperSize::letter);
    EXPECT_THAT(paints(), ElementsAre(1, 2, 0));
    pages[0].setVisible(false);
    pages[2].setY(300);
    EXPECT_THAT(paints(), ElementsAre(1, 2, 1));
}

TEST_F(InvoicePreviewTest, aPageThatIsGonePaintsNothing) {
    show(plainInvoice(1));
    preview.clear();
    frame();
    EXPECT_THAT(items(), SizeIs(0));
}

TEST_F(InvoicePreviewTest, isReadAsText) {
    QAccessible::setActive(true);
    show(plainInvoice(13));
    const auto* page = QAccessible::queryAccessibleInterface(items()[1]);
    EXPECT_EQ(page->text(QAccessible::Name), QStringLiteral("Page 2 of 2"));
    EXPECT_EQ(page->text(QAccessible::Description),
              QStringLiteral("Subtotal $1,187.50\nTotal $1,187.50"));
}

}  // namespace
}  // namespace elmworth
