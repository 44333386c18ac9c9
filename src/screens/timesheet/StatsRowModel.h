// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <memory>
#include <string>
#include <vector>

#include "invoicing/TimesheetStatistics.h"
#include "tracking/TimesheetDays.h"

namespace elmworth {

/// The figures of a listing, summed piece by piece: a listing that differs in one piece costs that
/// piece, however many years the others are.
class ListingSums {
 public:
    /// Of what `listing` shows over `range` by the search `search`.
    [[nodiscard]] TimesheetSums of(const TimesheetListing& listing, const DateInterval& range,
                                   const std::string& search);

 private:
    struct Piece {
        std::shared_ptr<const TimesheetPiece> piece;
        TimesheetSums sums;
    };

    [[nodiscard]] bool hasSummed(std::size_t position,
                                 const std::shared_ptr<const TimesheetPiece>& piece) const {
        return position < pieces_.size() && pieces_[position].piece == piece;
    }

    std::vector<Piece> pieces_;
    DateInterval range_;
    std::string search_;
};

/// The three figures over a timesheet as finished texts, in the locale of the moment. A tick costs
/// the same however many entries are shown.
class StatsRowModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The timesheet's model has it")
    /// Hours and minutes, and how many entries they are of: "32:45", "9 entries".
    Q_PROPERTY(QString tracked READ tracked NOTIFY trackedChanged FINAL)
    Q_PROPERTY(QString trackedDetail READ trackedDetail NOTIFY trackedChanged FINAL)
    /// An amount, or "Mixed" when the entries have several currencies.
    Q_PROPERTY(QString billable READ billable NOTIFY billableChanged FINAL)
    Q_PROPERTY(QString billableDetail READ billableDetail NOTIFY billableChanged FINAL)
    /// An amount, or hours when the entries have several currencies; then the hours.
    Q_PROPERTY(QString unbilled READ unbilled NOTIFY unbilledChanged FINAL)
    Q_PROPERTY(QString unbilledDetail READ unbilledDetail NOTIFY unbilledChanged FINAL)

 public:
    /// Shows the figures of no entries.
    StatsRowModel();

    [[nodiscard]] const QString& tracked() const noexcept { return tracked_.value; }
    [[nodiscard]] const QString& trackedDetail() const noexcept { return tracked_.detail; }
    [[nodiscard]] const QString& billable() const noexcept { return billable_.value; }
    [[nodiscard]] const QString& billableDetail() const noexcept { return billable_.detail; }
    [[nodiscard]] const QString& unbilled() const noexcept { return unbilled_.value; }
    [[nodiscard]] const QString& unbilledDetail() const noexcept { return unbilled_.detail; }

    /// Shows the figures of `sums` at the instant `now`. With `isPartial` the details say that more
    /// are to come.
    void show(TimesheetSums sums, Instant now, bool isPartial = false);
    /// Lets what is running grow up to `now`; gives whether another time shows. Does nothing while
    /// nothing runs.
    bool tick(Instant now);

 Q_SIGNALS:
    void trackedChanged();
    void billableChanged();
    void unbilledChanged();

 private:
    struct Figure {
        QString value;
        QString detail;

        friend bool operator==(const Figure&, const Figure&) = default;
    };

    bool showAt(Instant now);
    bool replace(Figure& figure, Figure next, void (StatsRowModel::*changed)());
    [[nodiscard]] static Figure trackedFigure(const TimesheetStatistics& statistics);
    [[nodiscard]] static Figure billableFigure(const TimesheetStatistics& statistics);
    [[nodiscard]] static Figure unbilledFigure(const TimesheetStatistics& statistics);

    TimesheetSums sums_{DateInterval{}};
    bool isPartial_ = false;
    Figure tracked_;
    Figure billable_;
    Figure unbilled_;
};

}  // namespace elmworth
