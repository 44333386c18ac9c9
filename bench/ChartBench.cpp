// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the timesheet's figures and its chart cost: from new entries to the painted window, where no
// graphics card helps.

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>
#include <array>
#include <memory>

#include "records/DateRangePreset.h"
#include "screens/timesheet/DailyChartModel.h"
#include "screens/timesheet/StatsRowModel.h"
#include "theme/fonts/Fonts.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_TimesheetPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_WelcomePlugin)

namespace elmworth::bench {
namespace {

constexpr std::array colors{"#7C6CFF", "#2EC4B6", "#FFB400", "#FF6B8B",
                            "#4AA8FF", "#9BD770", "#B57BFF", "#FF8A4C"};
constexpr int projectCount = static_cast<int>(colors.size());
const Instant monday = std::chrono::sys_days(std::chrono::year(2026) / 3 / 2);

const Calendar& calendar() {
    static const Calendar calendar(Locale("en_US"), "Europe/Berlin");
    return calendar;
}

DateInterval daysFromMonday(int days) {
    return customInterval(monday, *calendar().adding(days - 1, CalendarUnit::day, monday),
                          calendar());
}

/// `count` entries of an hour each, of all projects in turn, eight a day; the last one runs.
TimesheetSums sumsOf(const std::vector<TimesheetEntry>& entries, const DateInterval& range) {
    TimesheetSums sums(range);
    for (const auto& entry : entries) sums.add(entry);
    return sums;
}

std::vector<TimesheetEntry> entries(int count) {
    std::vector<Ref<Project>> projects;
    for (int i = 0; i < projectCount; ++i) {
        auto project = std::make_shared<Project>("Project " + std::to_string(i), nullptr);
        project->colorHex = colors[static_cast<std::size_t>(i)];
        projects.push_back(std::move(project));
    }
    std::vector<TimesheetEntry> entries;
    for (int i = 0; i < count; ++i) {
        const auto start =
            monday + std::chrono::days(i / projectCount) + std::chrono::hours(8 + i % projectCount);
        entries.push_back({PersistentID::make(), start, start + std::chrono::hours(1),
                           projects[static_cast<std::size_t>(i % projectCount)], 10'000, false});
    }
    entries.back().end.reset();
    return entries;
}

constexpr const char* source = R"(
import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Timesheet

Window {
    id: window

    required property StatsRowModel stats
    required property DailyChartModel chart

    width: 1020
    height: 400
    visible: true
    color: Theme.backgroundTop

    ColumnLayout {
        anchors { left: parent.left; right: parent.right; top: parent.top }

        StatsRow { Layout.fillWidth: true; model: window.stats }
        DailyChart { Layout.fillWidth: true; model: window.chart }
    }
}
)";

/// The row and the chart over 31 days in a window.
class ChartWindow {
 public:
    ChartWindow() {
        show(7);
        QQmlComponent component(&engine_);
        component.setData(source, QUrl());
        window_.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
            {{QStringLiteral("stats"), QVariant::fromValue(&stats_)},
             {QStringLiteral("chart"), QVariant::fromValue(&chart_)}})));
        settle();
    }

    void show(int days) {
        const auto range = daysFromMonday(days);
        stats_.show(sumsOf(entries_, range), now_);
        chart_.show(entries_, range, now_, calendar());
    }
    void paint() { benchmark::DoNotOptimize(window_->grabWindow()); }
    /// Does what is put off to a later turn of the loop.
    void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        paint();
    }

 private:
    std::vector<TimesheetEntry> entries_ = entries(31 * projectCount);
    Instant now_ = monday + std::chrono::days(31);
    StatsRowModel stats_;
    DailyChartModel chart_;
    QQmlEngine engine_;
    std::unique_ptr<QQuickWindow> window_;
};

void windowAsItIs(benchmark::State& state) {
    ChartWindow window;
    window.show(31);
    window.settle();
    for (auto _ : state) window.paint();
}

void weekToMonthShown(benchmark::State& state) {
    ChartWindow window;
    for (auto _ : state) {
        state.PauseTiming();
        window.show(7);
        window.settle();
        state.ResumeTiming();
        window.show(31);
    }
}

void weekToMonthPainted(benchmark::State& state) {
    ChartWindow window;
    for (auto _ : state) {
        state.PauseTiming();
        window.show(7);
        window.settle();
        state.ResumeTiming();
        window.show(31);
        window.paint();
    }
}

void figuresSummed(benchmark::State& state) {
    const auto all = entries(static_cast<int>(state.range(0)));
    StatsRowModel stats;
    for (auto _ : state) stats.show(sumsOf(all, daysFromMonday(100'000)), all.back().start);
}

void figuresTick(benchmark::State& state) {
    const auto all = entries(static_cast<int>(state.range(0)));
    StatsRowModel stats;
    stats.show(sumsOf(all, daysFromMonday(100'000)), all.back().start);
    Instant now = all.back().start;
    for (auto _ : state) stats.tick(now += std::chrono::seconds(1));
}

BENCHMARK(windowAsItIs)->Unit(benchmark::kMillisecond);
BENCHMARK(weekToMonthShown)->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(weekToMonthPainted)->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(figuresSummed)->Arg(200'000)->Unit(benchmark::kMillisecond);
BENCHMARK(figuresTick)->Arg(100)->Arg(200'000)->Unit(benchmark::kMicrosecond);

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
