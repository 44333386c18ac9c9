// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a section of the window takes until its first complete frame, beside the timesheet's week,
// in a small library and in that of twenty years; and what it takes with 2,000 clients, and with
// the 400 projects of those years. Where no graphics card helps.

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "BenchLibrary.h"
#include "platform/Settings.h"
#include "screens/clients/ClientsModel.h"
#include "screens/projects/ProjectsModel.h"
#include "screens/timesheet/TimesheetModel.h"
#include "theme/fonts/Fonts.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_PanelPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_TimesheetPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_ClientsPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_ProjectsPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_WelcomePlugin)

namespace elmworth::bench {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

/// A window with the view `type` of `module`, on `model`.
QByteArray windowWith(const char* module, const char* type) {
    return QByteArray("import QtQuick\nimport Elmworth.Theme\nimport ") + module +
           "\nWindow { id: window; required property var sectionModel; width: 1226; height: 900;"
           " visible: true; color: Theme.backgroundTop\n" +
           type + " { anchors.fill: parent; model: window.sectionModel } }";
}

double since(std::chrono::steady_clock::time_point began) {
    return Milliseconds(std::chrono::steady_clock::now() - began).count();
}

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void report(const std::string& what, const std::vector<double>& times, const std::string& aim) {
    const auto slowest = *std::max_element(times.begin(), times.end());
    std::printf("%-46s median %7.1f ms   slowest %7.1f ms   %s\n", what.c_str(), median(times),
                slowest, aim.c_str());
}

/// A library with all that the models work on.
class Sections {
 public:
    explicit Sections(std::int64_t entries) {
        copyLibrary(entries, libraryNow(), folder_.path());
        library_ =
            std::make_unique<Library>(LibraryOptions{folder_.path() / "library.sqlite"}, loop);
        history_ = std::make_unique<UndoHistory>(context());
        historyModel_ = std::make_unique<HistoryModel>(*history_);
        timer_ = std::make_unique<TimerService>(
            context(), [] { return libraryNow(); }, loop, &libraryCalendar);
        timer_->restore();
    }
    [[nodiscard]] UnitOfWork& context() { return library_->mainContext(); }
    [[nodiscard]] std::unique_ptr<TimesheetModel> timesheet() {
        return std::make_unique<TimesheetModel>(services(), confirmation_, *historyModel_);
    }
    [[nodiscard]] std::unique_ptr<ClientsModel> clients() {
        return std::make_unique<ClientsModel>(services(), confirmation_);
    }

    [[nodiscard]] std::unique_ptr<ProjectsModel> projects() {
        return std::make_unique<ProjectsModel>(services(), confirmation_);
    }

    TurningLoop loop;

 private:
    [[nodiscard]] AppServices services() {
        return {.context = context(),
                .history = *history_,
                .timer = *timer_,
                .defaults = defaults_,
                .profiles = profiles_,
                .runLoop = loop,
                .now = [] { return libraryNow(); },
                .calendar = &libraryCalendar};
    }

    test::TemporaryFolder folder_;
    Settings defaults_{folder_.path() / "defaults.ini"};
    ProfileStore profiles_{defaults_};
    std::unique_ptr<Library> library_;
    std::unique_ptr<UndoHistory> history_;
    std::unique_ptr<TimerService> timer_;
    Confirmation confirmation_;
    std::unique_ptr<HistoryModel> historyModel_;
};

/// A view in a window of its own.
class Shown {
 public:
    Shown(QQmlEngine& engine, const QByteArray& source, QObject* model) {
        QQmlComponent component(&engine);
        component.setData(source, QUrl());
        window_.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
            {{QStringLiteral("sectionModel"), QVariant::fromValue(model)}})));
        if (!window_) std::fprintf(stderr, "%s\n", qPrintable(component.errorString()));
    }
    void paint() {
        QCoreApplication::processEvents();
        window_->grabWindow();
    }
    template <class Event>
    double frameOf(const Event& event) {
        const auto began = std::chrono::steady_clock::now();
        event();
        paint();
        return since(began);
    }
    [[nodiscard]] QQuickItem* view(const char* type) const {
        return in(window_->contentItem(), type);
    }

 private:
    [[nodiscard]] static QQuickItem* in(QQuickItem* item, const char* type) {
        if (item->inherits(type)) return item;
        for (auto* child : item->childItems()) {
            if (auto* found = in(child, type)) return found;
        }
        return nullptr;
    }

    std::unique_ptr<QQuickWindow> window_;
};

