// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace elmworth {

/// The words that an argument can be, where these are a few.
using ValueWords = std::map<const CLI::Option*, std::vector<std::string>>;

/// Declares the arguments of a command, or of the program. Stands before CLI11 so that few files
/// have to read that library's header, which takes longer than all of a command's own code. A
/// handle: copies declare for the same command.
class SubcommandSyntax {
 public:
    /// An option or a positional argument while it is being declared.
    class Option {
     public:
        Option(CLI::Option& option, ValueWords& words) : option_(&option), words_(&words) {}
        Option& required();
        /// What the help calls the value, such as "AMOUNT".
        Option& typeName(const std::string& name);
        /// What shells offer for it: the names in `list`, between ", ", in quotes “ ” or without.
        /// Nothing is refused by this.
        Option& oneOf(const std::string& list);

     private:
        CLI::Option* option_;
        ValueWords* words_;
    };

    /// `words` notes what values can be; it outlives this, as does `command`.
    SubcommandSyntax(CLI::App& command, ValueWords& words) : command_(&command), words_(&words) {}

    /// The first line of `help` stands in the list of commands, the rest only where the command
    /// itself is told of.
    [[nodiscard]] SubcommandSyntax subcommand(const std::string& name, const std::string& help);

    /// Whether one of the subcommands must be given; otherwise at most one may.
    void requireSubcommand(bool isRequired = true);

    /// An argument that is written into `value`, which must live until the command is parsed: an
    /// option when `name` begins with dashes, else a positional.
    Option option(const std::string& name, std::string& value, const std::string& help);

    /// An option without a value that makes `value` true.
    Option flag(const std::string& name, bool& value, const std::string& help);

    /// An argument that `take` reads. What it gives back is wrong usage and the message to show;
    /// empty means that all is well.
    Option parsedOption(const std::string& name,
                        std::function<std::string(const std::string& text)> take,
                        const std::string& help);

    /// Calls `parsed` when the command was given and its arguments are read; a command's own call
    /// comes after those of its subcommands.
    void whenGiven(std::function<void()> parsed);
    [[nodiscard]] bool isGiven() const;

 private:
    CLI::App* command_;
    ValueWords* words_;
};

}  // namespace elmworth
