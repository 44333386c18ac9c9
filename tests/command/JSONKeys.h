// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <rapidjson/document.h>

#include <string>
#include <vector>

namespace elmworth::test {

/// The keys of a JSON object, in their order.
inline std::vector<std::string> keys(const rapidjson::Value& object) {
    std::vector<std::string> names;
    for (const auto& member : object.GetObject()) names.emplace_back(member.name.GetString());
    return names;
}

}  // namespace elmworth::test
