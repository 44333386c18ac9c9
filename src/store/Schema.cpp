// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/Schema.h"

namespace elmworth {

std::size_t RecordSchema::fieldIndex(std::string_view fieldName) const {
    std::size_t i = 0;
    while (fields[i].name != fieldName) ++i;
    return i;
}

}  // namespace elmworth
