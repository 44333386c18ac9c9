// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the invoices' section takes from an event to the painted window, where no graphics card
// helps: to open, to select an invoice with its pages, a key in its notes. In the library of twenty
// years, and in one of 10,000 entries.

#include <QQmlEngine>
#include <QtQml/QQmlExtensionPlugin>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "BenchLibrary.h"
#include "Frames.h"
#include "platform/Settings.h"
#include "screens/invoices/InvoicesModel.h"
#include "support/TestOutlets.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_InvoicesPlugin)

namespace elmworth::bench {
namespace {

class InvoicesWindow {
 public:
    explicit InvoicesWindow(std::int64_t entryCount) : library_(entryCount) {}

    [[nodiscard]] UnitOfWork& context() { return library_.context(); }
    [[nodiscard]] InvoicesModel& model() { return model_; }

    void open() { shown_.emplace(engine_, "Elmworth.Invoices", "InvoicesView", &model_); }
    void settle() {
        for (int i = 0; i < 100; ++i) library_.loop.turn();
        shown_->paint();
    }
    /// From `event` to the painted window.
    template <class Event>
    double frameOf(const Event& event) {
        return shown_->frameOf([&] {
            event();
            context().deliverChanges();
        });
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
    std::optional<Shown> shown_;
};

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
    InvoicesWindow window(entryCount);
    window.open();
    window.settle();
    const int large = makeLarge(window);
    std::vector<double> selections;
    std::vector<double> told;
    std::vector<double> keys;
    for (int i = 0; i < 15; ++i) {
        window.model().selection()->click(large + 1 + i);
        window.settle();
        selections.push_back(window.frameOf(
            [&] { told.push_back(timed([&] { window.model().selection()->click(large); })); }));
    }
    report("selecting an invoice of 500, before painting", entryCount, told, 15);
    report("selecting an invoice of 500", entryCount, selections, 50);
    QString notes;
    for (int i = 0; i < 45; ++i) {
        notes += QChar(u'a' + i % 26);
        keys.push_back(window.frameOf([&] { window.model().detail()->setNotes(notes); }));
    }
    report("a key in the notes of an invoice", entryCount, keys, 16);
    std::vector<double> steps;
    for (int i = 0; i < 45; ++i) {
        steps.push_back(window.frameOf([&] { window.model().selection()->moveCurrent(1); }));
    }
    report("an arrow key in the list of invoices", entryCount, steps, 50);
    window.model().detail()->leaveNotes();
}

}  // namespace
}  // namespace elmworth::bench

int main(int argc, char** argv) {
    const elmworth::bench::Offscreen offscreen(argc, argv);
    elmworth::bench::measure(1'000);
    elmworth::bench::measure(10'000);
    elmworth::bench::measure(200'000);
    return 0;
}
