// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimerService.h"

#include <algorithm>

#include "platform/DurationFormat.h"
#include "platform/SystemLog.h"
#include "records/DateRangePreset.h"
#include "store/StepRule.h"

namespace elmworth {

namespace {

using namespace std::chrono_literals;

constexpr auto minimumLength = 1s;
constexpr auto tickInterval = 1000ms;
constexpr double awayThreshold = 600;
constexpr double longRunThreshold = 36000;
constexpr std::size_t recentEntriesWindow = 200;
constexpr std::size_t lastEntriesWindow = 20;
constexpr auto overlapLookBack = 86400s;

bool isListed(const Ref<Project>& project) {
    return project && !project->isArchived;
}

}  // namespace

TimerService::TimerService(UnitOfWork& context, Clock now, RunLoop& runLoop,
                           std::function<Calendar()> calendar)
    : context_(context), now_(std::move(now)), runLoop_(runLoop), calendar_(std::move(calendar)) {}

// --- control -----------------------------------------------------------------------------------

void TimerService::restore() {
    const auto faults = context_.readFaults().count();
    const auto open = context_.fetchQuietly(Query<TimeEntry>{
        .predicate = key<&TimeEntry::end>() == absent,
        .sortBy = {sortedBy<&TimeEntry::start>(SortOrder::reverse)},
    });
    isUnread_ = open.empty() && context_.readFaults().count() != faults;
    for (std::size_t i = 1; i < open.size(); ++i) {
        open[i]->end = open[i]->start.get() + minimumLength;
    }
    setRunning(open.empty() ? nullptr : open.front());
    if (open.size() > 1) save();
    if (running_) {
        startTicker();
    } else {
        stopTicker();
    }
}

/// An entry that nobody knows of would go on beside the next one, and lose its time at the next
/// start.
void TimerService::restoreUnread() {
    if (!isUnread_) return;
    const OutsideSteps noPersonDidIt;
    restore();
}

void TimerService::step(const char* name, const std::function<void()>& change) {
    if (history_) return history_->performQuietly(name, change);
    change();
}

// By value: both may refer to fields of the running entry, which closing may delete.
void TimerService::start(Ref<Project> project, std::string notes) {  // NOLINT
    restoreUnread();
    step(running_ ? "Switch Timer" : "Start Timer", [&] {
        const Instant t = now_();  // read once, so that there is no gap between the two entries
        closeRunning(t);
        open(project, t, notes);
        save();
        startTicker();
    });
}

Ref<TimeEntry> TimerService::continueEntry(const Ref<TimeEntry>& entry) {
    const Ref<Project> project = entry->project;
    if (!project) return nullptr;
    // One save for both: a crash must not lose the notes.
    step("Continue Tracking", [&] { start(project, entry->notes); });
    return running_;
}

void TimerService::closeRunning(Instant t) {
    setAwayIntervals({});
    if (!running_) return;
    const auto entry = running_;
    setRunning(nullptr);
    if (entry->isDeleted()) return;
    if (t - entry->start.get() >= minimumLength) {
        entry->end = t;
    } else {
        context_.deleteRecord(entry);
    }
}

void TimerService::open(const Ref<Project>& project, Instant t, const std::string& notes) {
    const auto entry = std::make_shared<TimeEntry>(t, project);
    entry->notes = notes;
    context_.insert(entry);
    setRunning(entry);
}

void TimerService::stop() {
    restoreUnread();
    step("Stop Timer", [&] {
        closeRunning(now_());
        save();
        stopTicker();
    });
}

void TimerService::stop(Instant at) {
    restoreUnread();
    setAwayIntervals({});
    if (!running_) return;
    step("Stop Timer", [&] {
        const auto entry = running_;
        setRunning(nullptr);
        entry->end = std::max(at, entry->start.get() + minimumLength);
        save();
        stopTicker();
    });
}

void TimerService::refresh() {
    const bool stillRuns =
        running_ && !running_->isDeleted() && running_->unitOfWork() && running_->isRunning();
    if (running_ && !stillRuns) {
        setRunning(nullptr);
        stopTicker();
    }
    tick();
}

void TimerService::resume(const Ref<TimeEntry>& entry) {
    setRunning(entry);
    startTicker();
}

void TimerService::save() {
    try {
        context_.save();
    } catch (const StoreError& error) {
        writeSystemLog(std::string("Elmworth: save failed: ") + error.what());
    }
}

// --- the ticker --------------------------------------------------------------------------------

void TimerService::startTicker() {
    tick();
    if (!ticker_) ticker_ = runLoop_.repeat(tickInterval, [this] { tick(); });
}

void TimerService::stopTicker() {
    ticker_.reset();
    setText(elapsedText_, {}, Property::elapsedText);
    setText(elapsedLongText_, {}, Property::elapsedLongText);
}

void TimerService::tick() {
    if (!running_) {
        setText(elapsedText_, {}, Property::elapsedText);
        setText(elapsedLongText_, {}, Property::elapsedLongText);
        return;
    }
    const double seconds = secondsBetween(running_->start, now_());
    setText(elapsedText_, formatHoursMinutes(seconds), Property::elapsedText);
    setText(elapsedLongText_, formatHoursMinutesSeconds(seconds), Property::elapsedLongText);
}

// --- sleep -------------------------------------------------------------------------------------

void TimerService::installSleepObservers(PowerEvents& powerEvents) {
    if (!sleepObservers_.empty()) return;
    sleepObservers_.push_back(powerEvents.onWillSleep([this] { machineWillSleep(); }));
    sleepObservers_.push_back(powerEvents.onDidWake([this] { machineDidWake(); }));
}

void TimerService::machineWillSleep() {
    sleptAt_ = now_();
}

void TimerService::machineDidWake() {
    const auto sleptAt = std::exchange(sleptAt_, std::nullopt);
    if (!sleptAt || !running_ || *sleptAt <= running_->start.get()) return;
    const Instant wokeAt = now_();
    if (secondsBetween(*sleptAt, wokeAt) < awayThreshold) return;  // counts as work
    auto intervals = awayIntervals_;
    intervals.push_back({*sleptAt, wokeAt});
    setAwayIntervals(std::move(intervals));
}

void TimerService::keepAwayTime() {
    setAwayIntervals({});
}

void TimerService::discardAwayTime() {
    auto sleeps = awayIntervals_;
    setAwayIntervals({});
    if (!running_ || sleeps.empty()) return;
    std::stable_sort(sleeps.begin(), sleeps.end(),
                     [](const auto& a, const auto& b) { return a.start < b.start; });
    step("Discard Time Away", [&] { splitAround(sleeps); });
}

/// `sleeps` is sorted by start.
void TimerService::splitAround(const std::vector<DateInterval>& sleeps) {
    const auto first = running_;
    first->end = std::max(sleeps.front().start, first->start.get() + minimumLength);
    for (std::size_t i = 1; i < sleeps.size(); ++i) {
        if (sleeps[i].start > sleeps[i - 1].end) {
            insertFinished(*first, sleeps[i - 1].end, sleeps[i].start);
        }
    }
    const auto last = std::make_shared<TimeEntry>(sleeps.back().end, nullptr);
    last->project = first->project;
    last->notes = first->notes;
    context_.insert(last);
    setRunning(last);
    save();
    tick();
}

void TimerService::insertFinished(const TimeEntry& like, Instant start, Instant end) {
    const auto entry = std::make_shared<TimeEntry>(start, nullptr);
    entry->project = like.project;
    entry->end = end;
    entry->notes = like.notes;
    context_.insert(entry);
}

void TimerService::typeNotes(const std::string& notes) {
    const auto entry = running_;
    if (!entry || entry->isDeleted()) return;
    const auto change = [&] { entry->notes = notes; };
    if (!history_) return change();
    history_->type("Edit Notes", entry->id().string(), change);
}

void TimerService::leaveNotes() noexcept {
    if (history_) history_->leaveField();
}

bool TimerService::isLongRunning() const {
    return running_ && secondsBetween(running_->start, now_()) >= longRunThreshold;
}

// --- questions ---------------------------------------------------------------------------------

std::vector<Ref<Project>> TimerService::recentProjects(std::size_t limit) const {
    std::vector<Ref<Project>> projects;
    const auto take = [&](const Ref<Project>& project) {
        if (projects.size() >= limit || !isListed(project)) return;
        if (std::find(projects.begin(), projects.end(), project) != projects.end()) return;
        projects.push_back(project);
    };
    for (const auto& entry : context_.fetchQuietly(Query<TimeEntry>{
             .sortBy = {sortedBy<&TimeEntry::start>(SortOrder::reverse)},
 .fetchLimit = recentEntriesWindow,
         })) {
        take(entry->project);
    }
    if (projects.size() >= limit) return projects;
    for (const auto& project : context_.fetchQuietly(Query<Project>{
             .sortBy = {sortedBy<&Project::name>(SortOrder::forward,
                                                 SortComparison::localizedStandard)},
         })) {
        take(project);
    }
    return projects;
}

Ref<TimeEntry> TimerService::lastContinuableEntry() const {
    const auto entries = context_.fetchQuietly(Query<TimeEntry>{
        .predicate = key<&TimeEntry::end>() != absent,
        .sortBy = {sortedBy<&TimeEntry::end>(SortOrder::reverse),
                   sortedBy<&TimeEntry::start>(SortOrder::reverse)},
        .fetchLimit = lastEntriesWindow,
    });
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [](const auto& entry) { return isListed(entry->project); });
    return found == entries.end() ? nullptr : *found;
}

