// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/SubcommandSyntax.h"

#include <CLI/CLI.hpp>
#include <utility>

namespace elmworth {

SubcommandSyntax::Option& SubcommandSyntax::Option::required() {
    option_->required();
    return *this;
}

SubcommandSyntax::Option& SubcommandSyntax::Option::typeName(const std::string& name) {
    option_->type_name(name);
    return *this;
}

SubcommandSyntax SubcommandSyntax::subcommand(const std::string& name, const std::string& help) {
    return SubcommandSyntax(*command_->add_subcommand(name, help));
}

void SubcommandSyntax::requireSubcommand(bool isRequired) {
    command_->require_subcommand(isRequired ? 1 : 0, 1);
}

SubcommandSyntax::Option SubcommandSyntax::option(const std::string& name, std::string& value,
                                                  const std::string& help) {
    return Option(*command_->add_option(name, value, help));
}

SubcommandSyntax::Option SubcommandSyntax::flag(const std::string& name, bool& value,
                                                const std::string& help) {
    return Option(*command_->add_flag(name, value, help));
}

SubcommandSyntax::Option SubcommandSyntax::parsedOption(
    const std::string& name, std::function<std::string(const std::string& text)> take,
    const std::string& help) {
    return Option(*command_->add_option_function<std::string>(
        name,
        [name, take = std::move(take)](const std::string& text) {
            const std::string complaint = take(text);
            if (!complaint.empty()) throw CLI::ValidationError(name, complaint);
        },
        help));
}

void SubcommandSyntax::whenGiven(std::function<void()> parsed) {
    command_->callback(std::move(parsed));
}

bool SubcommandSyntax::isGiven() const {
    return command_->parsed();
}

}  // namespace elmworth
