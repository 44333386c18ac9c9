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

/// The recent projects, to be started with one press. All texts are finished.
class QuickStartModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application owns it")
    Q_PROPERTY(QString today READ today NOTIFY todayChanged FINAL)
    Q_PROPERTY(QString sectionTitle READ sectionTitle NOTIFY runningChanged FINAL)
    Q_PROPERTY(bool hasProjects READ hasProjects NOTIFY projectsChanged FINAL)
    Q_PROPERTY(elmworth::ProjectRowsModel* projects READ projects CONSTANT FINAL)

 public:
    QuickStartModel(ModelContext& context, TimerService& timer);

    [[nodiscard]] QString today() const;
    [[nodiscard]] QString sectionTitle() const;
    [[nodiscard]] bool hasProjects() const { return hasProjects_; }
    [[nodiscard]] ProjectRowsModel* projects() { return &projects_; }

    /// Starts the timer on the project in row `row` of `projects`.
    Q_INVOKABLE void start(int row);

 Q_SIGNALS:
    void runningChanged();
    void todayChanged();
    void projectsChanged();

 private:
    void timerChanged(TimerService::Property property);
    void refreshProjects();

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
