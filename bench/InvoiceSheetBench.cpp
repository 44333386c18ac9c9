// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the new invoice sheet and the preview of an invoice cost, where no graphics card helps.

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>
#include <memory>

#include "BenchLibrary.h"
#include "screens/invoices/InvoicePreviewModel.h"
#include "screens/invoices/NewInvoiceModel.h"
#include "support/Invoices.h"
#include "theme/fonts/Fonts.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_InvoicesPlugin)

namespace elmworth::bench {
namespace {

constexpr int rowsOfTwentyPages = 22 + 18 * 34 + 26;

constexpr const char* source = R"(
import QtQuick
import Elmworth.Invoices

Window {
    id: window

    required property InvoicePreviewModel preview
    property alias contentY: flick.contentY

    width: 880
    height: 900
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
        }
    }
}
)";

/// The preview of an invoice of twenty pages.
class PreviewWindow {
 public:
    PreviewWindow() {
        QQmlComponent component(&engine_);
        component.setData(source, QUrl());
        window_.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
            {{QStringLiteral("preview"), QVariant::fromValue(&preview_)}})));
        paint();
    }

    void show(const InvoiceRenderModel& invoice) { preview_.show(invoice, PaperSize::a4); }
    void showNone() { preview_.clear(); }
    void scrollTo(double y) { window_->setProperty("contentY", y); }
    void paint() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Q_EMIT window_->afterAnimating();
        benchmark::DoNotOptimize(window_->grabWindow());
    }

 private:
    InvoicePreviewModel preview_;
    QQmlEngine engine_;
    std::unique_ptr<QQuickWindow> window_;
};

void previewAsItIs(benchmark::State& state) {
    PreviewWindow window;
    window.show(test::plainInvoice(rowsOfTwentyPages));
    window.paint();
    for (auto _ : state) window.paint();
}

void invoiceOfTwentyPagesShown(benchmark::State& state) {
    PreviewWindow window;
    const auto invoice = test::plainInvoice(rowsOfTwentyPages);
    for (auto _ : state) {
        state.PauseTiming();
        window.showNone();
        window.paint();
        state.ResumeTiming();
        window.show(invoice);
        window.paint();
    }
}

void keyInTheNotesWithTheLastPageInView(benchmark::State& state) {
    PreviewWindow window;
    auto invoice = test::plainInvoice(rowsOfTwentyPages);
    window.show(invoice);
    window.scrollTo(19 * 624);
    window.paint();
    for (auto _ : state) {
        invoice.notes = invoice.notes.size() > 80 ? "x" : invoice.notes + "x";
        window.show(invoice);
        window.paint();
    }
}

/// The sheet over a generated library.
class Sheet {
 public:
    explicit Sheet(std::int64_t entries) : library_(entries) {}
    [[nodiscard]] NewInvoiceModel& model() { return model_; }

 private:
    [[nodiscard]] AppServices services() {
        return {.context = library_.context(),
                .history = history_,
                .timer = library_.timer,
                .defaults = defaults_,
                .profiles = profiles_,
                .runLoop = library_.loop,
                .now = [this] { return library_.now; },
                .calendar = [] { return libraryCalendar(); }};
    }

    OpenLibrary library_;
    test::TemporaryFolder folder_;
    UndoHistory history_{library_.context()};
    Settings defaults_{folder_.path() / "Elmworth.ini"};
    ProfileStore profiles_{defaults_};
    NewInvoiceModel model_{services()};
};

void sheetOpened(benchmark::State& state) {
    Sheet sheet(state.range(0));
    for (auto _ : state) sheet.model().open();
}

void sheetPeriodChosen(benchmark::State& state) {
    Sheet sheet(state.range(0));
    sheet.model().open();
    bool year = false;
    for (auto _ : state) {
        year = !year;
        sheet.model().choosePreset(
            static_cast<int>(year ? DateRangePreset::thisYear : DateRangePreset::lastWeek));
    }
}

void sheetTaxTyped(benchmark::State& state) {
    Sheet sheet(state.range(0));
    sheet.model().open();
    sheet.model().choosePreset(static_cast<int>(DateRangePreset::thisYear));
    int rate = 0;
    for (auto _ : state) sheet.model().tax()->setText(QString::number(rate = (rate + 1) % 100));
}

BENCHMARK(previewAsItIs)->Unit(benchmark::kMillisecond);
BENCHMARK(invoiceOfTwentyPagesShown)->Unit(benchmark::kMillisecond)->Iterations(100);
BENCHMARK(keyInTheNotesWithTheLastPageInView)->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(sheetOpened)->Arg(10'000)->Arg(200'000)->Unit(benchmark::kMillisecond);
BENCHMARK(sheetPeriodChosen)->Arg(10'000)->Arg(200'000)->Unit(benchmark::kMillisecond);
BENCHMARK(sheetTaxTyped)->Arg(10'000)->Arg(200'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace elmworth::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    elmworth::loadEmbeddedFonts();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
