// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

#include "command/CommandDescription.h"
#include "command/CommandLine.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// Stands in place of a command when a shell asks what may be typed: behind it come the words up
/// to the cursor, the last of which, perhaps empty, is the one that is being typed.
inline constexpr const char* completionRequest = "__complete";

/// What may stand in place of a word.
struct Completion {
    enum class Names { none, files, clients, projects, activeProjects, invoices };
    struct Word {
        std::string word;
        std::string meaning;
    };

    std::vector<Word> words;
    Names names = Names::none;  ///< of what else it may be the name
};

/// What may stand in place of the last of `words`, which begin behind the program's name.
[[nodiscard]] Completion completionOf(const CommandDescription& program,
                                      const std::vector<std::string>& words);

/// The names in a library; none of files. Those that a terminal could not show are left out.
[[nodiscard]] std::vector<Completion::Word> namesIn(UnitOfWork& context, Completion::Names names);

/// Makes `commandLine` answer a shell: a line for each word, with its meaning behind a tab, and a
/// line that begins with the tab where files may stand. It touches a library only for the names
/// in it.
void completeCommandLine(const std::vector<std::string>& words, CommandLine& commandLine);

}  // namespace elmworth
