// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/UndoResult.h"

#include <algorithm>
#include <cctype>

#include "store/Schema.h"

namespace elmworth {

namespace {

/// What people call a record of this type: the last word of its name, "entry" of "TimeEntry".
std::string noun(const RecordSchema& schema) {
    const auto last = schema.name.find_last_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    std::string word(schema.name.substr(last == std::string_view::npos ? 0 : last));
    word[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(word[0])));
    return word;
}

std::string counted(const UndoResult::LeftAlone& left) {
    auto word = noun(*left.schema);
    if (left.count == 1) return "1 " + word;
    if (word.back() == 'y') {
        word.replace(word.size() - 1, 1, "ies");
    } else {
        word += 's';
    }
    return std::to_string(left.count) + ' ' + word;
}

void say(std::string& notice, const std::string& sentence) {
    if (!notice.empty()) notice += ' ';
    notice += sentence;
}

}  // namespace

void UndoResult::leave(const RecordSchema& schema, const Refusal& why) {
    const auto known = std::find_if(leftAlone.begin(), leftAlone.end(), [&](const auto& left) {
        return left.why == &why && left.schema == &schema;
    });
    if (known != leftAlone.end()) {
        ++known->count;
    } else {
        leftAlone.push_back({&why, &schema, 1});
    }
}

std::size_t UndoResult::countOf(const Refusal& why) const noexcept {
    std::size_t count = 0;
    for (const auto& left : leftAlone) count += left.why == &why ? left.count : 0;
    return count;
}

std::string UndoResult::notice() const {
    std::string notice;
    std::vector<const Refusal*> told;
    for (const auto& first : leftAlone) {
        if (std::find(told.begin(), told.end(), first.why) != told.end()) continue;
        told.push_back(first.why);
        std::string subject;
        for (const auto& left : leftAlone) {
            if (left.why == first.why) subject += (subject.empty() ? "" : " and ") + counted(left);
        }
        const bool isOne = countOf(*first.why) == 1;
        say(notice, subject + ' ' + std::string(isOne ? first.why->one : first.why->several));
    }
    for (const auto& remark : remarks) say(notice, remark);
    return notice;
}

}  // namespace elmworth
