// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/Project.h"

#include "records/Client.h"
#include "records/TimeEntry.h"
#include "store/UnitOfWork.h"

namespace elmworth {

Project::Project(std::string projectName, Ref<Client> owner) {
    name = std::move(projectName);
    client = std::move(owner);
}

std::int64_t Project::effectiveRateCents() const {
    if (rateOverrideCents.get()) return *rateOverrideCents.get();
    const auto& owner = client.get();
    return owner ? owner->hourlyRateCents.get() : 0;
}

std::optional<double> Project::budgetSeconds() const {
    const auto hours = budgetHours.get();
    if (!hours || *hours < 1) return std::nullopt;
    return static_cast<double>(*hours) * 3600;
}

std::optional<double> Project::budgetFraction(Instant now) const {
    const auto budget = budgetSeconds();
    if (!budget) return std::nullopt;
    double seconds = 0;
    if (auto* context = unitOfWork()) {
        const PersistentID& ownID = id();
        seconds =
            context->totalSeconds<&TimeEntry::project, &TimeEntry::start, &TimeEntry::end>(ownID);
        for (const auto& entry :
             context->fetch<TimeEntry>({.predicate = key<&TimeEntry::end>() == absent})) {
            if (entry->project.id() == ownID) seconds += secondsBetween(entry->start, now);
        }
    }
    return seconds / *budget;
}

std::string fullName(const Project& project) {
    const auto& client = project.client.get();
    return client ? project.name.get() + " — " + client->name.get() : project.name.get();
}

const RecordSchema& Project::schema() {
    static constexpr FieldDescription fields[] = {
        attribute<&Project::name>("name", {.input = FieldInput::name}),
        toOne<&Project::client>("client"),
        attribute<&Project::colorHex>("colorHex", {.input = FieldInput::color, .word = "color"}),
        attribute<&Project::rateOverrideCents>("rateOverrideCents",
                                               {.input = FieldInput::amount, .word = "rate"}),
        attribute<&Project::isArchived>("isArchived", {.input = FieldInput::none}),
        attribute<&Project::budgetHours>("budgetHours",
                                         {.input = FieldInput::hours, .word = "budget"}),
    };
    static constexpr ToManyDescription relationships[] = {
        {"entries", &TimeEntry::schema, "project", DeleteRule::cascade},
    };
    static constexpr IndexDescription indexes[] = {
        {"ProjectByClient", {"client"}},
    };
    static constexpr RecordSchema schema{"Project",     1,       fields,
                                         relationships, indexes, &makeRecord<Project>};
    return schema;
}

}  // namespace elmworth
