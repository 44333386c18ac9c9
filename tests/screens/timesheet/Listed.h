// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <optional>
#include <string>

#include "records/Client.h"
#include "records/TimesheetEntry.h"
#include "support/Instants.h"

namespace elmworth::test {

inline Ref<Client> clientNamed(const std::string& name, const std::string& currencyCode = "USD") {
    auto client = std::make_shared<Client>(name);
    client->currencyCode = currencyCode;
    return client;
}

inline Ref<Project> projectNamed(const std::string& name, const Ref<Client>& client = nullptr,
                                 const std::string& colorHex = "#4F7CFF") {
    auto project = std::make_shared<Project>(name, client);
    project->colorHex = colorHex;
    return project;
}

/// An entry as a timesheet keeps it, at the project's rate. An empty `end` leaves it running.
inline TimesheetEntry listed(const Ref<Project>& project, const std::string& start,
                             const std::string& end) {
    TimesheetEntry entry;
    entry.id = PersistentID::make();
    entry.start = at(start);
    if (!end.empty()) entry.end = at(end);
    entry.project = project;
    entry.rateCents = project ? project->effectiveRateCents() : 0;
    return entry;
}

}  // namespace elmworth::test
