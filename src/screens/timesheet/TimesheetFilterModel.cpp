// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetFilterModel.h"

#include <chrono>
#include <utility>

#include "platform/DateFormatter.h"

namespace elmworth {

namespace {

constexpr std::string_view rangeKey = "timesheetRange";
constexpr std::string_view unbilledKey = "timesheetUnbilledOnly";

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

template <class T>
Query<T> byName() {
    return {.sortBy = {sortedBy<&T::name>(SortOrder::forward, SortComparison::localizedStandard)}};
}

}  // namespace

TimesheetFilterModel::TimesheetFilterModel(AppServices services)
    : services_(std::move(services)),
      customFrom_(services_.calendar, services_.now),
      customTo_(services_.calendar, services_.now),
      clients_(services_.context, byName<Client>(), [this](const auto&) { recordsChanged(); }),
      projects_(services_.context, byName<Project>(), [this](const auto&) { recordsChanged(); }) {
    const Instant now = services_.now();
    const auto weekAgo = services_.calendar().adding(-7, CalendarUnit::day, now);
    customFrom_.setValue(weekAgo.value_or(now - std::chrono::days(7)));
    customTo_.setValue(now);
    for (auto* day : {&customFrom_, &customTo_}) {
        connect(day, &DateTimeInput::changed, this, &TimesheetFilterModel::changed);
    }
    connect(&client_, &ChoiceModel::picked, this, &TimesheetFilterModel::pickClient);
    connect(&project_, &ChoiceModel::picked, this, &TimesheetFilterModel::pickProject);
    defaultsObservation_ =
        services_.defaults.observe([this](std::string_view key) { defaultChanged(key); });
    isReady_ = true;
    offerChoices();
}

QStringList TimesheetFilterModel::presets() {
    QStringList titles;
    for (const auto preset : allDateRangePresets) titles.append(text(rawValue(preset)));
    return titles;
}

DateRangePreset TimesheetFilterModel::currentPreset() const {
    const auto raw = services_.defaults.string(rangeKey).value_or("");
    return dateRangePresetFromRawValue(raw).value_or(DateRangePreset::thisWeek);
}

int TimesheetFilterModel::preset() const {
    return static_cast<int>(currentPreset());
}

QString TimesheetFilterModel::presetTitle() const {
    return text(rawValue(currentPreset()));
}

bool TimesheetFilterModel::isCustom() const {
    return currentPreset() == DateRangePreset::custom;
}

QString TimesheetFilterModel::subtitle() const {
    const auto [from, to] = filter().range;
    const DateFormatter format(DateFormatter::Style::mediumDate, Locale::current(),
                               services_.calendar().zoneID());
    return text(format.string(from) + " – " + format.string(to - std::chrono::seconds(1)));
}

void TimesheetFilterModel::choosePreset(int position) {
    if (position < 0 || static_cast<std::size_t>(position) >= allDateRangePresets.size()) return;
    services_.defaults.setString(rangeKey,
                                 rawValue(allDateRangePresets[static_cast<std::size_t>(position)]));
}

bool TimesheetFilterModel::unbilledOnly() const {
    return services_.defaults.boolean(unbilledKey).value_or(false);
}

void TimesheetFilterModel::setUnbilledOnly(bool only) {
    services_.defaults.setBoolean(unbilledKey, only);
}

void TimesheetFilterModel::defaultChanged(std::string_view key) {
    if (key == rangeKey || key == unbilledKey) tell();
}

void TimesheetFilterModel::setSearch(const QString& search) {
    if (search == search_) return;
    search_ = search;
    tell();
}

void TimesheetFilterModel::pickClient(const PersistentID& id) {
    const auto client = services_.context.recordQuietly<Client>(id);
    if (client == clientFilter_) return;
    clientFilter_ = client;
    offerChoices();
    tell();
}

void TimesheetFilterModel::pickProject(const PersistentID& id) {
    const auto project = services_.context.recordQuietly<Project>(id);
    if (project == projectFilter_) return;
    projectFilter_ = project;
    offerChoices();
    tell();
}

bool TimesheetFilterModel::canClear() const {
    return clientFilter_ || projectFilter_ || !search_.isEmpty();
}

void TimesheetFilterModel::clear() {
    if (!canClear()) return;
    clientFilter_ = nullptr;
    projectFilter_ = nullptr;
    search_.clear();
    offerChoices();
    tell();
}

TimesheetFilter TimesheetFilterModel::filter() const {
    const Calendar calendar = services_.calendar();
    const auto span = interval(currentPreset(), services_.now(), calendar);
    return {
        .range = span ? *span : customInterval(customFrom_.value(), customTo_.value(), calendar),
        .unbilledOnly = unbilledOnly(),
        .project = projectFilter_,
        .client = clientFilter_,
        .search = search_.toStdString()};
}

void TimesheetFilterModel::tell() {
    Q_EMIT narrowed();
    Q_EMIT changed();
}

template <class T>
void offer(ChoiceModel& model, const char* none, const std::vector<Ref<T>>& records,
           const Ref<T>& chosen) {
    std::vector<Choice> choices{{{}, text(none), false}};
    for (const auto& record : records) {
        choices.push_back({record->id(), text(record->name.get()), false});
    }
    model.offer(std::move(choices), chosen ? chosen->id() : PersistentID{},
                chosen ? text(chosen->name.get()) : text(none));
}

void TimesheetFilterModel::offerChoices() {
    auto projects = projects_.records();
    if (clientFilter_) {
        std::erase_if(projects, [this](const auto& project) {
            return project->client.get() != clientFilter_;
        });
    }
    offer(client_, "All Clients", clients_.records(), clientFilter_);
    offer(project_, "All Projects", projects, projectFilter_);
}

void TimesheetFilterModel::recordsChanged() {
    if (!isReady_) return;
    const bool lost = (clientFilter_ && clientFilter_->isDeleted()) ||
                      (projectFilter_ && projectFilter_->isDeleted());
    if (clientFilter_ && clientFilter_->isDeleted()) clientFilter_ = nullptr;
    if (projectFilter_ && projectFilter_->isDeleted()) projectFilter_ = nullptr;
    offerChoices();
    if (lost) tell();
}

std::vector<Ref<Project>> TimesheetFilterModel::currentProjects() const {
    auto projects = projects_.records();
    std::erase_if(projects, [](const auto& project) { return project->isArchived.get(); });
    return projects;
}

}  // namespace elmworth
