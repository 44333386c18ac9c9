// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/FirstUnbilledStart.h"

#include <algorithm>

#include "records/Project.h"
#include "records/TimeEntry.h"

namespace elmworth {

std::optional<Instant> firstUnbilledStart(UnitOfWork& context, const Ref<Client>& client,
                                          Instant before) {
    const CompleteReading reading(context);
    Instant first = before;
    for (const auto& project : client->projects()) {
        context.forEachValues<&TimeEntry::start>(
            std::optional(key<&TimeEntry::project>() == project &&
                          key<&TimeEntry::end>() != absent && key<&TimeEntry::invoice>() == absent),
            [&](const PersistentID& /*entry*/, Instant start) { first = std::min(first, start); });
    }
    reading.check();
    return first < before ? std::optional(first) : std::nullopt;
}

}  // namespace elmworth
