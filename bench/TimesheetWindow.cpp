// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the timesheet takes from an event to the painted window, where no graphics card helps:
// another period, a key in the search field, a step of the scroll wheel. In the library of twenty
// years.

#include <unistd.h>

#include <QQmlEngine>
#include <QtQml/QQmlExtensionPlugin>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "BenchLibrary.h"
#include "Frames.h"
#include "platform/Settings.h"
#include "records/DateRangePreset.h"
#include "screens/timesheet/TimesheetModel.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_PanelPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_TimesheetPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_WelcomePlugin)

namespace elmworth::bench {
namespace {

double residentMegabytes() {
    std::ifstream file("/proc/self/statm");
    long size = 0;
    long resident = 0;
    file >> size >> resident;
    return static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / 1e6;
}

/// A Friday evening in December, so that this year is nearly over.
Instant friday() {
    return std::chrono::sys_days(std::chrono::year(2026) / 12 / 18) + std::chrono::hours(17);
}

class TimesheetWindow {
 public:
    explicit TimesheetWindow(std::int64_t entries) : entries_(entries) {
        copyLibrary(entries, friday(), folder_.path());
        container_ =
            std::make_unique<Library>(LibraryOptions{folder_.path() / "library.sqlite"}, loop_);
        history_ = std::make_unique<UndoHistory>(container_->mainContext());
        historyModel_ = std::make_unique<HistoryModel>(*history_);
        timer_ = std::make_unique<TimerService>(container_->mainContext(), clock(), loop_,
                                                &libraryCalendar);
        timer_->restore();
        model_ = std::make_unique<TimesheetModel>(AppServices{.context = container_->mainContext(),
                                                              .history = *history_,
                                                              .timer = *timer_,
                                                              .defaults = defaults_,
                                                              .profiles = profiles_,
                                                              .runLoop = loop_,
                                                              .now = clock(),
                                                              .calendar = &libraryCalendar},
                                                  confirmation_, *historyModel_);
        shown_.emplace(engine_, "Elmworth.Timesheet", "TimesheetView", model_.get());
        settle();
    }

    [[nodiscard]] TimesheetModel& model() { return *model_; }
    [[nodiscard]] TimerService& timer() { return *timer_; }
    void deliver() { container_->mainContext().deliverChanges(); }
    [[nodiscard]] QQuickItem* list() const { return shown_->item("QQuickListView"); }

    void report(const std::string& figure, std::vector<double> times, double aim = 0) const {
        bench::report(figure, entries_, std::move(times), aim);
    }

    void choose(DateRangePreset preset) {
        model_->filter()->choosePreset(static_cast<int>(preset));
    }

    /// One turn of the loop, with what it paints.
    void turn() {
        loop_.turn();
        shown_->paint();
    }
    void settle() {
        do turn();
        while (model_->isReading());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        turn();
    }

    /// From `event` to the painted window.
    template <class Event>
    double frameOf(const Event& event) {
        return shown_->frameOf(event);
    }

 private:
    [[nodiscard]] static Clock clock() {
        return [] { return friday(); };
    }

