// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "command/SubcommandSyntax.h"
#include "platform/Text.h"

namespace elmworth {

/// The values that an option takes, by the words for them.
template <class T>
using Choices = std::vector<std::pair<std::string, T>>;

/// "text or json"
template <class T>
[[nodiscard]] std::string choiceNames(const Choices<T>& choices) {
    std::string names;
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (i > 0) names += i + 1 == choices.size() ? " or " : ", ";
        names += choices[i].first;
    }
    return names;
}

/// Adds an option or positional that takes one of `choices`, without regard to case, into `value`.
/// Another word is wrong usage, and the message names them all.
template <class T>
SubcommandSyntax::Option addChoice(SubcommandSyntax command, const std::string& name,
                                   std::shared_ptr<T> value, const Choices<T>& choices,
                                   const std::string& help) {
    auto option = command.parsedOption(
        name,
        [value, choices](const std::string& text) -> std::string {
            for (const auto& [word, meaning] : choices) {
                if (caseFolded(text) != caseFolded(word)) continue;
                *value = meaning;
                return {};
            }
            return "“" + text + "” is no choice. Choose " + choiceNames(choices) + ".";
        },
        help + choiceNames(choices));
    for (const auto& [word, meaning] : choices) option.oneOf(word);
    return option;
}

}  // namespace elmworth
