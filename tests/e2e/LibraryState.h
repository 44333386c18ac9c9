// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "support/LibraryText.h"

namespace elmworth::test {

/// How many records of a type two states of a library differ in.
struct Difference {
    int added = 0;
    int changed = 0;
    int removed = 0;

    friend bool operator==(const Difference&, const Difference&) = default;
};

/// All that a library holds: the fields of each record as text, by "type identity".
class LibraryState {
 public:
    LibraryState() = default;
    explicit LibraryState(const std::string& libraryText) {
        std::istringstream lines(libraryText);
        for (std::string line; std::getline(lines, line);) put(line);
    }

    /// Takes a line "type identity fields".
    void put(const std::string& line) {
        const auto keyEnd = line.find(' ', line.find(' ') + 1);
        records_[line.substr(0, keyEnd)] = line.substr(keyEnd);
    }
    void remove(const std::string& key) { records_.erase(key); }

    /// The lines that lead from `before` to this state: "put type identity fields" and "remove type
    /// identity".
    [[nodiscard]] std::string changesSince(const LibraryState& before) const {
        std::string lines;
        for (const auto& [key, fields] : records_) {
            const auto old = before.records_.find(key);
            if (old == before.records_.end() || old->second != fields)
                lines.append("put ").append(key).append(fields).append("\n");
        }
        for (const auto& [key, fields] : before.records_) {
            if (!records_.contains(key)) lines.append("remove ").append(key).append("\n");
        }
        return lines;
    }

    /// What changed since `before` in the records of `type`.
    [[nodiscard]] Difference differenceSince(const LibraryState& before,
                                             const std::string& type) const {
        Difference difference;
        std::istringstream lines(changesSince(before));
        for (std::string line; std::getline(lines, line);) {
            const bool isRemoval = line.starts_with("remove ");
            const auto key = line.substr(isRemoval ? 7 : 4);
            if (!key.starts_with(type + ' ')) continue;
            const auto identity = key.substr(0, type.size() + 37);
            if (isRemoval)
                ++difference.removed;
            else if (before.records_.contains(identity))
                ++difference.changed;
            else
                ++difference.added;
        }
        return difference;
    }

    friend bool operator==(const LibraryState&, const LibraryState&) = default;

 private:
    std::map<std::string, std::string> records_;
};

}  // namespace elmworth::test
