// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QtQmlIntegration>

#include "screens/panel/ContinueRowModel.h"
#include "screens/panel/ProjectSectionModel.h"
#include "screens/panel/RunningCardModel.h"
#include "screens/panel/TrackedTotal.h"

namespace elmworth {

/// The panel of the tray item, from which a timer is started, switched, annotated and stopped.
///
/// Follows the library, the timer and the settings. Several changes in one turn of the run
/// loop show together; a save shows at once. A tick re-evaluates what shows the running entry's
/// time and asks the library for nothing.
class PanelModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application owns it")
    Q_PROPERTY(elmworth::TodayChipModel* today READ today CONSTANT FINAL)
    Q_PROPERTY(elmworth::WeeklyGoalBarModel* weeklyGoal READ weeklyGoal CONSTANT FINAL)
    Q_PROPERTY(elmworth::RunningCardModel* running READ running CONSTANT FINAL)
    Q_PROPERTY(elmworth::ContinueRowModel* continueRow READ continueRow CONSTANT FINAL)
    Q_PROPERTY(elmworth::ProjectSectionModel* projects READ projects CONSTANT FINAL)

 public:
    explicit PanelModel(AppServices services);

    [[nodiscard]] TodayChipModel* today() noexcept { return &today_; }
    [[nodiscard]] WeeklyGoalBarModel* weeklyGoal() noexcept { return &weeklyGoal_; }
    [[nodiscard]] RunningCardModel* running() noexcept { return &running_; }
    [[nodiscard]] ContinueRowModel* continueRow() noexcept { return &continueRow_; }
    [[nodiscard]] ProjectSectionModel* projects() noexcept { return &projects_; }

    /// To be called each time the panel is shown: it begins without a search.
    Q_INVOKABLE void refresh();
    /// To be called when the panel has closed: what only it shows isn't computed until it opens.
    Q_INVOKABLE void rest();

    /// Opens the main window on the timesheet.
    Q_INVOKABLE void openElmworth();
    /// Opens the main window on the clients: a project needs a client first.
    Q_INVOKABLE void createProject();
    Q_INVOKABLE void openPanel();
    Q_INVOKABLE void openSettings();
    Q_INVOKABLE void quit();

 Q_SIGNALS:
    void mainWindowRequested();
    void panelRequested();
    void settingsRequested();
    void quitRequested();
    /// What the panel offers to do may have changed; a tick alone does not say so.
    void offersChanged();

 private:
    void observeLibrary();
    void timerChanged(TimerService::Property property);
    void updateSoon();
    void update();
    void tick();
    void openSection(std::string_view section);

    AppServices services_;
    TodayChipModel today_{services_};
    WeeklyGoalBarModel weeklyGoal_{services_};
    RunningCardModel running_{services_};
    ContinueRowModel continueRow_{services_};
    ProjectSectionModel projects_{services_};  // its query is told of changes before this object
    RunLoop::Handle pendingUpdate_;
    TimerService::Observation timerObservation_;
    std::vector<UnitOfWork::Observation> libraryObservations_;
};

}  // namespace elmworth
