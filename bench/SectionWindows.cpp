// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a section of the window takes until its first complete frame, beside the timesheet's week,
// in a small library and in that of twenty years; and what it takes with 2,000 clients, and with
// the 400 projects of those years. Where no graphics card helps.

#include <QQmlEngine>
#include <QtQml/QQmlExtensionPlugin>
#include <memory>
#include <string>
#include <vector>

#include "BenchLibrary.h"
#include "Frames.h"
#include "platform/Settings.h"
#include "screens/clients/ClientsModel.h"
#include "screens/invoices/InvoicesModel.h"
#include "screens/projects/ProjectsModel.h"
#include "screens/timesheet/TimesheetModel.h"
#include "support/TestOutlets.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_PanelPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_TimesheetPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_ClientsPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_ProjectsPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_InvoicesPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_WelcomePlugin)

namespace elmworth::bench {
namespace {

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

    [[nodiscard]] std::unique_ptr<InvoicesModel> invoices() {
        if (!newInvoice_) newInvoice_ = std::make_unique<NewInvoiceModel>(services());
        return std::make_unique<InvoicesModel>(services(), InvoiceOutlets{painter_, files_},
                                               confirmation_, *newInvoice_);
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
    test::NumberPainter painter_;
    test::NotingFiles files_;
    std::unique_ptr<NewInvoiceModel> newInvoice_;
};

/// From nothing but the library and the compiled views to a complete frame, with a model of its
/// own each time, in milliseconds.
template <class Make, class IsComplete>
double firstFrame(QQmlEngine& engine, Sections& sections, const char* module, const char* type,
                  const Make& make, const IsComplete& isComplete) {
    return timed([&] {
        const auto model = make();
        Shown shown(engine, module, type, model.get());
        do {
            sections.loop.turn();
            shown.paint();
        } while (!isComplete(*model));
    });
}

void firstFrames(std::int64_t entries) {
    Sections sections(entries);
    QQmlEngine engine;
    std::vector<double> timesheet;
    std::vector<double> clients;
    std::vector<double> projects;
    std::vector<double> invoices;
    for (int i = 0; i < 16; ++i) {
        timesheet.push_back(firstFrame(
            engine, sections, "Elmworth.Timesheet", "TimesheetView",
            [&] { return sections.timesheet(); },
            [](const TimesheetModel& model) { return !model.isReading(); }));
        clients.push_back(firstFrame(
            engine, sections, "Elmworth.Clients", "ClientsView", [&] { return sections.clients(); },
            [](const ClientsModel& /*model*/) { return true; }));
        projects.push_back(firstFrame(
            engine, sections, "Elmworth.Projects", "ProjectsView",
            [&] { return sections.projects(); },
            [](const ProjectsModel& /*model*/) { return true; }));
        // Complete with the sums, which are read in steps.
        invoices.push_back(firstFrame(
            engine, sections, "Elmworth.Invoices", "InvoicesView",
            [&] { return sections.invoices(); },
            [](InvoicesModel& model) { return model.summary()->outstanding() != u"…"; }));
    }
    for (auto* times : {&timesheet, &clients, &projects, &invoices}) {
        times->erase(times->begin());  // what compiles
    }
    report("first frame, timesheet of a week", entries, timesheet);
    report("first frame, clients", entries, clients);
    report("first frame, projects", entries, projects);
    report("first frame, invoices", entries, invoices);
}

/// Moves a list or a grid down by steps of 120 pixels.
std::vector<double> scrollSteps(Shown& shown, const char* type, int count) {
    std::vector<double> steps;
    auto* view = shown.item(type);
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
    Shown shown(engine, "Elmworth.Projects", "ProjectsView", model.get());
    shown.paint();
    std::vector<double> idle;
    for (int i = 0; i < 15; ++i) idle.push_back(shown.frameOf([] {}));
    report("400 projects as they are", 200'000, idle);
    std::vector<double> keys;
    for (int i = 0; i < 5; ++i) {
        for (const char* typed : {"p", "pr", "pro", "project 1", "project 12", "zz", "ü", ""})
            keys.push_back(shown.frameOf([&] { model->setSearch(QString::fromUtf8(typed)); }));
    }
    report("a key in the search of 400 projects", 200'000, keys, 16);
    report("a step of 120 pixels among the projects", 200'000,
           scrollSteps(shown, "QQuickListView", 200), 16);
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
    Shown shown(engine, "Elmworth.Clients", "ClientsView", model.get());
    shown.paint();
    std::vector<double> idle;
    for (int i = 0; i < 15; ++i) idle.push_back(shown.frameOf([] {}));
    report("2,000 clients as they are", 10'000, idle);
    std::vector<double> keys;
    for (int i = 0; i < 5; ++i) {
        for (const char* typed : {"c", "cu", "cus", "customer 19", "customer 1", "über", "ü", ""})
            keys.push_back(shown.frameOf([&] { model->setSearch(QString::fromUtf8(typed)); }));
    }
    report("a key in the search of 2,000 clients", 10'000, keys, 16);
    report("a step of 120 pixels among the clients", 10'000,
           scrollSteps(shown, "QQuickGridView", 600), 16);
}

}  // namespace
}  // namespace elmworth::bench

int main(int argc, char** argv) {
    const elmworth::bench::Offscreen offscreen(argc, argv);
    elmworth::bench::firstFrames(1'000);
    elmworth::bench::firstFrames(10'000);
    elmworth::bench::firstFrames(200'000);
    elmworth::bench::manyClients();
    elmworth::bench::manyProjects();
    return 0;
}
