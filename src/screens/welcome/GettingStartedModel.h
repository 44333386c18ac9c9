// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQmlIntegration>
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include "screens/AppServices.h"

namespace elmworth {

/// The checklist of a new user, which goes by the library itself: what is done there is done here.
/// It shows until all is done, or somebody hides it for good ("hideGettingStarted").
class GettingStartedModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The timesheet's model has it")
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed FINAL)
    Q_PROPERTY(QStringList titles READ titles CONSTANT FINAL)
    /// Of each of the titles, whether it is done.
    Q_PROPERTY(QList<bool> done READ done NOTIFY changed FINAL)
    /// "2 of 5 done"
    Q_PROPERTY(QString detail READ detail NOTIFY changed FINAL)

 public:
    enum Step { business, client, project, time, invoice };

    explicit GettingStartedModel(const AppServices& services);

    [[nodiscard]] bool isShown() const;
    /// Whether somebody can see what it stands on; else it asks the library nothing, and catches
    /// up when somebody can. At first it can be seen.
    void setSeen(bool isSeen);
    [[nodiscard]] static QStringList titles();
    [[nodiscard]] const QList<bool>& done() const { return done_; }
    [[nodiscard]] QString detail() const;

    /// Leads to where the step at `position` is done; nowhere for tracking time.
    Q_INVOKABLE void act(int position);
    Q_INVOKABLE void hide();

 Q_SIGNALS:
    void changed();
    void settingsRequested();

 private:
    void follow();
    void update(Step step, bool isDone);
    void readAwaited();
    template <class T>
    void followRecords(Step step, const Query<T>& query, std::uint32_t fields = 0);

    AppServices services_;
    bool isHidden_ = false;
    bool isSeen_ = true;
    std::map<Step, std::function<void()>> awaited_;  ///< what may have turned since it was seen
    QList<bool> done_{false, false, false, false, false};
    Settings::Observation defaultsObservation_;
    ProfileStore::Observation profileObservation_;
    std::vector<UnitOfWork::Observation> observations_;  ///< none while it is hidden
};

}  // namespace elmworth
