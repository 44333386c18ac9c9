// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/Completion.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "platform/Text.h"
#include "records/Client.h"
#include "records/Invoice.h"
#include "records/Project.h"

namespace elmworth {

namespace {

using Names = Completion::Names;
using Words = std::vector<Completion::Word>;

/// What an argument names, by what the help calls it.
constexpr std::array<std::pair<std::string_view, Names>, 4> kinds{{{"FILE", Names::files},
                                                                   {"CLIENT", Names::clients},
                                                                   {"PROJECT", Names::projects},
                                                                   {"NUMBER", Names::invoices}}};

Names namesOf(const CommandDescription::Value& value) {
    for (const auto& [kind, names] : kinds) {
        if (value.kind == kind) return names;
    }
    return Names::none;
}

/// Walks the words that are typed already.
class Reader {
 public:
    explicit Reader(const CommandDescription& program) : path_{&program} {}

    void read(const std::string& word) {
        if (std::exchange(open_, nullptr)) return;
        if (word.starts_with('-')) {
            const auto* option = findOption(word);
            if (option && !option->kind.empty()) open_ = option;
        } else if (const auto* command = path_.back()->command(word); command && position_ == 0) {
            path_.push_back(command);
        } else {
            ++position_;
        }
    }

    [[nodiscard]] Completion complete(const std::string& word) const {
        if (open_) return valuesOf(*open_);
        if (word.starts_with('-')) return options();
        auto completion = commands();
        const auto positionals = path_.back()->positionals();
        if (position_ < positionals.size()) {
            auto values = valuesOf(*positionals[position_]);
            // A new timer, or time to log, is for a project that is still worked on.
            if (values.names == Names::projects && path_.size() == 2)
                values.names = Names::activeProjects;
            completion.names = values.names;
            std::move(values.words.begin(), values.words.end(),
                      std::back_inserter(completion.words));
        }
        return completion;
    }

 private:
    static Completion valuesOf(const CommandDescription::Value& value) {
        Completion completion{{}, namesOf(value)};
        for (const auto& word : value.words) completion.words.push_back({word, {}});
        return completion;
    }

    /// Options of the commands above hold too.
    [[nodiscard]] const CommandDescription::Value* findOption(const std::string& name) const {
        for (const auto* command : path_) {
            if (const auto* option = command->option(name)) return option;
        }
        return nullptr;
    }

    [[nodiscard]] Completion options() const {
        Completion completion;
        const std::vector innermostFirst(path_.rbegin(), path_.rend());
        for (const auto* command : innermostFirst) {
            for (const auto& value : command->values) {
                const bool isKnown =
                    std::any_of(completion.words.begin(), completion.words.end(),
                                [&](const auto& known) { return known.word == value.name; });
                if (!value.isPositional() && !isKnown)
                    completion.words.push_back({value.name, value.help});
            }
        }
        return completion;
    }

    [[nodiscard]] Completion commands() const {
        Completion completion;
        if (position_ > 0) return completion;
        for (const auto& command : path_.back()->commands)
            completion.words.push_back({command.name, command.help});
        return completion;
    }

    std::vector<const CommandDescription*> path_;      ///< from the program to the command
    std::size_t position_ = 0;                         ///< how many positionals are typed
    const CommandDescription::Value* open_ = nullptr;  ///< the option whose value comes next
};

std::string lines(const Words& words) {
    std::string text;
    for (const auto& [word, meaning] : words) text += word + '\t' + oneLine(meaning) + '\n';
    return text;
}

template <class T>
std::vector<Ref<T>> sorted(UnitOfWork& context, const SortKey& key) {
    return context.fetch(Query<T>{.sortBy = {key}});
}

Words clientNames(UnitOfWork& context) {
    Words words;
    for (const auto& client : sorted<Client>(context, sortedBy<&Client::name>(SortOrder::forward)))
        words.push_back({client->name, {}});
    return words;
}

Words projectNames(UnitOfWork& context, bool withArchived) {
    Words words;
    for (const auto& project :
         sorted<Project>(context, sortedBy<&Project::name>(SortOrder::forward))) {
        if (project->isArchived && !withArchived) continue;
        const auto& client = project->client.get();
        words.push_back({project->name, client ? client->name.get() : ""});
    }
    return words;
}

Words invoiceNumbers(UnitOfWork& context) {
    Words words;
    const auto newestFirst = sortedBy<&Invoice::issueDate>(SortOrder::reverse);
    for (const auto& invoice : sorted<Invoice>(context, newestFirst)) {
        const auto& client = invoice->client.get();
        words.push_back({invoice->number, client ? client->name.get() : ""});
    }
    return words;
}

Words allNames(UnitOfWork& context, Names names) {
    if (names == Names::clients) return clientNames(context);
    if (names == Names::invoices) return invoiceNumbers(context);
    if (names == Names::none || names == Names::files) return {};
    return projectNames(context, names == Names::projects);
}

}  // namespace

Completion completionOf(const CommandDescription& program, const std::vector<std::string>& words) {
    if (words.empty()) return {};
    Reader reader(program);
    for (std::size_t i = 0; i + 1 < words.size(); ++i) reader.read(words[i]);
    return reader.complete(words.back());
}

Words namesIn(UnitOfWork& context, Names names) {
    auto words = allNames(context, names);
    std::erase_if(words, [](const auto& name) {
        return name.word.empty() || oneLine(name.word) != name.word;
    });
    return words;
}

void completeCommandLine(const std::vector<std::string>& words, CommandLine& commandLine) {
    const auto completion = completionOf(describeProgram(), words);
    const bool isFile = completion.names == Names::files;
    CommandResult answer{lines(completion.words) + (isFile ? "\tfile\n" : ""), {}, 0};
    if (isFile || completion.names == Names::none) {
        commandLine.answer = std::move(answer);
        return;
    }
    commandLine.onlyLooks = true;
    commandLine.action = [answer = std::move(answer), names = completion.names](
                             CommandEnvironment& environment, CommandResult& result) {
        result.output = answer.output + lines(namesIn(environment.context, names));
    };
}

}  // namespace elmworth
