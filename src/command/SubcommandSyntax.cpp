// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/SubcommandSyntax.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string_view>
#include <utility>

namespace elmworth {

namespace {

std::string unquoted(std::string word) {
    constexpr std::string_view opening = "“";
    constexpr std::string_view closing = "”";
    if (word.starts_with(opening) && word.ends_with(closing)) {
        word.erase(word.size() - closing.size());
        word.erase(0, opening.size());
    }
    return word;
}

}  // namespace

SubcommandSyntax::Option& SubcommandSyntax::Option::required() {
    option_->required();
    return *this;
}

SubcommandSyntax::Option& SubcommandSyntax::Option::typeName(const std::string& name) {
    option_->type_name(name);
    return *this;
}

SubcommandSyntax::Option& SubcommandSyntax::Option::oneOf(const std::string& list) {
    constexpr std::string_view separator = ", ";
    auto& words = (*words_)[option_];
    for (std::size_t begin = 0; begin < list.size();) {
        const auto end = std::min(list.find(separator, begin), list.size());
        words.push_back(unquoted(list.substr(begin, end - begin)));
        begin = end + separator.size();
    }
    return *this;
}

SubcommandSyntax SubcommandSyntax::subcommand(const std::string& name, const std::string& help) {
    return {*command_->add_subcommand(name, help), *words_};
}

void SubcommandSyntax::requireSubcommand(bool isRequired) {
    command_->require_subcommand(isRequired ? 1 : 0, 1);
}

SubcommandSyntax::Option SubcommandSyntax::option(const std::string& name, std::string& value,
                                                  const std::string& help) {
    return {*command_->add_option(name, value, help), *words_};
}

SubcommandSyntax::Option SubcommandSyntax::flag(const std::string& name, bool& value,
                                                const std::string& help) {
    return {*command_->add_flag(name, value, help), *words_};
}

SubcommandSyntax::Option SubcommandSyntax::parsedOption(
    const std::string& name, std::function<std::string(const std::string& text)> take,
    const std::string& help) {
    return {*command_->add_option_function<std::string>(
                name,
                [name, take = std::move(take)](const std::string& text) {
                    const std::string complaint = take(text);
                    if (!complaint.empty()) throw CLI::ValidationError(name, complaint);
                },
                help),
            *words_};
}

void SubcommandSyntax::whenGiven(std::function<void()> parsed) {
    command_->callback(std::move(parsed));
}

bool SubcommandSyntax::isGiven() const {
    return command_->parsed();
}

}  // namespace elmworth
