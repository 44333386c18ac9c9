// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "command/CommandSyntax.h"

namespace elmworth {

/// The syntax of the program's arguments. Only for what reads or describes them: commands declare
/// theirs by SubcommandSyntax, which needs no header of CLI11's.
class ProgramSyntax {
 public:
    /// Declares the command that `arguments` name, or all where they name none: a key binding must
    /// not wait for the syntax of commands that it does not use.
    explicit ProgramSyntax(const std::vector<std::string>& arguments);
    ProgramSyntax(const ProgramSyntax&) = delete;
    ProgramSyntax& operator=(const ProgramSyntax&) = delete;
    ~ProgramSyntax();

    [[nodiscard]] CLI::App& program() noexcept { return program_; }
    [[nodiscard]] const ValueWords& words() const noexcept { return words_; }
    [[nodiscard]] const CommandSyntax& given() const noexcept { return syntax_; }
    [[nodiscard]] OutputFormat format() const { return *format_; }

 private:
    CLI::App program_;
    ValueWords words_;
    CommandSyntax syntax_;
    std::shared_ptr<OutputFormat> format_;
};

}  // namespace elmworth
