// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/Schema.h"

#include <algorithm>

namespace elmworth {

std::size_t RecordSchema::fieldIndex(std::string_view fieldName) const {
    std::size_t i = 0;
    while (fields[i].name != fieldName) ++i;
    return i;
}

bool LibraryModel::canRead(int stored) const {
    for (; stored < version; stored = stepFrom(stored)->to) {
        if (!stepFrom(stored)) return false;
    }
    return stored == version;
}

const MigrationStep* LibraryModel::stepFrom(int stored) const {
    const auto found = std::find_if(steps.begin(), steps.end(),
                                    [&](const auto& step) { return step.from == stored; });
    return found == steps.end() ? nullptr : &*found;
}

}  // namespace elmworth
