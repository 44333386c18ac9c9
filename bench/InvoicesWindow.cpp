// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the invoices' section takes from an event to the painted window, where no graphics card
// helps: to open, to select an invoice with its pages, a key in its notes. In the library of twenty
// years, and in one of 10,000 entries.

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "BenchLibrary.h"
#include "platform/Settings.h"
#include "screens/invoices/InvoicesModel.h"
#include "support/TestOutlets.h"
#include "theme/fonts/Fonts.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_InvoicesPlugin)

namespace elmworth::bench {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr const char* source = R"(
import QtQuick
import Elmworth.Theme
import Elmworth.Invoices

Window {
    id: window

    required property InvoicesModel invoices

    width: 1226
    height: 900
    visible: true
    color: Theme.backgroundTop

    InvoicesView {
        anchors.fill: parent
        model: window.invoices
    }
}
)";

class InvoicesWindow {
 public:
    explicit InvoicesWindow(std::int64_t entryCount) : library_(entryCount) {}

    [[nodiscard]] UnitOfWork& context() { return library_.context(); }
    [[nodiscard]] InvoicesModel& model() { return model_; }

    /// Makes the window, up to its first complete frame; in milliseconds.
    double open() {
        const auto began = std::chrono::steady_clock::now();
        QQmlComponent component(&engine_);
        component.setData(source, QUrl());
        window_.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
            {{QStringLiteral("invoices"), QVariant::fromValue(&model_)}})));
        if (!window_) std::fprintf(stderr, "%s\n", qPrintable(component.errorString()));
        paint();
        return Milliseconds(std::chrono::steady_clock::now() - began).count();
    }
    void paint() {
        QCoreApplication::processEvents();
        window_->grabWindow();
    }
    void settle() {
        for (int i = 0; i < 100; ++i) library_.loop.turn();
        paint();
    }
    /// From `event` to the painted window.
    template <class Event>
    double frameOf(const Event& event) {
        const auto began = std::chrono::steady_clock::now();
        event();
        context().deliverChanges();
        paint();
        return Milliseconds(std::chrono::steady_clock::now() - began).count();
    }

 private:
    OpenLibrary library_;
    test::TemporaryFolder folder_;
    Settings defaults_{folder_.path() / "defaults.ini"};
    ProfileStore profiles_{defaults_};
    UndoHistory history_{library_.context()};
    AppServices services_{.context = library_.context(),
                          .history = history_,
                          .timer = library_.timer,
                          .defaults = defaults_,
                          .profiles = profiles_,
                          .runLoop = library_.loop,
                          .now = [this] { return library_.now; },
                          .calendar = &libraryCalendar};
    test::NumberPainter painter_;
    test::NotingFiles files_;
    Confirmation confirmation_;
    NewInvoiceModel newInvoice_{services_};
    InvoicesModel model_{services_, {painter_, files_}, confirmation_, newInvoice_};
    QQmlEngine engine_;
    std::unique_ptr<QQuickWindow> window_;
};

void report(const char* what, std::vector<double> times, double aim) {
    std::sort(times.begin(), times.end());
    const auto at = [&](double share) {
        return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
    };
    std::printf("%-34s median %7.1f ms   95%% %7.1f ms   aim %5.0f ms\n", what, at(0.5), at(0.95),
                aim);
}

/// The row of a draft with 500 entries, made of the time of other invoices.
int makeLarge(InvoicesWindow& window) {
    auto& context = window.context();
    const auto entries = context.fetch(
        Query<TimeEntry>{.predicate = key<&TimeEntry::invoice>() != absent, .fetchLimit = 500});
    const auto invoice = std::make_shared<Invoice>("LARGE-500");
    invoice->issueDate = libraryNow() + std::chrono::hours(1);
    context.insert(invoice);
    for (const auto& entry : entries) entry->invoice = invoice;
    context.save();
    window.settle();
    return window.model().rows().position(invoice->id());
}

void measure(std::int64_t entryCount) {
    std::printf("%lld entries\n", static_cast<long long>(entryCount));
    InvoicesWindow window(entryCount);
    report("the first frame of the section", {window.open()}, 300);
    window.settle();
    const int large = makeLarge(window);
    std::vector<double> selections;
    std::vector<double> told;
    std::vector<double> keys;
    for (int i = 0; i < 15; ++i) {
        window.model().selection()->click(large + 1 + i);
        window.settle();
        selections.push_back(window.frameOf([&] {
            const auto began = std::chrono::steady_clock::now();
            window.model().selection()->click(large);
            told.push_back(Milliseconds(std::chrono::steady_clock::now() - began).count());
        }));
    }
    report("the same, before it is painted", told, 15);
    report("selecting an invoice of 500", selections, 50);
    QString notes;
    for (int i = 0; i < 45; ++i) {
        notes += QChar(u'a' + i % 26);
        keys.push_back(window.frameOf([&] { window.model().detail()->setNotes(notes); }));
    }
    report("a key in its notes", keys, 16);
    std::vector<double> steps;
    for (int i = 0; i < 45; ++i) {
        steps.push_back(window.frameOf([&] { window.model().selection()->moveCurrent(1); }));
    }
    report("an arrow key in the list", steps, 50);
    window.model().detail()->leaveNotes();
}

}  // namespace
}  // namespace elmworth::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    const QGuiApplication application(argc, argv);
    elmworth::loadEmbeddedFonts();
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    elmworth::bench::measure(10'000);
    elmworth::bench::measure(200'000);
    return 0;
}
