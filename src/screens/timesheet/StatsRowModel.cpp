// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/StatsRowModel.h"

#include <utility>

#include "platform/DurationFormat.h"
#include "platform/MoneyFormat.h"

namespace elmworth {

namespace {

QString hours(double seconds) {
    return QString::fromStdString(formatHoursMinutes(seconds));
}

QString money(std::int64_t cents, const std::string& currencyCode) {
    return QString::fromStdString(formatCents(cents, currencyCode));
}

}  // namespace

TimesheetSums ListingSums::of(const TimesheetListing& listing, const DateInterval& range,
                              const std::string& search) {
    if (range != range_ || search != search_) pieces_.clear();
    range_ = range;
    search_ = search;
    TimesheetSums all(range);
    std::vector<Piece> pieces;
    pieces.reserve(listing.pieces.size());
    std::size_t begin = 0;
    for (std::size_t i = 0; i < listing.pieces.size(); ++i) {
        const std::size_t end = listing.pieceEnds[i];
        if (hasSummed(i, listing.pieces[i])) {
            pieces.push_back(std::move(pieces_[i]));
        } else {
            pieces.push_back({listing.pieces[i], TimesheetSums(range)});
            for (std::size_t k = begin; k < end; ++k) {
                pieces.back().sums.add(listing.entries[k].entry());
            }
        }
        all.add(pieces.back().sums);
        begin = end;
    }
    pieces_ = std::move(pieces);
    return all;
}

StatsRowModel::StatsRowModel() {
    showAt(Instant());
}

StatsRowModel::Figure StatsRowModel::trackedFigure(const TimesheetStatistics& statistics) {
    const auto count = statistics.entryCount;
    return {hours(statistics.trackedSeconds),
            count == 1 ? QStringLiteral("1 entry") : QStringLiteral("%1 entries").arg(count)};
}

StatsRowModel::Figure StatsRowModel::billableFigure(const TimesheetStatistics& statistics) {
    const auto& currency = statistics.currencyCode;
    if (!currency) return {QStringLiteral("Mixed"), QStringLiteral("Several currencies")};
    return {money(statistics.billableCents, *currency), QStringLiteral("Before rounding")};
}

StatsRowModel::Figure StatsRowModel::unbilledFigure(const TimesheetStatistics& statistics) {
    const auto& currency = statistics.currencyCode;
    const QString time = hours(statistics.unbilledSeconds);
    return {currency ? money(statistics.unbilledCents, *currency) : time,
            QStringLiteral("%1 ready to invoice").arg(time)};
}

bool StatsRowModel::replace(Figure& figure, Figure next, void (StatsRowModel::*changed)()) {
    if (isPartial_) next.detail += QStringLiteral(" so far");
    if (figure == next) return false;
    figure = std::move(next);
    Q_EMIT(this->*changed)();
    return true;
}

/// Gives whether "Tracked" changed.
bool StatsRowModel::showAt(Instant now) {
    const auto statistics = sums_.statistics(now);
    const bool hasGrown =
        replace(tracked_, trackedFigure(statistics), &StatsRowModel::trackedChanged);
    replace(billable_, billableFigure(statistics), &StatsRowModel::billableChanged);
    replace(unbilled_, unbilledFigure(statistics), &StatsRowModel::unbilledChanged);
    return hasGrown;
}

void StatsRowModel::show(TimesheetSums sums, Instant now, bool isPartial) {
    sums_ = std::move(sums);
    isPartial_ = isPartial;
    showAt(now);
}

bool StatsRowModel::tick(Instant now) {
    return sums_.hasRunning() && showAt(now);
}

}  // namespace elmworth
