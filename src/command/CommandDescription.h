// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace elmworth {

/// What a command, or the program, declares of itself: for the manual, and for shells that complete
/// what is typed.
struct CommandDescription {
    /// An option or a positional argument.
    struct Value {
        std::string name;                ///< "--client", or "PROJECT" for a positional
        std::string kind;                ///< "CLIENT"; empty for an option without a value
        std::string help;                ///< a sentence
        std::vector<std::string> words;  ///< what it can be; empty when that is not a few words
        bool isRequired = false;

        [[nodiscard]] bool isPositional() const { return !name.starts_with('-'); }
    };

    std::string name;
    std::string help;           ///< in one line
    std::vector<Value> values;  ///< in the order in which they were declared
    std::vector<CommandDescription> commands;
    bool needsSubcommand = false;
    std::string details = {};  ///< further sentences; empty for most

    /// The subcommand called `wanted`; null when there is none.
    [[nodiscard]] const CommandDescription* command(std::string_view wanted) const;
    /// The option called `wanted`; null when there is none.
    [[nodiscard]] const Value* option(std::string_view wanted) const;
    [[nodiscard]] std::vector<const Value*> positionals() const;
};

/// The whole program with all of its commands.
[[nodiscard]] CommandDescription describeProgram();

}  // namespace elmworth
