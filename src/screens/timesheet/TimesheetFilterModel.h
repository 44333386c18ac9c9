// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQmlIntegration>

#include "screens/AppServices.h"
#include "screens/PeriodInput.h"
#include "screens/RecordChoices.h"
#include "tracking/TimesheetFilter.h"

namespace elmworth {

/// The bar that decides what a timesheet shows. The period's name and "Unbilled" are kept in the
/// settings, whoever writes them; all else lasts as long as the window.
class TimesheetFilterModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The timesheet's model has it")
    Q_PROPERTY(QStringList presets READ presets CONSTANT FINAL)
    Q_PROPERTY(int preset READ preset NOTIFY changed FINAL)
    Q_PROPERTY(QString presetTitle READ presetTitle NOTIFY changed FINAL)
    Q_PROPERTY(bool isCustom READ isCustom NOTIFY changed FINAL)
    /// The span in words: "Mar 2, 2026 – Mar 8, 2026".
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed FINAL)
    /// The days of the custom period, in either order; both count whole.
    Q_PROPERTY(elmworth::DateTimeInput* from READ from CONSTANT FINAL)
    Q_PROPERTY(elmworth::DateTimeInput* to READ to CONSTANT FINAL)
    Q_PROPERTY(elmworth::ChoiceModel* client READ client CONSTANT FINAL)
    Q_PROPERTY(elmworth::ChoiceModel* project READ project CONSTANT FINAL)
    Q_PROPERTY(bool unbilledOnly READ unbilledOnly WRITE setUnbilledOnly NOTIFY changed FINAL)
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY changed FINAL)
    /// Whether there is a client, a project or a search to clear.
    Q_PROPERTY(bool canClear READ canClear NOTIFY changed FINAL)

 public:
    explicit TimesheetFilterModel(AppServices services);

    [[nodiscard]] static QStringList presets() { return PeriodInput::titles(); }
    [[nodiscard]] int preset() const;
    [[nodiscard]] QString presetTitle() const;
    [[nodiscard]] bool isCustom() const;
    [[nodiscard]] QString subtitle() const;
    [[nodiscard]] DateTimeInput* from() noexcept { return &period_.from(); }
    [[nodiscard]] DateTimeInput* to() noexcept { return &period_.to(); }
    [[nodiscard]] ChoiceModel* client() noexcept { return &client_; }
    [[nodiscard]] ChoiceModel* project() noexcept { return &project_; }
    [[nodiscard]] bool unbilledOnly() const;
    void setUnbilledOnly(bool only);
    [[nodiscard]] const QString& search() const noexcept { return search_; }
    void setSearch(const QString& search);
    [[nodiscard]] bool canClear() const;

    /// The preset at `position` of `presets`; any other number does nothing.
    Q_INVOKABLE void choosePreset(int position);
    /// Forgets client, project and search.
    Q_INVOKABLE void clear();

    /// Another day may have begun, so that the period is another one.
    void followClock() { Q_EMIT changed(); }

    /// What passes at the present moment.
    [[nodiscard]] TimesheetFilter filter() const;
    /// The projects that are not archived, by name.
    [[nodiscard]] std::vector<Ref<Project>> currentProjects() const;

 Q_SIGNALS:
    /// Something above changed.
    void changed();
    /// Something but the custom days changed, so that what is selected is so no longer.
    void narrowed();

 private:
    [[nodiscard]] DateRangePreset currentPreset() const;
    void defaultChanged(std::string_view key);
    void clientChanged();
    void tell();

    AppServices services_;
    RecordChoices<Client> client_;
    RecordChoices<Project> project_;
    QString search_;
    PeriodInput period_;
    Settings::Observation defaultsObservation_;
};

}  // namespace elmworth