    std::int64_t entries_;
    test::TemporaryFolder folder_;
    TurningLoop loop_;
    Settings defaults_{folder_.path() / "defaults.ini"};
    ProfileStore profiles_{defaults_};
    std::unique_ptr<Library> container_;
    std::unique_ptr<UndoHistory> history_;
    std::unique_ptr<TimerService> timer_;
    Confirmation confirmation_;
    std::unique_ptr<HistoryModel> historyModel_;
    std::unique_ptr<TimesheetModel> model_;
    QQmlEngine engine_;
    std::optional<Shown> shown_;
};

void switchPeriods(TimesheetWindow& window, const char* what, DateRangePreset from,
                   DateRangePreset to, double aim) {
    std::vector<double> times;
    for (int i = 0; i < 15; ++i) {
        window.choose(from);
        window.settle();
        times.push_back(window.frameOf([&] { window.choose(to); }));
    }
    window.report(what, times, aim);
}

void search(TimesheetWindow& window) {
    window.choose(DateRangePreset::thisYear);
    std::vector<double> times;
    for (int i = 0; i < 5; ++i) {
        for (const char* typed : {"r", "re", "rev", "revi", "rev", "r", "", "ü", "übe"}) {
            times.push_back(window.frameOf(
                [&] { window.model().filter()->setSearch(QString::fromUtf8(typed)); }));
        }
        window.model().filter()->setSearch({});
        window.settle();
    }
    window.report("a key in the search, a year", times, 16);
}

void scroll(TimesheetWindow& window) {
    window.choose(DateRangePreset::thisYear);
    window.settle();
    auto* list = window.list();
    std::vector<double> times;
    for (int i = 0; i < 600; ++i) {
        const double y = list->property("contentY").toDouble() + 120;
        times.push_back(window.frameOf([&] { list->setProperty("contentY", y); }));
    }
    window.report("a step of 120 pixels, a year", times, 33);
}

/// What a key in the notes of the running entry takes until it is told, and until it is painted.
void typeNotes(TimesheetWindow& window, const char* what) {
    window.timer().start(nullptr);
    window.settle();
    std::vector<double> told;
    std::vector<double> painted;
    QString notes;
    for (int i = 0; i < 45; ++i) {
        notes += QChar(u'a' + i % 26);
        painted.push_back(window.frameOf([&] {
            told.push_back(timed([&] {
                window.model().running()->setNotes(notes);
                window.deliver();
            }));
        }));
    }
    window.timer().stop();
    window.report(std::string("a key in the notes, ") + what, told, 4);
    window.report(std::string("a key in the notes, ") + what + ", painted", painted, 16);
}

/// What the arrow keys take in a list of all lines.
void moveKeys(TimesheetWindow& window) {
    auto& model = window.model();
    std::vector<double> moves;
    std::vector<double> extensions;
    model.selection()->moveCurrent(model.rows().rowCount() / 2);
    for (int i = 0; i < 45; ++i) moves.push_back(timed([&] { model.selection()->moveCurrent(1); }));
    model.selection()->moveCurrent(-model.rows().rowCount(), true);
    for (int i = 0; i < 45; ++i)
        extensions.push_back(timed([&] { model.selection()->moveCurrent(1, true); }));
    window.report("an arrow key in all lines", moves, 1);
    window.report("an arrow key with Shift, half selected", extensions, 1);
    model.selection()->clear();
}

void allYears(TimesheetWindow& window) {
    std::vector<double> whole;
    std::vector<double> turns;
    double full = 0;
    for (int i = 0; i < 7; ++i) {
        window.choose(DateRangePreset::thisWeek);
        window.settle();
        window.model().filter()->from()->setValue(friday() - std::chrono::days(365 * 21));
        whole.push_back(timed([&] {
            turns.push_back(window.frameOf([&] { window.choose(DateRangePreset::custom); }));
            while (window.model().isReading()) {
                turns.push_back(window.frameOf([&] { window.turn(); }));
            }
        }));
        full = std::max(full, residentMegabytes());
    }
    window.report("all twenty years, complete", whole, 400);
    typeNotes(window, "all years");
    moveKeys(window);
    window.report("a turn of the loop meanwhile", turns, 25);
    window.choose(DateRangePreset::thisWeek);
    window.settle();
    std::printf("memory with all years | %.0f MB | aim 250 MB\n", full);
    std::printf("memory back in a week | %.0f MB | aim 150 MB\n", residentMegabytes());
}

void measure(std::int64_t entries) {
    TimesheetWindow window(entries);
    std::vector<double> idle;
    for (int i = 0; i < 15; ++i) idle.push_back(window.frameOf([] {}));
    window.report("the timesheet as it is", idle);
    using enum DateRangePreset;
    switchPeriods(window, "last week to this week", lastWeek, thisWeek, 16);
    switchPeriods(window, "this week to this month", thisWeek, thisMonth, 16);
    switchPeriods(window, "this month to last month", thisMonth, lastMonth, 16);
    switchPeriods(window, "this week to this year", thisWeek, thisYear, 50);
    switchPeriods(window, "this year to this week", thisYear, thisWeek, 16);
    window.model().filter()->from()->setValue(friday());
    switchPeriods(window, "this week to a custom day", thisWeek, custom, 16);
    search(window);
    scroll(window);
    typeNotes(window, "a year");
    allYears(window);
}

}  // namespace
}  // namespace elmworth::bench

int main(int argc, char** argv) {
    const elmworth::bench::Offscreen offscreen(argc, argv);
    for (const std::int64_t entries : {1'000, 10'000, 200'000}) elmworth::bench::measure(entries);
    return 0;
}