double TimerService::todaySeconds() const {
    const auto day = calendar_().interval(CalendarUnit::day, now_());
    return day ? trackedSeconds(day->start, day->end) : 0;
}

double TimerService::thisWeekSeconds() const {
    const auto week = calendar_().interval(CalendarUnit::weekOfYear, now_());
    return week ? trackedSeconds(week->start, week->end) : 0;
}

double TimerService::trackedSeconds(Instant from, Instant to) const {
    const auto entries = context_.fetchQuietly(Query<TimeEntry>{
        .predicate =
            key<&TimeEntry::start>() < to && (key<&TimeEntry::start>() >= from - overlapLookBack ||
                                              key<&TimeEntry::end>() == absent),
    });
    const Instant now = now_();
    double seconds = 0;
    for (const auto& entry : entries) {
        seconds += secondsWithin({from, to}, entry->start, entry->end->value_or(now));
    }
    return seconds;
}

// --- observers ---------------------------------------------------------------------------------

TimerService::Observation TimerService::observe(std::function<void(Property)> changed) {
    return observers_.add(std::move(changed));
}

void TimerService::setRunning(Ref<TimeEntry> entry) {
    if (entry == running_) return;
    running_ = std::move(entry);
    observers_.notify(Property::running);
}

void TimerService::setText(std::string& text, std::string value, Property property) {
    if (text == value) return;
    text = std::move(value);
    observers_.notify(property);
}

void TimerService::setAwayIntervals(std::vector<DateInterval> intervals) {
    if (intervals == awayIntervals_) return;
    awayIntervals_ = std::move(intervals);
    observers_.notify(Property::awayIntervals);
}

}  // namespace elmworth