/// From nothing but the library and the compiled views to a complete frame, with a model of its
/// own each time.
template <class Make, class IsComplete>
double firstFrame(QQmlEngine& engine, Sections& sections, const QByteArray& source,
                  const Make& make, const IsComplete& isComplete) {
    const auto began = std::chrono::steady_clock::now();
    const auto model = make();
    Shown shown(engine, source, model.get());
    do {
        sections.loop.turn();
        shown.paint();
    } while (!isComplete(*model));
    return since(began);
}

void reportBesideWeek(const std::string& what, std::vector<double> times,
                      const std::vector<double>& week) {
    char aim[64];
    std::snprintf(aim, sizeof(aim), "%.2f times the week, aim 1.5", median(times) / median(week));
    report(what, times, aim);
}

void firstFrames(std::int64_t entries) {
    Sections sections(entries);
    QQmlEngine engine;
    const auto timesheetSource = windowWith("Elmworth.Timesheet", "TimesheetView");
    const auto clientsSource = windowWith("Elmworth.Clients", "ClientsView");
    const auto projectsSource = windowWith("Elmworth.Projects", "ProjectsView");
    std::vector<double> timesheet;
    std::vector<double> clients;
    std::vector<double> projects;
    for (int i = 0; i < 16; ++i) {
        timesheet.push_back(firstFrame(
            engine, sections, timesheetSource, [&] { return sections.timesheet(); },
            [](const TimesheetModel& model) { return !model.isReading(); }));
        clients.push_back(firstFrame(
            engine, sections, clientsSource, [&] { return sections.clients(); },
            [](const ClientsModel& /*model*/) { return true; }));
        projects.push_back(firstFrame(
            engine, sections, projectsSource, [&] { return sections.projects(); },
            [](const ProjectsModel& /*model*/) { return true; }));
    }
    for (auto* times : {&timesheet, &clients, &projects}) {
        times->erase(times->begin());  // what compiles
    }
    const auto of = " of " + std::to_string(entries) + " entries";
    report("a week" + of, timesheet, "");
    reportBesideWeek("clients" + of, clients, timesheet);
    reportBesideWeek("projects" + of, projects, timesheet);
}

/// Moves a list or a grid down by steps of 120 pixels.
std::vector<double> scrollSteps(Shown& shown, const char* type, int count) {
    std::vector<double> steps;
    auto* view = shown.view(type);
    for (int i = 0; i < count; ++i) {
        const double y = view->property("contentY").toDouble() + 120;
        steps.push_back(shown.frameOf([&] { view->setProperty("contentY", y); }));
    }
    return steps;
}

void manyProjects() {
    Sections sections(200'000);
    QQmlEngine engine;
    const auto model = sections.projects();
    Shown shown(engine, windowWith("Elmworth.Projects", "ProjectsView"), model.get());
    shown.paint();
    std::vector<double> idle;
    for (int i = 0; i < 15; ++i) idle.push_back(shown.frameOf([] {}));
    report(std::to_string(model->rows().rowCount()) + " lines of projects as they are", idle, "");
    std::vector<double> keys;
    for (int i = 0; i < 5; ++i) {
        for (const char* typed : {"p", "pr", "pro", "project 1", "project 12", "zz", "ü", ""})
            keys.push_back(shown.frameOf([&] { model->setSearch(QString::fromUtf8(typed)); }));
    }
    report("a key in their search", keys, "aim 16 ms");
    report("a step of 120 pixels among them", scrollSteps(shown, "QQuickListView", 200),
           "aim 16 ms");
}

void manyClients() {
    Sections sections(10'000);
    for (int i = 0; i < 2000; ++i) {
        const auto client = std::make_shared<Client>("Customer " + std::to_string(i) + " & Söhne");
        sections.context().insert(client);
        for (const char* name : {"Website", "Überarbeitung"})
            sections.context().insert(std::make_shared<Project>(name, client));
    }
    sections.context().save();
    QQmlEngine engine;
    const auto model = sections.clients();
    Shown shown(engine, windowWith("Elmworth.Clients", "ClientsView"), model.get());
    shown.paint();
    std::vector<double> idle;
    for (int i = 0; i < 15; ++i) idle.push_back(shown.frameOf([] {}));
    report("2,000 clients as they are", idle, "");
    std::vector<double> keys;
    for (int i = 0; i < 5; ++i) {
        for (const char* typed : {"c", "cu", "cus", "customer 19", "customer 1", "über", "ü", ""})
            keys.push_back(shown.frameOf([&] { model->setSearch(QString::fromUtf8(typed)); }));
    }
    report("a key in their search", keys, "aim 16 ms");
    report("a step of 120 pixels among them", scrollSteps(shown, "QQuickGridView", 600),
           "aim 16 ms");
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
    elmworth::bench::firstFrames(10'000);
    elmworth::bench::firstFrames(200'000);
    elmworth::bench::manyClients();
    elmworth::bench::manyProjects();
    return 0;
}
