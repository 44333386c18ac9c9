// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "core/store/ModelContext.h"
#include "screens/main/ProjectRowsModel.h"
#include "tracking/TimerService.h"

namespace elmworth {

/// What the main window shows: the running timer, and the recent projects to start. All texts are
/// finished.
class TimerWindowModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application owns it")
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY runningChanged FINAL)
    Q_PROPERTY(QString projectName READ projectName NOTIFY runningChanged FINAL)
    Q_PROPERTY(QString clientName READ clientName NOTIFY runningChanged FINAL)
    Q_PROPERTY(QString notes READ notes NOTIFY runningChanged FINAL)
    Q_PROPERTY(QString projectColor READ projectColor NOTIFY runningChanged FINAL)
    Q_PROPERTY(QString elapsed READ elapsed NOTIFY elapsedChanged FINAL)
    Q_PROPERTY(QString today READ today NOTIFY todayChanged FINAL)
    Q_PROPERTY(QString sectionTitle READ sectionTitle NOTIFY runningChanged FINAL)
    Q_PROPERTY(bool hasProjects READ hasProjects NOTIFY projectsChanged FINAL)
    Q_PROPERTY(elmworth::ProjectRowsModel* projects READ projects CONSTANT FINAL)

 public:
    TimerWindowModel(ModelContext& context, TimerService& timer);

    [[nodiscard]] bool isRunning() const { return timer_.running() != nullptr; }
    [[nodiscard]] QString projectName() const;
    [[nodiscard]] QString clientName() const;
    [[nodiscard]] QString notes() const;
    [[nodiscard]] QString projectColor() const;
    [[nodiscard]] QString elapsed() const;
    [[nodiscard]] QString today() const;
    [[nodiscard]] QString sectionTitle() const;
    [[nodiscard]] bool hasProjects() const { return hasProjects_; }
    [[nodiscard]] ProjectRowsModel* projects() { return &projects_; }

    /// Starts the timer on the project in row `row` of `projects`.
    Q_INVOKABLE void start(int row);
    Q_INVOKABLE void stop();

 Q_SIGNALS:
    void runningChanged();
    void elapsedChanged();
    void todayChanged();
    void projectsChanged();

 private:
    void timerChanged(TimerService::Property property);
    void refreshProjects();
    [[nodiscard]] Ref<Project> runningProject() const;

    ModelContext& context_;
    TimerService& timer_;
    ProjectRowsModel projects_;
    bool hasProjects_ = false;
    TimerService::Observation timerObservation_;
    ModelContext::Observation projectObservation_;
    ModelContext::Observation entryObservation_;
    ModelContext::Observation clientObservation_;
};

}  // namespace elmworth
