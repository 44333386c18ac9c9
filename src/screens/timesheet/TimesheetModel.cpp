// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetModel.h"

#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/FreeMemory.h"
#include "records/Invoice.h"
#include "screens/SavePlace.h"
#include "screens/timesheet/TimesheetExport.h"

namespace elmworth {

namespace {

/// Longer periods have no chart: a bar for each day would be too thin.
constexpr std::chrono::days longestChart{32};
constexpr std::size_t manyEntries = 20'000;

}  // namespace

TimesheetModel::TimesheetModel(const AppServices& services, Confirmation& confirmation,
                               HistoryModel& history)
    : services_(services),
      confirmation_(confirmation),
      filter_(services),
      commands_(services, history),
      running_(services),
      editor_(services,
              [this](const EntryForm& form, const Ref<TimeEntry>& entry) {
                  return commands_.save(form, entry);
              }),
      rows_(setting()),
      contents_(services.context, services.runLoop, services.now, services.calendar,
                {[this](const auto& listing) { show(listing); },
                 [this](const auto& place) { rows_.showNotes(place); }}) {
    observe();
}

void TimesheetModel::observe() {
    connect(&filter_, &TimesheetFilterModel::narrowed, &selection_, &KeyedSelection::clear);
    connect(&filter_, &TimesheetFilterModel::changed, this, &TimesheetModel::refilter);
    connect(&commands_, &EntryCommandsModel::deleted, &selection_,
            [this] { selection_.clearKeepingPlace(); });
    connect(&selection_, &KeyedSelection::changed, this,
            [this] { rows_.showSelection(selection_.keys()); });
    connect(&commands_, &EntryCommandsModel::billedNotice, this, &TimesheetModel::tellOfBilled);
    libraryObservation_ = services_.context.observeAll(
        [this](const RecordChanges& changes) { followLibrary(changes); });
    timerObservation_ = services_.timer.observe([this](TimerService::Property property) {
        if (property == TimerService::Property::elapsedLongText) tick();
    });
}

TimesheetRowsModel::Setting TimesheetModel::setting() const {
    return {services_.calendar(), Locale::current(), services_.now()};
}

void TimesheetModel::setShown(bool shown) {
    if (shown == isShown_) return;
    isShown_ = shown;
    gettingStarted_.setSeen(shown);
    const Instant today = services_.calendar().startOfDay(services_.now());
    if (isShown_ && (isStale_ || today != today_)) libraryChanged(isRenamed_);
    if (isShown_) tick();
    Q_EMIT isShownChanged();
}

void TimesheetModel::followLibrary(const RecordChanges& changes) {
    const bool renamed = changes.touch(Project::schema()) || changes.touch(Client::schema());
    if (!renamed && !changes.touch(TimeEntry::schema())) return;
    const bool canFollow = isShown_ && !renamed && !isOutdated(services_.now()) &&
                           filter_.filter() == contents_.filter();
    if (!canFollow) return libraryChanged(renamed);
    contents_.follow(changes);
    // What came into the library may lie outside the period.
    if (isEmpty() && libraryIsEmpty_ != isLibraryEmpty()) {
        libraryIsEmpty_ = !libraryIsEmpty_;
        Q_EMIT listed();
        Q_EMIT emptyMessageChanged();
    }
}

bool TimesheetModel::isLibraryEmpty() {
    return services_.context.fetchQuietly(Query<TimeEntry>{.fetchLimit = 1}).empty();
}

void TimesheetModel::libraryChanged(bool renamed) {
    isRenamed_ = isRenamed_ || renamed;
    isStale_ = !isShown_;
    if (isStale_) return;
    if (filter_.filter() == contents_.filter()) return contents_.reload();
    filter_.followClock();
}

void TimesheetModel::refilter() {
    isStale_ = !isShown_;
    if (isShown_) contents_.setFilter(filter_.filter());
}

void TimesheetModel::show(const std::shared_ptr<const TimesheetListing>& listing) {
    const Instant now = services_.now();
    today_ = services_.calendar().startOfDay(now);
    noteAwaited(*listing, now);
    const auto count = listing->entries.size();
    const auto formerCount = std::exchange(entryCount_, count).value_or(0);
    if (isEmpty()) libraryIsEmpty_ = isLibraryEmpty();
    rows_.show(listing, setting(), std::exchange(isRenamed_, false));
    selection_.rowsChanged();
    showFigures(*listing, now);
    // Years that are no longer shown took more than all the rest of the program.
    if (formerCount > manyEntries && count < formerCount / 2) {
        trim_ = services_.runLoop.post([] { returnFreeMemory(); });
    }
    Q_EMIT listed();
    Q_EMIT emptyMessageChanged();
}

void TimesheetModel::noteAwaited(const TimesheetListing& listing, Instant now) {
    awaited_.reset();
    if (now == today_) awaited_ = now;
    for (const auto& place : listing.entries) {
        const auto& entry = place.entry();
        if (awaited_ == now || entry.start < now) return;  // the newest stand first
        if (entry.isRunning()) awaited_ = entry.start;
    }
}

void TimesheetModel::showFigures(const TimesheetListing& listing, Instant now) {
    const auto& filter = contents_.filter();
    stats_.show(sums_.of(listing, filter.range, filter.search), now, isReading());
    showsChart_ = filter.range.end - filter.range.start <= longestChart && !isEmpty();
    if (showsChart_) showChart(listing, now);
}

void TimesheetModel::showChart(const TimesheetListing& listing, Instant now) {
    std::vector<TimesheetEntry> charted;
    charted.reserve(listing.entries.size());
    for (const auto& place : listing.entries) charted.push_back(place.entry());
    chart_.show(charted, contents_.filter().range, now, services_.calendar());
}

/// Whether another day has begun, or what runs stands in a day where it does not show yet.
bool TimesheetModel::isOutdated(Instant now) const {
    const bool hasBegun = awaited_ && *awaited_ < now;
    return hasBegun || services_.calendar().startOfDay(now) != today_;
}

void TimesheetModel::tick() {
    if (!isShown_) return;
    const Instant now = services_.now();
    if (isOutdated(now)) return libraryChanged(false);
    const bool hasGrown = stats_.tick(now);
    if (hasGrown && showsChart_) showChart(*rows_.listing(), now);
    rows_.tick(now);
}

QString TimesheetModel::emptyTitle() const {
    return libraryIsEmpty_ ? QStringLiteral("Nothing tracked yet")
                           : QStringLiteral("No entries here");
}

QString TimesheetModel::emptyMessage() const {
    if (!libraryIsEmpty_) return QStringLiteral("No time matches this period and filter.");
    if (!isTrayShown_) {
        return QStringLiteral(
            "Choose Open Panel in the menu and press play on a project — or add time by hand "
            "with Ctrl+N.");
    }
    return QStringLiteral(
        "Click the clock in your system tray and press play on a project — or add time by hand "
        "with Ctrl+N.");
}

void TimesheetModel::setTrayShown(bool isShown) {
    isTrayShown_ = isShown;
    Q_EMIT emptyMessageChanged();
}

Ref<TimeEntry> TimesheetModel::entryAt(int row) {
    const auto* line = rows_.rowAt(row);
    if (line == nullptr || line->isHead()) return nullptr;
    return commands_.entry(line->id.entry);
}

QString TimesheetModel::billedHelp(int row) {
    const auto entry = entryAt(row);
    if (!entry || !entry->invoice) return {};
    return QStringLiteral("On invoice %1").arg(QString::fromStdString(entry->invoice->number));
}

// --- the selection and the lines ---------------------------------------------------------------

std::vector<PersistentID> TimesheetModel::shownSelection() const {
    std::vector<PersistentID> ids;
    const auto& selected = selection_.keys();
    if (selected.empty() || rows_.listing() == nullptr) return ids;
    const auto& current = selection_.current();
    const bool isOne = current && selected.size() == 1 && selected.contains(current->entry);
    if (isOne && selection_.currentRow() >= 0) return {current->entry};
    for (const auto& place : rows_.listing()->entries) {
        const auto& id = place.entry().id;
        if (selected.contains(id)) ids.push_back(id);
    }
    return ids;
}

void TimesheetModel::askToDeleteSelected() {
    const auto ids = shownSelection();
    if (ids.empty()) return;
    confirmation_.ask(
        {.icon = QStringLiteral("trash"),
         .title = ids.size() == 1 ? QStringLiteral("Delete this entry?")
                                  : QStringLiteral("Delete %1 entries?").arg(ids.size()),
         .acceptText = QStringLiteral("Delete"),
         .isDestructive = true},
        [this, ids] { commands_.deleteEntries(ids); });
}

void TimesheetModel::tellOfBilled() {
    confirmation_.tell({.icon = QStringLiteral("lock"),
                        .title = QStringLiteral("Billed entries are read-only"),
                        .message = QStringLiteral(
                            "This time is on an invoice. Delete the invoice to release its entries "
                            "before editing or deleting them.")});
}

void TimesheetModel::edit(int row) {
    if (const auto entry = entryAt(row)) editor_.open(entry);
}

bool TimesheetModel::editSelected() {
    if (selection_.keys().size() != 1) return false;
    const auto shown = shownSelection();
    const auto entry = shown.empty() ? nullptr : commands_.entry(shown.front());
    if (entry) editor_.open(entry);
    return entry != nullptr;
}

void TimesheetModel::addEntry() {
    editor_.open(nullptr);
}

void TimesheetModel::addOnDay(int row) {
    if (const auto* line = rows_.rowAt(row)) editor_.open(nullptr, line->id.day);
}

void TimesheetModel::addOnCurrentDay() {
    const auto* line = rows_.rowAt(selection_.currentRow());
    if (line == nullptr) return addEntry();
    editor_.open(nullptr, line->id.day);
}

void TimesheetModel::continueEntry(int row) {
    const auto* line = rows_.rowAt(row);
    if (line != nullptr && !line->isHead()) commands_.continueEntry(line->id.entry);
}

bool TimesheetModel::openMenu(int row) {
    const auto entry = entryAt(row);
    if (!entry) return false;
    menu_.open(*entry, {rows_.rowAt(row)->id, entry->start}, filter_.currentProjects());
    return true;
}

// --- the export --------------------------------------------------------------------------------

QUrl TimesheetModel::exportFile() {
    return savePlace(QStringLiteral("Elmworth Timesheet.csv"));
}

void TimesheetModel::exportTo(const QUrl& file) {
    const auto path = localFile(file);
    if (!path) {
        return commands_.say(
            QStringLiteral("Only a file on this computer can be written. Choose another place."));
    }
    const auto problem = exportTimesheet(services_.context, contents_.filter(), services_.now(),
                                         services_.calendar(), *path);
    if (problem) commands_.say(QString::fromStdString(*problem));
}

void TimesheetModel::requestExport(const QUrl& file) {
    const auto path = localFile(file);
    std::error_code ignored;
    if (!path || !std::filesystem::is_regular_file(*path, ignored)) return exportTo(file);
    confirmation_.ask({.icon = QStringLiteral("table"),
                       .title = QStringLiteral("Replace “%1”?").arg(file.fileName()),
                       .message = QStringLiteral(
                           "A file of that name is there already. What it holds will be lost."),
                       .acceptText = QStringLiteral("Replace"),
                       .isDestructive = true},
                      [this, file] { exportTo(file); });
}

}  // namespace elmworth
