// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/ProjectTimes.h"

#include <utility>

#include "records/TimeEntry.h"

namespace elmworth {

namespace {

/// More changed entries than this are not looked up one by one: to read the few projects that show
/// again is quicker.
constexpr std::size_t mostLookedUp = 500;

std::uint32_t bit(const RecordSchema& schema, std::string_view field) {
    return std::uint32_t{1} << schema.fieldIndex(field);
}

bool changedOnly(const RecordChange& change, std::uint32_t fields) {
    return change.kind == RecordChange::Kind::changed && (change.fields & ~fields) == 0;
}

bool changedAny(const RecordChange& change, std::uint32_t fields) {
    return change.kind != RecordChange::Kind::changed || (change.fields & fields) != 0;
}

}  // namespace

ProjectTimes::ProjectTimes(UnitOfWork& context, std::function<void(const Projects&)> changed)
    : context_(context),
      changed_(std::move(changed)),
      observation_(context.observeAll([this](const auto& changes) { follow(changes); })) {}

double ProjectTimes::trackedSeconds(const Ref<Project>& project) {
    auto& tracked = times_[project->id()].tracked;
    if (tracked) return *tracked;
    try {
        tracked = context_.totalSeconds<&TimeEntry::project, &TimeEntry::start, &TimeEntry::end>(
            project->id());
        return *tracked;
    } catch (const StoreError&) {
        return 0;  // the library's faults are told elsewhere
    }
}

UnbilledTime ProjectTimes::unbilled(const Ref<Project>& project) {
    const PersistentID id = project->id();
    auto& unbilled = times_[id].unbilled;
    if (unbilled) return *unbilled;
    try {
        const CompleteReading reading(context_);  // a client that can't be read looks like no rate
        const auto read = unbilledTime(context_, project,
                                       [&](const PersistentID& entry) { projects_[entry] = id; });
        reading.check();
        unbilled = read;
        return read;
    } catch (const StoreError&) {
        return {};
    }
}

void ProjectTimes::follow(const RecordChanges& changes) {
    Projects touched;
    if (changes.touch(TimeEntry::schema())) {
        const auto* entries = changes.of(TimeEntry::schema());
        if (entries && entries->size() <= mostLookedUp) {
            followEntries(*entries, touched);
            followTracked(touched);
        } else {
            touchAll(touched);
        }
    }
    followRates(changes, touched);
    if (touched.size() == times_.size()) projects_.clear();
    for (const auto& project : touched) times_.erase(project);
    if (!touched.empty() && changed_) changed_(touched);
}

/// An entry that went, or that has left a project, is known by what was read.
void ProjectTimes::followEntries(const RecordChanges::Named& entries, Projects& touched) {
    static const auto notes = bit(TimeEntry::schema(), "notes");
    const auto touch = [&](const PersistentID& project) {
        if (times_.contains(project)) touched.insert(project);
    };
    for (const auto& [id, change] : entries) {
        if (changedOnly(change, notes)) continue;
        if (const auto known = projects_.extract(id)) touch(known.mapped());
        const auto entry = context_.recordQuietly<TimeEntry>(id);
        if (!entry || entry->isRunning()) continue;
        if (const auto project = entry->project.id()) touch(*project);
    }
}

/// Billed time that went or has left a project shows in its sum, which the context carries along.
void ProjectTimes::followTracked(Projects& touched) {
    for (const auto& [id, time] : times_) {
        if (!time.tracked) continue;
        try {
            const double now =
                context_.totalSeconds<&TimeEntry::project, &TimeEntry::start, &TimeEntry::end>(id);
            if (now != *time.tracked) touched.insert(id);
        } catch (const StoreError&) {
            touched.insert(id);
        }
    }
}

/// An entry is worth what its project or its client takes for an hour.
void ProjectTimes::followRates(const RecordChanges& changes, Projects& touched) const {
    static const auto projectRate =
        bit(Project::schema(), "rateOverrideCents") | bit(Project::schema(), "client");
    static const auto clientRate = bit(Client::schema(), "hourlyRateCents");
    const auto* projects = changes.of(Project::schema());
    const auto* clients = changes.of(Client::schema());
    if (!projects || !clients) return touchAll(touched);
    for (const auto& [id, change] : *projects) {
        if (times_.contains(id) && changedAny(change, projectRate)) touched.insert(id);
    }
    Projects dearer;  // clients whose rate changed
    for (const auto& [id, change] : *clients) {
        if (changedAny(change, clientRate)) dearer.insert(id);
    }
    if (dearer.empty()) return;
    for (const auto& [id, time] : times_) {
        const auto project = context_.recordQuietly<Project>(id);
        const auto client = project ? project->client.id() : std::nullopt;
        if (client && dearer.contains(*client)) touched.insert(id);
    }
}

void ProjectTimes::touchAll(Projects& touched) const {
    for (const auto& [id, time] : times_) touched.insert(id);
}

}  // namespace elmworth
