// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/RecordLookup.h"

#include <algorithm>
#include <functional>

#include "command/CommandError.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

constexpr std::size_t candidatesShown = 8;

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < std::min(names.size(), candidatesShown); ++i) {
        text += (i > 0 ? ", " : "") + names[i];
    }
    if (names.size() > candidatesShown) {
        text += " and " + std::to_string(names.size() - candidatesShown) + " more";
    }
    return text;
}

/// Those of `records` that somebody may have meant by `name`: names that hold it, else all of them.
template <class T>
std::vector<std::string> candidates(const std::vector<Ref<T>>& records, const std::string& name,
                                    const std::function<std::string(const T&)>& label) {
    std::vector<std::string> near;
    std::vector<std::string> all;
    const std::string wanted = caseFolded(name);
    for (const auto& record : records) {
        all.push_back(label(*record));
        if (caseFolded(record->name.get()).find(wanted) != std::string::npos) {
            near.push_back(all.back());
        }
    }
    return near.empty() ? all : near;
}

template <class T>
Ref<T> findByName(const std::vector<Ref<T>>& records, const std::string& name,
                  const std::string& kind, const std::string& advice,
                  const std::function<std::string(const T&)>& label) {
    std::vector<Ref<T>> found;
    const std::string wanted = caseFolded(name);
    for (const auto& record : records) {
        if (caseFolded(record->name.get()) == wanted) found.push_back(record);
    }
    if (found.size() == 1) return found.front();
    if (found.empty()) {
        const auto names = candidates<T>(records, name, label);
        throw CommandError("There is no " + kind + " “" + name + "”." +
                           (names.empty() ? "" : " Candidates: " + joined(names) + "."));
    }
    std::vector<std::string> names;
    names.reserve(found.size());
    for (const auto& record : found) names.push_back(label(*record));
    throw CommandError("There are " + std::to_string(found.size()) + " " + kind + "s “" + name +
                       "”: " + joined(names) + "." + advice);
}

template <class T, auto Name>
std::vector<Ref<T>> allByName(UnitOfWork& context) {
    return context.fetch(Query<T>{
        .sortBy = {sortedBy<Name>(SortOrder::forward, SortComparison::localizedStandard)}});
}

}  // namespace

Ref<Client> findClient(UnitOfWork& context, const std::string& name) {
    return findByName<Client>(allByName<Client, &Client::name>(context), name, "client",
                              " Rename one of them in the window first.",
                              [](const Client& client) { return client.name.get(); });
}

bool hasClient(UnitOfWork& context, const std::string& name) {
    const auto clients = context.fetch<Client>();
    return std::any_of(clients.begin(), clients.end(),
                       [wanted = caseFolded(name)](const auto& client) {
                           return caseFolded(client->name.get()) == wanted;
                       });
}

Ref<Project> findProject(UnitOfWork& context, const std::string& name,
                         const std::string& clientName) {
    auto projects = allByName<Project, &Project::name>(context);
    if (!clientName.empty()) {
        const auto client = findClient(context, clientName);
        std::erase_if(projects,
                      [&](const auto& project) { return project->client.get() != client; });
    }
    return findByName<Project>(projects, name, "project", " Name the client with --client.",
                               &fullName);
}

Ref<Invoice> findInvoice(UnitOfWork& context, const std::string& number) {
    auto found = context.fetch(
        Query<Invoice>{.predicate = key<&Invoice::number>() == number, .fetchLimit = 1});
    if (found.empty()) {
        found = context.fetch<Invoice>();
        std::erase_if(found, [wanted = canonical(number)](const auto& invoice) {
            return canonical(invoice->number.get()) != wanted;
        });
    }
    if (found.empty()) {
        throw CommandError("There is no invoice “" + number +
                           "”. \"elmworth invoice list\" shows all numbers.");
    }
    return found.front();
}

}  // namespace elmworth
