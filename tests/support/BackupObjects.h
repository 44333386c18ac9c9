// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "exchange/Backup.h"
#include "records/BusinessProfile.h"
#include "support/Instants.h"

namespace elmworth::test {

// Objects of backup documents as tests spell them.

inline BackupObject object(const BackupShape& shape,
                           std::initializer_list<std::pair<std::string_view, Value>> values,
                           std::vector<BackupObject> items = {}) {
    BackupObject made(shape);
    for (const auto& [key, value] : values) made[key] = value;
    made.items = std::move(items);
    return made;
}

inline Value valueOf(Instant instant) {
    return FieldTraits<Instant>::toValue(instant);
}
inline Value valueOf(const BusinessProfile& profile) {
    return Blob{encodeProfile(profile)};
}

inline BackupObject entryObject(Instant start, std::optional<Instant> end,
                                const std::string& notes = "") {
    return object(
        backupShapes().entry,
        {{"start", valueOf(start)}, {"end", end ? valueOf(*end) : Value()}, {"notes", notes}});
}
inline BackupObject projectObject(const std::string& name, std::vector<BackupObject> entries = {}) {
    return object(backupShapes().project, {{"name", name}}, std::move(entries));
}
inline BackupObject clientObject(const std::string& name, std::vector<BackupObject> projects = {}) {
    return object(backupShapes().client, {{"name", name}}, std::move(projects));
}

}  // namespace elmworth::test
