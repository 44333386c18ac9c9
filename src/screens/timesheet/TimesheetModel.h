// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQmlIntegration>
#include <optional>
#include <vector>

#include "screens/panel/EntryEditorModel.h"
#include "screens/panel/RunningEntryModel.h"
#include "screens/timesheet/DailyChartModel.h"
#include "screens/timesheet/EntryCommandsModel.h"
#include "screens/timesheet/EntryMenuModel.h"
#include "screens/timesheet/StatsRowModel.h"
#include "screens/timesheet/TimesheetFilterModel.h"
#include "screens/timesheet/TimesheetRowsModel.h"
#include "screens/timesheet/TimesheetSelection.h"
#include "screens/welcome/GettingStartedModel.h"
#include "theme/Confirmation.h"
#include "tracking/TimesheetContents.h"

namespace elmworth {

/// The screen on which tracked time is reviewed and corrected.
///
/// Follows the library, the timer and the settings while it is shown; a save elsewhere shows
/// at once. A tick updates only what shows the running entry. While it is not shown it does
/// nothing, and catches up when it is.
class TimesheetModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The main window's model has it")
    Q_PROPERTY(elmworth::TimesheetFilterModel* filter READ filter CONSTANT FINAL)
    Q_PROPERTY(elmworth::GettingStartedModel* gettingStarted READ gettingStarted CONSTANT FINAL)
    Q_PROPERTY(elmworth::StatsRowModel* stats READ stats CONSTANT FINAL)
    Q_PROPERTY(elmworth::DailyChartModel* chart READ chart CONSTANT FINAL)
    Q_PROPERTY(elmworth::RunningEntryModel* running READ running CONSTANT FINAL)
    Q_PROPERTY(elmworth::EntryEditorModel* editor READ editor CONSTANT FINAL)
    /// Of the window's frame.
    Q_PROPERTY(elmworth::Confirmation* confirmation READ confirmation CONSTANT FINAL)
    /// The lines of all days; the roles are those of `TimesheetRowsModel`.
    Q_PROPERTY(QAbstractItemModel* rows READ rowsModel CONSTANT FINAL)
    /// Whether somebody can see this.
    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY isShownChanged FINAL)
    Q_PROPERTY(bool showsChart READ showsChart NOTIFY listed FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY listed FINAL)
    /// As `isEmpty`, but also while older time is still being read.
    Q_PROPERTY(bool showsNothing READ showsNothing NOTIFY listed FINAL)
    Q_PROPERTY(QString emptyTitle READ emptyTitle NOTIFY listed FINAL)
    Q_PROPERTY(QString emptyMessage READ emptyMessage NOTIFY emptyMessageChanged FINAL)
    /// Whether older time is still being read, so that what shows may not be all.
    Q_PROPERTY(bool isReading READ isReading NOTIFY listed FINAL)
    /// Of entries, also where a filter hides them.
    Q_PROPERTY(elmworth::KeyedSelection* selection READ selection CONSTANT FINAL)
    /// Of a line; see `openMenu`.
    Q_PROPERTY(elmworth::EntryMenuModel* menu READ menu CONSTANT FINAL)

 public:
    /// Asks in `confirmation` and says in `history` what was done; both outlive it.
    TimesheetModel(const AppServices& services, Confirmation& confirmation, HistoryModel& history);

    [[nodiscard]] TimesheetFilterModel* filter() noexcept { return &filter_; }
    [[nodiscard]] EntryCommandsModel* commands() noexcept { return &commands_; }
    [[nodiscard]] GettingStartedModel* gettingStarted() noexcept { return &gettingStarted_; }
    [[nodiscard]] StatsRowModel* stats() noexcept { return &stats_; }
    [[nodiscard]] DailyChartModel* chart() noexcept { return &chart_; }
    [[nodiscard]] RunningEntryModel* running() noexcept { return &running_; }
    [[nodiscard]] EntryEditorModel* editor() noexcept { return &editor_; }
    [[nodiscard]] Confirmation* confirmation() noexcept { return &confirmation_; }
    [[nodiscard]] QAbstractItemModel* rowsModel() noexcept { return &rows_; }
    [[nodiscard]] const TimesheetRowsModel& rows() const noexcept { return rows_; }

    [[nodiscard]] bool isShown() const noexcept { return isShown_; }
    void setShown(bool shown);
    [[nodiscard]] bool showsChart() const noexcept { return showsChart_; }
    /// Whether the period was read and has nothing to show.
    [[nodiscard]] bool isEmpty() const noexcept { return entryCount_ == 0U && !isReading(); }
    [[nodiscard]] bool showsNothing() const noexcept { return entryCount_ == 0U; }
    [[nodiscard]] QString emptyTitle() const;
    [[nodiscard]] QString emptyMessage() const;
    /// Where no tray shows the program, an empty library's message leads to the panel. One does
    /// until this is called.
    void setTrayShown(bool isShown);
    [[nodiscard]] bool isReading() const noexcept { return contents_.isReading(); }

    [[nodiscard]] TimesheetSelection* selection() noexcept { return &selection_; }

    Q_INVOKABLE void edit(int row);
    /// Edits the selected entry; false when not exactly one of those that are shown is selected.
    Q_INVOKABLE bool editSelected();
    Q_INVOKABLE void addEntry();
    /// Adds time on the day of the line at `row`.
    Q_INVOKABLE void addOnDay(int row);
    /// Adds time on the day of the current line, or today.
    Q_INVOKABLE void addOnCurrentDay();
    Q_INVOKABLE void continueEntry(int row);
    /// The number of the invoice that the entry is on, for its chip.
    Q_INVOKABLE QString billedHelp(int row);
    /// Asks whether to delete what is selected and shown.
    Q_INVOKABLE void askToDeleteSelected();

    /// Readies the menu for the line at `row`; false when no entry stands there.
    Q_INVOKABLE bool openMenu(int row);
    [[nodiscard]] EntryMenuModel* menu() noexcept { return &menu_; }

    /// "Elmworth Timesheet.csv" in the user's documents, or at home where there are none.
    [[nodiscard]] Q_INVOKABLE static QUrl exportFile();
    /// Writes what is shown as CSV, and tells of a failure.
    void exportTo(const QUrl& file);
    /// The same, but asks before it replaces a file.
    Q_INVOKABLE void requestExport(const QUrl& file);

 Q_SIGNALS:
    void isShownChanged();
    void listed();
    void emptyMessageChanged();

 private:
    void observe();
    void followLibrary(const RecordChanges& changes);
    void libraryChanged(bool renamed);
    [[nodiscard]] bool isLibraryEmpty();
    [[nodiscard]] bool isOutdated(Instant now) const;
    void refilter();
    void show(const std::shared_ptr<const TimesheetListing>& listing);
    void noteAwaited(const TimesheetListing& listing, Instant now);
    void showFigures(const TimesheetListing& listing, Instant now);
    void showChart(const TimesheetListing& listing, Instant now);
    void tick();
    void tellOfBilled();
    [[nodiscard]] Ref<TimeEntry> entryAt(int row);
    [[nodiscard]] std::vector<PersistentID> shownSelection() const;
    [[nodiscard]] TimesheetRowsModel::Setting setting() const;

    AppServices services_;
    Confirmation& confirmation_;
    bool isTrayShown_ = true;
    TimesheetFilterModel filter_;
    EntryCommandsModel commands_;
    RunningEntryModel running_;
    EntryEditorModel editor_;
    ListingSums sums_;
    GettingStartedModel gettingStarted_{services_};
    StatsRowModel stats_;
    DailyChartModel chart_;
    TimesheetRowsModel rows_;
    TimesheetSelection selection_{rows_};
    EntryMenuModel menu_{commands_, editor_, selection_};
    TimesheetContents contents_;
    bool isShown_ = false;
    bool isStale_ = true;    ///< something changed while it was not shown
    bool isRenamed_ = true;  ///< so did names or colours
    bool showsChart_ = false;
    bool libraryIsEmpty_ = true;
    std::optional<std::size_t> entryCount_;  ///< once the period was read
    Instant today_;
    RunLoop::Handle trim_;
    std::optional<Instant> awaited_;  ///< after it what runs stands in a day where it does not yet
    UnitOfWork::Observation libraryObservation_;
    TimerService::Observation timerObservation_;
};

}  // namespace elmworth
