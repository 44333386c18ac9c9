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

Instant weekBefore(const AppServices& services) {
    const Instant now = services.now();
    const auto weekAgo = services.calendar().adding(-7, CalendarUnit::day, now);
    return weekAgo.value_or(now - std::chrono::days(7));
}

template <class T>
QString nameOf(const T& record) {
    return text(record.name.get());
}

}  // namespace

TimesheetFilterModel::TimesheetFilterModel(AppServices services)
    : services_(std::move(services)),
      client_(services_.context, {.none = QStringLiteral("All Clients"), .label = &nameOf<Client>}),
      project_(services_.context, {.none = QStringLiteral("All Projects"),
                                   .label = &nameOf<Project>,
                                   .isListed =
                                       [this](const Project& project) {
                                           const auto& client = client_.record();
                                           return !client || project.client.get() == client;
                                       }}),
      period_(services_, weekBefore(services_), services_.now()) {
    for (auto* day : {from(), to()}) {
        connect(day, &DateTimeInput::changed, this, &TimesheetFilterModel::changed);
    }
    for (const auto signal : {&ChoiceModel::picked, &ChoiceModel::lost}) {
        connect(&client_, signal, this, &TimesheetFilterModel::clientChanged);
        connect(&project_, signal, this, &TimesheetFilterModel::tell);
    }
    defaultsObservation_ =
        services_.defaults.observe([this](std::string_view key) { defaultChanged(key); });
    client_.follow();
    project_.follow();
}

DateRangePreset TimesheetFilterModel::currentPreset() const {
    const auto raw = services_.defaults.string(rangeKey).value_or("");
    return dateRangePresetFromRawValue(raw).value_or(DateRangePreset::thisWeek);
}

int TimesheetFilterModel::preset() const {
    return static_cast<int>(currentPreset());
}

QString TimesheetFilterModel::presetTitle() const {
    return PeriodInput::title(currentPreset());
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
    const auto preset = PeriodInput::presetAt(position);
    if (preset) services_.defaults.setString(rangeKey, rawValue(*preset));
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

void TimesheetFilterModel::clientChanged() {
    project_.offerRecords();
    tell();
}

bool TimesheetFilterModel::canClear() const {
    return client_.isSet() || project_.isSet() || !search_.isEmpty();
}

void TimesheetFilterModel::clear() {
    if (!canClear()) return;
    project_.setRecord(nullptr);
    client_.setRecord(nullptr);
    search_.clear();
    clientChanged();
}

TimesheetFilter TimesheetFilterModel::filter() const {
    return {.range = period_.interval(currentPreset()),
            .unbilledOnly = unbilledOnly(),
            .project = project_.record(),
            .client = client_.record(),
            .search = search_.toStdString()};
}

void TimesheetFilterModel::tell() {
    Q_EMIT narrowed();
    Q_EMIT changed();
}

std::vector<Ref<Project>> TimesheetFilterModel::currentProjects() const {
    auto projects = project_.records();
    std::erase_if(projects, [](const auto& project) { return project->isArchived.get(); });
    return projects;
}

}  // namespace elmworth
