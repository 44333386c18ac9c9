// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtQmlIntegration>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "livelist/LiveRowModel.h"
#include "platform/Calendar.h"
#include "platform/DateFormatter.h"
#include "screens/timesheet/TimesheetRow.h"

namespace elmworth {

/// The lines of a timesheet with finished texts, which are made when a view asks for them. A tick
/// changes what shows the running entry, and nothing else.
class TimesheetRowsModel final : public LiveRowModel<TimesheetRow> {
 public:
    enum Role {
        kind = Qt::UserRole + 1,  ///< "head" or "entry"
        title,         ///< "Today", "Yesterday" or the weekday; the project's name or "No project"
        detail,        ///< "Mar 1"; the client's name or nothing
        total,         ///< hours and minutes: of the day's share; of the whole entry
        projectColor,  ///< "#RRGGBB"
        notes,         ///< or "No notes"
        hasNotes,
        timeRange,  ///< "9:00 AM – 10:30 AM"
        isBilled,
        isRunning,
        canContinue,
        isSelected,
        isLastOfDay,
        summary,  ///< all of it in a sentence, for assistive technology
    };

    /// What the texts depend on.
    struct Setting {
        Calendar calendar;
        Locale locale;
        Instant now;
    };

    explicit TimesheetRowsModel(Setting setting);

    /// Shows `listing` at the instant `setting.now`. With `renamed`, names or colours of projects
    /// or the language may have changed.
    void show(std::shared_ptr<const TimesheetListing> listing, Setting setting, bool renamed);

    /// The notes of a listed entry are others now.
    void showNotes(const TimesheetPlace& place);

    /// Lets what runs grow up to `now`.
    void tick(Instant now);

    /// What is shown; null before the first time.
    [[nodiscard]] const TimesheetListing* listing() const noexcept { return listing_.get(); }
    /// Shows the entries `selection` as selected. It lives as long as rows are shown; call again
    /// when it changes.
    void showSelection(const std::unordered_set<PersistentID>& selection);

    /// The line at `row`, or null when there is none.
    [[nodiscard]] const TimesheetRow* rowAt(int row) const;
    /// Where the line stands, or -1. Costs what the day's lines cost.
    [[nodiscard]] int position(const TimesheetRowID& id) const;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

 protected:
    [[nodiscard]] QList<int> changedRoles(const TimesheetRow& shown,
                                          const TimesheetRow& next) const override;

 private:
    struct Formatters {
        explicit Formatters(const Setting& setting);

        DateFormatter weekday;
        DateFormatter monthDay;
        DateFormatter time;
    };

    [[nodiscard]] QVariant headData(const TimesheetRow& row, int role) const;
    [[nodiscard]] QVariant entryData(const TimesheetRow& row, int role) const;
    [[nodiscard]] QString dayTitle(Instant day) const;
    [[nodiscard]] QString timeRangeText(const TimesheetEntry& entry) const;
    [[nodiscard]] QString headSummary(const TimesheetRow& row) const;
    [[nodiscard]] QString entrySummary(const TimesheetRow& row) const;
    [[nodiscard]] std::string duration(const TimesheetEntry& entry) const;
    void reuseDays(const std::vector<std::shared_ptr<const TimesheetDay>>& former);
    void noteGrowing();
    void tellGrown(int row);

    Setting setting_;
    Formatters formatters_;
    Instant today_;
    Instant yesterday_;
    std::shared_ptr<const TimesheetListing> listing_;
    const std::unordered_set<PersistentID>* selection_ = nullptr;
    std::vector<std::pair<int, QString>> growing_;  ///< rows that grow with the clock, their totals
};

}  // namespace elmworth
